#include "core/extensions.h"

#include "platform/system/files.h"

#include <QFile>
#include <QStandardPaths>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

QString mimeType(const QString& extension) {
    return u"application/x-velmorante-"_s + extension.toLower();
}

QString typeElement(const QString& extension, const QString& label) {
    return u"  <mime-type type=\"%1\">\n"
           u"    <comment>%2</comment>\n"
           u"    <sub-class-of type=\"text/plain\"/>\n"
           u"    <glob pattern=\"*.%3\" weight=\"60\"/>\n"
           u"  </mime-type>\n"_s.arg(mimeType(extension), label.toHtmlEscaped(), extension.toLower());
}

QByteArray typePackage(const Extensions::Descriptions& labels) {
    const QString text = u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                         u"<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"_s +
                         typeElement(u"CV2"_s, labels.criteres) + typeElement(u"DV2"_s, labels.dossier) +
                         typeElement(u"MV2"_s, labels.modele) + u"</mime-info>\n"_s;
    return text.toUtf8();
}

bool hasControls(const QString& text) {
    return std::any_of(text.cbegin(), text.cend(), [](QChar c) { return c < u' ' || c == QChar(0x7F); });
}

/// A value of a desktop entry: the backslash escapes.
QString entryValue(QString text) {
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return c < u' '; }, QChar(u' '));
    text.replace(u'\\', u"\\\\"_s);
    if (text.startsWith(u' '))
        text.replace(0, 1, u"\\s"_s);
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
        registered += u"X-Velmorante-%1=%2\n"_s.arg(association.extension, entryValue(association.valeur()));
    }
    // Hidden from the menus: the entry is there for the file types.
    const QString text = u"[Desktop Entry]\n"
                         u"Type=Application\n"
                         u"Version=1.0\n"_s +
                         u"Name="_s + entryValue(name) + u"\nExec="_s + entryValue(commandWord(program)) +
                         u" %f\nTryExec="_s + entryValue(program) + u"\nNoDisplay=true\nTerminal=false\nMimeType="_s +
                         types + u'\n' + registered;
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
        result.errors.append(path + u": "_s + error.words);
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
    return {{u"CV2"_s, program}, {u"DV2"_s, program}, {u"MV2"_s, joinPath(editorFolder, u"editeur")}};
}

ExtensionsResultat Extensions::registerAll(const QString& appFolder, const QString& editorFolder,
                                           const Descriptions& descriptions, Processus* processus) const {
    ExtensionsResultat result;
    const QList<Association> all = associations(appFolder, editorFolder);
    const auto entry = [&](const QString& path, const QString& name, const QList<Association>& theirs) {
        if (hasControls(theirs.first().programme))
            result.errors.append(path + u": "_s + qt_error_string(EINVAL));
        else
            bringUpToDate(path, desktopEntry(name, theirs), result);
    };
    bringUpToDate(packagePath(), typePackage(descriptions), result);
    entry(programEntryPath(), descriptions.application, all.first(2));
    entry(editorEntryPath(), descriptions.editeur, all.last(1));
    if (result.written && processus != nullptr) {
        rebuildIndex(u"update-mime-database"_s, joinPath(dataFolder_, u"mime"), *processus);
        rebuildIndex(u"update-desktop-database"_s, joinPath(dataFolder_, u"applications"), *processus);
    }
    return result;
}

} // namespace velm
