#pragma once
// The private markup inside a document's text, and the four passes that resolve it: inclusions, page breaks, style
// sections, links.
//
// The passes give exactly what a control gives that searches its whole text for the next token after every change, but
// in about linear time.
#include "core/cle.h"
#include "document/appliquestyle.h"
#include "document/listesliens.h"
#include "document/styles.h"
#include "platform/richtext/control.h"
#include "platform/system/sablier.h"

#include <QByteArray>

#include <optional>

namespace velm {

/// Anything with a rich text control: a document window, the window of the dossiers.
class FormulaireRiche {
public:
    virtual ~FormulaireRiche() = default;
    virtual RichTextControl& rtfRichTextBox1() = 0;
    /// Null for a form without the ten lists: each access to one fails there, and the pass goes on.
    virtual ListesLiens* listes() = 0;
};

/// Where included documents come from.
class SourceDeContenu {
public:
    virtual ~SourceDeContenu() = default;
    /// Called once before the passes.
    virtual void prepare() = 0;
    /// Body of a document as stored; nothing when there is no such document. Asked once for each key and pass.
    virtual std::optional<QByteArray> contenu(const Cle& cle) = 0;
};

/// Markup that includes itself behind a text, or links whose bar stands behind their brace, can grow without end. A
/// pass stops, and what stands is kept, before the text would pass `texte` positions; when it has put in more than
/// `insere` of them, one change counting for 32 at least (rewriting can go round in circles without growing); or before
/// the lists keep more than `retenu` positions of shown text (links inside links are kept once for each level).
struct BornesPasses {
    qsizetype texte = qsizetype{8} * 1024 * 1024;
    qsizetype insere = qsizetype{256} * 1024 * 1024;
    qsizetype retenu = qsizetype{32} * 1024 * 1024;
};

struct ContextePasses {
    const TableStyles& styles;
    SourceDeContenu& source;
    Sablier& sablier;
    BornesPasses bornes = {};
};

/// Runs the four passes on the text already loaded into the form's control, and fills its lists. With `abc` the
/// condensed display: masked sections are left out, and no style is applied but that of continuations.
void chargecontenu(FormulaireRiche& formulaire, bool abc, const ContextePasses& contexte);

} // namespace velm
