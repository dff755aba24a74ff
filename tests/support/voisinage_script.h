#pragma once
// Doubles of what stands around a document window: they record what was asked of them and answer as told.
#include "core/cle.h"
#include "document/ui/contextetextes.h"

#include <QLineEdit>
#include <QStringList>

#include <array>
#include <utility>
#include <vector>

namespace velm::test {

class VoisinageScript final : public Voisinage {
public:
    bool listeselection = false;
    bool dossiers = false;
    int formes = 2;
    PlaceTextes ici;
    std::array<bool, nombredefenetres> rafraichir{};
    std::vector<bool> mosaique; ///< each time the buttons came or went
    QStringList dits;

    bool listeselectionvisible() const override { return listeselection; }
    bool dossiersouverts() const override { return dossiers; }
    int formesouvertes() const override { return formes; }
    void montremosaique(bool visible) override { mosaique.push_back(visible); }
    PlaceTextes place(const QWidget&) const override { return ici; }
    bool prendrafraichir(int indice) override {
        return std::exchange(rafraichir.at(static_cast<std::size_t>(indice)), false);
    }
    void dit(const QString& texte) override { dits << texte; }
};

class AideMotsScript final : public AideMots {
public:
    bool connue = false; ///< words can be looked up
    Marquage commemarquer;
    QStringList lignes;   ///< the result of each search
    QStringList demandes; ///< code, colon, words, and "!" where all documents are wanted
    BilanRecherche bilan; ///< what comes of each search
    QLineEdit* completee = nullptr;

    Marquage marquage() const override { return commemarquer; }
    bool cherchable() const override { return connue; }
    void cherche(const QString& code, const QString& mots, const Ecoute& ecoute, bool tous) override {
        demandes << code + u':' + mots + (tous ? QStringLiteral("!") : QString());
        for (const QString& une : std::as_const(lignes))
            ecoute.ligne(une);
        ecoute.fin(bilan);
    }
    void complete(QLineEdit& boite) override { completee = &boite; }
};

} // namespace velm::test
