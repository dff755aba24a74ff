#pragma once
// How the program looks: palettes, the sheet that documents lie on, the hues of the collections.
#include <QColor>
#include <QPalette>

class QApplication;

namespace velm::look {

enum class Theme { Light, Dark };

/// The step of the layout grid and the distances made of it, in pixels.
inline constexpr int grid = 4;
inline constexpr int spacing = 2 * grid;
inline constexpr int groupSpacing = 4 * grid;
inline constexpr int windowMargin = 3 * grid;

inline constexpr QRgb ink = 0xFF1E2732;
inline constexpr QRgb accent = 0xFF1F4E79;
inline constexpr QRgb warning = 0xFF8A2432;

/// Colours of the windows around the document.
QPalette palette(Theme theme);
QColor accentColour(Theme theme);
QColor warningColour(Theme theme);

/// The theme that a palette belongs to, by the lightness of its windows.
Theme themeOf(const QPalette& palette);

/// A colour between two: all of `from` at 0, all of `to` at 1.
QColor mixed(const QColor& from, const QColor& to, double part);

// ---- what is told by more than its place: each contrasts by 3:1 or more with all grounds of its palette

/// Edges of fields, boxes and bars' groups, and the thumb of scroll bars.
QColor edge(const QPalette& palette);
/// The ground of what is pressed or chosen, and the edge that tells it from what is not.
QColor chosenGround(const QPalette& palette);
QColor chosenEdge(const QPalette& palette);
/// The ground of the button that the Return key presses; white words are legible on it.
QColor defaultButton(Theme theme);
/// The ring around what has the focus of the keyboard.
QColor focusColour(Theme theme);

/// Behind all windows, where nobody has chosen another ground.
QColor ground(Theme theme);

/// Gives the whole program its style and palette.
void apply(QApplication& application, Theme theme);

/// The sheet under a document: its own colour, and what is drawn on it.
struct Sheet {
    QColor paper;
    QColor ink;     ///< text without a colour of its own
    QColor link;    ///< text of links
    QColor rule;    ///< page breaks, frames of pictures that cannot be shown
    QColor surface; ///< around the sheet
    QColor edge;    ///< the sheet's edge against the surface
    bool lightPaper = true;
    QColor found;        ///< ground of what was found: tints light paper, lights up dark paper
    QColor foundCurrent; ///< the same of the one that is shown
    QColor foundRing;    ///< around that one
};
Sheet sheet(const QColor& paper, const QPalette& around);
/// A paper that hurts less beside dark windows: white becomes a light grey, tints keep their hue, dark paper stays.
QColor softPaper(const QColor& paper);
/// Where something was found, beside a scroll bar on such a ground.
QColor foundTick(const QColor& ground, bool current);

/// Twelve hues (0 to 11) that tell things of one kind apart, all of equal lightness; the last one is neutral.
QColor hue(int number, Theme theme);

} // namespace velm::look
