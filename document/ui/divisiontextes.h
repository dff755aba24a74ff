#pragma once
// The division of a document window: puts its controls where DispositionTextes wants them, at every change of its size,
// and when one of the bars between them is dragged.
#include "document/dispositiontextes.h"
#include "document/reglagestextes.h"

#include <QObject>

class QWidget;

namespace velm {

class BarreTextes;
class PanneauTextes;
class RichTextBox;
class SplitterBar;
class VoletLiens;

class DivisionTextes final : public QObject {
    Q_OBJECT

public:
    /// The parts of one window; the division is its child as well.
    struct Parties {
        BarreTextes& barre;
        PanneauTextes& panneau;
        RichTextBox& vue;
        VoletLiens& volet;
    };
    DivisionTextes(const Parties& parties, QWidget* fenetre);

    const DispositionTextes& disposition() const { return disposition_; }

    /// Takes what was stored and places all by it.
    void charge(const ReglagesTextes& reglages, bool listeselectionvisible);
    /// Nothing was stored: the contents of the collection, beside the text.
    void chargepremiere(bool listeselectionvisible);
    /// Puts the panel's arrangement and width where they are stored.
    void retient(ReglagesTextes& reglages) const;

    /// The user wants a block: a panel that is too small to show it opens.
    void ouvrebloc(Bloc bloc);
    void changearrangement(Arrangement arrangement);
    /// Folds the panel away.
    void plie();
    void montrelistes(bool visibles);
    /// Places everything anew.
    void place();

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void commence(Bloc bloc, bool listeselectionvisible);
    void suit(SplitterBar& barre);
    void lache(const SplitterBar& barre, int position);
    void applique();
    void choisit(Bloc bloc);
    void montrebloc();
    void rendfocus(const QWidget* avant);

    Parties parties_;
    QWidget* fenetre_;
    DispositionTextes disposition_;
    bool partage_ = true; ///< the lower lists share the width until the user moves their bar
};

} // namespace velm
