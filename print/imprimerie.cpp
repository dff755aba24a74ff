#include "print/imprimerie.h"

#include "core/texte.h"
#include "print/gardeimpression.h"

#include <algorithm>

namespace velm {

namespace {

QString premiertitre(const JobPages& pages) {
    const auto premier = std::ranges::find_if(pages.sources, [](const JobSource& source) { return source.page >= 0; });
    return premier == pages.sources.end() ? QString() : premier->title;
}

} // namespace

Imprimerie::Imprimerie(const Donnees& donnees)
    : donnees_(donnees), travail_([&imprimante = donnees.imprimante] { return imprimante.feuille(); },
                                  [this](const JobPages& pages) { sort(pages, premiertitre(pages)); }),
      impression_({travail_, etat_, donnees.documents, donnees.dossiers, donnees.texte,
                   [this](bool ouvert) { donnees_.afficheboutonsimpression(ouvert); }}),
      commandes_({impression_, donnees.documents, donnees.imprimante, donnees.dialogues, donnees.texte}) {
    travail_.setProgress([this](const JobPages& pages) {
        arretee_ = !donnees_.avancement.page(static_cast<int>(pages.pages.size()), 0);
        return !arretee_;
    });
}

void Imprimerie::imprimerdocument(const DocumentImprime& document) {
    annoncedocument(travail_, document.titre, document.liens);
    fait([&] { commandes_.imprimerdocument(document.rtf); });
}

void Imprimerie::imprimerdossier(const QString& libelle, const QStringList& cles) {
    const auto annonce = [this](const QString& titre, const ListesLiens* liens) {
        annoncedocument(travail_, titre, liens);
    };
    fait([&] { ImpressionDossier(dossier(impression_, annonce)).imprimer(libelle, cles); });
}

void Imprimerie::terminetravail() {
    fait([this] { commandes_.terminetravail(); });
}

void Imprimerie::abandontravail() {
    fait([this] { commandes_.abandontravail(); });
}

void Imprimerie::imprimefeuilles(const JobPages& feuilles, const QString& titre) {
    fait([&] { imprimesousgarde([&] { sort(feuilles, titre); }, donnees_.dialogues, donnees_.texte); });
}

/// Does a command and clears up behind it. A job whose last sheet was given to a printer in vain is open still: it must
/// not get its last header once more. Where none is open, what a command has left on sheets is nobody's.
void Imprimerie::fait(const std::function<void()>& commande) {
    const PrintJob::Mark avant = travail_.mark();
    const EtatImpression etat = etat_;
    enpanne_ = arretee_ = false;
    commande();
    donnees_.avancement.finit();
    if (etat_.travailencours && (enpanne_ || arretee_) && travail_.mark().pages == avant.pages) {
        travail_.goBack(avant);
        etat_ = etat;
    }
    if (!etat_.travailencours) {
        travail_.discard();
        etat_.ferme();
    }
    if (enpanne_)
        donnees_.dit(donnees_.texte(Texte::ImpressionPasAboutie));
}

/// To the printer.
void Imprimerie::sort(const JobPages& pages, const QString& titre) {
    const auto toutes = static_cast<int>(pages.pages.size());
    try {
        donnees_.imprimante.imprimepages(pages, titre, [&](int page) {
            arretee_ = !donnees_.avancement.page(page, toutes);
            return !arretee_;
        });
    } catch (const PrintFailure&) {
        enpanne_ = !arretee_;
        throw;
    }
}

QString Imprimerie::titre() const {
    return premiertitre(travail_.pages());
}

// ---- proofs

Epreuve::Donnees Imprimerie::epreuve(const AvanceEpreuve& avance) const {
    return {feuille(), donnees_.documents, donnees_.dossiers, donnees_.texte, avance};
}

ImpressionDossier::Donnees Imprimerie::dossier(Impression& impression,
                                               const ImpressionDossier::Annonce& annonce) const {
    return {impression,         donnees_.dossiers, donnees_.imprimante,
            donnees_.dialogues, donnees_.corpus,   donnees_.styles,
            donnees_.sablier,   donnees_.texte,    annonce};
}

JobPages Imprimerie::epreuvedutravail() const {
    Epreuve::Donnees avec = epreuve({});
    avec.feuille = travail_.sheet();
    Epreuve epreuve(avec);
    epreuve.travail(travail_.pages(), etat_);
    return epreuve.prend();
}

JobPages Imprimerie::epreuvedudocument(const DocumentImprime& document, const AvanceEpreuve& avance) const {
    Epreuve une(epreuve(avance));
    une.documententier(document);
    return une.prend();
}

JobPages Imprimerie::epreuvedudossier(const QString& libelle, const QStringList& cles,
                                      const AvanceEpreuve& avance) const {
    Epreuve une(epreuve(avance));
    const auto annonce = [&une](const QString& titre, const ListesLiens* liens) { une.annonce(titre, liens); };
    ImpressionDossier(dossier(une.impression(), annonce)).compose(libelle, cles);
    return une.prend();
}

} // namespace velm
