#pragma once
// A frame and document windows without a screen, which write down what the navigation asks of them.
#include "document/navigation.h"

#include <QHash>

#include <functional>
#include <memory>
#include <vector>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

class FenetreEssai final : public FenetreNavigable, public LectureNavigable, public BarreNavigable {
public:
    FenetreEssai(int indice, const QHash<QString, QString>& titres) : slot(indice), titres_(titres) {}

    LectureNavigable& lecture() override { return *this; }
    BarreNavigable& barrechild() override { return *this; }
    Parcours& parcours() override { return parcours_; }
    void prendfocus() override {
        ++focus;
        if (aufocus)
            aufocus();
    }
    void affiche(const Cle& cle, const QString& ancre) override {
        affichages << cle.texte();
        ancres << ancre;
        titreaffiche = titres_.value(cle.texte(), titreaffiche);
        if (alaffichage)
            alaffichage();
    }
    QString titre() override { return titreaffiche; }
    void montreboutons(bool dossiersouverts) override {
        boutons = true;
        boutondocument = boutondocument || dossiersouverts;
        haut = bas = true;
    }
    void activehistorique(bool precedent, bool suivant) override {
        boutonprecedent = precedent;
        boutonsuivant = suivant;
    }
    void activevoisin(bool versle, bool actif) override { (versle ? haut : bas) = actif; }

    QStringList precedents() const { return cles(parcours_.historique.precedent); }
    QStringList suivants() const { return cles(parcours_.historique.suivant); }
    static QStringList cles(const ListeHistorique& liste) {
        QStringList lues;
        for (int rang = 1; rang <= liste.nombre(); ++rang)
            lues << liste.cle(rang);
        return lues;
    }

    const int slot;
    QString titreaffiche;
    QStringList affichages;
    QStringList ancres;
    int focus = 0;
    bool visible = true;
    bool boutons = false;
    bool boutondocument = false;
    bool haut = false;
    bool bas = false;
    bool boutonprecedent = false;
    bool boutonsuivant = false;
    std::function<void()> aufocus;
    std::function<void()> alaffichage;

private:
    const QHash<QString, QString>& titres_;
    Parcours parcours_;
};

class HoteEssai final : public HoteNavigation {
public:
    explicit HoteEssai(const QHash<QString, QString>& titresdocuments) : titres(titresdocuments) {}

    FenetreNavigable* creefenetre(int indice) override {
        if (sansmemoire)
            return nullptr;
        fenetres.push_back(std::make_unique<FenetreEssai>(indice, titres));
        return fenetres.back().get();
    }
    void montrefenetre(int indice, bool visible) override {
        static_cast<FenetreEssai*>(navigation->fenetre(indice))->visible = visible;
    }
    void slotchange(int indice, bool ouverte) override { enfonces[static_cast<std::size_t>(indice)] = ouverte; }
    void activehistorique(bool precedent, bool suivant) override {
        boutonprecedent = precedent;
        boutonsuivant = suivant;
    }
    void majderniersdocuments() override { ++majderniers; }
    bool dossiersouverts() const override { return dossiers; }

    /// Unloads a window, whichever it is.
    void ferme(FenetreNavigable* fenetre) {
        for (auto& celle : fenetres) {
            if (celle && celle.get() == fenetre) {
                navigation->fermee(celle->slot, fenetre);
                celle.reset();
            }
        }
    }

    const QHash<QString, QString>& titres;
    Navigation* navigation = nullptr;
    std::vector<std::unique_ptr<FenetreEssai>> fenetres; ///< in the order of their making; gone ones are null
    std::array<bool, 12> enfonces{};
    bool boutonprecedent = false;
    bool boutonsuivant = false;
    bool dossiers = false;
    bool sansmemoire = false;
    int majderniers = 0;
};

} // namespace velm::test
