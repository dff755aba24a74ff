#pragma once
// The window of a collection's documents: its tool bar, the panel, the text, the lists of what the document cites and
// what cites it. It puts these together and connects them; what is read is Lecture's.
#include "core/fenetrefille.h"
#include "document/ui/barretextes.h"
#include "document/ui/contextetextes.h"

#include <QWidget>

namespace velm {

class Couverture;
class DivisionTextes;
class PanneauTextes;
class RichTextBox;
class VoletLiens;
class ZoneTexte;

class Textes final : public QWidget, public FenetreNavigable, public FenetreFille {
    Q_OBJECT

public:
    /// A window for a slot from 0 to 10, with the slot's stored settings; the caption is the slot's label until a
    /// document is shown.
    Textes(int indice, const ContexteTextes& contexte, QWidget* parent = nullptr);
    ~Textes() override;

    int indice() const override { return indice_; }
    /// Where the settings want it, for the frame to place it before it is shown.
    PlaceTextes placevoulue() const;
    /// The document shown; empty for none.
    Cle cle() const;
    QString referencecourante() const;

    // ---- parts
    RichTextBox& vue() const; ///< rtfRichTextBox1
    PanneauTextes& panneau() const { return *panneau_; }
    VoletLiens& volet() const { return *volet_; }
    const DivisionTextes& division() const { return *division_; }

    // ---- what the frame asks and tells
    Nature nature() const override { return Nature::Document; }
    QString reference() const override { return referencecourante(); }
    bool peut(Ordre ordre) const override;
    void fait(Ordre ordre) override;
    /// The window became the active one of the frame: folds the panel if a link asks for it, shows the document again
    /// if the options ask for it, puts the focus.
    void activation() override;
    /// Writes the settings and releases the slot, once, as its closing does: for the end of the run, where a window
    /// that goes changes the state of the next one.
    void decharge() override;
    /// The document was opened from the selection list: the words to walk through come with it, and are marked if the
    /// settings want it; the view, not the caret, goes to the first mark.
    void recoitmots(const QString& mot1, const QString& mot2);
    /// Writes the window's settings, as its closing does.
    void ecritreglages() override;

    // ---- what the navigation asks of it
    Lecture& lecture() override;
    BarreTextes& barrechild() override { return *barre_; }
    void prendfocus() override;

signals:
    // What other rooms do for this window.
    /// The document, or the selected part of it, for the dossiers; all empty: the dossiers are to open alone.
    void ranger(const QString& cle, const QString& titre, qsizetype debut, qsizetype longueur);
    void selection(const QStringList& cles); ///< to become the selection list, in this order
    void premierplan();                      ///< wants to be the active window of the frame
    void sortie(velm::Ordre ordre);          ///< the text is to be printed, saved, sent or exported
    void cible(const QString& texte);        ///< what the link under the pointer leads to; empty for none
    void ferme();                            ///< the settings are written, the slot is released

protected:
    void closeEvent(QCloseEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;

private:
    void construit();
    void charge();
    void relie();
    void reliebarre();
    void prepare();
    void couvre();
    void decouvre();

    int indice_;
    ContexteTextes contexte_;
    ReglagesTextes reglages_;
    BarreTextes* barre_ = nullptr;
    PanneauTextes* panneau_ = nullptr;
    VoletLiens* volet_ = nullptr;
    ZoneTexte* zone_ = nullptr;
    DivisionTextes* division_ = nullptr;
    Couverture* couverture_ = nullptr; ///< until the first document
    bool vierge_ = true;               ///< there has been none
    bool decharge_ = false;
};

} // namespace velm
