#pragma once
// A list of what a collection holds follows the document of its window: it comes into sight there, and is marked.
// Whoever works in the list keeps his place: then the document is marked alone.
#include "core/cle.h"

#include <QBasicTimer>
#include <QObject>

class QAbstractScrollArea;

namespace velm {

class SuiviDocument : public QObject {
public:
    /// In the view of a list, that lives longer; `parent` is its owner.
    SuiviDocument(QAbstractScrollArea& vue, QObject* parent);

    /// The window shows a document, which hangs from the branch of a number. The list follows when what was asked for
    /// before has been done and painted, or when it is next seen.
    void suit(const Cle& cle, qint64 numero);
    /// The list has come into sight.
    void reprend();
    /// Marks the document where it stands now, and scrolls nowhere.
    virtual void marque() = 0;

protected:
    const Cle& cle() const { return cle_; }
    qint64 numero() const { return numero_; }
    virtual bool remplie() const = 0; ///< there is something in the list
    virtual void montre() = 0;        ///< marks the document, and brings it into sight

    void timerEvent(QTimerEvent* evenement) override;

private:
    QAbstractScrollArea& vue_;
    Cle cle_;
    qint64 numero_ = 0;
    bool attendu_ = false; ///< the list has not followed the document yet
    bool defilee_ = false; ///< the user has scrolled the list since it followed
    QBasicTimer bientot_;
};

} // namespace velm
