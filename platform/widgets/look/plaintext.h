#pragma once
// Texts that are shown as they stand. A title, a source, a word of a base was written by others: shown where the
// toolkit guesses whether a text is markup, it could fetch pictures and read files.
#include <QString>

class QFontMetrics;
class QLabel;
class QWidget;

namespace velm {

/// The one maker of tool tips: of widgets, of actions, of the tool tip role of models, of tips shown by hand. What it
/// gives is shown as `text` stands, in one line as far as 480 pixels go, else in several; a text beyond some thousand
/// characters is cut. Empty stays empty.
QString plainTip(const QString& text);

/// A line as an entry of a menu shows it: a long one is cut in its middle, as titles that begin alike end differently.
QString entryText(const QString& line, const QFontMetrics& metrics);

/// The tool tip of an entry that shows `shown` of its `line`: the line where it was cut, else nothing. An entry without
/// a tip gives its text for one to whoever asks: where that would be taken for markup, the tip is the line as well.
QString entryTip(const QString& line, const QString& shown);

/// A text for an action or a button, whose ampersands stand for themselves.
QString withoutMnemonic(QString text);

/// A label whose text is never taken for markup, whatever it is set to later.
QLabel* plainLabel(const QString& text, QWidget* parent);

} // namespace velm
