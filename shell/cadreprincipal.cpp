#include "shell/cadreprincipal.h"

#include "core/texte.h"
#include "document/ui/textes.h"
#include "platform/widgets/frame/childarea.h"
#include "shell/actions.h"
#include "shell/aide.h"
#include "shell/bureau.h"
#include "shell/commandes.h"
#include "shell/depart.h"
#include "shell/ecrangeneral.h"
#include "shell/entreesfenetres.h"
#include "shell/fabriquetextes.h"
#include "shell/fenetredossiers.h"
#include "shell/fenetresannexes.h"
#include "shell/fenetreslistes.h"
#include "shell/impressions.h"
#include "shell/lignedetat.h"
#include "shell/logique/premierzoom.h"
#include "shell/motsdesoutils.h"
#include "shell/recherches.h"
#include "shell/selection.h"
#include "shell/volet.h"
#include "shell/zoomtextes.h"

#include <QCoreApplication>
#include <QIcon>
#include <QScreen>
#include <QTimer>

#include <cerrno>
#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int tempsdepeindre = 100; ///< milliseconds in which the frame comes on the screen

} // namespace

CadrePrincipal::CadrePrincipal(const Donnees& donnees) : donnees_(donnees), barres_(donnees.reglages) {}

CadrePrincipal::~CadrePrincipal() = default;

void CadrePrincipal::decharge() {
    donnees_.dossiers.decharge();
    donnees_.impressions.decharge();
    commandes_.reset();
    depart_.reset();
    entrees_.reset();
    etat_.reset();
    zoom_.reset();
    listes_.reset();
    annexes_.reset();
    recherches_.reset();
    selection_.reset();
    bureau_.reset();
    ecran_.reset();
    fabrique_.reset(); // the last windows have gone with the frame
}

void CadrePrincipal::effacereconstructions() {
    rafraichir_.fill(false);
}

QString CadrePrincipal::chargeprincipale() {
    const MondeExterieur& monde = donnees_.monde;
    const auto texte = [this](Texte numero) { return this->texte(numero); };
    motsdesoutils_ = std::make_unique<MotsDesOutils>(donnees_.seance.parametres().extensionlangue, texte);
    ecran_ = std::make_unique<Ecrangeneral>(texte);
    ecran_->setWindowIcon(QIcon(u":/velmorante.svg"_s));
    ecran_->avantfermeture = [this] { return donnees_.fin.quitteprogramme(); };
    const auto [actions, aire, volet] = ecran_->pieces();
    bureau_ = std::make_unique<Bureau>(*ecran_, aire, actions, donnees_.corpus,
                                       [this](int indice) { return fabrique_->fait(indice); });
    bureau_->sansmemoire = [this] {
        donnees_.monde.dialogues.message(qt_error_string(ENOMEM), this->texte(Texte::NomDuProgramme),
                                         Icone::Exclamation);
    };
    selection_ = std::make_unique<Selection>(*ecran_, volet, actions, *bureau_,
                                             ControleListe::Services{{donnees_.corpus, monde.sablier, monde.dialogues,
                                                                      texte, [] { QCoreApplication::processEvents(); }},
                                                                     donnees_.reglages,
                                                                     monde.imprimante});
    fabrique_ = std::make_unique<FabriqueTextes>(FabriqueTextes::Donnees{
        *ecran_, aire, volet, *bureau_, *selection_, donnees_.corpus, donnees_.reglages, donnees_.langue,
        donnees_.styles, donnees_.seance, donnees_.monde, rafraichir_, [this](Textes& fenetre) {
            zoom_->prend(fenetre);
            donnees_.dossiers.suit(fenetre);
            donnees_.impressions.suit(fenetre);
        }});
    recherches_ = std::make_unique<Recherches>(
        aire, actions, *bureau_, *selection_,
        Recherches::Services{donnees_.reglages, monde.sablier, monde.dialogues, monde.courrier, texte});
    annexes_ = std::make_unique<FenetresAnnexes>(
        *ecran_, *bureau_,
        FenetresAnnexes::Donnees{donnees_.reglages, donnees_.corpus, donnees_.seance, donnees_.monde, texte});
    listes_ = std::make_unique<FenetresListes>(FenetresListes::Donnees{
        aire, actions, *bureau_, *selection_, donnees_.reglages, donnees_.corpus, donnees_.monde, texte});
    donnees_.impressions.attache(*ecran_, *bureau_, *selection_);
    donnees_.dossiers.attache(*ecran_, *bureau_, [this] { return selection_->liste().lignes() > 0; });
    chargedevant();
    chargecommandes();
    chargeaspect();
    Seance& seance = donnees_.seance;
    bureau_->restaure([&seance] { seance.restaurefenetres(); });
    seance.afficheetape(this->texte(Texte::EtapeOutils));
    bureau_->navigation().chargederniers(donnees_.reglages);
    bureau_->majderniersdocuments();
    seance.afficheetape(this->texte(Texte::EtapeLangue));
    seance.ouvrecriteresdelaligne();
    return QString::number(ecran_->winId());
}

void CadrePrincipal::chargeaspect() {
    ecran_->place(donnees_.seance.positionprincipale());
    const Preferences& preferences = donnees_.seance.preferences();
    if (const auto fond = velm::fondecran(preferences.fond != 0 ? preferences.fondno : -1, preferences.fondcouleur))
        ecran_->placefond(*fond);
    ecran_->pieces().volet.changelargeurpane(preferences.largeurselection);
    donnees_.seance.afficheetape(texte(Texte::EtapeFenetres));
    barres_.charge(preferences);
    for (const Barre barre : toutesbarres)
        ecran_->placebarre(barre, barres_.position(barre));
    ecran_->montrebarreetat(barres_.etat());
}

void CadrePrincipal::chargecommandes() {
    const Seance& seance = donnees_.seance;
    Actions& actions = ecran_->pieces().actions;
    commandes_ = std::make_unique<Commandes>(
        Commandes::Acteurs{*ecran_, actions, *bureau_, barres_, donnees_.reglages, selection_->controle(), *recherches_,
                           *annexes_, *listes_, *zoom_, donnees_.dossiers, donnees_.impressions,
                           [this] { donnees_.fin.quitteprogramme(); }, [this] { donnees_.aide.ouvre(); }});
    const bool une = seance.parametres().multifenetre != 0;
    bureau_->navigation().changeunefenetre(une);
    actions.coche(Ordre::UneFenetre, une);
    actions.permet(Ordre::Partenaires, !seance.fichierpartenaires().isEmpty());
    actions.montre(Ordre::Editeur, seance.preferences().menuediteur);
    actions.montre(Ordre::Aide, donnees_.aide.presente());
}

/// Makes what follows the window in front (zoom, status bar, entries), and the start page, which is seen while there is
/// none.
void CadrePrincipal::chargedevant() {
    const auto texte = [this](Texte numero) { return this->texte(numero); };
    const auto [actions, aire, volet] = ecran_->pieces();
    zoom_ = std::make_unique<ZoomTextes>(ZoomTextes::Donnees{*ecran_, actions, *bureau_, donnees_.reglages, texte,
                                                             premierzoom(ecran_->screen()->availableSize().width())});
    etat_ = std::make_unique<LigneDEtat>(
        LigneDEtat::Donnees{*ecran_, *bureau_, donnees_.corpus, texte,
                            [&seance = donnees_.seance](int indice) { return seance.libelle(indice); }});
    entrees_ = std::make_unique<EntreesFenetres>(*bureau_, actions);
    depart_ = std::make_unique<Depart>(Depart::Donnees{aire, actions, *bureau_, *selection_, donnees_.corpus, texte});
    connect(bureau_.get(), &Bureau::devantchange, this, &CadrePrincipal::suitdevant);
}

void CadrePrincipal::suitdevant() {
    const auto [actions, aire, volet] = ecran_->pieces();
    Textes* lu = bureau_->active();
    const QWidget* fenetre = aire.activeChild();
    const QString titre = lu ? lu->lecture().titrecourant() : QString();
    ecran_->changetitre(titre.isEmpty() && fenetre ? fenetre->windowTitle() : titre);
    // The count of a search stays in the status bar as long as its list can be seen, or as long as the window that has
    // asked stays in front. The search form comes and goes between them.
    const FenetreFille* devant = bureau_->devant();
    if (devant && devant->nature() == Nature::Recherche)
        return;
    if (std::exchange(devant_, devant) != devant && !volet.isVisible())
        ecran_->dit({});
}

void CadrePrincipal::remonte() {
    if (!ecran_)
        return;
    ecran_->setWindowState(ecran_->windowState() & ~Qt::WindowMinimized);
    ecran_->raise();
    ecran_->activateWindow();
}

void CadrePrincipal::montreprincipale() {
    ecran_->montre();
    // Counting reads the base: first the frame is to be seen.
    QTimer::singleShot(tempsdepeindre, ecran_.get(), [this] {
        for (int indice = 0; indice < nombredecollections; ++indice)
            ecran_->marquevide(indice, donnees_.corpus.nombrededocuments(typedindice(indice)) == 0);
    });
}

void CadrePrincipal::ouvre(const Cle& cle) {
    bureau_->navigation().ouvre(cle);
}

void CadrePrincipal::ouvrefichiercriteres(const QString& chemin) {
    selection_->controle().affichemenuselection(true);
    recherches_->ouvrircriteres(chemin);
}

void CadrePrincipal::astuce(bool attend) {
    if (attend)
        depart_->alaprochainevue([this] { annexes_->astuce(true); });
    else
        annexes_->astuce(true);
}

EtatFenetres CadrePrincipal::etatfenetres() const {
    EtatFenetres etat;
    if (!ecran_)
        return etat;
    for (int indice = 0; indice < nombredefenetres; ++indice) {
        const auto rang = static_cast<std::size_t>(indice);
        etat.cochees.at(rang) = bureau_->navigation().maffichagef(indice);
        if (const Textes* ouverte = bureau_->fenetre(indice))
            etat.libelles.at(rang) = ouverte->windowTitle();
    }
    for (const FenetreFille* ouverte : bureau_->filles())
        etat.filles.push_back({ouverte->nature(), ouverte->reference()});
    if (const QWidget* index = listes_->fenetre(Ordre::Index))
        etat.libelles.back() = index->windowTitle();
    if (const QWidget* active = ecran_->pieces().aire.activeChild())
        etat.titreactif = active->windowTitle();
    etat.principale = ecran_->position();
    etat.largeurpane = ecran_->pieces().volet.largeurpane();
    return etat;
}

void CadrePrincipal::sauvederniers() {
    if (bureau_)
        bureau_->navigation().sauvederniers(donnees_.reglages);
    if (selection_)
        selection_->controle().ecritcolonnes();
}

void CadrePrincipal::notefenetres() {
    if (bureau_)
        bureau_->notefenetres();
    if (zoom_)
        zoom_->note();
}

void CadrePrincipal::fermefenetres() {
    if (!bureau_)
        return;
    depart_->arrete();
    etat_->arrete();
    zoom_->note();
    bureau_->fermefenetres();
}

void CadrePrincipal::fermeprincipale() {
    if (ecran_)
        ecran_->ferme();
}

} // namespace velm
