#pragma once
// How wide the texts of a list are.

class QFontMetrics;

namespace velm {

class ListItems;

/// The width of the widest text, as far as `enough`. Thousands of texts are added up letter by letter, which may be
/// some pixels off; only those that come out widest are measured.
int widestText(const ListItems& items, const QFontMetrics& metrics, int enough);

} // namespace velm
