#include "tests/vues/guide.h"

#include "document/ui/textes.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "search/ui/frmvelmorselect.h"
#include "shell/actions.h"
#include "shell/ecrangeneral.h"
#include "shell/recherches.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QCursor>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QHelpEvent>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QToolButton>

#include <utility>

namespace velm::vues {

using namespace Qt::Literals::StringLiterals;

namespace {

QImage screenOf(QWidget& window) {
    if (QGuiApplication::platformName() == u"offscreen")
        return window.grab().toImage();
    return window.screen()->grabWindow(0).toImage();
}

} // namespace

QWidget* foremost() {
    QWidget* const popup = visibleOne(QApplication::activePopupWidget());
    return popup ? popup : visibleOne(QApplication::activeModalWidget());
}

void dismiss(QWidget& window) {
    if (auto* const dialog = qobject_cast<QDialog*>(&window))
        dialog->reject();
    else
        window.close();
}

void dismissOffer() {
    if (QWidget* const offered = QApplication::activePopupWidget())
        offered->close();
}

void pressReturn() {
    if (QWidget* const here = QApplication::focusWidget())
        QTest::keyClick(here, Qt::Key_Return);
}

void settle(QWidget& window) {
    constexpr int enough = 4;
    QImage last;
    int equal = 0;
    const bool still = QTest::qWaitFor(
        [&] {
            QImage now = screenOf(window);
            equal = now == last ? equal + 1 : 0;
            last = std::move(now);
            return equal >= enough;
        },
        moment);
    Q_UNUSED(still) // the page that turns in the about box never is
}

Guide::Guide(Manner manner, Eye eye) : manner_(std::move(manner)), eye_(std::move(eye)) {
    QApplication::setCursorFlashTime(0);
    // Nothing lies under the pointer that it does not mean.
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    constexpr int often = 500; // milliseconds
    QObject::connect(&unexpected_, &QTimer::timeout, &unexpected_, [this] { closeUnexpected(); });
    unexpected_.start(often);
}

Guide::~Guide() = default;

// ---- the hand

/// A box that nobody foresaw would hold the walk for ever.
void Guide::closeUnexpected() {
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box || expecting_)
        return;
    miss(u"a box came: "_s + box->text());
    box->reject();
}

void Guide::miss(const QString& what) {
    missed_ << what;
}

void Guide::look(const QString& name, QWidget* window) {
    QWidget* const meant = window ? window : host_->frame();
    if (!meant || !meant->isVisible())
        return miss(name);
    settle(*meant);
    eye_({name, *meant});
}

void Guide::lookAtWhatComes(const QString& name, const std::function<void()>& deed) {
    bool met = false;
    expecting_ = true;
    const QPointer<QWidget> before = foremost();
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        QWidget* const now = foremost();
        if (met || !now || now == before)
            return;
        met = true;
        watch.stop();
        const QPointer<QWidget> guard(now);
        look(name, now);
        if (guard)
            dismiss(*guard);
    });
    watch.start(2);
    deed();
    if (!QTest::qWaitFor([&] { return met; }, moment))
        miss(name);
    expecting_ = false;
    // One box may bring up the next.
    while (QWidget* const next = foremost()) {
        if (next == before)
            break;
        dismiss(*next);
        QCoreApplication::processEvents();
    }
}

void Guide::command(Ordre order, int rank) const {
    host_->frame()->pieces().actions.de(order, rank).trigger();
}

void Guide::open(const QString& key) {
    host_->program().ouvre(decoupecle(key));
    const bool shown = QTest::qWaitFor([&] { return front() && front()->referencecourante() == key; }, moment);
    if (!shown)
        miss(u"the document "_s + key);
}

void Guide::press(const Toolbar& bar, const QString& key) {
    QToolButton* const button = bar.widget(key);
    QAction* const action = button ? button->defaultAction() : nullptr;
    if (!action || !action->isVisible() || !action->isEnabled())
        return miss(u"the button "_s + key);
    // What a narrow bar has no room for stands behind its arrow.
    if (button->isVisible())
        QTest::mouseClick(button, Qt::LeftButton);
    else
        action->trigger();
}

void Guide::pressInWindow(const QString& key) {
    if (front())
        press(front()->barrechild(), key);
}

void Guide::type(const QWidget* within, const QString& field, const QString& words) {
    auto* const box = within ? within->findChild<QLineEdit*>(field) : nullptr;
    if (!box || !box->isVisible())
        return miss(u"the field "_s + field);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, words);
}

void Guide::lookAtOffer(const QString& name, const QWidget* within, const QString& field, const QString& beginning) {
    type(within, field, beginning);
    if (!QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }, moment))
        return miss(name);
    look(name);
    dismissOffer();
}

void Guide::rightClick(const QString& name, QWidget* widget, std::optional<QPoint> place) {
    if (!visibleOne(widget))
        return miss(name);
    lookAtWhatComes(name, [widget, place = place.value_or(widget->rect().center())] {
        QTest::mouseClick(widget, Qt::RightButton, {}, place);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, widget->mapToGlobal(place));
        if (!foremost())
            QCoreApplication::sendEvent(widget, &event);
    });
}

void Guide::rightClickRow(const QString& name, const FlexGrid& grid) {
    QTableView& view = *grid.view();
    rightClick(name, view.viewport(), view.visualRect(view.currentIndex()).center());
}

void Guide::tipOf(const QString& name, QWidget* widget) {
    if (!visibleOne(widget))
        return miss(name);
    const QPoint place = widget->rect().center();
    QHelpEvent event(QEvent::ToolTip, place, widget->mapToGlobal(place));
    QCoreApplication::sendEvent(widget, &event);
    look(name);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(widget, &leave);
}

void Guide::tab(int number) {
    if (auto* const tabs = form() ? form()->findChild<QTabWidget*>(u"ongletrecherche"_s) : nullptr)
        tabs->setCurrentIndex(number);
    else
        miss(u"tab %1"_s.arg(number));
}

QWidget* Guide::form() const {
    return host_->program().recherches().formulaire();
}

Toolbar* Guide::frameBar(const QString& name) const {
    return host_->frame()->findChild<Toolbar*>(name);
}

bool Guide::prepare(const QString& base) {
    host_ = std::make_unique<e2e::Host>(base);
    // Nobody has set anything yet.
    QFile::remove(QDir(host_->folder()).filePath(u"reglages.ini"_s));
    return host_->isReady();
}

bool Guide::start() {
    look::apply(*qApp, manner_.theme);
    host_->setSetting(u"LANGUE", u"EXTENSION", manner_.language);
    // A print asks nothing and leaves its job open.
    host_->setSetting(u"EDITEUR", u"CHOIXIMPRIMANTE", u"0"_s);
    host_->setSetting(u"EDITEUR", u"EJECTIONAUTOMATIQUE", u"0"_s);
    return host_->start() == Demarrage::EnMarche && QTest::qWaitForWindowExposed(host_->frame());
}

void Guide::forget() {
    if (host_ && host_->frame())
        host_->program().termine();
    host_.reset();
}

} // namespace velm::vues
