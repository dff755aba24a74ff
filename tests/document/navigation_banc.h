#pragma once
// A navigation over a frame of the tests and documents that are there by their titles.
#include "core/cle.h"
#include "navigation_support.h"

#include <gtest/gtest.h>

namespace velm::test {

class BancNavigation : public testing::Test {
protected:
    BancNavigation() { hote.navigation = &navigation; }

    void navigue(const QString& commande) { navigation.navigue(commande); }
    void navigue(std::initializer_list<QStringView> commandes) {
        for (const QStringView commande : commandes)
            navigation.navigue(commande.toString());
    }
    FenetreEssai& fenetre(QStringView code) {
        return static_cast<FenetreEssai&>(*navigation.fenetre(indicedetype(code)));
    }
    bool avecfenetre(QStringView code) const { return navigation.fenetre(indicedetype(code)) != nullptr; }
    QStringList precedents() const { return FenetreEssai::cles(navigation.historique().precedent); }
    QStringList suivants() const { return FenetreEssai::cles(navigation.historique().suivant); }
    QString courant() const { return navigation.referencecourante(); }
    QStringList derniers() const {
        QStringList cles;
        for (const QString& cle : navigation.derniersdocuments()) {
            if (!cle.isEmpty())
                cles << cle;
        }
        return cles;
    }
    static QHash<QString, QString> titresdessai() {
        QHash<QString, QString> titres;
        for (const QString& code : {u"CO"_s, u"EU"_s, u"DI"_s}) {
            for (int numero = 1; numero <= 20; ++numero)
                titres.insert(code + sixchiffres(numero), u"%1 numéro %2"_s.arg(code).arg(numero));
        }
        return titres;
    }

    QHash<QString, QString> titres = titresdessai();
    Corpus corpus;
    HoteEssai hote{titres};
    Navigation navigation{hote, corpus};
};

} // namespace velm::test
