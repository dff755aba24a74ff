#include "platform/system/systeminfo.h"

#include "platform/system/files.h"

#ifdef Q_OS_WIN
#include <QSettings>
#else
#include <QStandardPaths>
#endif

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString infoKey = u"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"_s;
const QString infoValue = u"PATH"_s;
const QString locationKey = u"SOFTWARE\\Microsoft\\Shared Tools Location"_s;
const QString locationValue = u"MSINFO"_s;

#ifdef Q_OS_WIN
const QString toolFile = u"MSINFO32.EXE"_s;
#else
const QString firstTool = u"hardinfo"_s;
const QString toolFile = u"kinfocenter"_s;
#endif

} // namespace

std::optional<std::variant<QString, quint32>> SystemRegistre::value(const QString& key, const QString& name) const {
#ifdef Q_OS_WIN
    const QSettings settings(u"HKEY_LOCAL_MACHINE\\"_s + key, QSettings::NativeFormat);
    const QVariant found = settings.value(name);
    switch (found.typeId()) {
    case QMetaType::QString:
        return found.toString();
    case QMetaType::Int:
    case QMetaType::UInt:
        return quint32(found.toUInt());
    default:
        return std::nullopt;
    }
#else
    if (key == infoKey && name == infoValue) {
        const QString tool = QStandardPaths::findExecutable(firstTool);
        return tool.isEmpty() ? std::nullopt : std::optional<std::variant<QString, quint32>>(tool);
    }
    if (key == locationKey && name == locationValue) {
        const QString tool = QStandardPaths::findExecutable(toolFile);
        return tool.isEmpty() ? std::nullopt : std::optional<std::variant<QString, quint32>>(folderOf(tool));
    }
    return std::nullopt;
#endif
}

std::optional<QString> getkeyvalue(const Registre& registre, const QString& key, const QString& name) {
    const auto value = registre.value(key, name);
    if (!value)
        return std::nullopt;
    if (const quint32* number = std::get_if<quint32>(&*value))
        return u"&h"_s + QString::number(*number, 16).toUpper();
    return std::get<QString>(*value);
}

QString systeminfotool(const Registre& registre) {
    if (const auto path = getkeyvalue(registre, infoKey, infoValue))
        return *path;
    const auto folder = getkeyvalue(registre, locationKey, locationValue);
    if (!folder || folder->isEmpty())
        return {};
    const QString path = joinPath(*folder, toolFile);
    return fileExists(path) ? path : QString();
}

bool startsysinfo(const Registre& registre, Processus& processus) {
    const QString tool = systeminfotool(registre);
    return !tool.isEmpty() && processus.runDetached(tool, {});
}

} // namespace velm
