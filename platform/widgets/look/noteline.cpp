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
    text_ = text;
    label_->setAccessibleName(text);
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

int NoteLine::heightOf(const QString& text, int width) const {
    constexpr int boundless = 1 << 20;
    const QRect room(0, 0, std::max(width, 1), boundless);
    return std::max(label_->fontMetrics().boundingRect(room, Qt::TextWordWrap, text).height(),
                    label_->fontMetrics().height());
}

/// The beginning of the text, as far as it can be seen.
QString NoteLine::cut(const QSize& room) const {
    const QFontMetrics metrics = label_->fontMetrics();
    const QSize link = link_->text().isEmpty() ? QSize(0, 0) : link_->sizeHint();
    const int left = room.height() - link.height();
    if (left < 2 * metrics.height()) {
        const bool beside = left < metrics.height() && !link.isEmpty();
        return metrics.elidedText(text_, Qt::ElideRight,
                                  room.width() - 2 - (beside ? link.width() + look::spacing : 0));
    }
    const auto beginning = [this](qsizetype length) { return text_.first(length) + u'…'; };
    qsizetype fits = 0;
    for (qsizetype over = text_.size(); over - fits > 1;) {
        const qsizetype middle = (fits + over) / 2;
        (heightOf(beginning(middle), room.width()) <= left ? fits : over) = middle;
    }
    return beginning(fits);
}

/// Both in a line where there is room for them, else the link below the text.
NoteLine::Places NoteLine::placesIn(int width, const QString& said) const {
    const QSize link = link_->text().isEmpty() ? QSize(0, 0) : link_->sizeHint();
    const int beside = link.isEmpty() ? 0 : link.width() + look::spacing;
    const int whole = label_->fontMetrics().horizontalAdvance(said) + 2;
    if (whole + beside <= width) {
        const int height = std::max(label_->fontMetrics().height(), link.height());
        return {{0, 0, whole, height},
                {whole + look::spacing, (height - link.height()) / 2, link.width(), link.height()},
                height};
    }
    const int text = heightOf(said, width);
    return {{0, 0, width, text}, {0, text, std::min(link.width(), width), link.height()}, text + link.height()};
}

int NoteLine::heightForWidth(int width) const {
    return text_.isEmpty() ? 0 : placesIn(width, text_).height;
}

QSize NoteLine::sizeHint() const {
    constexpr int usual = 240;
    const int width = std::max(usual, this->width());
    return {usual, heightForWidth(width)};
}

QSize NoteLine::minimumSizeHint() const {
    return {link_->text().isEmpty() ? 0 : link_->sizeHint().width(),
            text_.isEmpty() ? 0 : label_->fontMetrics().height()};
}

void NoteLine::arrange() {
    const bool whole = placesIn(width(), text_).height <= height();
    label_->setText(whole ? text_ : cut(size()));
    label_->setToolTip(whole ? QString() : plainTip(text_));
    const Places places = placesIn(width(), label_->text());
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
