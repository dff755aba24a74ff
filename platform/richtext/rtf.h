#pragma once
// Rich text as RTF. One tokenizer under two sinks: the plain text alone (fast), or the whole with its formats.
#include "platform/richtext/richtext.h"

#include <QByteArray>
#include <QByteArrayView>

namespace velm {

enum class RtfLoad {
    Whole,    ///< a whole document: the very last paragraph end is dropped
    Selection ///< into a selection: the last paragraph end is kept
};

/// Reads RTF. Text that is no RTF gives an empty text and false. Damaged RTF gives what could be read and true.
bool readRtf(QByteArrayView rtf, RichText& out, RtfLoad load = RtfLoad::Whole);

/// The plain text alone, exactly RichText::text() after readRtf; empty when it is no RTF.
QString rtfToText(QByteArrayView rtf, RtfLoad load = RtfLoad::Whole);
/// The same into a buffer that is kept from call to call; false when it is no RTF.
bool rtfToText(QByteArrayView rtf, QString& out, RtfLoad load);
/// The beginning of the same text: at least `atLeast` units, all when it has fewer.
bool rtfToTextStart(QByteArrayView rtf, QString& out, qsizetype atLeast);

/// Version of the decoder: stored plain text made by another version is stale.
int rtfDecoderVersion();

/// Writes RTF (7 bits, \ansicpg1252, \uN with fallback). Reading it back gives the same content; writing that again
/// gives the same bytes.
QByteArray writeRtf(const RichText& text);
QByteArray writeRtf(const RichText& text, qsizetype position, qsizetype length);

} // namespace velm
