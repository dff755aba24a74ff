#include "platform/widgets/look/noteline.h"

#include "platform/widgets/look/look.h"
#include "platform/widgets/look/plaintext.h"

#include <QAccessible>
#include <QEvent>
#include <QLabel>
#include <QToolButton>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

struct NoteLine::Places {
    QRect label;
    QRect link;
    int height;
};

NoteLine::NoteLine(QWidget* parent)
    : QWidget(parent), label_(plainLabel(QString(), this)), link_(new QToolButton(this)) {
    label_->setWordWrap(true);
    label_->setObjectName(u"note"_s);
    link_->setObjectName(u"notelink"_s);
    link_->setAutoRaise(true);
    link_->setCursor(Qt::PointingHandCursor);
    link_->setFocusPolicy(Qt::StrongFocus);
    QSizePolicy room(QSizePolicy::Preferred, QSizePolicy::Preferred);
    room.setHeightForWidth(true);
    setSizePolicy(room);
    connect(link_, &QToolButton::clicked, this, &NoteLine::linkClicked);
    colour();
    say(QString());
}

void NoteLine::say(const QString& text, Tone tone, const QString& link) {
    label_->setText(text);
    link_->setText(link);
    link_->setVisible(!link.isEmpty());
    tone_ = tone;
    colour();
    setVisible(!text.isEmpty());
    arrange();
    updateGeometry();
    if (text.isEmpty())
        return;
    QAccessibleEvent told(label_, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
}

QString NoteLine::text() const {
    return label_->text();
}

/// Both in a line where there is room for them, else the link below the text.
NoteLine::Places NoteLine::placesIn(int width) const {
    const QSize link = link_->text().isEmpty() ? QSize(0, 0) : link_->sizeHint();
    const int beside = link.isEmpty() ? 0 : link.width() + look::spacing;
    const int whole = label_->fontMetrics().horizontalAdvance(label_->text()) + 2;
    if (whole + beside <= width) {
        const int height = std::max(label_->fontMetrics().height(), link.height());
        return {{0, 0, whole, height},
                {whole + look::spacing, (height - link.height()) / 2, link.width(), link.height()},
                height};
    }
    const int text = std::max(label_->heightForWidth(std::max(width, 1)), label_->fontMetrics().height());
    return {{0, 0, width, text}, {0, text, std::min(link.width(), width), link.height()}, text + link.height()};
}

int NoteLine::heightForWidth(int width) const {
    return label_->text().isEmpty() ? 0 : placesIn(width).height;
}

QSize NoteLine::sizeHint() const {
    constexpr int usual = 240;
    const int width = std::max(usual, this->width());
    return {usual, heightForWidth(width)};
}

QSize NoteLine::minimumSizeHint() const {
    return {link_->text().isEmpty() ? 0 : link_->sizeHint().width(),
            label_->text().isEmpty() ? 0 : label_->fontMetrics().height()};
}

void NoteLine::arrange() {
    const Places places = placesIn(width());
    label_->setGeometry(places.label);
    link_->setGeometry(places.link);
}

/// The text quiet or as a warning, the link as links are.
void NoteLine::colour() {
    const look::Theme theme = look::themeOf(palette());
    QPalette text;
    const QColor said =
        tone_ == Tone::Warning ? look::warningColour(theme) : palette().color(QPalette::PlaceholderText);
    text.setColor(QPalette::WindowText, said);
    label_->setPalette(text);
    QPalette more;
    more.setColor(QPalette::ButtonText, look::accentColour(theme));
    link_->setPalette(more);
    QFont lined = font();
    lined.setUnderline(true);
    link_->setFont(lined);
}

void NoteLine::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    arrange();
}

void NoteLine::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        colour();
        arrange();
        updateGeometry();
    }
}

} // namespace velm
