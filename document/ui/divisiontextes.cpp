#include "document/ui/divisiontextes.h"

#include "document/ui/barretextes.h"
#include "document/ui/listedeliens.h"
#include "document/ui/panneautextes.h"
#include "document/ui/voletliens.h"
#include "platform/base/twips.h"
#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/text/richtextbox.h"

#include <QEvent>
#include <QPointer>

#include <algorithm>

namespace velm {

DivisionTextes::DivisionTextes(const Parties& parties, QWidget* fenetre)
    : QObject(fenetre), parties_(parties), fenetre_(fenetre) {
    fenetre->installEventFilter(this);
    SplitterBar& listeh = parties_.volet.separateurlisteh();
    SplitterBar& listev = parties_.volet.separateurlistev();
    for (SplitterBar* barre : {&parties_.panneau.separateur(), &listeh, &listev})
        suit(*barre);
    connect(&parties_.panneau, &PanneauTextes::grandit, this, [this](int hauteur) {
        // It does not shrink while somebody types; what has been drawn by hand stays.
        if (disposition_.hauteurbloc > 0 && hauteur > disposition_.hauteurbloc) {
            disposition_.hauteurbloc = hauteur;
            place();
        }
    });
    connect(&parties_.panneau.separateur(), &SplitterBar::usualPlaceWanted, this, [this] {
        disposition_.prendplacehabituelle();
        place();
    });
    connect(&listev, &SplitterBar::usualPlaceWanted, this, [this] {
        partage_ = true;
        place();
    });
    connect(&listeh, &SplitterBar::usualPlaceWanted, this, [this] {
        disposition_.fermelistes();
        disposition_.replaceseparateur();
        montrelistes(true);
    });
}

void DivisionTextes::suit(SplitterBar& barre) {
    connect(&barre, &SplitterBar::dropped, this, [this, &barre](int position) { lache(barre, position); });
}

void DivisionTextes::charge(const ReglagesTextes& reglages, bool listeselectionvisible) {
    disposition_.arrangement = reglages.arrangement;
    disposition_.posseparateur = reglages.posseparateur;
    commence(reglages.bloc, listeselectionvisible);
}

void DivisionTextes::chargepremiere(bool listeselectionvisible) {
    disposition_.commence();
    commence(Bloc::Arbre, listeselectionvisible);
}

void DivisionTextes::commence(Bloc bloc, bool listeselectionvisible) {
    parties_.barre.montrearrangement(disposition_.arrangement);
    disposition_.charge(listeselectionvisible);
    choisit(bloc);
    place();
}

void DivisionTextes::retient(ReglagesTextes& reglages) const {
    reglages.arrangement = disposition_.arrangement;
    reglages.posseparateur = disposition_.posseparateur;
}

void DivisionTextes::ouvrebloc(Bloc bloc) {
    disposition_.deplie(bloc);
    choisit(bloc);
    applique();
    parties_.panneau.prendfocus();
}

void DivisionTextes::choisit(Bloc bloc) {
    parties_.panneau.choisit(bloc);
    disposition_.hauteurbloc = parties_.panneau.hauteurvoulue();
    disposition_.deplaceseparateur();
    montrebloc();
    parties_.barre.update();
}

void DivisionTextes::changearrangement(Arrangement arrangement) {
    disposition_.changearrangement(arrangement);
    disposition_.hauteurbloc = parties_.panneau.hauteurvoulue();
    place();
}

void DivisionTextes::plie() {
    disposition_.plie();
    disposition_.deplaceseparateur();
}

void DivisionTextes::montrelistes(bool visibles) {
    const int besoin = std::max(parties_.volet.liens().hauteurvoulue(), parties_.volet.correlats().hauteurvoulue());
    if (visibles)
        disposition_.ouvrelistes(twipsFromPixels(besoin));
    else
        disposition_.fermelistes();
    place();
}

void DivisionTextes::place() {
    const MesuresTextes mesures{
        twipsFromPixels(parties_.barre.sizeHint().height()), twipsFromPixels(parties_.volet.liens().hauteurentete()),
        twipsFromPixels(SplitterBar::thickness), twipsFromPixels(parties_.volet.liens().hauteurtitres()),
        twipsFromPixels(parties_.volet.liens().hauteurrangee())};
    disposition_.changetaille(twipsFromPixels(fenetre_->width()), twipsFromPixels(fenetre_->height()), mesures);
    if (parties_.panneau.tientfocus())
        disposition_.gardepanneau();
    if (partage_)
        disposition_.partagelistes();
    disposition_.replaceseparateur();
    applique();
}

void DivisionTextes::applique() {
    const QPointer<QWidget> avant = fenetre_->window()->focusWidget();
    const PlacesTextes& places = disposition_.places();
    const ListeDeLiens& liens = parties_.volet.liens();
    const ListeDeLiens& correlats = parties_.volet.correlats();
    const auto pose = [](QWidget* controle, const QRect& twips) { controle->setGeometry(pixelsdetwips(twips)); };
    // What has no room is not there for the Tab key either.
    const auto montre = [&pose](QWidget* controle, const QRect& twips, int hauteur = 0) {
        const QSize place = pixelsdetwips(twips).size();
        pose(controle, twips);
        const QSize moindre = controle->minimumSize().expandedTo({0, hauteur});
        controle->setVisible(!place.isEmpty() && place.expandedTo(moindre) == place);
    };
    parties_.barre.setGeometry(0, 0, fenetre_->width(),
                               std::min(parties_.barre.sizeHint().height(), fenetre_->height()));
    parties_.panneau.separateur().setOrientation(disposition_.droite() ? Qt::Vertical : Qt::Horizontal);
    montre(&parties_.panneau.separateur(), places.separateur);
    // Some air between the end of the sheet, with the panel beside it, and what is no part of them.
    const int air = places.separateurlisteh.isEmpty() ? 0 : look::grid;
    parties_.vue.setGeometry(pixelsdetwips(places.rtfRichTextBox1).adjusted(0, 0, 0, -air));
    parties_.panneau.place(pixelsdetwips(places.panneau).adjusted(0, 0, 0, disposition_.droite() ? -air : 0));
    montre(&parties_.volet.separateurlisteh(), places.separateurlisteh);
    montre(&parties_.volet.separateurlistev(), places.separateurlistev);
    montre(liens.entete(), places.entetelistedesliens, liens.hauteurentete());
    montre(correlats.entete(), places.entetelistedescorrelats, correlats.hauteurentete());
    pose(liens.grille(), places.flexlistedesliens);
    pose(correlats.grille(), places.flexlistedescorreles);
    for (ListeDeLiens* liste : {&parties_.volet.liens(), &parties_.volet.correlats()})
        liste->montre(disposition_.listesvisibles, disposition_.listesplacees());
    parties_.volet.separateurlisteh().setEnabled(disposition_.listesplacees());
    montrebloc();
    rendfocus(avant);
}

void DivisionTextes::montrebloc() {
    const QPointer<QWidget> avant = fenetre_->window()->focusWidget();
    const bool lisible = disposition_.places().panneaulisible;
    parties_.panneau.montre(lisible);
    parties_.barre.montrebloc(lisible ? std::optional(parties_.panneau.bloc()) : std::nullopt);
    rendfocus(avant);
}

/// Where the focus was in a control that is hidden now, it goes to the text.
void DivisionTextes::rendfocus(const QWidget* avant) {
    if (avant && fenetre_->isAncestorOf(avant) && !avant->isVisibleTo(fenetre_))
        parties_.vue.setFocus();
}

void DivisionTextes::lache(const SplitterBar& barre, int position) {
    const int twips = twipsFromPixels(position);
    const bool debout = barre.orientation() == Qt::Vertical;
    partage_ = partage_ && &barre != &parties_.volet.separateurlistev();
    disposition_.lache(barre.objectName(), debout ? QPoint(twips, 0) : QPoint(0, twips));
    applique();
}

bool DivisionTextes::eventFilter(QObject* objet, QEvent* evenement) {
    switch (evenement->type()) {
    case QEvent::Resize:
    case QEvent::FontChange:
    case QEvent::StyleChange:
        place();
        break;
    default:
        break;
    }
    return QObject::eventFilter(objet, evenement);
}

} // namespace velm
