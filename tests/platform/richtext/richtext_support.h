#pragma once
// Texts and formats that are told apart at a glance.
#include "platform/richtext/richtext.h"

#include <QStringList>

namespace velm::test {

inline CharFormat bold() {
    CharFormat format;
    format.bold = true;
    return format;
}

inline ParaFormat indented(int twips) {
    ParaFormat format;
    format.startIndent = twips;
    return format;
}

inline RichText plain(QStringView text) {
    RichText result;
    result.replace(0, 0, text);
    return result;
}

/// Paragraphs indented by 1, 2, 3 … twips.
inline RichText numbered(const QStringList& paragraphs) {
    RichText result;
    for (qsizetype i = 0; i < paragraphs.size(); ++i) {
        const bool last = i + 1 == paragraphs.size();
        result.append(last ? paragraphs[i] : paragraphs[i] + QStringLiteral("\r\n"), 0,
                      result.intern(indented(static_cast<int>(i) + 1)));
    }
    return result;
}

inline int indentAt(const RichText& text, qsizetype position) {
    return text.paraFormatAt(position).startIndent;
}

} // namespace velm::test
