#pragma once
// The collections that a search looks into, by picture and name: a box to check for each, and buttons for all of them.
// As many boxes stand in a row as there is room for. The Tab key reaches them once, the arrow keys walk them.
#include "core/texte.h"

#include <QList>
#include <QWidget>

class QCheckBox;
class QGridLayout;

namespace velm {

class BarreCollections final : public QWidget {
    Q_OBJECT

public:
    /// All are checked.
    BarreCollections(const Libelles& texte, QWidget* parent);

    int buttonCount() const { return static_cast<int>(boites_.size()); }
    /// Codes of the collections in their order, from 1.
    QString keyAt(int rang) const;
    bool value(const QString& code) const;
    void setValue(const QString& code, bool coche);
    /// The box of a collection; null for none.
    QCheckBox* widget(const QString& code) const;

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    QLayout* construitentete(const Libelles& texte);
    void construitboites(const Libelles& texte);
    int pluslarge() const;
    void range();
    int voisine(int rang, int touche) const;

    QList<QCheckBox*> boites_;
    QGridLayout* grille_;
    int parrangee_ = 0;
};

} // namespace velm
