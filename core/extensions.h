#pragma once
// The three file types of the system and the programs that open them, made known to the user's desktop.
#include "platform/system/process.h"

#include <QList>
#include <QString>

namespace velm {

struct ExtensionsResultat {
    /// Something differed and was written.
    bool written = false;
    /// One message for each file that could not be written.
    QStringList errors;
};

class Extensions {
public:
    /// Names that the desktop shows; the plain ones stand until a language file gives others.
    struct Descriptions {
        QString application = QStringLiteral("Velmorante 2000");
        QString editeur = QStringLiteral("Velmorante 2000 MV2");
        QString criteres = QStringLiteral("CV2");
        QString dossier = QStringLiteral("DV2");
        QString modele = QStringLiteral("MV2");
    };

    struct Association {
        QString extension;
        /// Path of the program that opens such files.
        QString programme;
        /// What is registered: the program, a blank, "^." and the extension.
        QString valeur() const { return programme + QStringLiteral(" ^.") + extension; }
    };

    /// `dataFolder`: the user's data folder; by default the desktop's ($XDG_DATA_HOME or ~/.local/share).
    explicit Extensions(QString dataFolder = defaultDataFolder());

    static QString defaultDataFolder();

    /// CV2 and DV2 belong to the program, MV2 to the side editor.
    static QList<Association> associations(const QString& appFolder, const QString& editorFolder);

    /// Brings the package of types and the two desktop entries up to date; files that already say the same are not
    /// touched. After a write the desktop's own indexes are rebuilt through `processus`, if given and if the desktop
    /// has them. A folder whose name no desktop entry can hold (control characters) is an error.
    ExtensionsResultat registerAll(const QString& appFolder, const QString& editorFolder,
                                   const Descriptions& descriptions, Processus* processus = nullptr) const;
    ExtensionsResultat registerAll(const QString& appFolder, const QString& editorFolder) const {
        return registerAll(appFolder, editorFolder, Descriptions());
    }

    QString packagePath() const;
    QString programEntryPath() const;
    QString editorEntryPath() const;

private:
    QString dataFolder_;
};

} // namespace velm
