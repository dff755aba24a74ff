#pragma once
// Plain text folded to bytes, to rule out quickly what cannot be found. Each unit gives one byte: its upper case in the
// ANSI code page, and 0 for whatever that does not hold. So a text that find() finds, with whatever options, stands in
// the folded text at the same place; but a hit in folded text is not yet one of find().
#include <QByteArray>
#include <QByteArrayView>
#include <QStringView>

namespace velm {

QByteArray foldedText(QStringView text);

/// Version of the folded text of a body: of its decoding and of its folding. What another version has stored is stale.
int foldedTextVersion();

/// First place at or after `from` where `needle` stands, or -1; an empty needle is never found. Linear in both.
qsizetype indexOfBytes(QByteArrayView text, QByteArrayView needle, qsizetype from = 0);

} // namespace velm
