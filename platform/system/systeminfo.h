#pragma once
// Finding and starting the tool that tells about the computer.
#include "platform/system/process.h"

#include <QString>

#include <optional>
#include <variant>

namespace velm {

/// What the machine's installers have written down, read only.
class Registre {
public:
    virtual ~Registre() = default;
    /// A text or a number of 32 bits; nothing for values of another type or that cannot be read. Keys are parted by
    /// "\".
    virtual std::optional<std::variant<QString, quint32>> value(const QString& key, const QString& name) const = 0;
};

/// The local machine's registry. Where a platform has none, the places of the information tool are answered from the
/// programs of the search path.
class SystemRegistre final : public Registre {
public:
    std::optional<std::variant<QString, quint32>> value(const QString& key, const QString& name) const override;
};

/// The value as text: a number in hexadecimal behind "&h".
std::optional<QString> getkeyvalue(const Registre& registre, const QString& key, const QString& name);

/// Path of the tool: the text of the first place as it stands; if that cannot be read, the folder of the second joined
/// with the file's name, when there is such a file. Empty without either.
QString systeminfotool(const Registre& registre);

/// Starts the tool; false when there is none or it does not start.
bool startsysinfo(const Registre& registre, Processus& processus);

} // namespace velm
