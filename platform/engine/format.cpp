#include "platform/engine/format.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int headerSize = 100;
using Header = std::array<unsigned char, headerSize>;

unsigned bigEndian(const Header& header, size_t at, size_t size) {
    unsigned value = 0;
    for (size_t i = 0; i < size; ++i)
        value = value << 8 | header[at + i];
    return value;
}

bool hasSignature(const Header& header, size_t at, const char* signature) {
    return std::memcmp(header.data() + at, signature, std::strlen(signature)) == 0;
}

/// `size` bytes of the header are there, the missing ones read as zeros.
FileFormat formatOf(const Header& header, qsizetype size) {
    // The engine's own signature includes its closing zero.
    if (std::memcmp(header.data(), "SQLite format 3", 16) == 0)
        return size < headerSize ? FileFormat::Foreign : FileFormat::Base;
    if (hasSignature(header, 4, "Standard Jet DB") || hasSignature(header, 4, "Standard ACE DB"))
        return FileFormat::OldEngine;
    return FileFormat::Foreign;
}

/// Reads through the engine's own file layer: closing an ordinary handle would drop the locks that this process may
/// hold on the same file.
class RawFile {
public:
    explicit RawFile(const QString& path) : vfs_(sqlite3_vfs_find(nullptr)) {
        storage_.resize(static_cast<size_t>(vfs_->szOsFile) / sizeof(std::max_align_t) + 1);
        name_ = sqlite3_create_filename(QFile::encodeName(path).constData(), "", "", 0, nullptr);
        int flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_MAIN_DB;
        const int result = name_ == nullptr ? SQLITE_NOMEM : vfs_->xOpen(vfs_, name_, file(), flags, &flags);
        open_ = result == SQLITE_OK;
        lacksMemory_ = (result & 0xFF) == SQLITE_NOMEM;
    }
    ~RawFile() {
        if (open_)
            file()->pMethods->xClose(file());
        sqlite3_free_filename(name_);
    }
    RawFile(const RawFile&) = delete;
    RawFile& operator=(const RawFile&) = delete;

    bool isOpen() const { return open_; }
    bool lacksMemory() const { return lacksMemory_; }
    int read(Header& header) { return file()->pMethods->xRead(file(), header.data(), headerSize, 0); }

private:
    sqlite3_file* file() { return reinterpret_cast<sqlite3_file*>(storage_.data()); }

    sqlite3_vfs* vfs_;
    const char* name_ = nullptr;
    std::vector<std::max_align_t> storage_;
    bool open_ = false;
    bool lacksMemory_ = false;
};

/// Asks for the rights that files are opened with.
bool permits(const QString& path, int access) {
    return faccessat(AT_FDCWD, QFile::encodeName(path).constData(), access, AT_EACCESS) == 0;
}

} // namespace

DetectedFormat detectFormat(const QString& path) {
    struct stat info {};
    if (stat(QFile::encodeName(path).constData(), &info) != 0) {
        const Obstacle why = obstacleOf(errno);
        return {why == Obstacle::Missing ? FileFormat::Missing : FileFormat::Unreadable, why};
    }
    // A pipe or a device would keep the program waiting.
    if (!S_ISREG(info.st_mode))
        return {FileFormat::Unreadable, Obstacle::NotPlain};
    if (!permits(path, R_OK))
        return {FileFormat::Unreadable, obstacleOf(errno)};
    // The file layer itself follows no symbolic links.
    RawFile file(QFileInfo(path).canonicalFilePath());
    if (file.lacksMemory())
        throw std::bad_alloc();
    if (!file.isOpen())
        return {FileFormat::Unreadable, Obstacle::Other};
    Header header{};
    const int result = file.read(header);
    if (result != SQLITE_OK && result != SQLITE_IOERR_SHORT_READ)
        return {FileFormat::Unreadable, Obstacle::Device};
    // The bytes that are missing read as zeros; a file of an old engine is recognised by its first page alone.
    return {formatOf(header, result == SQLITE_OK ? headerSize : 0), Obstacle::None};
}

FileFormat formatOfBytes(QByteArrayView bytes) {
    Header header{};
    std::copy_n(bytes.begin(), std::min<qsizetype>(bytes.size(), headerSize), header.begin());
    return formatOf(header, bytes.size());
}

bool canBeWritten(const QString& path) {
    return permits(path, W_OK) && permits(QFileInfo(path).absolutePath(), W_OK);
}

Journal journalOf(const QString& path) {
    const QString name = path + u"-journal"_s;
    struct stat info {};
    if (stat(QFile::encodeName(name).constData(), &info) != 0)
        return Journal::None;
    if (!S_ISREG(info.st_mode))
        return Journal::NoFile;
    QFile journal(name);
    if (!journal.open(QIODevice::ReadOnly))
        return Journal::None;
    // A finished change leaves no journal, an empty one or one whose beginning is wiped out.
    const QByteArray beginning = journal.read(8);
    return beginning.isEmpty() || beginning == QByteArray(beginning.size(), '\0') ? Journal::None : Journal::Hot;
}

bool isTruncated(sqlite3* handle) {
    sqlite3_file* file = nullptr;
    if (sqlite3_file_control(handle, "main", SQLITE_FCNTL_FILE_POINTER, static_cast<void*>(&file)) != SQLITE_OK ||
        file == nullptr || file->pMethods == nullptr)
        return true;
    Header header{};
    sqlite3_int64 size = 0;
    if (file->pMethods->xRead(file, header.data(), headerSize, 0) != SQLITE_OK ||
        file->pMethods->xFileSize(file, &size) != SQLITE_OK)
        return true;
    // The page count counts only when the change counter was written together with it.
    if (bigEndian(header, 24, 4) != bigEndian(header, 92, 4))
        return false;
    const unsigned pageSize = bigEndian(header, 16, 2) == 1 ? 65536U : bigEndian(header, 16, 2);
    return size < static_cast<sqlite3_int64>(bigEndian(header, 28, 4)) * pageSize;
}

} // namespace velm
