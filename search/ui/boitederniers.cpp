#include "search/ui/boitederniers.h"

#include "platform/widgets/look/plaintext.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace velm {

BoiteDerniers::BoiteDerniers(const QString& nom, const QString& derniers, QWidget* parent) : QComboBox(parent) {
    constexpr int largeurminimale = 12;
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    // The focus is the text box's own, keys reach it once, and come here when it has no use for them.
    lineEdit()->setFocusProxy(nullptr);
    setFocusProxy(lineEdit());
    lineEdit()->installEventFilter(this);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(largeurminimale);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    lineEdit()->setObjectName(nom);
    view()->setAccessibleName(derniers);
    view()->setTextElideMode(Qt::ElideMiddle);
}

void BoiteDerniers::offre(const QStringList& textes) {
    const QSignalBlocker muet(this);
    const QString garde = texte();
    const int caret = lineEdit()->cursorPosition();
    clear();
    addItems(textes);
    for (int rang = 0; rang < count(); ++rang)
        setItemData(rang, plainTip(itemText(rang)), Qt::ToolTipRole);
    setCurrentIndex(-1);
    lineEdit()->setText(garde);
    lineEdit()->setCursorPosition(caret);
}

void BoiteDerniers::metstexte(const QString& texte) {
    if (lineEdit()->text() != texte)
        lineEdit()->setText(texte);
}

void BoiteDerniers::showPopup() {
    if (count() > 0)
        QComboBox::showPopup();
}

bool BoiteDerniers::eventFilter(QObject* objet, QEvent* evenement) {
    // The frame around the text box shows that it has the focus.
    if (objet == lineEdit() && (evenement->type() == QEvent::FocusIn || evenement->type() == QEvent::FocusOut))
        update();
    return QComboBox::eventFilter(objet, evenement);
}

void BoiteDerniers::keyPressEvent(QKeyEvent* evenement) {
    // The arrows open the list instead of putting another text in place of what is being typed.
    if (evenement->key() == Qt::Key_Down || evenement->key() == Qt::Key_F4)
        showPopup();
    else
        evenement->ignore();
}

void BoiteDerniers::wheelEvent(QWheelEvent* evenement) {
    evenement->ignore();
}

} // namespace velm
