#pragma once
// Files and folders. Stored directories keep the form each step gave them (with or without the last separator); only
// what is opened goes through joinPath().
#include "platform/base/obstacle.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <QString>
#include <QStringView>

#include <functional>
#include <optional>

class QFile;

namespace velm {

/// Folder and name with exactly one separator between them, whatever either has there. An empty folder gives the name,
/// an empty name the folder.
QString joinPath(QStringView folder, QStringView name);

/// A non-empty folder with the separator at its end (not doubled); an empty one stays empty.
QString withSeparator(const QString& folder);

/// Everything before the last separator ("/" itself for a file at the root); empty without one.
QString folderOf(const QString& path);

/// A name for a file made of these words: letters, digits, blanks and hyphens, one blank at a time, sixty characters at
/// most; empty where none is left.
QString fileNameOf(const QString& words);

/// True for a file, false for a folder.
bool fileExists(const QString& path);

/// Date of the last change; nothing for a file that is not there.
std::optional<QDateTime> fileDate(const QString& path);

/// Length in bytes; nothing for a file that is not there.
std::optional<qint64> fileSize(const QString& path);

/// Why a file could not be read or written: the kind that a message tells, and the system's own words.
struct FileError {
    Obstacle kind = Obstacle::None;
    QString words;

    bool ok() const { return kind == Obstacle::None; }
};

enum class FileKind {
    Plain, ///< or a link to such a file
    Any    ///< a pipe or a device as well, for a user who names one
};

/// Opens a plain file for reading. Nothing else is opened (a pipe would keep the program waiting, a device may have no
/// end), and what is tested is what was opened. `file` is one without a name; it stays closed when this fails.
FileError openPlain(QFile& file, const QString& path);

struct FileBytes {
    QByteArray bytes;
    FileError error;

    bool ok() const { return error.ok(); }
};

/// All of a file; nothing, with the reason, when it is of another kind or cannot be read to its end.
FileBytes readFile(const QString& path, FileKind kind);
inline FileBytes readPlain(const QString& path) {
    return readFile(path, FileKind::Plain);
}

/// Goes on reading to the end of an open file; the error is that of this or of an earlier reading.
FileBytes readRest(QFile& file);

/// All of a plain file that begins with these bytes; of another one no more than tells that it does not.
FileBytes readBeginningWith(const QString& path, QByteArrayView beginning);

/// True when somebody besides this user and root could change the file or put another in its place: by its owner and
/// rights, or by those of its folder. True as well when that cannot be found out.
bool othersCanChange(const QString& path);

/// Writes a whole file through a temporary one beside it, making its folder if need be: afterwards there is either the
/// new file or, with an error, what was there before. What is there and is no plain file is never replaced.
FileError writeWhole(const QString& path, const QByteArray& bytes);

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
