#include "platform/system/settings.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>

#include <cerrno>
#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// How long another writer is waited for; each holds the lock for one small file.
constexpr int lockMilliseconds = 2000;

} // namespace

ReglagesStore::ReglagesStore(QString path) : path_(std::move(path)) {
    load(document_);
}

/// Reads the file; one that is not there is an empty one. False, with the reason in lastError_, when it is there and
/// cannot be read.
bool ReglagesStore::load(IniDocument& document) {
    const QFileInfo info(path_);
    if (!info.exists() && !info.isSymLink())
        return true;
    const FileBytes file = readPlain(path_);
    if (file.ok()) {
        document = IniDocument::parse(file.bytes);
        return true;
    }
    lastError_ = file.error;
    // A link to nowhere holds nothing that could be lost.
    return !info.exists();
}

QString ReglagesStore::get(QStringView section, QStringView key, const QString& fallback) const {
    return document_.value(section, key).value_or(fallback);
}

bool ReglagesStore::contains(QStringView section, QStringView key) const {
    return document_.value(section, key).has_value();
}

bool ReglagesStore::save(QStringView section, QStringView key, const QString& value) {
    // A null text and an empty one are the same text here.
    const auto stored = document_.value(section, key);
    if (!stored || *stored != value) {
        document_.set(section, key, value);
        changes_.push_back({section.toString(), key.toString(), value});
    }
    return batches_ > 0 || write();
}

bool ReglagesStore::write() {
    if (changes_.empty())
        return true;
    // Where no lock can be made, the write itself tells what is wrong with the place.
    QDir().mkpath(QFileInfo(path_).absolutePath());
    QLockFile lock(path_ + u".lock"_s);
    if (!lock.tryLock(lockMilliseconds) && lock.error() == QLockFile::LockFailedError) {
        lastError_ = {Obstacle::Busy, qt_error_string(EWOULDBLOCK)};
        return false;
    }
    return writeUnderLock();
}

bool ReglagesStore::writeUnderLock() {
    IniDocument now;
    if (!load(now))
        return false;
    // In the order in which they were made: of two of one name the later one counts.
    for (const Change& change : changes_)
        now.set(change.section, change.key, change.value);
    lastError_ = writeWhole(path_, now.bytes());
    if (!lastError_.ok())
        return false;
    document_ = std::move(now);
    changes_.clear();
    return true;
}

bool ReglagesStore::endBatch() {
    return --batches_ > 0 || write();
}

ReglagesStore::Batch::Batch(ReglagesStore& store) : store_(&store) {
    ++store_->batches_;
}

ReglagesStore::Batch::~Batch() {
    commit();
}

bool ReglagesStore::Batch::commit() {
    ReglagesStore* const store = std::exchange(store_, nullptr);
    return store == nullptr || store->endBatch();
}

} // namespace velm
