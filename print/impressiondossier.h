#pragma once
// Prints the items of a dossier, in their order, one document or extract after the other.
#include "core/corpus.h"
#include "document/styles.h"
#include "platform/system/dialogues.h"
#include "platform/system/imprimante.h"
#include "platform/system/sablier.h"
#include "print/impression.h"

#include <QStringList>

#include <utility>

namespace velm {

struct ListesLiens;

class ImpressionDossier {
public:
    /// Hears of each document before it is printed.
    using Annonce = std::function<void(const QString& titre, const ListesLiens* liens)>;
    /// None is owned.
    struct Donnees {
        Impression& impression;
        const ReglagesImpression& reglages;
        DialogueImpression& dialogue;
        Dialogues& dialogues;
        Corpus& corpus;
        const TableStyles& styles;
        Sablier& sablier;
        Libelles texte;
        Annonce annonce = {}; ///< may be empty
    };
    explicit ImpressionDossier(Donnees donnees) : donnees_(std::move(donnees)) {}

    /// Asks, and prints the items with these keys. `libelle`: the dossier's text in the tree, with its count. Documents
    /// that the base does not have are passed over, and of an extract no more than a page is printed. The job ends with
    /// the dossier.
    void imprimer(const QString& libelle, const QStringList& cles);
    /// The same without a question, and without a guard: throws what Impression throws.
    void compose(const QString& libelle, const QStringList& cles);

private:
    bool veutimprimer(const QString& nom) const;
    bool veutterminer() const;
    bool choisit() const;
    void imprimeelements(const QString& nom, const QStringList& cles);

    Donnees donnees_;
};

} // namespace velm
