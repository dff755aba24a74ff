#include "document/ui/textes.h"

#include "core/tablereglages.h"
#include "document/ui/couverture.h"
#include "document/ui/divisiontextes.h"
#include "document/ui/gestestextes.h"
#include "document/ui/listedeliens.h"
#include "document/ui/panneautextes.h"
#include "document/ui/teintes.h"
#include "document/ui/voletliens.h"
#include "document/ui/zonetexte.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/text/richtextbox.h"
#include "platform/widgets/tree/treeview.h"

#include <QCloseEvent>
#include <QPointer>
#include <QTableView>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Whether the focus is in the window.
bool tientfocus(const QWidget& fenetre) {
    return fenetre.isAncestorOf(fenetre.window()->focusWidget());
}

RichTextBox::PaperTone ton(int papier) {
    constexpr int gris = 1;
    constexpr int selonlesfenetres = 2;
    if (papier == selonlesfenetres)
        return RichTextBox::PaperTone::SoftInTheDark;
    return papier == gris ? RichTextBox::PaperTone::Soft : RichTextBox::PaperTone::AsItIs;
}

/// Gives the view the focus, unless another control of the window has it.
void donnefocus(const QWidget& fenetre, QWidget& vue) {
    if (!tientfocus(fenetre) && vue.isVisibleTo(fenetre.window()))
        vue.setFocus();
}

/// What hands the text on.
bool sortant(Ordre ordre) {
    return ordre == Ordre::Enregistrer || ordre == Ordre::EnvoyerTexte || ordre == Ordre::EnvoyerPiece ||
           ordre == Ordre::Imprimer || ordre == Ordre::ImprimerPage || ordre == Ordre::ExporterPdf;
}

} // namespace

Textes::Textes(int indice, const ContexteTextes& contexte, QWidget* parent)
    : QWidget(parent), indice_(indice), contexte_(contexte) {
    setObjectName(u"Textes"_s);
    setWindowTitle(contexte_.lecture.libelle(indice_));
    setWindowIcon(iconedecollection(indice_));
    construit();
    relie();
    reliebarre();
    charge();
    // A window that is made for a document has it before it is painted, and needs no cover.
    QMetaObject::invokeMethod(this, &Textes::couvre, Qt::QueuedConnection);
}

Textes::~Textes() {
    // A window that goes without having been closed must not be addressed any more.
    if (!decharge_)
        contexte_.lecture.navigation.fermee(indice_, this);
}

// ---- parts

void Textes::construit() {
    // In the order in which the Tab key walks them.
    barre_ = new BarreTextes(contexte_.lecture.texte, this);
    panneau_ = new PanneauTextes(typedindice(indice_), contexte_, this);
    auto* vue = new RichTextBox(this);
    vue->setObjectName(u"rtfRichTextBox1"_s);
    vue->setAccessibleName(windowTitle());
    vue->setFrameShape(QFrame::NoFrame);
    vue->setPaperTone(ton(contexte_.reglages.lit(reglage::papier)));
    volet_ = new VoletLiens(contexte_, this);
    zone_ = new ZoneTexte({*vue, *barre_, *volet_}, contexte_, this);
    division_ = new DivisionTextes({*barre_, *panneau_, *vue, *volet_}, this);
    barre_->montrehistorique(lecture().parcours().historique);
    barre_->montredossiers(contexte_.voisinage.dossiersouverts());
    new GestesTextes(contexte_.lecture.navigation, *vue,
                     {vue->viewport(), panneau_->arbre().viewport(), panneau_->flex().view()->viewport(),
                      volet_->liens().grille()->view()->viewport(), volet_->correlats().grille()->view()->viewport()},
                     this);
}

void Textes::relie() {
    Navigation& navigation = contexte_.lecture.navigation;
    const auto ouvre = [&navigation](const Cle& visee) { navigation.ouvre(visee); };
    connect(panneau_, &PanneauTextes::ouverte, this, ouvre);
    connect(panneau_, &PanneauTextes::ouvertedelarbre, this, [this, ouvre](const Cle& visee) {
        ouvre(visee);
        // A document that was not reached from a search has no marked words to walk through.
        barre_->cachepasdemots();
    });
    const auto bascule = [this](ListeDeLiens* liste) { volet_->bascule(*liste, cle()); };
    connect(volet_, &VoletLiens::basculee, this, bascule);
    connect(volet_, &VoletLiens::montrees, division_, &DivisionTextes::montrelistes);
    connect(volet_, &VoletLiens::ouverte, this, ouvre);
    connect(volet_, &VoletLiens::selection, this, &Textes::selection);
    connect(zone_, &ZoneTexte::arrive, this, &Textes::decouvre);
    connect(zone_, &ZoneTexte::arrive, volet_, &VoletLiens::oublie);
    // Queued, as `arrive` comes before it is known which document that is.
    const auto suit = [this] {
        panneau_->suit(cle(), lecture().branche());
        volet_->compte(cle());
    };
    const auto peutautrement = [this] {
        if (surchangement)
            surchangement();
    };
    connect(zone_, &ZoneTexte::arrive, this, suit, Qt::QueuedConnection);
    connect(zone_, &ZoneTexte::arrive, this, peutautrement, Qt::QueuedConnection);
    connect(zone_, &ZoneTexte::menuschanges, this, peutautrement);
    connect(zone_, &ZoneTexte::cible, this, &Textes::cible);
    connect(zone_, &ZoneTexte::ranger, this, &Textes::ranger);
    connect(zone_, &ZoneTexte::sortie, this, &Textes::sortie);
    connect(zone_, &ZoneTexte::bascule, this, bascule);
}

void Textes::reliebarre() {
    Navigation& navigation = contexte_.lecture.navigation;
    connect(barre_, &BarreTextes::pas, this,
            [this, &navigation](Sens sens, int n) { navigation.pasfenetre(indice_, sens, n); });
    connect(barre_, &BarreTextes::voisin, this,
            [this, &navigation](bool haut) { navigation.voisin(*this, typedindice(indice_), haut); });
    connect(barre_, &BarreTextes::bloc, division_, &DivisionTextes::ouvrebloc);
    connect(barre_, &BarreTextes::arrangement, division_, &DivisionTextes::changearrangement);
    connect(barre_, &BarreTextes::proprietes, zone_, &ZoneTexte::montreproprietes);
    connect(barre_, &BarreTextes::abc, this, [this](bool enfonce) { lecture().changeabc(enfonce); });
    connect(barre_, &BarreTextes::mot, this, [this](bool suivant) { lecture().vamot(suivant); });
    connect(barre_, &BarreTextes::marques, this, [this](bool enfonce) {
        lecture().changemarques(enfonce, contexte_.mots.marquage());
        vue().setFocus();
    });
    connect(barre_, &BarreTextes::dossiers, this, [this] { emit ranger(QString(), QString(), 0, 0); });
    connect(barre_, &BarreTextes::ranger, zone_, &ZoneTexte::range);
}

// ---- the cover

void Textes::couvre() {
    if (!vierge_ || couverture_)
        return;
    couverture_ = new Couverture(indice_, contexte_, vue());
    connect(couverture_, &Couverture::voulu, this, [this](Bloc bloc) {
        division_->ouvrebloc(bloc);
        panneau_->donnefocus();
    });
}

void Textes::decouvre() {
    vierge_ = false;
    if (!couverture_)
        return;
    couverture_->quitte();
    couverture_->deleteLater();
    couverture_ = nullptr;
}

RichTextBox& Textes::vue() const {
    return zone_->vue();
}

Cle Textes::cle() const {
    return zone_->lecture().cle();
}

QString Textes::referencecourante() const {
    return zone_->lecture().referencecourante();
}

// ---- load, activation, unload

void Textes::charge() {
    Voisinage& voisinage = contexte_.voisinage;
    reglages_ = litreglagestextes(contexte_.reglages, indice_);
    if (voisinage.formesouvertes() > 3)
        voisinage.montremosaique(true);
    panneau_->charge(reglages_);
    if (jamaisouverte(contexte_.reglages, indice_))
        division_->chargepremiere(voisinage.listeselectionvisible());
    else
        division_->charge(reglages_, voisinage.listeselectionvisible());
}

PlaceTextes Textes::placevoulue() const {
    PlaceTextes voulue = reglages_.place;
    // Where no width was stored the height is only a default: both are then the frame's to choose.
    if (voulue.largeur == 0)
        voulue.hauteur = 0;
    return voulue;
}

/// What a link or the options have asked for the next time the window is wanted.
void Textes::prepare() {
    if (contexte_.lecture.navigation.prendreplier(indice_))
        division_->plie();
    if (contexte_.voisinage.prendrafraichir(indice_))
        lecture().reaffiche();
    division_->place();
}

void Textes::activation() {
    prepare();
    if (referencecourante().isEmpty() || !panneau_->prendfocus())
        donnefocus(*this, vue());
}

void Textes::ecritreglages() {
    reglages_.place = contexte_.voisinage.place(*this);
    division_->retient(reglages_);
    panneau_->retient(reglages_);
    ecritreglagestextes(contexte_.reglages, indice_, reglages_);
}

void Textes::decharge() {
    if (decharge_)
        return;
    decharge_ = true;
    ecritreglages();
    contexte_.lecture.navigation.fermee(indice_, this);
    // This window still counts, so the frame's buttons of the arrangements go one window earlier than they came (kept).
    if (contexte_.voisinage.formesouvertes() < 5)
        contexte_.voisinage.montremosaique(false);
    emit cible(QString());
    emit ferme();
}

void Textes::closeEvent(QCloseEvent* evenement) {
    decharge();
    QWidget::closeEvent(evenement);
}

void Textes::changeEvent(QEvent* evenement) {
    QWidget::changeEvent(evenement);
    const bool revenue = evenement->type() == QEvent::ActivationChange && isActiveWindow() && tientfocus(*this);
    if (revenue && contexte_.voisinage.prendrafraichir(indice_))
        lecture().reaffiche();
}

// ---- what the frame and the navigation ask of it

void Textes::recoitmots(const QString& mot1, const QString& mot2) {
    lecture().recoitmots(mot1, mot2, contexte_.mots.marquage());
}

bool Textes::peut(Ordre ordre) const {
    if (ordre == Ordre::Ranger)
        return zone_->peutranger();
    return zone_->lecture().menusactifs() &&
           (ordre == Ordre::Copier || ordre == Ordre::CopierReference || ordre == Ordre::ToutSelectionner ||
            ordre == Ordre::Chercher || sortant(ordre));
}

void Textes::fait(Ordre ordre) {
    if (ordre == Ordre::Copier)
        zone_->copie();
    else if (ordre == Ordre::CopierReference)
        zone_->copieavecreference();
    else if (ordre == Ordre::ToutSelectionner)
        zone_->toutselectionner();
    else if (ordre == Ordre::Ranger)
        zone_->range();
    else if (sortant(ordre) && peut(ordre))
        emit sortie(ordre == Ordre::ImprimerPage ? Ordre::Imprimer : ordre);
}

Lecture& Textes::lecture() {
    return zone_->lecture();
}

void Textes::prendfocus() {
    // Whoever brings it forward may close it.
    const QPointer<Textes> encore(this);
    emit premierplan();
    if (!encore)
        return;
    // In front already, it leaves the focus to the control that has it.
    prepare();
    donnefocus(*this, vue());
}

} // namespace velm
