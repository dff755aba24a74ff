#include "platform/widgets/look/carrier.h"

#include "platform/widgets/look/look.h"

#include <QApplication>
#include <QCursor>
#include <QIcon>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace velm {

namespace {

constexpr int edgeOfIcon = 16;
constexpr int widestCard = 280;
constexpr int restMilliseconds = 50;
constexpr QPoint besidePointer(14, 14);

/// A picture and some words on a small card.
class Card final : public QWidget {
public:
    Card(QWidget* window, const QIcon& icon, const QString& label) : QWidget(window), icon_(icon), label_(label) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        setAccessibleName(label);
        const int words = fontMetrics().horizontalAdvance(label) + 1;
        resize(std::min(widestCard, textLeft() + words + look::spacing), fontMetrics().height() + 3 * look::grid);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(look::edge(palette()));
        painter.setBrush(palette().color(QPalette::Base));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
        icon_.paint(&painter, QRect(look::spacing, (height() - edgeOfIcon) / 2, edgeOfIcon, edgeOfIcon));
        const QRect words = rect().adjusted(textLeft(), 0, -look::spacing, 0);
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         fontMetrics().elidedText(label_, Qt::ElideRight, words.width()));
    }

private:
    int textLeft() const { return icon_.isNull() ? look::spacing : look::spacing + edgeOfIcon + look::spacing; }

    QIcon icon_;
    QString label_;
};

bool isOfMouse(QEvent::Type type) {
    return type == QEvent::MouseMove || type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
           type == QEvent::MouseButtonDblClick;
}

bool isEscape(const QEvent& event) {
    return (event.type() == QEvent::KeyPress || event.type() == QEvent::ShortcutOverride) &&
           static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

} // namespace

Carrier::Carrier(QObject* parent) : QObject(parent) {}

Carrier::~Carrier() {
    stop();
}

void Carrier::carry(QWidget* window, const QIcon& icon, const QString& label, Mode mode) {
    const QPointer<Carrier> self(this);
    const QPointer<QWidget> host(window);
    cancel();
    if (!self || !host)
        return;
    window_ = host->window();
    connect(window_, &QObject::destroyed, this, [this] {
        stop();
        emit cancelled();
    });
    mode_ = mode;
    taken_ = passing_ = waits_ = false;
    picture_ = new Card(window_, icon, label);
    at_ = QCursor::pos();
    qApp->installEventFilter(this);
    rest_.start(restMilliseconds, this);
    setAllowed(false);
    layPicture();
}

void Carrier::setAllowed(bool allowed) {
    allowed_ = allowed;
    if (!carries() || waits_)
        return;
    const Qt::CursorShape no = mode_ == Mode::UntilRelease ? Qt::ForbiddenCursor : Qt::ArrowCursor;
    const Qt::CursorShape shape = allowed ? Qt::DragCopyCursor : no;
    if (!std::exchange(shaped_, true))
        QApplication::setOverrideCursor(shape);
    else if (!QApplication::overrideCursor() || QApplication::overrideCursor()->shape() != shape)
        QApplication::changeOverrideCursor(shape);
}

void Carrier::stop() {
    rest_.stop();
    if (qApp)
        qApp->removeEventFilter(this);
    unshape();
    if (window_)
        disconnect(window_, nullptr, this, nullptr);
    window_.clear();
    if (picture_) {
        picture_->hide();
        picture_->deleteLater();
    }
    picture_.clear();
}

void Carrier::unshape() {
    allowed_ = false;
    if (std::exchange(shaped_, false))
        QApplication::restoreOverrideCursor();
}

void Carrier::wait() {
    waits_ = true;
    taken_ = passing_ = false;
    rest_.stop();
    unshape();
    picture_->hide();
}

void Carrier::goOn() {
    if (!std::exchange(waits_, false))
        return;
    rest_.start(restMilliseconds, this);
    at_ = QCursor::pos();
    setAllowed(false);
    layPicture();
}

void Carrier::cancel() {
    if (!carries())
        return;
    stop();
    emit cancelled();
}

void Carrier::finish() {
    stop();
}

QWidget* Carrier::under() const {
    const QPoint inside = window_->mapFromGlobal(at_);
    if (!window_->rect().contains(inside))
        return nullptr;
    QWidget* const child = window_->childAt(inside);
    return child ? child : window_.data();
}

void Carrier::layPicture() {
    if (!picture_ || !window_)
        return;
    const QPoint inside = window_->mapFromGlobal(at_);
    // Beside the pointer, below it; on its other side where the window ends.
    QPoint place = inside + besidePointer;
    if (place.x() + picture_->width() > window_->width())
        place.setX(std::max(0, std::min(inside.x(), window_->width()) - picture_->width() - look::grid));
    if (place.y() + picture_->height() > window_->height())
        place.setY(inside.y() - picture_->height() - look::grid);
    picture_->move(place);
    picture_->setVisible(window_->rect().contains(inside));
    picture_->raise();
}

void Carrier::tell() {
    layPicture();
    if (carries())
        emit over(under(), at_);
}

void Carrier::drop() {
    const QPointer<QWidget> target(under());
    const QPoint at = at_;
    const bool may = allowed_ && target;
    stop();
    if (may)
        emit dropped(target, at);
    else
        emit cancelled();
}

bool Carrier::eventFilter(QObject* watched, QEvent* event) {
    if (!carries() || !watched->isWidgetType())
        return false;
    auto& receiver = static_cast<QWidget&>(*watched);
    if (&receiver == window_)
        ofWindow(event->type());
    if (!carries() || waits_ || receiver.window() != window_)
        return false;
    if (isEscape(*event)) {
        event->accept();
        if (event->type() == QEvent::KeyPress)
            cancel();
        return true;
    }
    if (!isOfMouse(event->type()))
        return false;
    return ofMouse(static_cast<const QMouseEvent&>(*event));
}

void Carrier::ofWindow(QEvent::Type type) {
    const bool behind = type == QEvent::WindowDeactivate;
    if (type == QEvent::Hide || (behind && mode_ == Mode::UntilRelease))
        cancel();
    else if (behind)
        wait();
    else if (type == QEvent::WindowActivate)
        goOn();
}

bool Carrier::ofMouse(const QMouseEvent& event) {
    at_ = event.globalPosition().toPoint();
    switch (event.type()) {
    case QEvent::MouseMove: {
        const bool used = !passing_;
        tell();
        return used;
    }
    case QEvent::MouseButtonRelease:
        return released(event);
    default:
        return pressed(event);
    }
}

bool Carrier::pressed(const QMouseEvent& event) {
    const QPointer<Carrier> self(this);
    if (mode_ == Mode::UntilRelease)
        return true;
    tell(); // what lies below may be another than at the last move
    if (!self || !carries())
        return true;
    if (event.button() != Qt::LeftButton)
        return true;
    taken_ = allowed_;
    passing_ = !allowed_;
    return taken_;
}

bool Carrier::released(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return true;
    if (std::exchange(passing_, false))
        return false;
    const QPointer<Carrier> self(this);
    tell();
    if (!self || !carries())
        return true;
    if (mode_ == Mode::UntilRelease || std::exchange(taken_, false))
        drop();
    return true;
}

void Carrier::timerEvent(QTimerEvent* event) {
    if (event->timerId() == rest_.timerId())
        tell();
}

} // namespace velm
