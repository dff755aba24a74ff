#include "platform/system/settings.h"

#include "platform/system/files.h"

#include <QFileInfo>
#include <QStandardPaths>

#include <utility>

namespace velm {

ReglagesStore::ReglagesStore(QString path) : path_(std::move(path)) {
    load();
}

QString ReglagesStore::defaultPath() {
    return joinPath(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
                    u"VELMORANTE2000/VELMORANTE2000.ini");
}

void ReglagesStore::load() {
    const QFileInfo info(path_);
    if (!info.exists() && !info.isSymLink())
        return;
    const FileBytes file = readPlain(path_);
    if (file.ok()) {
        document_ = IniDocument::parse(file.bytes);
        return;
    }
    // A link to nowhere holds nothing that could be lost.
    unreadable_ = info.exists();
    lastError_ = path_ + QStringLiteral(": ") + file.error.words;
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
        changed_ = true;
    }
    return batches_ > 0 || write();
}

bool ReglagesStore::write() {
    if (!changed_)
        return true;
    if (unreadable_)
        return false;
    const QString error = writeWhole(path_, document_.bytes());
    if (!error.isEmpty()) {
        lastError_ = error;
        return false;
    }
    changed_ = false;
    lastError_.clear();
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
