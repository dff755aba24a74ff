#include "document/ui/barretextes.h"

#include "core/langue.h"
#include "core/texte.h"
#include "document/ui/teintes.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

struct BoutonDeLaBarre {
    QString cle;
    Toolbar::Kind genre = Toolbar::Kind::Separator;
    QString image = {};
    std::optional<Texte> infobulle = {};
    void (*presse)(BarreTextes& barre) = nullptr;
    QKeySequence raccourci = {};
};

/// In their order. A button is a row here; its press is a signal of the bar, whose deed stands in Textes::reliebarre().
const std::vector<BoutonDeLaBarre>& boutons() {
    using Kind = Toolbar::Kind;
    static const std::vector<BoutonDeLaBarre> tous{
        {u"Précédent"_s, Kind::DropDown, u"Précédent"_s, Texte::DocumentPrecedent,
         [](BarreTextes& barre) { emit barre.pas(Sens::Arriere, unpas); }, Qt::ALT | Qt::SHIFT | Qt::Key_Left},
        {u"Suivant"_s, Kind::DropDown, u"Suivant"_s, Texte::DocumentSuivant,
         [](BarreTextes& barre) { emit barre.pas(Sens::Avant, unpas); }, Qt::ALT | Qt::SHIFT | Qt::Key_Right},
        {u"Haut"_s, Kind::Plain, u"Haut"_s, Texte::TitrePrecedent, [](BarreTextes& barre) { emit barre.voisin(true); },
         Qt::ALT | Qt::Key_Up},
        {u"Bas"_s, Kind::Plain, u"Bas"_s, Texte::TitreSuivant, [](BarreTextes& barre) { emit barre.voisin(false); },
         Qt::ALT | Qt::Key_Down},
        {u"barreblocs"_s},
        {u"arbre"_s, Kind::Group, u"arbre"_s, Texte::SommaireDeLaCollection,
         [](BarreTextes& barre) { emit barre.bloc(Bloc::Arbre); }},
        {u"tableau"_s, Kind::Group, u"tableau"_s, Texte::ListeDeLaCollection,
         [](BarreTextes& barre) { emit barre.bloc(Bloc::Liste); }},
        {u"recherchedico"_s, Kind::Group, u"recherchedico"_s, Texte::RechercheDansLaCollection,
         [](BarreTextes& barre) { emit barre.bloc(Bloc::Recherche); }},
        {u"barrearrangement"_s},
        {u"barrehoriz"_s, Kind::Group, u"barrehoriz"_s, Texte::PanneauAGauche,
         [](BarreTextes& barre) { emit barre.arrangement(Arrangement::ACote); }},
        {u"barreverti"_s, Kind::Group, u"barreverti"_s, Texte::PanneauAuDessus,
         [](BarreTextes& barre) { emit barre.arrangement(Arrangement::Dessus); }},
        {u"barrepropriétés"_s},
        {u"propriétés"_s, Kind::Plain, u"propriétés"_s, Texte::ProprietesDuDocument,
         [](BarreTextes& barre) { emit barre.proprietes(); }, Qt::ALT | Qt::Key_Return},
        {u"barreabc"_s},
        {u"abc"_s, Kind::Check, u"abc"_s, Texte::ModeDAffichage,
         [](BarreTextes& barre) { emit barre.abc(barre.value(u"abc"_s)); }},
        {u"motprécédent"_s, Kind::Plain, u"motprécédent"_s, Texte::MotPrecedent,
         [](BarreTextes& barre) { emit barre.mot(false); }, Qt::SHIFT | Qt::Key_F3},
        {u"motsuivant"_s, Kind::Plain, u"motsuivant"_s, Texte::MotSuivant,
         [](BarreTextes& barre) { emit barre.mot(true); }, Qt::Key_F3},
        {u"marqueauto"_s, Kind::Check, u"marqueauto"_s, Texte::MarquerLesMots,
         [](BarreTextes& barre) { emit barre.marques(barre.value(u"marqueauto"_s)); }},
        {u"barredossier"_s},
        {u"dossiers"_s, Kind::Plain, u"Dossiers"_s, Texte::OuvrirMesDossiers,
         [](BarreTextes& barre) { emit barre.dossiers(); }},
        {u"document"_s, Kind::Plain, u"rangerdocument"_s, Texte::RangerDansUnDossier,
         [](BarreTextes& barre) { emit barre.ranger(); }}};
    return tous;
}

} // namespace

BarreTextes::BarreTextes(const Libelles& texte, QWidget* fenetre) : Toolbar(fenetre), texte_(texte) {
    setObjectName(u"barrechild"_s);
    for (const BoutonDeLaBarre& bouton : boutons()) {
        addButton(bouton.cle, bouton.genre, bouton.image);
        if (!bouton.presse)
            continue;
        setToolTip(bouton.cle, texte_(bouton.infobulle.value()));
        if (!bouton.raccourci.isEmpty())
            setShortcut(bouton.cle, bouton.raccourci);
    }
    // The frame has the same two, for the documents of all windows.
    for (const auto& cle : {u"Précédent"_s, u"Suivant"_s})
        setToolTip(cle, remplace(texte_(Texte::BulleCetteFenetre), {toolTip(cle)}));
    montreabc(false);
    for (const auto& cle : {u"Précédent"_s, u"Suivant"_s, u"Haut"_s, u"Bas"_s})
        setButtonEnabled(cle, false);
    montre({u"propriétés", u"barrepropriétés", u"abc", u"barreabc", u"document"}, false);
    montremots(false);
    connect(this, &Toolbar::buttonClicked, this, [this](const QString& cle) {
        const auto ici = std::ranges::find(boutons(), cle, &BoutonDeLaBarre::cle);
        Q_ASSERT(ici != boutons().end() && ici->presse);
        ici->presse(*this);
    });
    connect(this, &Toolbar::menuClicked, this, [this](const QString& cle, int rang) {
        emit pas(cle == u"Précédent" ? Sens::Arriere : Sens::Avant, rang);
    });
}

void BarreTextes::montre(std::initializer_list<QStringView> cles, bool visibles) {
    for (const QStringView cle : cles)
        setButtonVisible(cle.toString(), visibles);
}

void BarreTextes::montrehistorique(const Historique& historique) {
    setMenus(u"Précédent"_s, &historique.precedent.menus());
    setMenus(u"Suivant"_s, &historique.suivant.menus());
    setMenuImages(imagedhistorique);
    setMenuSubjects(documentdhistorique);
}

void BarreTextes::montrebloc(std::optional<Bloc> bloc) {
    setValue(u"arbre"_s, bloc == Bloc::Arbre);
    setValue(u"tableau"_s, bloc == Bloc::Liste);
    setValue(u"recherchedico"_s, bloc == Bloc::Recherche);
}

void BarreTextes::montrearrangement(Arrangement arrangement) {
    setValue(arrangement == Arrangement::ACote ? u"barrehoriz"_s : u"barreverti"_s, true);
}

void BarreTextes::montredossiers(bool ouverts) {
    montre({u"barredossier", u"dossiers"}, ouverts);
}

void BarreTextes::cachepasdemots() {
    montre({u"motprécédent", u"motsuivant"}, false);
}

// ---- BarreNavigable

void BarreTextes::montreboutons(bool dossiersouverts) {
    montre({u"propriétés", u"barrepropriétés", u"abc", u"barreabc"}, true);
    setButtonEnabled(u"Haut"_s, true);
    setButtonEnabled(u"Bas"_s, true);
    if (dossiersouverts)
        setButtonVisible(u"document"_s, true);
}

void BarreTextes::activehistorique(bool precedent, bool suivant) {
    setButtonEnabled(u"Précédent"_s, precedent);
    setButtonEnabled(u"Suivant"_s, suivant);
}

void BarreTextes::activevoisin(bool haut, bool actif) {
    setButtonEnabled(haut ? u"Haut"_s : u"Bas"_s, actif);
}

// ---- BarreLecture

void BarreTextes::montreabc(bool enfonce) {
    constexpr auto pourabreger = Texte::ModeDAffichage;
    constexpr auto pourtoutmontrer = Texte::RevenirAuTexteComplet;
    setValue(u"abc"_s, enfonce);
    setToolTip(u"abc"_s, remplace(texte_(Texte::BulleSuite), {texte_(enfonce ? pourtoutmontrer : pourabreger)}));
}

void BarreTextes::montremarques(bool enfonce) {
    setValue(u"marqueauto"_s, enfonce);
}

void BarreTextes::montremots(bool visibles) {
    montre({u"motprécédent", u"motsuivant", u"marqueauto"}, visibles);
}

} // namespace velm
