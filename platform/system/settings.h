#pragma once
// The per-user settings: texts by section and key, kept in one INI file under the user's configuration folder.
#include "platform/system/files.h"
#include "platform/system/inicodec.h"

#include <QString>
#include <QStringView>

#include <vector>

namespace velm {

/// Sections and keys compare without case and keep their order. The file is read at construction and then held in
/// memory. Each write reads it again and puts nothing but its own changes into what stands there now, so that those of
/// another program during the run survive; a lock beside the file keeps two writers apart. It writes the whole file
/// through a temporary one, so that it is always either the old or the new one. Whatever the file holds besides
/// (comments, lines that nobody understands) is written back as it was.
class ReglagesStore {
public:
    /// Opens the settings of that file; a missing one is empty settings. One that is there but cannot be read gives
    /// empty settings too, sets lastError(), and is never written over.
    explicit ReglagesStore(QString path);

    QString path() const { return path_; }

    /// The stored text, also an empty one; `fallback` when the key was never stored.
    QString get(QStringView section, QStringView key, const QString& fallback = QString()) const;

    bool contains(QStringView section, QStringView key) const;

    /// Stores any text and writes the file (unless the text is the one that get() gives already). False when the file
    /// could not be written: lastError() tells why, the file is the one before, and the value holds for this run; the
    /// next save tries again. Inside a batch nothing is written and the result is true.
    bool save(QStringView section, QStringView key, const QString& value);

    /// While one of these lives, save() only collects; the end of the outermost one writes once.
    class Batch {
    public:
        explicit Batch(ReglagesStore& store);
        ~Batch();
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;
        Batch(Batch&&) = delete;
        Batch& operator=(Batch&&) = delete;

        /// Ends the batch before its scope does; the result is that of the write.
        bool commit();

    private:
        ReglagesStore* store_;
    };

    /// Why the last read or write of path() failed.
    const FileError& lastError() const { return lastError_; }

private:
    struct Change {
        QString section;
        QString key;
        QString value;
    };

    bool load(IniDocument& document);
    bool write();
    bool writeUnderLock();
    bool endBatch();

    QString path_;
    IniDocument document_;        ///< what get() gives: the file with the changes
    std::vector<Change> changes_; ///< not in the file yet, in their order
    FileError lastError_;
    int batches_ = 0;
};

} // namespace velm
