#pragma once
// What is read in a document window: the document shown and the way to it, the links in its text, the words that are
// looked for and marked in it. It knows no widget: the text is a control without a screen, the rest stands behind
// interfaces.
#include "core/texte.h"
#include "document/affichage.h"
#include "document/marques.h"
#include "document/navigation.h"
#include "platform/system/outside.h"

#include <functional>

namespace velm {

/// The window around the text, as the reading sees it.
class VueLecture {
public:
    virtual ~VueLecture() = default;
    virtual void changetitre(const QString& titre) = 0; ///< the window's caption
    virtual void activemenus() = 0;                     ///< menusactifs() has become true
    virtual void rafraichit() = 0;                      ///< the text and its links are others: to be painted at once
    virtual void revele(qsizetype position) = 0;        ///< scrolls there; the caret stays
    /// The marks in the text, to be shown as what was found; none any more where that is empty.
    virtual void montreoccurrences(const std::vector<Occurrence>& occurrences) = 0;
    virtual void ditcible(const QString& texte) = 0; ///< where the link under the pointer leads; empty for none
    virtual void dit(const QString& texte) = 0;      ///< in a box
};

/// The buttons of the reading.
class BarreLecture {
public:
    virtual ~BarreLecture() = default;
    virtual void montreabc(bool enfonce) = 0;     ///< the condensed display
    virtual void montremarques(bool enfonce) = 0; ///< words are marked
    virtual void montremots(bool visibles) = 0;   ///< the buttons for the words, visible or not
};

/// The parts of the window that the reading works on. None is owned.
struct PartiesLecture {
    RichTextControl& controle;
    VueLecture& vue;
    BarreLecture& barre;
    ListeLaterale& liens;
    ListeLaterale& correlats;
};

/// What it needs beyond its window; all of it outlives the reading.
struct ContexteLecture {
    Corpus& corpus;
    Navigation& navigation;
    const TableStyles& styles;
    Sablier& sablier;
    Navigateur& navigateur;
    Libelles texte;                             ///< of the language file
    std::function<QString(int indice)> libelle; ///< of a slot: what a caption begins with
    BornesPasses bornes = {};
};

/// A stretch of the text that leads somewhere: first position, and the one behind the last.
struct PlageLien {
    qsizetype debut = 0;
    qsizetype fin = 0;

    friend bool operator==(const PlageLien&, const PlageLien&) = default;
};

class Lecture final : public LectureNavigable, public FormulaireDocument {
public:
    Lecture(const PartiesLecture& parties, const ContexteLecture& contexte);

    // ---- the document
    /// What is shown; empty before the first document.
    Cle cle() const { return parcours_.cle(); }
    const QString& referencecourante() const { return parcours_.referencecourante; }
    const QString& titrecourant() const { return parcours_.titrecourant; }
    /// Number of the branch of the contents that it hangs from; 0 for none.
    qint64 branche() const;
    /// A document was asked for: the commands that need one are enabled.
    bool menusactifs() const { return menusactifs_; }
    /// Shows the document once more, from its start and in full whatever the button says. Nothing without a document.
    void reaffiche();
    /// The button of the condensed display was pressed: the document is shown in that form, from its start.
    void changeabc(bool abc);

    // ---- the way to it
    Parcours& parcours() override { return parcours_; }
    /// Shows a document without marks. Where the memory does not suffice for it that is said, and the text stays empty.
    void affiche(const Cle& cle, const QString& ancre) override;
    bool entiere() const override { return entiere_; }
    QString titre() override { return document_.titre; }

    // ---- links: those to documents, then to the web, then mail addresses
    qsizetype nombreliens() const;
    PlageLien plage(qsizetype lien) const;
    /// What a link leads to, for the status line; empty beyond the last one and for -1.
    QString cible(qsizetype lien) const;
    /// The same for a tip beside the pointer: the title of a document, an address as it stands.
    QString titrecible(qsizetype lien) const;
    /// A click on a position of the text: opens what the link there leads to; an address that may not be handed on is
    /// said. Nothing where no link is.
    void suit(qsizetype position);

    // ---- words
    const MotsCherches& mots() const { return mots_; }
    /// The document was opened from the selection list with these words, the first one empty for none: its walk begins
    /// anew, and they are marked if that is to be done by itself; the view, not the caret, goes to the first mark.
    void recoitmots(const QString& mot1, const QString& mot2, const Marquage& marquage);
    /// The button was pressed: marks the words, or takes the marks away by showing the document once more.
    void changemarques(bool marques, const Marquage& marquage);
    /// Selects the next occurrence, or the one before; at the end of the walk nothing.
    void vamot(bool suivant);

    // ---- what the opening of a document asks
    DocumentAffiche& document() override { return document_; }
    RichTextControl& rtfRichTextBox1() override { return parties_.controle; }
    ListesLiens* listes() override { return &listes_; }
    void changetitre(const QString& titre) override { parties_.vue.changetitre(titre); }
    void activemenus() override;
    void rafraichit() override { parties_.vue.rafraichit(); }
    ListeLaterale& listedesliens() override { return parties_.liens; }
    ListeLaterale& listedescorrelats() override { return parties_.correlats; }

private:
    void montre(const Cle& cle, bool abc, const QString& ancre);
    void ditsirefuse(Navigateur::Handed issue, const QString& adresse) const;
    void fixemarques(bool marques);
    Marques marque(const Marquage& marquage);

    PartiesLecture parties_;
    ContexteLecture contexte_;
    Parcours parcours_;
    ListesLiens listes_;
    DocumentAffiche document_;
    MotsCherches mots_;
    bool abc_ = false;     ///< the button is down
    bool marques_ = false; ///< so is that of the marks
    bool entiere_ = true;
    bool menusactifs_ = false;
};

} // namespace velm
