#pragma once
// Criteria to save and to read back.
#include "platform/text/ansi.h"
#include "search/etatformulaire.h"
#include "tests/search/recherche_support.h"

#include <random>

namespace velm::test {

/// What the form offers in its lists.
inline const ItemsFormulaire items{{u"(Tous)"_s, u"crédit"_s, u"vente"_s},
                                   {u"(Tous)"_s, u"Arrêt"_s, u"Décret"_s},
                                   {u"et"_s, u"ou"_s, u"et non"_s, u"ou non"_s}};

class FichierCriteresTest : public BaseRecherche {
protected:
    static EtatFormulaire formulaire() {
        EtatFormulaire forme;
        forme.ongletrecherche = 1;
        forme.Textedico = u"vente consommateur"_s;
        forme.checkandordico = false;
        forme.Combonombredico = 2;
        forme.texterapide = u"rapide"_s;
        forme.combonombre = 1;
        forme.criteres.motcle = u"vente"_s;
        forme.criteres.type = 2;
        forme.criteres.textejour = u"1"_s;
        forme.criteres.textemois = u"2"_s;
        forme.criteres.texteannee = u"2003"_s;
        forme.criteres.texterech = {u"défaut « caché »"_s, u"garantie"_s};
        forme.criteres.motentier = {true, false};
        forme.criteres.respectminmaj = {false, true};
        forme.criteres.emplacement = {false, true, true};
        forme.criteres.conjonction = Criteres::Sauf;
        for (std::size_t i = 0; i < forme.boutons.size(); ++i)
            forme.boutons[i] = i % 3 == 0;
        return forme;
    }
    void remplit(int nombre) {
        for (int i = 1; i <= nombre; ++i) {
            const QString numero = sixchiffres(i);
            const QString cle = u"EU"_s + numero;
            const QString titre = u"Titre %1"_s.arg(i);
            ASSERT_TRUE(liste.resultat().lignes.ajoute({u"EU", numero, titre, u"un", u"deux", {}, cle}));
        }
    }
    QByteArray octets(const EtatFormulaire& forme) const { return ecritcriteres(fichierde(forme, items, liste)); }
    static EtatFormulaire relu(const QByteArray& octets, int prefixe = 0) {
        const auto fichier = litfichiercriteres(octets);
        EXPECT_TRUE(fichier.has_value());
        return etatde(fichier.value_or(FichierCriteres{}), items, prefixe);
    }
    QStringList rangees() const {
        QStringList toutes;
        for (int rang = 1; rang < liste.rows(); ++rang) {
            QStringList champs;
            for (const auto champ :
                 {ListeSelection::Titre, ListeSelection::Motcle1, ListeSelection::Motcle2, ListeSelection::Motcle3,
                  ListeSelection::Numart, ListeSelection::Reference, ListeSelection::Clef})
                champs << liste.champ(rang, champ);
            toutes << champs.join(u'|');
        }
        return toutes;
    }
    /// The lines of a file, without their ends.
    static QList<QByteArray> lignes(const QByteArray& octets) {
        QList<QByteArray> toutes;
        for (qsizetype place = 0; place < octets.size();) {
            const qsizetype fin = octets.indexOf("\r\n", place);
            toutes << octets.mid(place, fin - place);
            place = fin + 2;
        }
        return toutes;
    }
    static QByteArray joint(const QList<QByteArray>& lignes, const QByteArray& fin = "\r\n") {
        QByteArray octets;
        for (const QByteArray& ligne : lignes)
            octets += ligne + fin;
        return octets;
    }
};

} // namespace velm::test
