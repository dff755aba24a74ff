#include "shell/programme.h"

#include "core/cle.h"
#include "document/affichage.h"
#include "document/ui/textes.h"
#include "platform/system/extensions.h"
#include "platform/system/files.h"
#include "shell/ecrangeneral.h"
#include "shell/splash.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QIcon>

/// A library's resources do not come in by themselves; the macro wants the global name space.
static void initialiseressources() {
    Q_INIT_RESOURCE(velm);
}

namespace velm {

Programme::Programme(const OptionsProgramme& options, MondeExterieur monde)
    : options_(options), monde_(monde), instance_(QStringLiteral("velm2000"), options.dossierinstance),
      magasin_(options.fichierreglages), reglages_(magasin_), langue_([this](const QString& numero) {
          if (!silencieux_)
              monde_.dialogues.message(numero, QString());
      }),
      seance_(environnement(), reglages_, langue_, corpus_, monde.dialogues, *this) {
    initialiseressources();
    reglages_.surechec([this](const QString&) { ditechec(); });
}

Programme::~Programme() = default;

Environnement Programme::environnement() {
    Environnement env;
    env.dossierprogramme = options_.dossierprogramme;
    env.fichierprogramme = options_.fichierprogramme;
    env.nomprogramme = QFileInfo(options_.fichierprogramme).completeBaseName();
    env.lignedecommande = options_.lignedecommande;
    env.autreinstance = [this] { return !instance_.first(); };
    // The handle of the settings names nothing here: the request to come forward goes to whoever holds the lock.
    env.remonteinstance = [this](const QString&) { instance_.raiseFirst(); };
    env.lance = [this](const QString& programme, const QString& argument) {
        return monde_.processus.runDetached(programme, {argument});
    };
    env.enregistreextensions = [this](const QString& application, const QString& editeur) {
        Extensions::Libelles libelles;
        libelles.application = langue_.lireressource(8);
        libelles.editeur = langue_.lireressource(2624);
        Extensions(options_.dossierdonnees).registerAll(application, editeur, libelles, &monde_.processus);
    };
    return env;
}

Demarrage Programme::demarre() {
    const Demarrage issue = seance_.demarre();
    if (issue == Demarrage::EnMarche) {
        instance_.setOnRaise([this] {
            if (!ecran_)
                return;
            if (ecran_->isMinimized())
                ecran_->showNormal();
            ecran_->raise();
            ecran_->activateWindow();
        });
    }
    return issue;
}

QString Programme::raison(const RuntimeFailure& erreur) {
    return remplace(langue_.lireressource(9405 + static_cast<int>(erreur.what)), erreur.parts);
}

void Programme::erreurfatale(const RuntimeFailure& erreur) {
    monde_.sablier.fixepointeur(Sablier::defaut);
    fermeaccueil();
    monde_.dialogues.message(remplace(langue_.lireressource(9401), {raison(erreur)}), langue_.lireressource(9400),
                             Icone::Stop);
    corpus_.fermebase();
}

QString Programme::libellebouton(Bouton bouton) {
    constexpr struct {
        Bouton bouton;
        int texte;
    } libelles[] = {
        {Bouton::Oui, 9270}, {Bouton::Non, 9271}, {Bouton::Annuler, 9272}, {Bouton::Aide, 9273}, {Bouton::Ok, 9274}};
    // The box that reports a missing text has a button too: it must not ask for another box.
    silencieux_ = true;
    QString texte;
    for (const auto& libelle : libelles) {
        if (libelle.bouton == bouton)
            texte = langue_.lireressource(libelle.texte);
    }
    silencieux_ = false;
    return texte;
}

void Programme::ouvreaide() {
    // Disks that tell upper from lower case may hold the file under its other usual spelling.
    const Preferences& preferences = seance_.preferences();
    for (const QString& nom : {preferences.aidefichier, QStringLiteral("Velm2000.chm")}) {
        const QString chemin = joinPath(preferences.aidechemin, nom);
        if (!nom.isEmpty() && fileExists(chemin)) {
            monde_.navigateur.openFile(chemin);
            return;
        }
    }
    monde_.dialogues.message(langue_.lireressource(7030), langue_.lireressource(8), Icone::Information);
}

Textes* Programme::fenetre(int indice) const {
    return dynamic_cast<Textes*>(navigation_.fenetre(indice));
}

void Programme::afficheetape(const QString& texte) {
    // Before the splash stands, and after a missing base has put it away, the label is only remembered.
    etape_ = texte;
    if (accueil_)
        accueil_->changeetape(texte);
}

void Programme::montreaccueil() {
    accueil_ = std::make_unique<frmSplash>(frmSplash::Textes{
        langue_.lireressource(8), langue_.lireressource(2) + u' ' + QCoreApplication::applicationVersion(),
        langue_.lireressource(7)});
    accueil_->changeetape(etape_);
    accueil_->show();
    accueil_->repaint();
}

void Programme::fermeaccueil() {
    accueil_.reset();
}

void Programme::ditechec() {
    // The first write comes before the language file is known: the words have to wait for it.
    echecretenu_ = langue_.fichier().isEmpty();
    if (!echecretenu_)
        monde_.dialogues.message(remplace(langue_.lireressource(9402), {magasin_.path()}), langue_.lireressource(8),
                                 Icone::Exclamation);
}

void Programme::litstyles() {
    if (echecretenu_)
        ditechec();
    styles_ = velm::litstyles(reglages_, langue_, seance_.parametres().textes);
}

void Programme::effacereconstructions() {}

bool Programme::connexion() {
    const QString dossier = seance_.parametres().repertoiredebase;
    const OpenError erreur = corpus_.connecte(seance_.fichierbase());
    QString texte =
        langue_.lireressource(7101) + u'"' + dossier + QStringLiteral("\".\n\n") + langue_.lireressource(7102);
    if (erreur == OpenError::OldEngine)
        texte = remplace(langue_.lireressource(9403), {seance_.fichierbase()});
    else if (erreur == OpenError::Foreign)
        texte = remplace(langue_.lireressource(9404), {seance_.fichierbase()});
    monde_.dialogues.message(texte, langue_.lireressource(7100), Icone::Exclamation);
    return corpus_.connecte();
}

void Programme::ouvredossiers() {}

void Programme::fermedossiers() {}

QString Programme::chargeprincipale() {
    ecran_ = std::make_unique<Ecrangeneral>([this](int n) { return langue_.lireressource(n); });
    ecran_->setWindowIcon(QIcon(QStringLiteral(":/velmorante.svg")));
    ecran_->avantfermeture = [this] { return seance_.quitteprogramme(); };
    connect(ecran_.get(), &Ecrangeneral::quitter, this, [this] { seance_.quitteprogramme(); });
    ecran_->place(seance_.positionprincipale());
    seance_.afficheetape(langue_.lireressource(503));
    seance_.restaurefenetres();
    seance_.afficheetape(langue_.lireressource(504));
    seance_.afficheetape(langue_.lireressource(505));
    seance_.ouvrecriteresdelaligne();
    return QString::number(ecran_->winId());
}

void Programme::montreprincipale() {
    ecran_->montre();
}

void Programme::ouvrefichierdossier(const QString&) {}

void Programme::ouvrefichiercriteres(const QString&) {}

void Programme::astuce() {}

bool Programme::impressionouverte() const {
    return false;
}

void Programme::termineimpression() {}

void Programme::abandonneimpression() {}

EtatFenetres Programme::etatfenetres() const {
    EtatFenetres etat;
    if (!ecran_)
        return etat;
    for (std::size_t indice = 0; indice < etat.cochees.size(); ++indice) {
        const Textes* ouverte = fenetre(static_cast<int>(indice));
        etat.cochees.at(indice) = ouverte != nullptr;
        if (ouverte)
            etat.libelles.at(indice) = ouverte->windowTitle();
    }
    for (const Textes* ouverte : ecran_->fenetres())
        etat.filles.push_back({ouverte->objectName(), ouverte->referencecourante()});
    if (const Textes* active = ecran_->active())
        etat.titreactif = active->windowTitle();
    etat.principale = ecran_->position();
    etat.largeurpane = seance_.preferences().largeurselection;
    return etat;
}

void Programme::sauvederniers() {}

void Programme::fermefenetres() {
    if (ecran_)
        ecran_->fermefenetres();
}

void Programme::fermeprincipale() {
    if (ecran_)
        ecran_->ferme();
}

FenetreNavigable* Programme::creefenetre(int indice) {
    ContexteTextes contexte{.corpus = corpus_,
                            .reglages = reglages_,
                            .navigation = navigation_,
                            .styles = styles_,
                            .parametres = seance_.parametres(),
                            .sablier = monde_.sablier,
                            .navigateur = monde_.navigateur,
                            .pressepapiers = pressepapiers_,
                            .rafraichir = rafraichir_,
                            .texte = [this](int numero) { return langue_.lireressource(numero); },
                            .libelle = [this](int celui) { return seance_.libelle(celui); }};
    auto* nouvelle = new Textes(indice, contexte);
    connect(nouvelle, &Textes::premierplan, this, [this, nouvelle] { ecran_->avance(nouvelle); });
    ecran_->ajoute(nouvelle);
    return nouvelle;
}

void Programme::montrefenetre(int indice, bool visible) {
    if (Textes* celle = fenetre(indice); celle && celle->parentWidget())
        celle->parentWidget()->setVisible(visible);
}

void Programme::navigue(const QString& commande, const QString& ancre) {
    navigation_.navigue(commande, false, ancre);
}

} // namespace velm
