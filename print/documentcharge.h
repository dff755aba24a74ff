#pragma once
// A document as its window would show it, in a control that nobody sees.
#include "core/corpus.h"
#include "document/affichage.h"
#include "document/listesliens.h"
#include "document/styles.h"
#include "print/documentimprime.h"

namespace velm {

class DocumentCharge final : private FormulaireRiche {
public:
    /// None is owned.
    struct Donnees {
        Corpus& corpus;
        const TableStyles& styles;
        Sablier& sablier;
    };
    explicit DocumentCharge(const Donnees& donnees);

    /// Takes another document in; false when the base has none of that key.
    bool charge(const Cle& cle);
    /// As it is now; valid until the next one is taken in.
    DocumentImprime document() const { return {controle_, titre_, &liens_}; }

private:
    RichTextControl& rtfRichTextBox1() override { return controle_; }
    ListesLiens* listes() override { return &liens_; }

    Donnees donnees_;
    SourceCorpus source_;
    RichTextControl controle_;
    ListesLiens liens_;
    QString titre_;
};

} // namespace velm
