#pragma once
// Putting a document into a document window.
#include "core/corpus.h"
#include "core/notice.h"
#include "document/balises.h"

#include <QString>

#include <functional>

namespace velm {

/// The values of the document shown, which other rooms read from the window and not from the table.
using DocumentAffiche = Notice;

/// A list beside the text that can be open or closed: outgoing links, correlates.
class ListeLaterale {
public:
    static constexpr int ouverte = 65280; ///< green: the header button's colour while the list is open

    virtual ~ListeLaterale() = default;
    virtual bool visible() const = 0;
    virtual int couleurbouton() const = 0; ///< background of its header button
    virtual void recharge(const Cle& cle) = 0;
};

class FormulaireDocument : public FormulaireRiche {
public:
    virtual DocumentAffiche& document() = 0;
    virtual void changetitre(const QString& titre) = 0; ///< the window's caption
    virtual void activemenus() = 0;                     ///< enables the menus of a document
    virtual void rafraichit() = 0;                      ///< repaints the rich text at once
    virtual ListeLaterale& listedesliens() = 0;
    virtual ListeLaterale& listedescorrelats() = 0;
};

struct ContexteAffichage {
    Corpus& corpus;
    const TableStyles& styles;
    Sablier& sablier;
    /// Tool tip of the main toolbar's button of a slot from 0: the collection's label.
    std::function<QString(int indice)> libelle;
    BornesPasses bornes = {};
};

/// Loads a document into a window and puts the caret where `ancre` stands. A key that is not in the base leaves the
/// text and the values as they are, without a message; the menus are enabled all the same. Where the memory does not
/// suffice, the text is left empty and std::bad_alloc goes on to the caller (see withinMemory()).
void affichedocument(FormulaireDocument& formulaire, const Cle& cle, bool abc, const QString& ancre,
                     const ContexteAffichage& contexte);

/// Puts the caret on the line that holds `ancre`: the first of CR + ancre + blank, "." + ancre + blank, blank + ancre +
/// blank, ancre alone, behind the first line end; at the start when there is none, or less than ten characters behind
/// that line end (kept: what leads to an anchor so near to the first line opens the document at its start).
void positionne(RichTextControl& controle, const QString& ancre);

/// The bodies of the collection's base. Moves the current row of the shared table and leaves its index at primarykey. A
/// body that cannot be read is none: what includes it is shown without it.
class SourceCorpus : public SourceDeContenu {
public:
    explicit SourceCorpus(Corpus& corpus) : corpus_(corpus) {}
    void prepare() override;
    std::optional<QByteArray> contenu(const Cle& cle) override;

private:
    Corpus& corpus_;
};

} // namespace velm
