#pragma once
// The program's pictures by name. They are drawn as SVG with a few colours that stand for roles; each time one is
// painted they take the colours of the palette around, so that a dark palette gives light strokes. One of the roles is
// a hue: that of the number at the end of the name (see look::hue()), a neutral one without a number.
#include "platform/widgets/look/look.h"

#include <QCursor>
#include <QIcon>
#include <QString>
#include <QStringList>

namespace velm {

/// Picture of a name from ":/icones/<name>.svg"; unknown names give a null icon. Drawn when painted, at the size and
/// density that is asked for; disabled ones in 40 % ink. Icons of one name share their pixmaps.
QIcon icon(const QString& name);
/// The same picture as faint as a disabled one, whatever uses it; a null one stays null.
QIcon faintIcon(const QIcon& picture);
/// The same in the colours of a theme, whatever the palette around: for the sheet, which is light in both.
QIcon iconIn(const QString& name, look::Theme theme);
bool hasIcon(const QString& name);
/// All names, sorted.
QStringList iconNames();
/// A pointer of the mouse, "Curseur1" or "Pointeur", sharp at a screen's density; the arrow for other names.
QCursor iconCursor(const QString& name, double density);

} // namespace velm
