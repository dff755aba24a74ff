#include "print/impressiondossier.h"

#include "document/affichage.h"
#include "document/listesliens.h"
#include "dossiers/avisdossiers.h"
#include "dossiers/cleelement.h"
#include "dossiers/libellecompte.h"
#include "print/gardeimpression.h"

#include <algorithm>

namespace velm {
namespace {

/// What is never shown, and holds the document that is being printed.
class DocumentCache final : public FormulaireRiche {
public:
    RichTextControl& rtfRichTextBox1() override { return controle_; }
    ListesLiens* listes() override { return &liens_; }

private:
    RichTextControl controle_;
    ListesLiens liens_;
};

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

QString ImpressionDossier::titrede(const Cle& document) const {
    const auto notice = donnees_.corpus.document(document);
    return notice ? notice->titre : QString();
}

void ImpressionDossier::imprimeelements(const QString& nom, const QStringList& cles) {
    DocumentCache cache;
    RichTextControl& controle = cache.rtfRichTextBox1();
    SourceCorpus source(donnees_.corpus);
    for (const QString& cle : cles) {
        const std::optional<QByteArray> corps = donnees_.corpus.corps(documentdelacle(cle));
        if (!corps)
            continue;
        controle.setTextRtf(*corps);
        chargecontenu(cache, false, {donnees_.styles, source, donnees_.sablier});
        const Passage passage = passagede(cle, controle.length());
        if (donnees_.annonce)
            donnees_.annonce(titrede(documentdelacle(cle)), cache.listes());
        donnees_.impression.imprimerrichtextdossier(controle, nom, passage.debut, passage.fin);
    }
    donnees_.impression.terminetravaildossier(nom);
}

} // namespace velm
