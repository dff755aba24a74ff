#pragma once
// A small base for the criteria search, with the folded texts and without.
#include "tests/search/criteres_support.h"

namespace velm::test {

class RechercheCriteresTest : public BaseCriteres, public testing::WithParamInterface<bool> {
protected:
    void ouvre() { ouvrepieces(GetParam()); }

    void petite() {
        pieces = {{u"CO000001"_s,
                   u"Garantie légale"_s,
                   u"Le vendeur répond du défaut. {T=CO000002}renvoi{-T}"_s,
                   {u"vente"_s, u"Défaut"_s, u"recours"_s},
                   u"Journal officiel"_s,
                   u"2004-02-28"_s,
                   u"Loi"_s},
                  {u"CO000002"_s,
                   u"Crédit"_s,
                   u"Les intérêts\nCourent.\tToujours"_s,
                   {u"prêt"_s},
                   u"Bulletin"_s,
                   u"1998-12-31"_s,
                   u"7"_s},
                  {u"CO000003"_s, QString(), QString()},
                  {u"EU000001"_s,
                   u"Directive"_s,
                   u"La GARANTIE du consommateur"_s,
                   {u"recours"_s},
                   u"JOCE"_s,
                   u"1999-02-01"_s,
                   u"40"_s},
                  {u"AD000001"_s, u"Autre"_s, u"garanties diverses, défaut"_s, {}, QString(), QString(), u"Arrêt"_s}};
        ouvre();
    }
    void texte(const QString& premier, const QString& second = {}, int conjonction = Criteres::Et) {
        criteres.texterech = {premier, second};
        criteres.conjonction = conjonction;
    }
    void lieux(bool titre, bool contenu, bool source) { criteres.emplacement = {titre, contenu, source}; }
    /// `nombre` documents of CO; "pair" stands in every second body.
    void beaucoup(int nombre) {
        for (int i = 1; i <= nombre; ++i)
            pieces.push_back(
                {u"CO"_s + sixchiffres(i), u"Titre %1"_s.arg(i), i % 2 == 0 ? u"Un mot pair."_s : u"Rien."_s});
        ouvre();
    }
};

inline QStringList liste(std::initializer_list<QString> cles) {
    return {cles};
}

} // namespace velm::test
