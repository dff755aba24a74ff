#include "tests/e2e/robot.h"

#include "tests/e2e/thread.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QThread>
#include <QWidget>

#include <gtest/gtest.h>

namespace velm::e2e {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int toolMilliseconds = 60000;
constexpr int dragSteps = 8;

/// What a tool says, nothing when it fails.
std::optional<QString> said(const QString& program, const QStringList& arguments) {
    QProcess tool;
    tool.start(program, arguments);
    if (!tool.waitForFinished(toolMilliseconds) || tool.exitStatus() != QProcess::NormalExit || tool.exitCode() != 0)
        return std::nullopt;
    return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
}

void xdotool(const QStringList& arguments) {
    EXPECT_TRUE(said(u"xdotool"_s, arguments)) << arguments.join(u' ').toStdString();
}

/// The display takes what it is sent in its order; to wait for a move would take seconds where the pointer is there.
QStringList to(const QPoint& point) {
    return {u"mousemove"_s, QString::number(point.x()), QString::number(point.y())};
}

/// What can be seen of a spot, in the pixels of the screen; null while it cannot be touched. In the program's thread.
QRect seen(const Spot& spot) {
    if (!spot.widget || !spot.widget->isVisible() || !spot.widget->isEnabled() || !spot.widget->isActiveWindow())
        return {};
    const QRect part = spot.part & spot.widget->visibleRegion().boundingRect();
    if (part.isEmpty())
        return {};
    const qreal ratio = spot.widget->devicePixelRatioF();
    return {(QPointF(spot.widget->mapToGlobal(part.topLeft())) * ratio).toPoint(), part.size() * ratio};
}

/// The title among the properties of a window.
QString nameIn(const QString& properties) {
    return properties.section(u"_NET_WM_NAME = \""_s, 1, 1).section(u'\n', 0, 0);
}

/// The middle of a spot once it stands still.
std::optional<QPoint> middle(const Where& where) {
    QRect before;
    const bool found = becomes([&] {
        const QRect now = seen(where());
        return std::exchange(before, now) == now && !now.isNull();
    });
    return found ? std::optional(before.center()) : std::nullopt;
}

} // namespace

Spot Spot::of(QWidget* widget) {
    return widget && widget->isVisible() ? Spot{widget, widget->rect()} : Spot{};
}

Spot Spot::named(const QWidget* within, const QString& name) {
    for (QWidget* widget : within ? within->findChildren<QWidget*>(name) : QList<QWidget*>()) {
        if (widget->isVisible())
            return of(widget);
    }
    return {};
}

void key(const QString& combination) {
    xdotool({u"key"_s, combination});
}

bool comesForward(qint64 process, const QString& title, int milliseconds) {
    const QDeadlineTimer end(milliseconds);
    while (!end.hasExpired()) {
        const auto window = said(u"xdotool"_s, {u"getactivewindow"_s});
        const auto properties = said(u"xprop"_s, {u"-id"_s, window.value_or(u"0"_s), u"-notype"_s, u"_NET_WM_PID"_s,
                                                  u"_NET_WM_NAME"_s, u"_NET_WM_WINDOW_TYPE"_s})
                                    .value_or(QString());
        if (properties.contains(u"_NET_WM_PID = %1\n"_s.arg(process)) && nameIn(properties).contains(title) &&
            !properties.contains(u"TYPE_SPLASH"_s))
            return true;
        QThread::msleep(100);
    }
    return false;
}

bool touch(const Where& where, Hand hand) {
    const auto point = middle(where);
    if (!point)
        return false;
    switch (hand) {
    case Hand::Click:
        xdotool(to(*point) + QStringList{u"click"_s, u"1"_s});
        break;
    case Hand::DoubleClick:
        xdotool(to(*point) + QStringList{u"click"_s, u"--repeat"_s, u"2"_s, u"--delay"_s, u"40"_s, u"1"_s});
        break;
    case Hand::WheelDown:
        xdotool(to(*point) + QStringList{u"click"_s, u"5"_s});
        break;
    }
    return true;
}

bool drag(const Where& where, const QPoint& by, const std::function<void()>& underWay) {
    const auto point = middle(where);
    if (!point)
        return false;
    xdotool(to(*point) + QStringList{u"mousedown"_s, u"1"_s});
    for (int step = 1; step <= dragSteps; ++step)
        xdotool(to(*point + by * step / dragSteps));
    if (underWay)
        underWay();
    xdotool({u"mouseup"_s, u"1"_s});
    return true;
}

void photo(const QString& name) {
    const QDir folder(QStringLiteral(VELM_BINARY_DIR "/e2e"));
    const QString file = folder.filePath(name + u".png"_s);
    const bool saved = folder.mkpath(u"."_s) &&
                       inProgram([&file] { return QGuiApplication::primaryScreen()->grabWindow(0).save(file); });
    EXPECT_TRUE(saved) << file.toStdString();
}

} // namespace velm::e2e
