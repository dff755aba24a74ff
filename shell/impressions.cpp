#include "shell/impressions.h"

#include "core/texte.h"
#include "document/listesliens.h"
#include "document/ui/textes.h"
#include "dossiers/libellecompte.h"
#include "platform/paper/papertable.h"
#include "platform/widgets/text/richtextbox.h"
#include "print/gardeimpression.h"
#include "print/ui/frmapercu.h"
#include "shell/actions.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"
#include "shell/logique/seance.h"
#include "shell/selection.h"
#include "shell/volet.h"

#include <QApplication>
#include <QElapsedTimer>

namespace velm {

namespace {

constexpr qint64 rythme = 40; ///< milliseconds between two looks at a preview that is being made

/// A document as it stands now, whatever becomes of its window.
class Copie {
public:
    explicit Copie(Textes& fenetre)
        : titre_(fenetre.lecture().titrecourant()),
          liens_(fenetre.lecture().listes() ? *fenetre.lecture().listes() : ListesLiens()) {
        controle_.richTextForEdit() = fenetre.vue().control().richText();
        controle_.notifyChanged();
    }
    DocumentImprime document() const { return {controle_, titre_, &liens_}; }

private:
    RichTextControl controle_;
    QString titre_;
    ListesLiens liens_;
};

} // namespace

Impressions::Impressions(const Donnees& donnees)
    : donnees_(donnees), avancement_([&langue = donnees.langue](Texte numero) { return langue.lireressource(numero); },
                                     [this]() -> QWidget* {
                                         return QApplication::activeWindow() ? QApplication::activeWindow() : ecran_;
                                     }) {}

Impressions::~Impressions() = default;

void Impressions::attache(Ecrangeneral& ecran, Bureau& bureau, Selection& selection) {
    ecran_ = &ecran;
    bureau_ = &bureau;
    selection_ = &selection;
    const MondeExterieur& monde = donnees_.monde;
    const Parametres& parametres = donnees_.seance.parametres();
    const auto mots = [this](Texte numero) { return texte(numero); };
    const auto dit = [this](const QString& mots) {
        if (ecran_)
            ecran_->dit(mots);
    };
    sortie_ =
        std::make_unique<SortieTextes>(SortieTextes::Donnees{monde.dialogues, monde.sablier, monde.courrier, mots});
    export_ = std::make_unique<ExportPdf>(
        ExportPdf::Donnees{monde.dialogues, monde.sablier, monde.courrier, avancement_, mots, dit});
    imprimerie_ = std::make_unique<Imprimerie>(
        Imprimerie::Donnees{monde.imprimante, parametres.impression, donnees_.seance.preferences().impressiondossier,
                            monde.dialogues, donnees_.corpus, donnees_.styles, monde.sablier, avancement_, mots,
                            [this](bool ouvert) { montreboutons(ouvert); }, dit});
    montreboutons(false);
    connect(&selection, &Selection::changee, this, &Impressions::actualise);
    connect(&ecran.pieces().actions, &Actions::documentdevant, this, &Impressions::actualise);
}

/// What the mail service may still have to say, it says through what stays: only the frame goes.
void Impressions::decharge() {
    delete apercu_;
    ecran_ = nullptr;
    bureau_ = nullptr;
    selection_ = nullptr;
}

void Impressions::suit(Textes& fenetre) {
    connect(&fenetre, &Textes::sortie, this, [this, &fenetre](Ordre ordre) { sort(fenetre, ordre); });
}

void Impressions::sort(Textes& fenetre, Ordre ordre) {
    const RichTextControl& rtf = fenetre.vue().control();
    const QString titre = fenetre.lecture().titrecourant();
    if (ordre == Ordre::Imprimer) {
        imprimerie_->imprimerdocument({rtf, titre, fenetre.lecture().listes()});
    } else if (ordre == Ordre::Enregistrer) {
        sortie_->enregistresous(titre, rtf);
    } else if (ordre == Ordre::EnvoyerTexte) {
        sortie_->envoietexte(titre, rtf);
    } else if (ordre == Ordre::EnvoyerPiece) {
        sortie_->envoiefichier(titre, rtf);
    } else if (ordre == Ordre::ExporterPdf) {
        exporte(titre, [&](const Imprimerie::AvanceEpreuve& avance) {
            return imprimerie_->epreuvedudocument({rtf, titre, fenetre.lecture().listes()}, avance);
        });
    }
}

// ---- what can be done

void Impressions::montreboutons(bool ouvert) {
    if (ecran_ == nullptr)
        return;
    ecran_->montreejections(ouvert);
    Actions& actions = ecran_->pieces().actions;
    actions.montre(Ordre::EjecterPage, ouvert);
    for (const Ordre ordre : {Ordre::Ejections, Ordre::EjecterPage, Ordre::AbandonnerTravail})
        actions.permet(ordre, ouvert);
    // The printer of an open job stays.
    actions.permet(Ordre::ConfigurerImprimante, !ouvert);
    actualise();
}

void Impressions::actualise() {
    if (ecran_ == nullptr)
        return;
    const FenetreFille* devant = bureau_->devant();
    const bool liste = devant && devant->nature() == Nature::Recherche && listeimprimable();
    Actions& actions = ecran_->pieces().actions;
    if (devant && devant->nature() == Nature::Recherche) {
        actions.permet(Ordre::Imprimer, liste);
        actions.permet(Ordre::ImprimerPage, liste);
    }
    actions.permet(Ordre::Apercu, impressionouverte() || (devant && devant->peut(Ordre::Imprimer)) || liste);
}

/// With a document window open the list prints wherever it is; without one only where it is seen.
bool Impressions::listeimprimable() const {
    return selection_->liste().lignes() > 0 &&
           (bureau_->comptefenetres() > 0 || ecran_->pieces().volet.isVisibleTo(ecran_));
}

// ---- commands

void Impressions::imprimer() {
    FenetreFille* const devant = bureau_ ? bureau_->devant() : nullptr;
    if (devant == nullptr)
        return;
    if (devant->nature() != Nature::Recherche)
        devant->fait(Ordre::Imprimer);
    else if (listeimprimable())
        selection_->controle().imprime();
}

void Impressions::terminer() {
    imprimerie_->terminetravail();
}

void Impressions::abandonner() {
    imprimerie_->abandontravail();
}

void Impressions::configurer() {
    donnees_.monde.imprimante.configure();
}

void Impressions::imprimerdossier(const QString& libelle, const QStringList& cles) {
    imprimerie_->imprimerdossier(libelle, cles);
}

void Impressions::exporterdossier(const QString& libelle, const QStringList& cles) {
    exporte(sanscompteur(libelle), [&](const Imprimerie::AvanceEpreuve& avance) {
        return imprimerie_->epreuvedudossier(libelle, cles, avance);
    });
}

void Impressions::exporte(const QString& titre, const ExportPdf::Compose& compose) {
    export_->exporte(titre, compose);
}

bool Impressions::impressionouverte() const {
    return imprimerie_ && imprimerie_->travailencours();
}

// ---- the preview

FrmApercu* Impressions::fenetreapercu() const {
    return apercu_;
}

void Impressions::apercu() {
    if (apercu_ || ecran_ == nullptr)
        return;
    const FenetreFille* devant = bureau_->devant();
    if (impressionouverte())
        apercudutravail();
    else if (devant && devant->nature() == Nature::Recherche)
        apercudelaliste();
    else if (Textes* const lu = bureau_->active(); lu && lu->peut(Ordre::Imprimer))
        apercududocument(*lu);
}

FrmApercu& Impressions::nouvelapercu() {
    apercu_ = new FrmApercu(
        donnees_.reglages, [this](Texte numero) { return texte(numero); }, ecran_);
    return *apercu_;
}

void Impressions::apercudutravail() {
    FrmApercu& fenetre = nouvelapercu();
    const QString titre = imprimerie_->titre();
    FrmApercu::Actes actes;
    actes.imprime = [this] { terminer(); };
    actes.imprimer = texte(Texte::TerminerImpression);
    actes.abandonne = [this] { abandonner(); };
    actes.exporte = [this, titre] { exporte(titre, [this](const auto&) { return apercu_->pages(); }); };
    fenetre.ouvre(texte(Texte::ApercuDuTravail), actes);
    fenetre.montre(imprimerie_->epreuvedutravail(), imprimerie_->etat().positioncourante);
}

void Impressions::apercudelaliste() {
    if (!listeimprimable())
        return;
    const PaperTable liste = selection_->controle().tableau();
    FrmApercu& fenetre = nouvelapercu();
    FrmApercu::Actes actes;
    actes.imprime = [this] { selection_->controle().imprime(); };
    actes.exporte = [this, titre = liste.title] { exporte(titre, [this](const auto&) { return apercu_->pages(); }); };
    fenetre.ouvre(texte(Texte::ApercuDeLaListe), actes);
    fenetre.montre(tablePages(imprimerie_->feuille(), liste), -1);
}

/// The first sheet is seen as soon as it is set, the others follow. The window may be closed at any of them.
void Impressions::apercududocument(Textes& fenetre) {
    const QPointer<FrmApercu> vue = &nouvelapercu();
    const Copie copie(fenetre);
    const QString titre = copie.document().titre;
    FrmApercu::Actes actes;
    actes.imprime = [this, lu = QPointer<Textes>(&fenetre)] {
        if (lu)
            sort(*lu, Ordre::Imprimer);
    };
    actes.exporte = [this, titre] { exporte(titre, [this](const auto&) { return apercu_->pages(); }); };
    vue->ouvre(texte(Texte::ApercuTitre), actes);
    QElapsedTimer regard;
    const auto suit = [&](const JobPages& pages) {
        if (regard.isValid() && regard.elapsed() < rythme)
            return true;
        const bool encore = vue && vue->suit(pages);
        regard.start();
        return encore;
    };
    bool complet = false;
    imprimesousgarde(
        [&] {
            JobPages pages = imprimerie_->epreuvedudocument(copie.document(), suit);
            complet = vue;
            if (complet)
                vue->montre(std::move(pages), -1);
        },
        donnees_.monde.dialogues, [this](Texte numero) { return texte(numero); });
    if (vue && !complet)
        vue->abandonne();
}

} // namespace velm
