#pragma once
// Metafiles hold drawing commands, which this system does not draw; but most of those in texts hold one bitmap and
// hardly anything else.
#include <QByteArray>

namespace velm {

/// The bitmap (header, colours, dots) that makes up most of a Windows metafile, else nothing.
QByteArray bitmapInWmf(const QByteArray& metafile);
/// The same of an enhanced metafile.
QByteArray bitmapInEmf(const QByteArray& metafile);

} // namespace velm
