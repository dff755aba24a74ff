// What start and exit ask of the windows.
#include "core/cle.h"
#include "core/obstacles.h"
#include "document/ui/frmfindform.h"
#include "document/ui/textes.h"
#include "platform/system/systeminfo.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/text/richtextbox.h"
#include "search/motscommencant.h"
#include "search/ui/completionmots.h"
#include "shell/bureau.h"
#include "shell/commandes.h"
#include "shell/ecrangeneral.h"
#include "shell/frmabout.h"
#include "shell/frmconnexion.h"
#include "shell/frmtip.h"
#include "shell/logique/astuces.h"
#include "shell/logique/connexion.h"
#include "shell/menus.h"
#include "shell/programme.h"
#include "shell/recherches.h"
#include "shell/selection.h"
#include "shell/splash.h"
#include "shell/sponsor.h"
#include "shell/volet.h"

#include <QAction>
#include <QCoreApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QScreen>

#include <cerrno>
#include <utility>

namespace velm {

void Programme::afficheetape(const QString& texte) {
    // Before the splash stands, and after a missing base has put it away, the label is only remembered.
    etape_ = texte;
    if (accueil_)
        accueil_->changeetape(texte);
}

void Programme::montreaccueil() {
    accueil_ = std::make_unique<frmSplash>(
        frmSplash::Textes{langue_.lireressource(8),
                          langue_.lireressource(2) + u' ' + versioncourte(QCoreApplication::applicationVersion()),
                          langue_.lireressource(7)});
    accueil_->estmontree = [this] { monde_.sablier.fixepointeur(Sablier::defaut); };
    accueil_->changeetape(etape_);
    accueil_->show();
    accueil_->repaint();
}

void Programme::fermeaccueil() {
    accueil_.reset();
}

void Programme::ditechec(const FileError& erreur) {
    // The first write comes before the language file is known: the words have to wait for it.
    if (langue_.fichier().isEmpty()) {
        echecretenu_ = erreur;
        return;
    }
    const auto texte = [this](int numero) { return langue_.lireressource(numero); };
    monde_.dialogues.message(remplace(texte(9402), {magasin_.path(), raison(erreur.kind, erreur.words, texte)}),
                             texte(8), Icone::Exclamation);
}

void Programme::litstyles() {
    if (const auto erreur = std::exchange(echecretenu_, std::nullopt))
        ditechec(*erreur);
    styles_ = velm::litstyles(reglages_, langue_, seance_.parametres().textes);
}

void Programme::effacereconstructions() {
    rafraichir_.fill(false);
}

bool Programme::connexion() {
    Connexion::Copie copie;
    copie.commence = [this](const QString& etape) {
        montreaccueil();
        seance_.afficheetape(etape);
    };
    copie.avance = [this](double pourcentage) { accueil_->changeprogression(pourcentage); };
    copie.finit = [this] { fermeaccueil(); };
    Connexion connexion(
        {seance_, corpus_, monde_.dialogues, monde_.lecteurs, langue_, options_.dossierprogramme, copie});
    if (connexion.parcourtlecteurs())
        return true;
    return frmconnexion([this](int numero) { return langue_.lireressource(numero); }, connexion).exec() ==
           QDialog::Accepted;
}

void Programme::ouvredossiers() {}

void Programme::fermedossiers() {}

QString Programme::chargeprincipale() {
    const auto texte = [this](int numero) { return langue_.lireressource(numero); };
    traduitoutils();
    ecran_ = std::make_unique<Ecrangeneral>(texte);
    ecran_->setWindowIcon(QIcon(QStringLiteral(":/velmorante.svg")));
    ecran_->avantfermeture = [this] { return seance_.quitteprogramme(); };
    bureau_ = std::make_unique<Bureau>(*ecran_, corpus_, [this](int indice) { return fabriquefenetre(indice); });
    bureau_->sansmemoire = [this] {
        monde_.dialogues.message(qt_error_string(ENOMEM), langue_.lireressource(8), Icone::Exclamation);
    };
    selection_ = std::make_unique<Selection>(*ecran_, *bureau_,
                                             ControleListe::Monde{corpus_, reglages_, monde_.sablier, monde_.dialogues,
                                                                  monde_.imprimante, texte,
                                                                  [] { QCoreApplication::processEvents(); }});
    recherches_ = std::make_unique<Recherches>(
        *ecran_, *selection_, Recherches::Monde{reglages_, monde_.sablier, monde_.dialogues, monde_.courrier, texte});
    chargecommandes();
    ecran_->place(seance_.positionprincipale());
    const Preferences& preferences = seance_.preferences();
    if (const auto fond = velm::fondecran(preferences.fond != 0 ? preferences.fondno : -1, preferences.fondcouleur))
        ecran_->placefond(*fond);
    ecran_->picturesselection().changelargeurpane(preferences.largeurselection);
    seance_.afficheetape(langue_.lireressource(503));
    chargebarres();
    bureau_->restaure([this] { seance_.restaurefenetres(); });
    seance_.afficheetape(langue_.lireressource(504));
    bureau_->navigation().chargederniers(reglages_);
    bureau_->majderniersdocuments();
    seance_.afficheetape(langue_.lireressource(505));
    seance_.ouvrecriteresdelaligne();
    return QString::number(ecran_->winId());
}

void Programme::chargebarres() {
    barres_.charge(seance_.preferences());
    for (const Barre barre : toutesbarres)
        ecran_->placebarre(barre, barres_.position(barre));
    ecran_->montrebarreetat(barres_.etat());
}

void Programme::chargecommandes() {
    Commandes::Programme autour;
    autour.quitte = [this] { seance_.quitteprogramme(); };
    autour.aide = [this] { ouvreaide(); };
    autour.astuce = [this] { astuce(); };
    autour.apropos = [this] { montreapropos(); };
    autour.partenaires = [this] { montrepartenaires(); };
    autour.cherche = [this] { montrerecherche(); };
    autour.montreselection = [this](bool visible) { selection_->controle().affichemenuselection(visible); };
    commandes_ = std::make_unique<Commandes>(*ecran_, *bureau_, barres_, reglages_, monde_.pressepapiers, autour);
    const bool une = seance_.parametres().multifenetre != 0;
    bureau_->navigation().changeunefenetre(une);
    ecran_->menus().entree(QStringLiteral("maffichagetfu"))->setChecked(une);
    ecran_->menus().entree(QStringLiteral("maide1(1)"))->setEnabled(!seance_.fichierpartenaires().isEmpty());
    ecran_->menus().entree(QStringLiteral("mediteur"))->setVisible(seance_.preferences().menuediteur);
}

void Programme::montreprincipale() {
    ecran_->montre();
}

void Programme::navigue(const QString& commande) {
    bureau_->navigation().navigue(commande);
}

Textes* Programme::fabriquefenetre(int indice) {
    ContexteTextes contexte{corpus_,
                            reglages_,
                            bureau_->navigation(),
                            styles_,
                            seance_.parametres(),
                            monde_.sablier,
                            monde_.navigateur,
                            monde_.pressepapiers,
                            rafraichir_,
                            [this](int numero) { return langue_.lireressource(numero); },
                            [this](int slot) { return seance_.libelle(slot); }};
    contexte.listeselectionvisible = [this] { return ecran_->picturesselection().isVisible(); };
    contexte.dossiersouverts = [this] { return bureau_->dossiersouverts(); };
    contexte.formesouvertes = [this] { return bureau_->nombredeformes(); };
    contexte.montremosaique = [this](bool visible) { ecran_->montredispositions(visible); };
    contexte.place = [this](const QWidget& fenetre) {
        const QRect ici = ecran_->aire().twipsOf(&fenetre);
        return PlaceTextes{ecran_->aire().stateOf(&fenetre), ici.left(), ici.top(), ici.width(), ici.height()};
    };
    contexte.marquage = [this] {
        const Preferences& preferences = seance_.preferences();
        return Marquage{static_cast<int>(preferences.marquecouleur), preferences.marquebold != 0,
                        preferences.marqueitalic != 0, preferences.marqueauto != 0};
    };
    contexte.dit = [this](const QString& texte) {
        monde_.dialogues.message(texte, langue_.lireressource(8), Icone::Exclamation);
    };
    contexte.cherchemots = [this](const QString& code, const QString& mots,
                                  const std::function<void(const QString&)>& ligne) {
        selection_->controle().cherchedans(code, mots, ligne);
    };
    contexte.completemots = [this](QLineEdit& mots) {
        new CompletionMots(
            &mots, [this](const QString& debut, int nombre) { return motscommencant(corpus_, debut, nombre); },
            separateursmots(), langue_.lireressource(9459));
    };
    auto* fenetre = new Textes(indice, contexte);
    connect(fenetre, &Textes::selection, this,
            [this](const QStringList& cles) { selection_->controle().remplit(cles); });
    return fenetre;
}

Textes* Programme::fenetre(int indice) const {
    return bureau_ ? bureau_->fenetre(indice) : nullptr;
}

void Programme::montre(QDialog* fenetre) {
    fenetre->setAttribute(Qt::WA_DeleteOnClose);
    // At the start the frame does not have its size yet, but the screen has.
    if (ecran_->isMaximized()) {
        fenetre->adjustSize();
        QRect place(QPoint(), fenetre->size());
        place.moveCenter(ecran_->screen()->availableGeometry().center());
        fenetre->move(place.topLeft());
    }
    fenetre->show();
}

void Programme::traduitoutils() {
    const QString langue = seance_.parametres().extensionlangue.toLower();
    if (motsdesoutils_.load(QStringLiteral("qtbase_") + langue, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&motsdesoutils_);
}

void Programme::astuce() {
    const Parametres& parametres = seance_.parametres();
    const QString fichier = Astuces::cheminfichier(parametres.repertoireapplication, parametres.extensionlangue);
    const auto coche = reglages_.entier(QStringLiteral("OPTIONS"), QStringLiteral("TIPS"), 1, true) != 0;
    const auto change = [this](bool montrees) {
        reglages_.savesetting(QStringLiteral("OPTIONS"), QStringLiteral("TIPS"),
                              montrees ? QStringLiteral("1") : QStringLiteral("0"));
    };
    montre(new frmTip([this](int numero) { return langue_.lireressource(numero); }, astuces_, fichier, {coche, change},
                      ecran_.get()));
}

void Programme::montrerecherche() {
    const auto active = [this] {
        const Textes* fenetre = bureau_->active();
        return fenetre ? frmFindForm::Cible{&fenetre->vue(),
                                            fenetre->referencecourante() + QString::number(quintptr(fenetre))}
                       : frmFindForm::Cible{};
    };
    if (!recherchetexte_)
        recherchetexte_ = new frmFindForm([this](int numero) { return langue_.lireressource(numero); },
                                          monde_.dialogues, active, ecran_.get());
    const Textes* fenetre = bureau_->active();
    const QString choisi = fenetre ? fenetre->vue().control().selText() : QString();
    constexpr qsizetype plusdecaracteres = 100;
    recherchetexte_->montre(choisi.size() > plusdecaracteres || choisi.contains(u'\r') ? QString() : choisi);
}

void Programme::montreapropos() {
    monde_.sablier.fixepointeur(Sablier::attente);
    frmAbout::Rappels rappels;
    rappels.lancesysinfo = [this] { return startsysinfo(SystemRegistre(), monde_.processus); };
    rappels.estmontree = [this] { monde_.sablier.fixepointeur(Sablier::defaut); };
    montre(new frmAbout([this](int numero) { return langue_.lireressource(numero); },
                        QCoreApplication::applicationVersion(), corpus_.titre(), rappels, monde_.dialogues,
                        ecran_.get()));
}

void Programme::montrepartenaires() {
    montre(new sponsor([this](int numero) { return langue_.lireressource(numero); }, seance_.fichierpartenaires(),
                       ecran_.get()));
}

void Programme::ouvrefichierdossier(const QString&) {}

void Programme::ouvrefichiercriteres(const QString& chemin) {
    commandes_->montreselection(true);
    recherches_->ouvrircriteres(chemin);
}

bool Programme::impressionouverte() const {
    return false;
}

void Programme::termineimpression() {}

void Programme::abandonneimpression() {}

EtatFenetres Programme::etatfenetres() const {
    EtatFenetres etat;
    if (!ecran_)
        return etat;
    for (int indice = 0; indice < nombredefenetres; ++indice) {
        const auto rang = static_cast<std::size_t>(indice);
        etat.cochees.at(rang) = bureau_->navigation().maffichagef(indice);
        if (const Textes* ouverte = bureau_->fenetre(indice))
            etat.libelles.at(rang) = ouverte->windowTitle();
    }
    for (const Textes* ouverte : bureau_->fenetres())
        etat.filles.push_back({ouverte->objectName(), ouverte->referencecourante()});
    if (const Textes* active = bureau_->active())
        etat.titreactif = active->windowTitle();
    etat.principale = ecran_->position();
    etat.largeurpane = ecran_->picturesselection().largeurpane();
    return etat;
}

void Programme::sauvederniers() {
    if (bureau_)
        bureau_->navigation().sauvederniers(reglages_);
    if (selection_)
        selection_->controle().ecritcolonnes();
}

void Programme::notefenetres() {
    if (recherches_)
        recherches_->note();
    if (bureau_)
        bureau_->notefenetres();
}

void Programme::fermefenetres() {
    if (recherches_)
        recherches_->ferme();
    if (bureau_)
        bureau_->fermefenetres();
}

void Programme::fermeprincipale() {
    if (ecran_)
        ecran_->ferme();
}

} // namespace velm
