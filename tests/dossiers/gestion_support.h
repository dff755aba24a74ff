#pragma once
// A window of the dossiers that nobody sees, on a store that may fail.
#include "dossiers/gestiondossiers.h"
#include "magasin_support.h"
#include "tests/support/dialogues_script.h"

namespace velm::test {

struct VueAveugle final : VueDossiers {
    void montrecommandes(const CommandesDossiers& c) override { commandes = c; }
    void editenoeud(int noeud) override { noeudedite = noeud; }
    void editeelement(int index) override { elementedite = index; }
    void focusliste() override {}
    void montrecible(int /*noeud*/) override {}
    void montreattente(const ElementEnAttente& /*attente*/) override {}
    void ditcopiemanquee() override { ++copiesmanquees; }
    CommandesDossiers commandes;
    int noeudedite = 0;
    int elementedite = 0;
    int copiesmanquees = 0;
};

/// All that one window has.
struct FenetreAveugle {
    explicit FenetreAveugle(Magasin& magasin)
        : gestion({magasin, noeuds, elements, sablier, dialogues, vue, [](Texte numero) {
                       return numero == Texte::MotExtrait ? u"extrait"_s
                                                          : u"<%1> %1"_s.replace(1, 2, QString::number(int(numero)));
                   }}) {}

    int noeud(qint64 numero) const { return noeuds.indexOf(ArbreDossiers::clenoeud(numero)); }
    void clique(int lequel) {
        noeuds.select(lequel);
        gestion.arbrefocus();
        gestion.noeudclique(lequel);
    }
    void cliqueelement(int index) {
        elements.select(index);
        gestion.listefocus();
        gestion.elementclique(index);
    }
    /// What was said, by the numbers of the texts.
    QStringList dits() const {
        QStringList tous;
        for (const Message& message : dialogues.messages)
            tous << message.texte.section(u'>', 0, 0).mid(1);
        return tous;
    }

    TreeNodes noeuds;
    ListItems elements;
    SablierMuet sablier;
    DialoguesScript dialogues;
    VueAveugle vue;
    GestionDossiers gestion;
};

} // namespace velm::test
