#include "search/listeselection.h"

#include "core/texte.h"
#include "platform/text/frenchorder.h"

#include <algorithm>

namespace velm {

/// What a search may find is shown at once: the columns of the list, wherever they stand.
class ListeSelection::Source final : public SourceDocuments {
public:
    explicit Source(ListeSelection& liste) : liste_(liste) {}

    int rowCount() const override { return liste_.lignes(); }
    QString text(int row, int column) const override {
        return liste_.champ(row + 1, static_cast<Champ>(champdecolonne(column)));
    }
    Cle cle(int row) const override { return decoupecle(liste_.cle(row + 1)); }
    bool sort(int column, bool descending) override {
        const int place = liste_.colonnes().place(champdecolonne(column));
        if (place < 0)
            return false;
        liste_.trie(place, descending);
        return true;
    }

private:
    int champdecolonne(int column) const {
        const std::vector<ModeleColonne>& colonnes = liste_.colonnes().modele().colonnes;
        return column >= 0 && column < nombredecolonnes ? colonnes[static_cast<std::size_t>(column)].champ : -1;
    }
    ListeSelection& liste_;
};

ModeleColonnes ListeSelection::modele() {
    return {.colonnes = {{Titre, 3000, Texte::Titre, 5},
                         {Motcle1, 2000, Texte::ColonneMotCle1, 1},
                         {Motcle2, 2000, Texte::ColonneMotCle2, 1},
                         {Motcle3, 2000, Texte::ColonneMotCle3, 1},
                         {Reference, 500, {}},
                         {Numart, 1000, Texte::ColonneReference},
                         {Clef, 0, {}}}};
}

ListeSelection::ListeSelection(const Libelles& texte) : colonnes_(modele(), texte) {}

QString ListeSelection::entetecellule(int place) const {
    switch (marque(place)) {
    case Marque::Ascendante:
        return colonnes_.titre(place) + u'>';
    case Marque::Descendante:
        return colonnes_.titre(place) + u'<';
    case Marque::Aucune:
        break;
    }
    return colonnes_.titre(place);
}

void ListeSelection::vide() {
    resultat_.lignes.vide();
    row_ = rowsel_ = 0;
}

void ListeSelection::supprimeselection() {
    const auto [premier, dernier] = rangschoisis();
    if (premier < 1)
        return;
    resultat_.lignes.supprime(premier, dernier);
    choisit(premier, premier);
}

QString ListeSelection::texte(int rang, int place) const {
    return rang == 0 ? entetecellule(place) : champ(rang, static_cast<Champ>(colonnes_.champ(place)));
}

ListeSelection::Marque ListeSelection::marque(int place) const {
    if (!tri_ || colonnes_.champ(place) != tri_->champ)
        return Marque::Aucune;
    return tri_->descendant ? Marque::Descendante : Marque::Ascendante;
}

void ListeSelection::trie(int place, bool descendant) {
    const int champ = colonnes_.champ(place);
    if (champ < 0)
        return;
    tri_ = Tri{champ, descendant};
    range(champ, descendant);
}

void ListeSelection::range(int parchamp, bool descendant) {
    const std::vector<int> places = frenchOrder(
        lignes(), [&](int rang) { return champ(rang + 1, static_cast<Champ>(parchamp)); }, descendant);
    const auto suivie = std::ranges::find(places, row() - 1);
    row_ = rowsel_ = suivie == places.end() ? 0 : static_cast<int>(suivie - places.begin()) + 1;
    resultat_.lignes.range(places);
}

void ListeSelection::effacemarquestri() {
    tri_.reset();
}

void ListeSelection::choisit(int row, int rowsel) {
    row_ = std::clamp(row, 0, lignes());
    rowsel_ = std::clamp(rowsel, 0, lignes());
}

std::pair<int, int> ListeSelection::rangschoisis() const {
    return std::minmax({row(), rowsel()});
}

bool ListeSelection::suivantrecherche() {
    if (row() >= lignes())
        return false;
    choisit(row() + 1, row() + 1);
    return true;
}

bool ListeSelection::precedentrecherche() {
    if (row() < 2)
        return false;
    choisit(row() - 1, row() - 1);
    return true;
}

std::unique_ptr<SourceDocuments> ListeSelection::source() {
    return std::make_unique<Source>(*this);
}

bool ListeSelection::repetitions() const {
    const auto premier = static_cast<Champ>(tri_ ? tri_->champ : colonnes_.champ(0));
    for (int rang = 2; rang <= lignes(); ++rang) {
        if (resultat_.lignes.vue(rang, premier) == resultat_.lignes.vue(rang - 1, premier))
            return true;
    }
    return false;
}

Texte infobulleregrouper(const ListeSelection& liste, bool etroite) {
    if (liste.regroupee() || liste.lignes() < 2)
        return infobulleregrouper(liste.regroupee());
    return etroite               ? Texte::RegrouperTropEtroit
           : liste.repetitions() ? infobulleregrouper(false)
                                 : Texte::RegrouperSansRepetition;
}

Texte infobulleregrouper(bool enfonce) {
    return enfonce ? Texte::SeparerLesCellules : Texte::RegrouperLesCellules;
}

Texte infobullecriteres(bool enfonce) {
    return enfonce ? Texte::MasquerLesCriteres : Texte::AfficherLesCriteres;
}

} // namespace velm
