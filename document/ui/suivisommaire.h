#pragma once
// The contents tree of a document window follows the document: what leads to it opens, it comes into sight, it is
// marked. Whoever works in the tree keeps his place there: then the document is marked alone.
#include "core/cle.h"

#include <QBasicTimer>
#include <QObject>

namespace velm {

class Arborescence;
class TreeView;
struct ContexteTextes;

class SuiviSommaire final : public QObject {
public:
    /// In a tree that this belongs to, filled by `arborescence`. Both and what the context holds live longer.
    SuiviSommaire(TreeView& arbre, Arborescence& arborescence, const ContexteTextes& contexte);

    /// The window shows a document, which hangs from the branch of a number. The tree follows when what was asked for
    /// before has been done and painted, or when it is next seen.
    void suit(const Cle& cle, qint64 numero);
    /// The tree has been filled, or comes into sight.
    void reprend();
    /// More of the tree has been loaded: the document may be in it now.
    void marque();

protected:
    void timerEvent(QTimerEvent* evenement) override;

private:
    void rejoint();

    TreeView& arbre_;
    Arborescence& arborescence_;
    const ContexteTextes& contexte_;
    Cle cle_;
    qint64 numero_ = 0;
    bool attendu_ = false; ///< the tree has not followed the document yet
    bool main_ = false;    ///< the user's hand has scrolled the tree since it followed
    QBasicTimer bientot_;
};

} // namespace velm
