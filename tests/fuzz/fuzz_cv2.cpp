// Criteria files: whatever one holds, it is read to its end, its rows go into a list, and what is written of it is read
// back as it is.
#include "search/etatformulaire.h"

#include <QByteArray>

#include <cstdint>
#include <cstdlib>

namespace {

using namespace Qt::Literals::StringLiterals;

void require(bool held) {
    if (!held)
        std::abort();
}

void check(QByteArrayView bytes) {
    const auto file = velm::litfichiercriteres(bytes);
    if (!file)
        return;
    const QByteArray written = velm::ecritcriteres(*file);
    const auto again = velm::litfichiercriteres(written);
    require(again == file);
    require(velm::ecritcriteres(*again) == written);
    require(static_cast<qsizetype>(file->lignes.size()) <= bytes.size());

    velm::ListeSelection list([](Texte) { return QString(); });
    list.colonnes().deplace(0, 4);
    velm::rendmots(*file, list.resultat());
    velm::rendlignes(*file, list.resultat().lignes);
    require(list.lignes() == static_cast<int>(file->lignes.size()));

    const velm::ItemsFormulaire items{{u"*"_s, u"a"_s}, {u"*"_s, u"b"_s, u"c"_s}, {u"1"_s, u"2"_s, u"3"_s, u"4"_s}};
    const velm::EtatFormulaire state = velm::etatde(*file, items, 1);
    require(state.ongletrecherche >= 0 && state.ongletrecherche < velm::EtatFormulaire::onglets);
    require(state.criteres.type >= 0 && state.criteres.type < items.combotype.size());
    require(state.criteres.conjonction >= 0 && state.criteres.conjonction < items.conjonction.size());
    const auto saved = velm::litfichiercriteres(velm::ecritcriteres(velm::fichierde(state, items, list)));
    require(saved && velm::etatde(*saved, items, 1) == state);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    check(bytes);
    check("VELMORante 2000 - CV2\n" + bytes.toByteArray());
    return 0;
}
