#include "search/listeselection.h"

#include "platform/text/frenchorder.h"

#include <algorithm>
#include <limits>

namespace velm {

namespace {

/// Row numbers are whole numbers with one more for the header.
constexpr int plusdelignes = std::numeric_limits<int>::max() - 1;

} // namespace

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
    return {.colonnes = {{Titre, 3000, 300},
                         {Motcle1, 2000, 301},
                         {Motcle2, 2000, 302},
                         {Motcle3, 2000, 303},
                         {Reference, 500, 0},
                         {Numart, 1000, 304},
                         {Clef, 0, 0}}};
}

ListeSelection::ListeSelection(const std::function<QString(int)>& texte)
    : colonnes_(modele(), texte), capacite_(plusdelignes) {}

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
    textes_.clear();
    lignes_.clear();
    ordre_.clear();
    row_ = rowsel_ = 0;
}

int ListeSelection::ajouteauflex(const FicheDocument& fiche) {
    if (lignes() >= capacite_)
        return -1;
    const std::size_t avant = textes_.size();
    const std::size_t lignesavant = lignes_.size();
    try {
        Ligne neuve{avant, {}};
        std::size_t rang = 0;
        // In the order of Champ.
        for (const QStringView champ :
             {fiche.titre, fiche.motcle1, fiche.motcle2, fiche.motcle3, fiche.numart, fiche.reference, fiche.cle}) {
            textes_.insert(textes_.end(), champ.utf16(), champ.utf16() + champ.size());
            neuve.fins[rang++] = static_cast<quint32>(textes_.size() - avant);
        }
        lignes_.push_back(neuve);
        ordre_.push_back(static_cast<quint32>(lignes_.size() - 1));
    } catch (const std::bad_alloc&) {
        textes_.resize(avant);
        lignes_.resize(lignesavant);
        return -1;
    }
    return 0;
}

void ListeSelection::supprime(const std::vector<int>& rangs) {
    auto vers = ordre_.begin();
    auto retire = rangs.begin();
    for (int rang = 1; rang <= static_cast<int>(ordre_.size()); ++rang) {
        if (retire != rangs.end() && *retire == rang)
            ++retire;
        else
            *vers++ = ordre_[static_cast<std::size_t>(rang) - 1];
    }
    ordre_.erase(vers, ordre_.end());
    if (ordre_.empty())
        return vide();
    choisit(row_, rowsel_);
}

void ListeSelection::supprimeselection() {
    const auto [premier, dernier] = rangschoisis();
    if (premier < 1)
        return;
    if (premier == 1 && dernier == lignes())
        return vide();
    ordre_.erase(ordre_.begin() + premier - 1, ordre_.begin() + dernier);
    row_ = rowsel_ = std::min(premier, lignes());
}

QString ListeSelection::texte(int rang, int place) const {
    return rang == 0 ? entetecellule(place) : champ(rang, static_cast<Champ>(colonnes_.champ(place)));
}

QString ListeSelection::champ(int rang, Champ champ) const {
    if (rang < 1 || rang > lignes() || champ < Titre || champ > Clef)
        return {};
    const Ligne& l = ligne(rang);
    const auto numero = static_cast<std::size_t>(champ);
    const std::size_t debut = numero == 0 ? 0 : l.fins[numero - 1];
    const QStringView vu(textes_.data() + l.debut + debut, static_cast<qsizetype>(l.fins[numero] - debut));
    return vu.toString();
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
    std::vector<quint32> ordre;
    ordre.reserve(places.size());
    int suivie = 0;
    for (const int place : places) {
        ordre.push_back(ordre_[static_cast<std::size_t>(place)]);
        if (place + 1 == row_)
            suivie = static_cast<int>(ordre.size());
    }
    ordre_ = std::move(ordre);
    row_ = rowsel_ = suivie;
}

void ListeSelection::effacemarquestri() {
    tri_.reset();
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

PublicationFin ListeSelection::publie() const {
    const bool present = rows() > 1;
    return {present, true, present};
}

std::unique_ptr<SourceDocuments> ListeSelection::source() {
    return std::make_unique<Source>(*this);
}

int infobulleregrouper(bool enfonce) {
    return enfonce ? 2608 : 2605;
}

int infobullecriteres(bool enfonce) {
    return enfonce ? 2431 : 2430;
}

} // namespace velm
