#pragma once
// Character formats of the model as the view's document wants them.
#include "platform/richtext/richtext.h"

#include <QHash>
#include <QTextCharFormat>

#include <optional>
#include <vector>

namespace velm {

/// The installed family that stands for a named one: itself, else one of its kind (serif, sans, fixed width).
QString installedFamily(const QString& family);

class ViewFormats {
public:
    enum Property { Object = QTextFormat::UserProperty + 1 };
    /// Type of the document's objects: pictures.
    static constexpr int pictureType = QTextFormat::UserObject + 1;

    /// Another text follows; what was converted is forgotten.
    void reset() { formats_.clear(); }
    void add(const RichText& rich, FormatId id);
    /// One that was added.
    const QTextCharFormat& at(FormatId id) const { return *formats_[id]; }

private:
    std::vector<std::optional<QTextCharFormat>> formats_;
};

QTextCharFormat viewFormat(const CharFormat& format);
/// Model colours are 0x00BBGGRR.
QColor viewColour(std::int32_t colour);

} // namespace velm
