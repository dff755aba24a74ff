#pragma once
// Every word of the interface, by number, from the language file.
#include "core/texte.h"
#include "platform/system/profile.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

namespace velm {

class Langue {
public:
    static constexpr int nombredetextes = 10000;

    /// `signale` shows a box with a number: a text that is missing everywhere. Replaceable in tests.
    explicit Langue(std::function<void(const QString& numero)> signale);

    /// True for the short name of a language: two letters.
    static bool estextension(QStringView extension);

    /// The language file: application folder + "/langues/RES2000." + extension, where anything but two letters counts
    /// as "FR". `dossierprogramme` is where the file is looked for after a failed look-up.
    void choisitfichier(const QString& dossierapplication, const QString& dossierprogramme, const QString& extension);
    /// Path of a language's file in a folder.
    static QString cheminfichier(const QString& dossier, const QString& extension);
    QString fichier() const { return fichier_; }
    QString extension() const { return extension_; }

    /// A text from the cache, the language file, the French file beside it, or the program's own French file (whose
    /// place then stays in force). Missing everywhere: the number is signalled and the text is empty; an empty text is
    /// never taken as found and is looked up again at each use. A number outside 0 to 9999 is a run-time error.
    QString lireressource(Texte lequel);

    /// Reads of a file so far; a second request for a text makes none.
    int lectures() const { return lectures_; }

private:
    QString lit(const QString& chemin, int n);
    std::function<void(const QString&)> signale_;
    QString dossierprogramme_;
    QString extension_;
    QString fichier_;
    QVector<QString> cache_;
    QHash<QString, Profile> profils_;
    int lectures_ = 0;
};

/// A text with "%1", "%2"… replaced by the parts, in one pass: a part that holds such a mark itself stays as it is.
QString remplace(const QString& texte, const QStringList& parties);

} // namespace velm
