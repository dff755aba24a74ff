#pragma once
// The lower pane of a document window: what the document cites and what cites it, side by side, the two bars that are
// dragged to divide it, and the pop-up menus of the lists.
#include "core/texte.h"
#include "document/ui/contextetextes.h"

#include <QBasicTimer>
#include <QObject>

class QMenu;

namespace velm {

class ListeDeLiens;
class SplitterBar;

/// Its controls are the window's own, which also places them.
class VoletLiens final : public QObject {
    Q_OBJECT
    Q_MOC_INCLUDE("document/ui/listedeliens.h")

public:
    /// Both lists closed.
    VoletLiens(const ContexteTextes& contexte, QWidget* fenetre);

    ListeDeLiens& liens() const { return *liens_; }
    ListeDeLiens& correlats() const { return *correlats_; }
    SplitterBar& separateurlisteh() const { return *separateurlisteh_; } ///< between the text and the lists
    SplitterBar& separateurlistev() const { return *separateurlistev_; } ///< between the two lists

    /// Another document is about to be shown: closed lists no longer tell how many rows they would have.
    void oublie();
    /// A document is shown: lists that are closed tell soon how many rows they would have.
    void compte(const Cle& cle);
    /// Opens or closes one of the two lists, with what belongs to the document of a key.
    void bascule(ListeDeLiens& liste, const Cle& cle);

signals:
    void basculee(velm::ListeDeLiens* liste); ///< the header's button of a list was pressed
    void montrees(bool visibles);             ///< a list was opened or closed: whether the grids are to be seen
    void ouverte(const Cle& cle);             ///< the document of a row is wanted
    void selection(const QStringList& cles);  ///< to become the selection list, in this order

protected:
    void timerEvent(QTimerEvent* evenement) override;

private:
    /// Names and texts of a list's pop-up menu.
    struct Menu {
        QString nom;
        QString ouvrir;
        Texte texteouvrir;
        QString selection;
        Texte texteselection;
    };
    void construitmenu(const Menu& noms, ListeDeLiens& liste, QWidget* fenetre);

    ContexteTextes contexte_;
    SplitterBar* separateurlisteh_;
    ListeDeLiens* liens_;
    SplitterBar* separateurlistev_;
    ListeDeLiens* correlats_;
    Cle acompter_;
    QBasicTimer bientot_;
};

} // namespace velm
