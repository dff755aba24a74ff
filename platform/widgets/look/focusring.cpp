#include "platform/widgets/look/focusring.h"

#include "platform/widgets/look/look.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPainter>
#include <QRadioButton>
#include <QTabBar>
#include <QTextEdit>

#include <algorithm>
#include <utility>

namespace velm {

namespace {

constexpr const char* ownFocus = "drawsItsFocus";
constexpr int stroke = 2;

/// Only the ring itself is there: what it surrounds is neither covered nor painted anew with it.
class Ring final : public QWidget {
public:
    explicit Ring(QWidget* host) : QWidget(host) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(look::focusColour(look::themeOf(palette())), stroke));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 1, 1);
    }
    void resizeEvent(QResizeEvent*) override {
        setMask(QRegion(rect()) - QRegion(rect().adjusted(stroke, stroke, -stroke, -stroke)));
    }
};

/// A window, or a child of an area: what lies beside it is somebody else's.
bool isHost(const QWidget& widget) {
    return widget.isWindow() || qobject_cast<const QMdiSubWindow*>(widget.parentWidget());
}

QWidget* hostOf(QWidget* widget) {
    while (widget && !isHost(*widget))
        widget = widget->parentWidget();
    return widget;
}

bool takesWords(const QWidget& widget) {
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget))
        return !line->isReadOnly();
    if (const auto* box = qobject_cast<const QComboBox*>(&widget))
        return box->isEditable();
    const auto* text = qobject_cast<const QTextEdit*>(&widget);
    return text && !text->isReadOnly();
}

/// In what a field offers, the chosen row says where one is.
bool canHaveRing(const QWidget& widget) {
    return !isHost(widget) && widget.window()->windowType() != Qt::Popup && !widget.property(ownFocus).toBool() &&
           !qobject_cast<const QMdiSubWindow*>(&widget) && !qobject_cast<const QMdiArea*>(&widget) &&
           !qobject_cast<const QMenuBar*>(&widget);
}

/// The part of a widget that has the focus.
QRect focusedPart(const QWidget& widget) {
    if (const auto* tabs = qobject_cast<const QTabBar*>(&widget))
        return tabs->tabRect(tabs->currentIndex());
    const bool marked = qobject_cast<const QCheckBox*>(&widget) || qobject_cast<const QRadioButton*>(&widget);
    const int width = marked ? std::min(widget.width(), widget.sizeHint().width()) : widget.width();
    return QStyle::visualRect(widget.layoutDirection(), widget.rect(), QRect(0, 0, width, widget.height()));
}

/// How far outside the ring begins: a gap sets it off from what is filled, and a field has an edge to lean on.
int gapAround(const QWidget& widget) {
    return takesWords(widget) ? 0 : 1;
}

/// Around the widget, as far as it can be seen in its host; empty for one that is scrolled away.
QRect placeAround(const QWidget& widget, const QWidget& host) {
    const QRect part = focusedPart(widget).translated(widget.mapTo(&host, QPoint()));
    QRect seen = host.rect();
    for (const QWidget* above = widget.parentWidget(); above && above != &host; above = above->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea*>(above->parentWidget()))
            seen &= QRect(above->mapTo(&host, QPoint()), above->size());
    }
    const int reach = gapAround(widget) + stroke;
    return seen.intersects(part) ? part.adjusted(-reach, -reach, reach, reach) & seen : QRect();
}

} // namespace

FocusRing::FocusRing(QApplication& application) : QObject(&application) {
    application.installEventFilter(this);
    connect(&application, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { follow(now); });
}

void FocusRing::leave(QWidget& widget) {
    widget.setProperty(ownFocus, true);
}

QWidget* FocusRing::around() const {
    return ring_ && !ring_->size().isEmpty() ? focused_.data() : nullptr;
}

QRect FocusRing::place() const {
    return around() ? ring_->geometry() : QRect();
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusIn: {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        // The toolkit walks the chain of controls by itself as well.
        const bool walked = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
        if (keyed_ && (walked || reason == Qt::ShortcutFocusReason))
            byKeys_ = true;
        break;
    }
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
        keyed_ = true;
        break;
    case QEvent::MouseButtonPress:
        keyed_ = false;
        if (std::exchange(byKeys_, false))
            layLater();
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::ParentChange:
    case QEvent::ZOrderChange: {
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (widget && focused_ && (widget == focused_ || widget->isAncestorOf(focused_)))
            layLater();
        break;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void FocusRing::follow(QWidget* now) {
    if (auto* tabs = qobject_cast<QTabBar*>(focused_))
        disconnect(tabs, &QTabBar::currentChanged, this, nullptr);
    focused_ = now;
    if (auto* tabs = qobject_cast<QTabBar*>(now))
        connect(tabs, &QTabBar::currentChanged, this, &FocusRing::layLater);
    lay();
}

void FocusRing::layLater() {
    if (!std::exchange(owed_, true))
        QMetaObject::invokeMethod(this, &FocusRing::lay, Qt::QueuedConnection);
}

void FocusRing::lay() {
    owed_ = false;
    QWidget* host = hostOf(focused_);
    QRect place;
    if (host && focused_->isVisible() && canHaveRing(*focused_) && (byKeys_ || takesWords(*focused_)))
        place = placeAround(*focused_, *host);
    if (!ring_ && place.isEmpty())
        return;
    if (!ring_)
        ring_ = new Ring(host);
    else if (host && ring_->parentWidget() != host)
        ring_->setParent(host);
    // Without a size it is not seen; to hide it would lay out all that is around it.
    ring_->setGeometry(place);
    ring_->show();
    ring_->raise();
}

} // namespace velm
