// Base files of any content, opened and used in every way: an input is a whole file, or a list of changes to a sound
// one.
#include "platform/text/failure.h"
#include "tests/platform/engine/exercise.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstring>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace velm;

struct Ended {};

struct Ground {
    QTemporaryDir folder;
    QString path = folder.filePath(u"base.dat"_s);
    QByteArray sample;

    Ground() {
        setRuntimeErrorHandler([](const RuntimeFailure&) { throw Ended(); });
        {
            auto made = Database::create(path, corpusSchema());
            TableWriter documents(*made.database, u"données"_s,
                                  {u"référence"_s, u"numart"_s, u"titre"_s, u"contenu"_s});
            TableWriter words(*made.database, u"dico"_s, {u"mot"_s, u"liste"_s});
            for (int i = 0; i < 60; ++i) {
                documents.add(
                    {u"CO"_s, u"%1"_s.arg(i, 6, 10, QChar(u'0')), u"Titre"_s, QString(qsizetype(i) * 90, u'x')});
                words.add({u"MOT%1"_s.arg(i), QByteArray(qsizetype(i) * 40, 'A')});
            }
        }
        QFile file(path);
        if (file.open(QIODevice::ReadOnly))
            sample = file.readAll();
    }

    void use(const QByteArray& bytes, OpenMode mode, const Schema& schema) const {
        QFile::remove(path + u"-journal"_s);
        QFile::remove(path + u"-wal"_s);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size())
            abort();
        file.close();
        (void)testing::exercise<Ended>(path, mode, schema);
    }
};

const Ground& ground() {
    static const Ground made;
    return made;
}

} // namespace

/// An input that is no base is taken as a list of changes to the sample: place (3 bytes) and new value, over and over.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const Ground& here = ground();
    const OpenMode mode = size % 2 == 0 ? OpenMode::ExclusiveReadOnly : OpenMode::Shared;
    if (size >= 16 && std::memcmp(data, "SQLite format 3", 16) == 0) {
        here.use(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)), mode, corpusSchema());
        return 0;
    }
    QByteArray changed = here.sample;
    for (size_t i = 0; i + 4 <= size; i += 4) {
        const qsizetype place = (data[i] << 16 | data[i + 1] << 8 | data[i + 2]) % changed.size();
        changed[place] = static_cast<char>(data[i + 3]);
    }
    here.use(changed, mode, size % 4 < 2 ? corpusSchema() : dossiersSchema());
    return 0;
}
