#include "shell/bureau.h"

#include "document/ui/teintes.h"
#include "document/ui/textes.h"
#include "platform/system/memory.h"
#include "shell/actions.h"
#include "shell/ecrangeneral.h"
#include "shell/entreesfenetres.h"

#include <QMdiSubWindow>
#include <QScopedValueRollback>

#include <algorithm>
#include <iterator>
#include <new>

namespace velm {

namespace {

/// Windows in the frame beyond which arranging them makes sense; the frame itself counts.
constexpr int formesadisposer = 3;
/// Milliseconds without another window closing after which the memory of those that closed is given back.
constexpr int reposdelamemoire = 500;

} // namespace

Bureau::Bureau(Ecrangeneral& ecran, ChildArea& aire, Actions& actions, Corpus& corpus,
               std::function<Textes*(int indice)> fabrique)
    : ecran_(ecran), aire_(aire), actions_(actions), fabrique_(std::move(fabrique)), navigation_(*this, corpus) {
    ecran_.offre(Ordre::Precedent, navigation_.historique().precedent.menus());
    ecran_.offre(Ordre::Suivant, navigation_.historique().suivant.menus());
    connect(&aire_, &ChildArea::childActivated, this, &Bureau::activee);
    apresfermeture_.setSingleShot(true);
    apresfermeture_.setInterval(reposdelamemoire);
    connect(&apresfermeture_, &QTimer::timeout, this, &returnFreeMemory);
}

Bureau::~Bureau() {
    enfermeture_ = true;
    // The windows know the navigation: none of them outlives it.
    for (QWidget* fille : aire_.children())
        delete aire_.around(fille);
}

// ---- the windows, whatever they are

QMdiSubWindow* Bureau::ajoute(QWidget& fenetre, FenetreFille& contrat) {
    filles_.push_back({&fenetre, &contrat});
    contrat.surchangement = [this] { suitactive(); };
    connect(&fenetre, &QObject::destroyed, this, &Bureau::oublie);
    return aire_.add(&fenetre);
}

/// The window is being destroyed: nothing but its address may be used.
void Bureau::oublie(const QObject* fenetre) {
    std::erase_if(filles_, [fenetre](const Fille& fille) { return fille.fenetre == fenetre; });
    std::erase_if(documents_, [fenetre](const Textes* textes) { return textes == fenetre; });
}

FenetreFille* Bureau::devant() const {
    const auto ici = std::ranges::find(filles_, aire_.activeChild(), &Fille::fenetre);
    return ici == filles_.end() ? nullptr : ici->contrat;
}

std::vector<FenetreFille*> Bureau::filles() const {
    std::vector<FenetreFille*> toutes;
    std::ranges::transform(filles_, std::back_inserter(toutes), &Fille::contrat);
    return toutes;
}

void Bureau::activee() {
    // Windows that come forward while all of them are closed have no base to show anything from.
    if (enfermeture_)
        return;
    if (FenetreFille* active = devant())
        active->activation();
    suitactive();
}

// ---- the document windows

FenetreNavigable* Bureau::creefenetre(int indice) {
    Textes* nouvelle = nullptr;
    {
        // Whoever counts the forms meanwhile counts the new window: the one that it takes the place of does so when it
        // closes.
        const QScopedValueRollback fabrication(enfabrication_, 1);
        try {
            nouvelle = fabrique_(indice);
        } catch (const std::bad_alloc&) {
            if (sansmemoire)
                sansmemoire();
        }
        if (!nouvelle)
            return nullptr;
        fermecachee(indice);
    }
    documents_.push_back(nouvelle);
    ajoute(*nouvelle, *nouvelle);
    suit(*nouvelle);
    const PlaceTextes place = nouvelle->placevoulue();
    aire_.place(nouvelle, place.etat, place.gauche, place.haut, place.largeur, place.hauteur);
    aire_.showPlaced(nouvelle);
    return nouvelle;
}

/// A hidden window that another one takes the place of would stay for ever: nothing leads to it any more.
void Bureau::fermecachee(int indice) {
    if (Textes* remplacee = fenetre(indice); remplacee && !navigation_.maffichagef(indice))
        aire_.around(remplacee)->close();
}

void Bureau::suit(Textes& fenetre) {
    const int indice = fenetre.indice();
    connect(&fenetre, &Textes::premierplan, this, [this, ici = &fenetre] { avance(*ici); });
    connect(&fenetre, &Textes::cible, this, [this](const QString& texte) { ecran_.ditenpassant(texte); });
    connect(&fenetre, &Textes::ferme, this, [this, indice] { actions_.montre(Ordre::Fenetre, false, indice); });
    connect(&fenetre, &QObject::destroyed, &apresfermeture_, qOverload<>(&QTimer::start));
}

void Bureau::avance(Textes& fenetre) {
    if (!enrestauration_ || aire_.stateOf(&fenetre) != ChildArea::Minimised)
        aire_.activate(&fenetre);
}

void Bureau::montrefenetre(int indice, bool visible) {
    Textes* presente = fenetre(indice);
    if (!presente)
        return;
    if (visible)
        aire_.activate(presente);
    else
        aire_.hideChild(presente);
}

void Bureau::slotchange(int indice, bool ouverte) {
    actions_.coche(Ordre::Collection, ouverte, indice);
    actions_.montre(Ordre::Fenetre, ouverte, indice);
    if (!enfermeture_)
        emit devantchange();
}

void Bureau::activehistorique(bool precedent, bool suivant) {
    actions_.permet(Ordre::Precedent, precedent);
    actions_.permet(Ordre::Suivant, suivant);
    if (!enfermeture_)
        emit devantchange();
}

void Bureau::majderniersdocuments() {
    const Navigation::Derniers& titres = navigation_.derniersdocumentslibelles();
    for (int rang = 0; rang < Navigation::nombrederniers; ++rang) {
        const QString& titre = titres.at(static_cast<std::size_t>(rang));
        actions_.montre(Ordre::DernierDocument, !titre.isEmpty(), rang);
        actions_.intitule(Ordre::DernierDocument, rang, debutnumerote(rang + 1), titre);
        const Cle cle = decoupecle(navigation_.derniersdocuments().at(static_cast<std::size_t>(rang)));
        actions_.de(Ordre::DernierDocument, rang).setIcon(cle.vide() ? QIcon() : iconedecollection(cle.indice()));
    }
}

void Bureau::basculeslot(int indice) {
    navigation_.basculefenetre(indice, !navigation_.maffichagef(indice));
}

void Bureau::amene(int indice) {
    if (fenetre(indice))
        navigation_.basculefenetre(indice, true);
}

void Bureau::arrange(ChildArea::Arrangement disposition) {
    aire_.arrange(disposition);
}

Textes* Bureau::fenetre(int indice) const {
    const FenetreNavigable* ouverte = navigation_.fenetreouverte(indice) ? navigation_.fenetre(indice) : nullptr;
    const auto ici = std::ranges::find_if(documents_, [ouverte](const Textes* textes) { return textes == ouverte; });
    return ici == documents_.end() ? nullptr : *ici;
}

Textes* Bureau::active() const {
    const QWidget* active = aire_.activeChild();
    const auto ici = std::ranges::find_if(documents_, [active](const Textes* textes) { return textes == active; });
    return ici == documents_.end() ? nullptr : *ici;
}

int Bureau::nombredeformes() const {
    return static_cast<int>(aire_.children().size()) + 1 + enfabrication_;
}

void Bureau::majdispositions(int fermees) {
    ecran_.montredispositions(nombredeformes() - fermees > formesadisposer);
}

void Bureau::suitactive() {
    actions_.suit(devant());
    const FenetreFille* celle = devant();
    actions_.choisit(Ordre::Fenetre, celle ? celle->indice() : -1);
    for (const Ordre ordre : {Ordre::FenetreSuivante, Ordre::ToutFermer})
        actions_.permet(ordre, devant() != nullptr);
    if (!enfermeture_)
        emit devantchange();
}

void Bureau::notefenetres() {
    for (FenetreFille* ouverte : filles())
        ouverte->ecritreglages();
}

void Bureau::fermefenetres() {
    enfermeture_ = true;
    // What searches stops before the windows go whose documents it may be opening. A maximised window that closes hands
    // its state on to the next one: what they are is written before any closes.
    for (const bool documents : {false, true}) {
        for (FenetreFille* ouverte : filles()) {
            if ((ouverte->nature() == Nature::Document) == documents)
                ouverte->decharge();
        }
    }
    aire_.closeAllSubWindows();
}

void Bureau::restaure(const std::function<void()>& ouverture) {
    const QScopedValueRollback restauration(enrestauration_, true);
    ouverture();
}

} // namespace velm
