#include "core/extensions.h"

#include "platform/system/files.h"

#include <QFile>
#include <QStandardPaths>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace velm {
namespace {

QString mimeType(const QString& extension) {
    return QStringLiteral("application/x-velmorante-") + extension.toLower();
}

QString typeElement(const QString& extension, const QString& label) {
    return QStringLiteral("  <mime-type type=\"%1\">\n"
                          "    <comment>%2</comment>\n"
                          "    <sub-class-of type=\"text/plain\"/>\n"
                          "    <glob pattern=\"*.%3\" weight=\"60\"/>\n"
                          "  </mime-type>\n")
        .arg(mimeType(extension), label.toHtmlEscaped(), extension.toLower());
}

QByteArray typePackage(const Extensions::Libelles& labels) {
    const QString text =
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n") +
        typeElement(QStringLiteral("CV2"), labels.criteres) + typeElement(QStringLiteral("DV2"), labels.dossier) +
        typeElement(QStringLiteral("MV2"), labels.modele) + QStringLiteral("</mime-info>\n");
    return text.toUtf8();
}

bool hasControls(const QString& text) {
    return std::any_of(text.cbegin(), text.cend(), [](QChar c) { return c < u' ' || c == QChar(0x7F); });
}

/// A value of a desktop entry: the backslash escapes.
QString entryValue(QString text) {
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return c < u' '; }, QChar(u' '));
    text.replace(u'\\', QStringLiteral("\\\\"));
    if (text.startsWith(u' '))
        text.replace(0, 1, QStringLiteral("\\s"));
    return text;
}

/// A program's path as the first word of a command line: quoted, which escapes four characters, and with its percent
/// signs doubled. The result is still to be written as a value.
QString commandWord(const QString& path) {
    QString word;
    for (const QChar c : path) {
        if (c == u'"' || c == u'`' || c == u'$' || c == u'\\')
            word += u'\\';
        word += c;
        if (c == u'%')
            word += c;
    }
    return u'"' + word + u'"';
}

QByteArray desktopEntry(const QString& name, const QList<Extensions::Association>& associations) {
    const QString program = associations.first().programme;
    QString types;
    QString registered;
    for (const auto& association : associations) {
        types += mimeType(association.extension) + u';';
        registered +=
            QStringLiteral("X-Velmorante-%1=%2\n").arg(association.extension, entryValue(association.valeur()));
    }
    // Hidden from the menus: the entry is there for the file types.
    const QString text = QStringLiteral("[Desktop Entry]\n"
                                        "Type=Application\n"
                                        "Version=1.0\n") +
                         QStringLiteral("Name=") + entryValue(name) + QStringLiteral("\nExec=") +
                         entryValue(commandWord(program)) + QStringLiteral(" %f\nTryExec=") + entryValue(program) +
                         QStringLiteral("\nNoDisplay=true\nTerminal=false\nMimeType=") + types + u'\n' + registered;
    return text.toUtf8();
}

void bringUpToDate(const QString& path, const QByteArray& bytes, ExtensionsResultat& result) {
    QFile present;
    if (openPlain(present, path).ok() && present.read(bytes.size() + 1) == bytes)
        return;
    present.close();
    const FileError error = writeWhole(path, bytes);
    if (error.ok())
        result.written = true;
    else
        result.errors.append(path + QStringLiteral(": ") + error.words);
}

/// Desktops without these programs read the files themselves.
void rebuildIndex(const QString& program, const QString& folder, Processus& processus) {
    if (!QStandardPaths::findExecutable(program).isEmpty())
        processus.runDetached(program, {folder});
}

} // namespace

Extensions::Extensions(QString dataFolder) : dataFolder_(std::move(dataFolder)) {}

QString Extensions::defaultDataFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

QString Extensions::packagePath() const {
    return joinPath(dataFolder_, u"mime/packages/velmorante2000.xml");
}

QString Extensions::programEntryPath() const {
    return joinPath(dataFolder_, u"applications/velmorante2000.desktop");
}

QString Extensions::editorEntryPath() const {
    return joinPath(dataFolder_, u"applications/velmorante2000-editeur.desktop");
}

QList<Extensions::Association> Extensions::associations(const QString& appFolder, const QString& editorFolder) {
    const QString program = joinPath(appFolder, u"velm2000");
    return {{QStringLiteral("CV2"), program},
            {QStringLiteral("DV2"), program},
            {QStringLiteral("MV2"), joinPath(editorFolder, u"editeur")}};
}

ExtensionsResultat Extensions::registerAll(const QString& appFolder, const QString& editorFolder,
                                           const Libelles& libelles, Processus* processus) const {
    ExtensionsResultat result;
    const QList<Association> all = associations(appFolder, editorFolder);
    const auto entry = [&](const QString& path, const QString& name, const QList<Association>& theirs) {
        if (hasControls(theirs.first().programme))
            result.errors.append(path + QStringLiteral(": ") + qt_error_string(EINVAL));
        else
            bringUpToDate(path, desktopEntry(name, theirs), result);
    };
    bringUpToDate(packagePath(), typePackage(libelles), result);
    entry(programEntryPath(), libelles.application, all.first(2));
    entry(editorEntryPath(), libelles.editeur, all.last(1));
    if (result.written && processus != nullptr) {
        rebuildIndex(QStringLiteral("update-mime-database"), joinPath(dataFolder_, u"mime"), *processus);
        rebuildIndex(QStringLiteral("update-desktop-database"), joinPath(dataFolder_, u"applications"), *processus);
    }
    return result;
}

} // namespace velm
