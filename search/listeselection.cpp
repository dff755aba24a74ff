#include "search/listeselection.h"

#include "platform/text/frenchorder.h"
#include "platform/text/number.h"
#include "search/masques.h"

#include <algorithm>

namespace velm {

namespace {

/// The header of this column is not set.
constexpr int colonnesanstitre = 4;
constexpr int pluspetitelargeur = 60;
constexpr int plusgrandelargeur = 32767;
constexpr int motdepluriel = 2172;
constexpr int motdusingulier = 2171;

} // namespace

/// Columns of a source stay where they were made; a grid that shows them elsewhere asks by their first places.
class ListeSelection::Source final : public GridSource {
public:
    explicit Source(ListeSelection& liste) : liste_(liste) {}

    int rowCount() const override { return liste_.lignes(); }
    QString text(int row, int column) const override {
        return liste_.champ(row + 1, static_cast<Champ>(champdecolonne(column)));
    }
    bool sort(int column, bool descending) override {
        const int champ = champdecolonne(column);
        for (int place = 0; place < colonnes; ++place) {
            if (liste_.coldata(place) == champ)
                liste_.trie(place, descending);
        }
        return champ >= 0;
    }

private:
    static int champdecolonne(int column) {
        return column == colonnecle ? static_cast<int>(Clef) : champdumasque(masqueordre, column);
    }
    ListeSelection& liste_;
};

ListeSelection::ListeSelection(const std::function<QString(int)>& texte) {
    for (int i = 0; i < colonnesvisibles; ++i) {
        Colonne& neuve = colonnes_[static_cast<std::size_t>(i)];
        neuve.champ = champdumasque(masqueordre, i);
        neuve.largeur = largeurdumasque(masquelargeurs, i);
        if (i != colonnesanstitre)
            neuve.entete = texte(titreduchamp(masqueordre[i]));
    }
    colonnes_[colonnecle].champ = Clef;
}

int ListeSelection::coldata(int place) const {
    return colonnela(place) ? colonne(place).champ : -1;
}

int ListeSelection::largeur(int place) const {
    return colonnela(place) ? colonne(place).largeur : 0;
}

void ListeSelection::changelargeur(int place, int twips) {
    if (place >= 0 && place < colonnesvisibles)
        colonnes_[static_cast<std::size_t>(place)].largeur = std::max(twips, 0);
}

QString ListeSelection::entete(int place) const {
    return colonnela(place) ? colonne(place).entete : QString();
}

QString ListeSelection::entetecellule(int place) const {
    switch (marque(place)) {
    case Marque::Ascendante:
        return entete(place) + u'>';
    case Marque::Descendante:
        return entete(place) + u'<';
    case Marque::Aucune:
        break;
    }
    return entete(place);
}

void ListeSelection::deplacecolonne(int de, int vers) {
    if (de < 0 || de >= colonnesvisibles || vers < 0 || vers >= colonnesvisibles)
        return;
    const auto a = colonnes_.begin() + de;
    const auto b = colonnes_.begin() + vers;
    if (de < vers)
        std::rotate(a, a + 1, b + 1);
    else
        std::rotate(b, a, a + 1);
}

QString ListeSelection::ordre() const {
    QString masque;
    for (int place = 0; place < colonnesvisibles; ++place)
        masque += QString::number(colonne(place).champ);
    return masque;
}

QString ListeSelection::largeurs() const {
    QString masque;
    for (int place = 0; place < colonnesvisibles; ++place)
        masque += QString::number(std::min(colonne(place).largeur, plusgrandelargeur)).rightJustified(6, u'0');
    return masque;
}

void ListeSelection::prendcolonnes(QStringView ordre, QStringView largeurs) {
    if (ordre.size() == colonnesvisibles && std::is_permutation(ordre.begin(), ordre.end(), masqueordre.begin())) {
        for (int place = 0; place < colonnesvisibles; ++place) {
            int ici = place;
            while (colonne(ici).champ != champdumasque(ordre, place))
                ++ici;
            deplacecolonne(ici, place);
        }
    }
    for (int place = 0; place < colonnesvisibles; ++place) {
        const int largeur = largeurdumasque(largeurs, place);
        if (largeur >= pluspetitelargeur && largeur <= plusgrandelargeur)
            changelargeur(place, largeur);
    }
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
    row_ = rowsel_ = std::min(premier, lignes());
}

QString ListeSelection::texte(int rang, int place) const {
    if (!colonnela(place))
        return {};
    return rang == 0 ? entetecellule(place) : champ(rang, static_cast<Champ>(colonne(place).champ));
}

ListeSelection::Marque ListeSelection::marque(int place) const {
    return colonnela(place) ? colonne(place).marque : Marque::Aucune;
}

void ListeSelection::trie(int place, bool descendant) {
    if (!colonnela(place))
        return;
    effacemarquestri();
    colonnes_[static_cast<std::size_t>(place)].marque = descendant ? Marque::Descendante : Marque::Ascendante;
    range(colonne(place).champ, descendant);
}

void ListeSelection::range(int parchamp, bool descendant) {
    const std::vector<int> places = frenchOrder(
        lignes(), [&](int rang) { return champ(rang + 1, static_cast<Champ>(parchamp)); }, descendant);
    const auto suivie = std::ranges::find(places, row_ - 1);
    row_ = rowsel_ = suivie == places.end() ? 0 : static_cast<int>(suivie - places.begin()) + 1;
    resultat_.lignes.range(places);
}

void ListeSelection::effacemarquestri() {
    for (Colonne& une : colonnes_)
        une.marque = Marque::Aucune;
}

void ListeSelection::choisit(int row, int rowsel) {
    row_ = std::clamp(row, 0, lignes());
    rowsel_ = std::clamp(rowsel, 0, lignes());
}

std::pair<int, int> ListeSelection::rangschoisis() const {
    return std::minmax(row_, rowsel_);
}

bool ListeSelection::suivantrecherche() {
    if (row_ >= lignes())
        return false;
    choisit(row_ + 1, row_ + 1);
    return true;
}

bool ListeSelection::precedentrecherche() {
    if (row_ < 2)
        return false;
    choisit(row_ - 1, row_ - 1);
    return true;
}

std::unique_ptr<GridSource> ListeSelection::source() {
    return std::make_unique<Source>(*this);
}

QString textecompte(qint64 nombre, const std::function<QString(int)>& texte) {
    return numberText(nombre) + u' ' + texte(nombre > 1 ? motdepluriel : motdusingulier);
}

int infobulleregrouper(bool enfonce) {
    return enfonce ? 2608 : 2605;
}

int infobullecriteres(bool enfonce) {
    return enfonce ? 2431 : 2430;
}

} // namespace velm
