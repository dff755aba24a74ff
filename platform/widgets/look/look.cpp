#include "platform/widgets/look/look.h"

#include "platform/widgets/look/focusring.h"
#include "platform/widgets/look/framestyle.h"

#include <QApplication>
#include <QPixmapCache>
#include <QStyleFactory>
#include <QToolTip>

#include <array>

namespace velm::look {

using namespace Qt::Literals::StringLiterals;

namespace {

struct Tones {
    QRgb window, base, alternate, text, quiet, button, midlight, light, mid, dark, highlight, highlighted, link,
        visited, edge, standard, focus, ground;
};

constexpr Tones lightTones{0xFFF3F4F6, 0xFFFFFFFF, 0xFFF7F8FA, ink,        0xFF59626D, 0xFFF3F4F6,
                           0xFFE6E8EC, 0xFFFFFFFF, 0xFFC3C8CF, 0xFF9AA1AB, 0xFF2C67A0, 0xFFFFFFFF,
                           accent,     0xFF6A4C86, 0xFF757E89, accent,     0xFF2C67A0, 0xFFDDE1E6};
constexpr Tones darkTones{0xFF26292E, 0xFF1E2125, 0xFF23262B, 0xFFE4E7EB, 0xFFA8B0BA, 0xFF2E3238,
                          0xFF383D44, 0xFF454B53, 0xFF1A1C20, 0xFF131518, 0xFF3B76B0, 0xFFFFFFFF,
                          0xFF7FB2E5, 0xFFB79BD6, 0xFF7D8590, 0xFF3B76B0, 0xFF7FB2E5, 0xFF17191D};

const Tones& tones(Theme theme) {
    return theme == Theme::Light ? lightTones : darkTones;
}

bool isLight(const QColor& colour) {
    return qGray(colour.rgb()) >= 128;
}

} // namespace

QPalette palette(Theme theme) {
    const Tones& t = tones(theme);
    QPalette p;
    p.setColor(QPalette::Window, QColor::fromRgb(t.window));
    p.setColor(QPalette::WindowText, QColor::fromRgb(t.text));
    p.setColor(QPalette::Base, QColor::fromRgb(t.base));
    p.setColor(QPalette::AlternateBase, QColor::fromRgb(t.alternate));
    p.setColor(QPalette::Text, QColor::fromRgb(t.text));
    p.setColor(QPalette::PlaceholderText, QColor::fromRgb(t.quiet));
    p.setColor(QPalette::Button, QColor::fromRgb(t.button));
    p.setColor(QPalette::ButtonText, QColor::fromRgb(t.text));
    p.setColor(QPalette::BrightText, Qt::white);
    p.setColor(QPalette::Light, QColor::fromRgb(t.light));
    p.setColor(QPalette::Midlight, QColor::fromRgb(t.midlight));
    p.setColor(QPalette::Mid, QColor::fromRgb(t.mid));
    p.setColor(QPalette::Dark, QColor::fromRgb(t.dark));
    p.setColor(QPalette::Shadow, Qt::black);
    p.setColor(QPalette::Highlight, QColor::fromRgb(t.highlight));
    p.setColor(QPalette::HighlightedText, QColor::fromRgb(t.highlighted));
    p.setColor(QPalette::Link, QColor::fromRgb(t.link));
    p.setColor(QPalette::LinkVisited, QColor::fromRgb(t.visited));
    p.setColor(QPalette::ToolTipBase, QColor::fromRgb(t.base));
    p.setColor(QPalette::ToolTipText, QColor::fromRgb(t.text));
    const QColor faded = mixed(QColor::fromRgb(t.window), QColor::fromRgb(t.text), 0.4);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        p.setColor(QPalette::Disabled, role, faded);
    p.setColor(QPalette::Disabled, QPalette::Highlight, QColor::fromRgb(t.mid));
    return p;
}

QColor accentColour(Theme theme) {
    return QColor::fromRgb(tones(theme).link);
}

QColor warningColour(Theme theme) {
    return theme == Theme::Light ? QColor::fromRgb(warning) : QColor(0xE5, 0x8C, 0x96);
}

Theme themeOf(const QPalette& palette) {
    return isLight(palette.color(QPalette::Window)) ? Theme::Light : Theme::Dark;
}

QColor mixed(const QColor& from, const QColor& to, double part) {
    const auto mix = [part](int a, int b) { return qRound(a + (b - a) * part); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

QColor edge(const QPalette& palette) {
    return QColor::fromRgb(tones(themeOf(palette)).edge);
}

QColor chosenGround(const QPalette& palette) {
    return mixed(palette.color(QPalette::Window), accentColour(themeOf(palette)), 0.18);
}

QColor chosenEdge(const QPalette& palette) {
    return mixed(palette.color(QPalette::Window), accentColour(themeOf(palette)), 0.75);
}

QColor defaultButton(Theme theme) {
    return QColor::fromRgb(tones(theme).standard);
}

QColor focusColour(Theme theme) {
    return QColor::fromRgb(tones(theme).focus);
}

QColor ground(Theme theme) {
    return QColor::fromRgb(tones(theme).ground);
}

void apply(QApplication& application, Theme theme) {
    if (QStyle* style = QStyleFactory::create(u"Fusion"_s))
        QApplication::setStyle(new FrameStyle(style));
    QApplication::setPalette(palette(theme));
    QToolTip::setPalette(palette(theme));
    if (!application.findChild<FocusRing*>(QString(), Qt::FindDirectChildrenOnly))
        new FocusRing(application); // goes with it
    // The style keeps its buttons of every width in there: more than this is never used again.
    QPixmapCache::setCacheLimit(3 * 1024);
    application.setProperty("thème", theme == Theme::Light ? u"clair"_s : u"sombre"_s);
}

Sheet sheet(const QColor& paper, const QPalette& around) {
    const bool lightPaper = isLight(paper);
    Sheet s;
    s.paper = paper;
    s.ink = lightPaper ? QColor::fromRgb(ink) : QColor::fromRgb(darkTones.text);
    // Brighter than the accent, in which headings are set.
    s.link = QColor::fromRgb(lightPaper ? 0xFF2363B5 : darkTones.link);
    s.lightPaper = lightPaper;
    s.found = QColor::fromRgb(lightPaper ? 0xFFFFE48A : 0xFF241C00);
    s.foundCurrent = QColor::fromRgb(lightPaper ? 0xFFF7B500 : 0xFF403000);
    s.foundRing = QColor::fromRgb(lightPaper ? 0xFF7A5000 : 0xFFFFD66B);
    s.rule = mixed(paper, s.ink, 0.28);
    const bool lightAround = themeOf(around) == Theme::Light;
    s.surface = lightAround ? mixed(around.color(QPalette::Window), Qt::black, 0.035) : QColor::fromRgb(darkTones.base);
    s.edge = mixed(s.surface, lightAround ? QColor::fromRgb(ink) : QColor(Qt::black), lightAround ? 0.12 : 0.5);
    return s;
}

QColor softPaper(const QColor& paper) {
    constexpr QColor grey(0xE8, 0xEA, 0xED);
    if (!isLight(paper))
        return paper;
    const auto dimmed = [](int part, int most) { return qRound(part * most / 255.0); };
    return {dimmed(paper.red(), grey.red()), dimmed(paper.green(), grey.green()), dimmed(paper.blue(), grey.blue())};
}

QColor foundTick(const QColor& ground, bool current) {
    if (!current)
        return QColor::fromRgb(0xFFAD7400);
    return QColor::fromRgb(isLight(ground) ? 0xFF5E3B00 : 0xFFFFD66B);
}

QColor hue(int number, Theme theme) {
    // Equal perceived lightness and colourfulness; neighbours lie far apart on the circle of hues.
    static constexpr std::array<QRgb, 12> onLight{0xFF2666A2, 0xFF9A4446, 0xFF217541, 0xFF5B59A2,
                                                  0xFF944E15, 0xFF067369, 0xFF7C4D8F, 0xFF7C5E04,
                                                  0xFF026F84, 0xFF91456E, 0xFF5C6C07, 0xFF5F6771};
    static constexpr std::array<QRgb, 12> onDark{0xFF70B0F1, 0xFFEB8C8B, 0xFF70C086, 0xFFA0A1F1,
                                                 0xFFE39663, 0xFF3DC2B4, 0xFFC794DC, 0xFFCBA64D,
                                                 0xFF3FBCDA, 0xFFE08CB7, 0xFFA3B55E, 0xFFA7AFB9};
    const auto index = static_cast<std::size_t>(std::clamp(number, 0, 11));
    return QColor::fromRgb(theme == Theme::Light ? onLight.at(index) : onDark.at(index));
}

} // namespace velm::look
