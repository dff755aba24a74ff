#pragma once
// Files and folders. Stored directories keep the form each step gave them (with or without the last separator); only
// what is opened goes through joinPath().
#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringView>

#include <functional>
#include <optional>

namespace velm {

/// Folder and name with exactly one separator between them, whatever either has there. An empty folder gives the name,
/// an empty name the folder.
QString joinPath(QStringView folder, QStringView name);

/// A non-empty folder with the separator at its end (not doubled); an empty one stays empty.
QString withSeparator(const QString& folder);

/// Everything before the last separator ("/" itself for a file at the root); empty without one.
QString folderOf(const QString& path);

/// True for a file, false for a folder.
bool fileExists(const QString& path);

/// Date of the last change; nothing for a file that is not there.
std::optional<QDateTime> fileDate(const QString& path);

/// Length in bytes; nothing for a file that is not there.
std::optional<qint64> fileSize(const QString& path);

/// Writes a whole file through a temporary one beside it, making its folder if need be: afterwards there is either the
/// new file or, with an error, what was there before. The result is the error for people to read; empty when all went
/// well.
QString writeWhole(const QString& path, const QByteArray& bytes);

struct CopieResultat {
    qint64 written = 0;
    /// Empty when all went well; the caller says "Erreur de copie" otherwise.
    QString error;

    bool ok() const { return error.isEmpty(); }
};

/// Copies in chunks of 30000 bytes and calls `progress` with the percentage done after each. A source that is not there
/// copies nothing and is no error. An existing target is deleted first (never when it is the source itself: that is an
/// error). After an error no half copy is left.
CopieResultat copiefichier(const QString& source, const QString& target,
                           const std::function<void(double percent)>& progress = {});

/// Bytes that can still be written where the path lies (or will lie); nothing when that place is unknown.
std::optional<qint64> placelibre(const QString& path);

/// The folder for temporary files, without the last separator.
QString tempFolder();

/// Gives the owner the right to write; false when that fails.
bool makeWritable(const QString& path);

} // namespace velm
