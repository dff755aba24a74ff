// Files of dossiers: whatever one holds, it is read to its end, each key gives a document, a place and an extract, and
// what is written of it is read back as it is.
#include "dossiers/fichierdossier.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace velm;

void require(bool held) {
    if (!held)
        std::abort();
}

void checkKey(const QString& key) {
    const Cle document = documentdelacle(key);
    require(document.code.size() <= 2 && document.numero.size() <= 6);
    const Extrait part = extraitdelacle(key);
    require(estextrait(key) || part.entier());
    const qint64 place = noordredelacle(key);
    // A key that the program itself makes, of numbers as it has them, is read as it was made.
    const QString made = cleelement(key.left(8), place, part);
    const auto own = [](qint64 number) { return number >= 0 && number < qint64{1} << 52; };
    if (key.size() >= 8 && own(place) && own(part.debut) && own(part.longueur)) {
        require(noordredelacle(made) == place);
        require(extraitdelacle(made) == part);
        require(documentdelacle(made) == document);
        require(noordredelacle(avecnoordre(made, 7)) == 7);
    }
    nombredelaqueue(key);
    require(queueelement(part).isEmpty() == part.entier());
}

void check(QByteArrayView bytes) {
    const auto file = litfichierdossier(bytes);
    if (!file)
        return;
    require(static_cast<qsizetype>(file->elements.size()) <= bytes.size());
    for (const auto& [key, text] : file->elements)
        checkKey(key);
    const QByteArray written = ecritfichierdossier(*file);
    auto again = litfichierdossier(written);
    require(again.has_value());
    // The text that was missing is missing no more.
    again->interrompu = file->interrompu;
    require(again == file);
    require(ecritfichierdossier(*again) == written);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    check(bytes);
    check("VELMORante 2000 - DV2\n" + bytes.toByteArray());
    return 0;
}
