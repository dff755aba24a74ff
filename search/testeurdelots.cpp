#include "search/testeurdelots.h"

#include "core/schemas.h"
#include "platform/base/memory.h"

#include <system_error>

namespace velm {
namespace {

/// A lot below this is done before the helper has woken.
constexpr std::size_t petitlot = 8;

} // namespace

TesteurDeLots::TesteurDeLots(const Database& base, const CriteresLus& criteres)
    : base_(base), criteres_(criteres), lecteur_(base, criteres) {}

TesteurDeLots::~TesteurDeLots() {
    if (!aide_.joinable())
        return;
    {
        const std::scoped_lock garde(verrou_);
        fin_ = true;
    }
    appel_.notify_one();
    aide_.join();
}

/// A body that the memory does not suffice for is left to the caller, who finds out why it could not be read.
void TesteurDeLots::travaille(LecteurDeCorps& lecteur) {
    for (std::size_t i = prochaine_++; i < lot_.size(); i = prochaine_++) {
        FicheTestee& testee = lot_[i];
        if (!withinMemory([&] { testee.passe = testetextes(criteres_, testee.fiche, lecteur); }))
            testee.passe = std::nullopt;
    }
    lecteur.relache();
}

void TesteurDeLots::engage() {
    try {
        aide_ = std::thread([this, chemin = base_.path(), partage = base_.updatable()] {
            // Without enough memory there is no helper, and the caller works alone.
            withinMemory([&] {
                const Database::Opened ouverte =
                    Database::open(chemin, partage ? OpenMode::Shared : OpenMode::ExclusiveReadOnly, corpusSchema());
                if (!ouverte.database)
                    return;
                LecteurDeCorps lecteur(*ouverte.database, criteres_);
                aide(lecteur);
            });
        });
    } catch (const std::system_error&) {
        // The system gives no thread: nobody helps.
    }
}

void TesteurDeLots::teste(std::span<FicheTestee> lot) {
    const bool adeux = lot.size() >= petitlot && criteres_.cherchedanscontenu();
    if (adeux && !aide_.joinable())
        engage();
    {
        const std::scoped_lock garde(verrou_);
        lot_ = lot;
        prochaine_ = 0;
        ouvert_ = adeux;
        ++numero_;
    }
    if (adeux)
        appel_.notify_one();
    travaille(lecteur_);
    std::unique_lock garde(verrou_);
    ouvert_ = false;
    repos_.wait(garde, [this] { return !occupe_; });
}

/// The helper's life: one lot after the other.
void TesteurDeLots::aide(LecteurDeCorps& lecteur) {
    quint64 fait = 0;
    std::unique_lock garde(verrou_);
    for (;;) {
        appel_.wait(garde, [&] { return fin_ || (ouvert_ && numero_ != fait); });
        if (fin_)
            return;
        fait = numero_;
        occupe_ = true;
        garde.unlock();
        travaille(lecteur);
        garde.lock();
        occupe_ = false;
        repos_.notify_one();
    }
}

} // namespace velm
