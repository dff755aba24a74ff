#pragma once
// A second core for the body search. Documents come in lots; both threads take them one by one, and a lot is done when
// the call returns, so that its order, the stop and the progress are the business of the caller alone.
#include "search/lecteurdecorps.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <span>
#include <thread>

namespace velm {

struct FicheTestee {
    FicheCriteres fiche;
    std::optional<bool> passe; ///< nothing: its body cannot be read
};

class TesteurDeLots {
public:
    /// The helper opens the base for itself. Where it cannot, the caller works alone.
    TesteurDeLots(const Database& base, const CriteresLus& criteres);
    ~TesteurDeLots();
    TesteurDeLots(const TesteurDeLots&) = delete;
    TesteurDeLots& operator=(const TesteurDeLots&) = delete;

    /// Tests the texts of a lot. The helper is called in only when there is work for two.
    void teste(std::span<FicheTestee> lot);

private:
    void engage();
    void aide(LecteurDeCorps& lecteur);
    void travaille(LecteurDeCorps& lecteur);

    const Database& base_;
    const CriteresLus& criteres_;
    LecteurDeCorps lecteur_;
    std::span<FicheTestee> lot_;
    std::atomic<std::size_t> prochaine_ = 0;
    std::mutex verrou_;
    std::condition_variable appel_;
    std::condition_variable repos_;
    quint64 numero_ = 0;
    bool ouvert_ = false; ///< a lot is being worked on
    bool occupe_ = false; ///< the helper works on it
    bool fin_ = false;
    std::thread aide_;
};

} // namespace velm
