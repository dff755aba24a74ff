#include "search/ui/listeavecvide.h"

#include <QStylePainter>
#include <QStyledItemDelegate>

#include <algorithm>

namespace velm {

namespace {

class Entrees final : public QStyledItemDelegate {
public:
    explicit Entrees(ListeAvecVide& liste) : QStyledItemDelegate(&liste), liste_(liste) {}

    QString displayText(const QVariant& valeur, const QLocale&) const override { return liste_.vu(valeur.toString()); }

private:
    ListeAvecVide& liste_;
};

} // namespace

ListeAvecVide::ListeAvecVide(const QString& vide, QWidget* parent) : QComboBox(parent), vide_(vide) {
    setItemDelegate(new Entrees(*this));
}

QSize ListeAvecVide::sizeHint() const {
    int plus = 0;
    int deja = 0;
    for (int rang = 0; rang < count(); ++rang) {
        deja = std::max(deja, fontMetrics().horizontalAdvance(itemText(rang)));
        plus = std::max(plus, fontMetrics().horizontalAdvance(vu(itemText(rang))));
    }
    const QSize usuelle = QComboBox::sizeHint();
    return {usuelle.width() + std::max(plus - deja, 0), usuelle.height()};
}

void ListeAvecVide::paintEvent(QPaintEvent*) {
    QStylePainter peintre(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = vu(option.currentText);
    peintre.drawComplexControl(QStyle::CC_ComboBox, option);
    peintre.drawControl(QStyle::CE_ComboBoxLabel, option);
}

} // namespace velm
