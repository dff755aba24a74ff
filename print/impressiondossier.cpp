#include "print/impressiondossier.h"

#include "dossiers/avisdossiers.h"
#include "dossiers/cleelement.h"
#include "dossiers/libellecompte.h"
#include "print/documentcharge.h"
#include "print/gardeimpression.h"

#include <algorithm>

namespace velm {
namespace {

/// What of a document is printed.
struct Passage {
    qsizetype debut = 0;
    qsizetype fin = Impression::tout;
};

/// Keys come from files as well, and a text may have become shorter since.
Passage passagede(const QString& cle, qint64 longueurdutexte) {
    if (!estextrait(cle))
        return {};
    const Extrait extrait = extraitdelacle(cle);
    const qint64 debut = std::clamp<qint64>(extrait.debut, 0, longueurdutexte);
    return {debut, debut + std::clamp<qint64>(extrait.longueur, 0, longueurdutexte - debut)};
}

} // namespace

void ImpressionDossier::imprimer(const QString& libelle, const QStringList& cles) {
    const QString nom = sanscompteur(libelle);
    if (cles.isEmpty() || !veutimprimer(nom))
        return;
    const auto travail = [&] {
        if (donnees_.impression.etat().travailencours && veutterminer())
            donnees_.impression.terminetravail();
        if (choisit())
            imprimeelements(nom, cles);
    };
    // A base that cannot be read ends it like a printer that fails.
    imprimesousgarde([&] { failureOf(travail); }, donnees_.dialogues, donnees_.texte);
}

void ImpressionDossier::compose(const QString& libelle, const QStringList& cles) {
    imprimeelements(sanscompteur(libelle), cles);
}

bool ImpressionDossier::veutimprimer(const QString& nom) const {
    return AvisDossiers(donnees_.dialogues, donnees_.texte).veutimprimer(nom);
}

bool ImpressionDossier::veutterminer() const {
    return donnees_.dialogues.message(donnees_.texte(Texte::QuestionImpressionEnCours),
                                      donnees_.texte(Texte::TitreImpressionEnCours), Icone::Question,
                                      Bouton::Oui | Bouton::Non) == Bouton::Oui;
}

/// What of it is printed is no question here. False when the user gives up.
bool ImpressionDossier::choisit() const {
    if (!donnees_.reglages.choiximprimante || donnees_.impression.etat().travailencours)
        return true;
    return donnees_.dialogue.demande({}) != ReponseImpression::Annule;
}

void ImpressionDossier::imprimeelements(const QString& nom, const QStringList& cles) {
    DocumentCharge charge({donnees_.corpus, donnees_.styles, donnees_.sablier});
    for (const QString& cle : cles) {
        if (!charge.charge(documentdelacle(cle)))
            continue;
        const DocumentImprime document = charge.document();
        const Passage passage = passagede(cle, document.rtf.length());
        if (donnees_.annonce)
            donnees_.annonce(document.titre, document.liens);
        donnees_.impression.imprimerrichtextdossier(document.rtf, nom, passage.debut, passage.fin);
    }
    donnees_.impression.terminetravaildossier(nom);
}

} // namespace velm
