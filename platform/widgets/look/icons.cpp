#include "platform/widgets/look/icons.h"

#include "platform/widgets/look/look.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

/// A library's resources do not come in by themselves; the macro wants the global name space.
static void loadResources() {
    Q_INIT_RESOURCE(icones);
}

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qreal disabledInk = 0.4;
constexpr int neutralHue = 11;

/// What stands in the drawings where a colour of the palette comes, all of the same length.
constexpr QByteArrayView inkMark = "#1E2732";
constexpr QByteArrayView accentMark = "#1F4E79";
constexpr QByteArrayView warningMark = "#8A2432";
constexpr QByteArrayView hueMark = "#5F6771";

QString pathOf(const QString& name) {
    static const bool loaded = (loadResources(), true);
    Q_UNUSED(loaded);
    return u":/icones/"_s + name + u".svg"_s;
}

/// The hue that a picture takes: the number at the end of its name.
int hueOf(const QString& name) {
    const auto letter = std::find_if(name.crbegin(), name.crend(), [](QChar c) { return !c.isDigit(); });
    bool numeric = false;
    const int hue = QStringView(name).last(letter - name.crbegin()).toInt(&numeric);
    return numeric ? hue : neutralHue;
}

struct Colours {
    QColor ink, accent, warning, hue;
};

Colours coloursOf(const QString& name, QIcon::Mode mode, const QPalette& palette) {
    if (mode == QIcon::Selected) {
        const QColor selected = palette.color(QPalette::HighlightedText);
        return {selected, selected, selected, selected};
    }
    const QColor ink = palette.color(QPalette::Active, QPalette::WindowText);
    if (mode == QIcon::Disabled)
        return {ink, ink, ink, ink};
    const look::Theme theme = look::themeOf(palette);
    return {ink, look::accentColour(theme), look::warningColour(theme), look::hue(hueOf(name), theme)};
}

QByteArray coloured(QByteArray svg, const Colours& colours) {
    const std::array<std::pair<QByteArrayView, QByteArray>, 4> roles{{{inkMark, colours.ink.name().toLatin1()},
                                                                      {accentMark, colours.accent.name().toLatin1()},
                                                                      {warningMark, colours.warning.name().toLatin1()},
                                                                      {hueMark, colours.hue.name().toLatin1()}}};
    // One walk, so that a colour put in is never taken for a mark.
    for (qsizetype at = svg.indexOf('#'); at >= 0; at = svg.indexOf('#', at + 1)) {
        const QByteArray here = svg.mid(at, inkMark.size());
        for (const auto& [mark, colour] : roles) {
            if (here == mark) {
                svg.replace(at, mark.size(), colour);
                break;
            }
        }
    }
    return svg;
}

/// The drawings keep their long lines on every third unit of the grid. Where those fall between pixels and a stroke is
/// an odd number of pixels wide, half a pixel makes them sharp.
qreal nudgeOf(int side) {
    constexpr int units = 24;
    constexpr qreal line = 1.75;
    const bool onPixels = side * 3 % units == 0;
    const bool odd = qRound(line * side / units) % 2 == 1;
    return onPixels && odd ? 0.5 : 0;
}

class Engine final : public QIconEngine {
public:
    /// Without a theme, that of the palette around.
    explicit Engine(QString name, std::optional<look::Theme> theme = {}) : name_(std::move(name)), theme_(theme) {}

    QIconEngine* clone() const override { return new Engine(name_, theme_); }
    QString key() const override { return u"svg-by-role"_s; }
    QString iconName() override { return name_; }
    bool isNull() override { return false; }

    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
        return {{16, 16}, {20, 20}, {24, 24}, {32, 32}, {48, 48}, {64, 64}};
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const qreal density = painter->device()->devicePixelRatio();
        painter->drawPixmap(rect.topLeft(),
                            scaledPixmap((QSizeF(rect.size()) * density).toSize(), mode, state, density));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1);
    }

    /// The size counts device pixels.
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal density) override {
        if (size.isEmpty())
            return {};
        const Colours colours = coloursOf(name_, mode, theme_ ? look::palette(*theme_) : QGuiApplication::palette());
        const QString key = QStringList{u"svg-by-role"_s,
                                        name_,
                                        QString::number(size.width()),
                                        QString::number(size.height()),
                                        QString::number(density),
                                        QString::number(mode),
                                        colours.ink.name(),
                                        colours.accent.name()}
                                .join(u'/');
        QPixmap picture;
        if (!QPixmapCache::find(key, &picture)) {
            picture = drawn(size, mode, colours);
            picture.setDevicePixelRatio(density);
            QPixmapCache::insert(key, picture);
        }
        return picture;
    }

private:
    QPixmap drawn(const QSize& size, QIcon::Mode mode, const Colours& colours) const {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QFile file(pathOf(name_));
        if (!file.open(QIODevice::ReadOnly))
            return QPixmap::fromImage(image);
        QSvgRenderer renderer(coloured(file.readAll(), colours));
        const int side = std::min(size.width(), size.height());
        const QPoint corner((size.width() - side) / 2, (size.height() - side) / 2);
        const qreal nudge = nudgeOf(side);
        QPainter painter(&image);
        renderer.render(&painter, QRectF(QPointF(corner) + QPointF(nudge, nudge), QSizeF(side, side)));
        if (mode == QIcon::Disabled) {
            // Faded as a whole: strokes that cross would show if each were translucent.
            painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
            painter.fillRect(image.rect(), QColor::fromRgbF(0, 0, 0, float(disabledInk)));
        }
        painter.end();
        return QPixmap::fromImage(std::move(image));
    }

    QString name_;
    std::optional<look::Theme> theme_;
};

/// Another picture, always in 40 % ink.
class FaintEngine final : public QIconEngine {
public:
    explicit FaintEngine(QIcon picture) : picture_(std::move(picture)) {}

    QIconEngine* clone() const override { return new FaintEngine(picture_); }
    bool isNull() override { return false; }
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State state) override {
        picture_.paint(painter, rect, Qt::AlignCenter, QIcon::Disabled, state);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode, QIcon::State state) override {
        return scaledPixmap(size, QIcon::Disabled, state, 1);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode, QIcon::State state, qreal density) override {
        return picture_.pixmap((QSizeF(size) / density).toSize(), density, QIcon::Disabled, state);
    }

private:
    QIcon picture_;
};

} // namespace

QIcon faintIcon(const QIcon& picture) {
    return picture.isNull() ? QIcon() : QIcon(new FaintEngine(picture));
}

bool hasIcon(const QString& name) {
    return !name.isEmpty() && !name.contains(u'/') && QFile::exists(pathOf(name));
}

QIcon icon(const QString& name) {
    return hasIcon(name) ? QIcon(new Engine(name)) : QIcon();
}

QIcon iconIn(const QString& name, look::Theme theme) {
    return hasIcon(name) ? QIcon(new Engine(name, theme)) : QIcon();
}

QStringList iconNames() {
    QStringList names = QDir(pathOf(QString()).chopped(4)).entryList({u"*.svg"_s}, QDir::Files);
    for (QString& name : names)
        name.chop(4);
    names.sort();
    return names;
}

QCursor iconCursor(const QString& name, double density) {
    constexpr int side = 24;
    constexpr std::array<std::pair<QStringView, QPoint>, 2> tips{{{u"Curseur1", {5, 3}}, {u"Pointeur", {5, 3}}}};
    for (const auto& [pointer, tip] : tips) {
        if (pointer == name) {
            const QSize pixels = (QSizeF(side, side) * density).toSize();
            return QCursor(Engine(name).scaledPixmap(pixels, QIcon::Normal, QIcon::Off, density), tip.x(), tip.y());
        }
    }
    return Qt::ArrowCursor;
}

} // namespace velm
