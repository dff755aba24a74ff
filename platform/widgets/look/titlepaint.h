#pragma once
// How the frames of child windows are drawn: title, buttons, surface and outline.
#include <QColor>

class QPainter;
class QPalette;
class QStyle;
class QStyleOptionComplex;
class QStyleOptionTitleBar;
class QWidget;

namespace velm {

/// What a title lies on; that of the active window is tinted.
QColor windowSurface(const QPalette& palette, bool active);
QColor windowOutline(const QPalette& palette, bool active);

/// The title bar of a child window: picture, title, buttons.
void drawTitleBar(const QStyle& style, const QStyleOptionTitleBar& bar, QPainter& painter, const QWidget* widget);
/// The buttons of a maximised window, on the menu bar.
void drawMdiControls(const QStyle& style, const QStyleOptionComplex& option, QPainter& painter, const QWidget* widget);

} // namespace velm
