#pragma once
// Work on numbered items by several threads, taken up in order by the thread that asked for it.
#include <QtGlobal>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace velm {

/// Threads worth starting on this machine.
inline int nombredouvriers() {
    return static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, 8U));
}

/// Makes items 0 to nombre-1 with `fait(worker, item, product)` in worker threads and hands them to
/// `prend(item, product)` in the caller's thread, in order. A few batches at most wait for their turn. Neither call may
/// throw. A worker gets its items in ascending order.
template <typename Produit, typename Fait, typename Prend>
void enchaine(qsizetype nombre, int ouvriers, Fait&& fait, Prend&& prend) {
    constexpr qsizetype parlot = 16;
    constexpr qsizetype lotsenattente = 16;
    struct Lot {
        std::vector<Produit> produits;
        bool pret = false;
    };
    std::vector<Lot> lots(lotsenattente);
    std::mutex verrou;
    std::condition_variable change;
    const qsizetype nombredelots = (nombre + parlot - 1) / parlot;
    qsizetype prochain = 0;
    qsizetype pris = 0;

    const auto ouvrier = [&](int rang) {
        for (;;) {
            qsizetype numero = 0;
            {
                std::unique_lock garde(verrou);
                change.wait(garde, [&] { return prochain >= nombredelots || prochain < pris + lotsenattente; });
                if (prochain >= nombredelots)
                    return;
                numero = prochain++;
            }
            Lot& lot = lots[static_cast<std::size_t>(numero % lotsenattente)];
            const qsizetype premier = numero * parlot;
            lot.produits.resize(static_cast<std::size_t>(std::min(parlot, nombre - premier)));
            for (std::size_t k = 0; k < lot.produits.size(); ++k)
                fait(rang, premier + static_cast<qsizetype>(k), lot.produits[k]);
            const std::scoped_lock garde(verrou);
            lot.pret = true;
            change.notify_all();
        }
    };

    std::vector<std::thread> equipe;
    equipe.reserve(static_cast<std::size_t>(ouvriers));
    for (int rang = 0; rang < ouvriers; ++rang)
        equipe.emplace_back(ouvrier, rang);
    for (qsizetype numero = 0; numero < nombredelots; ++numero) {
        Lot& lot = lots[static_cast<std::size_t>(numero % lotsenattente)];
        {
            std::unique_lock garde(verrou);
            change.wait(garde, [&] { return lot.pret; });
        }
        for (std::size_t k = 0; k < lot.produits.size(); ++k)
            prend(numero * parlot + static_cast<qsizetype>(k), lot.produits[k]);
        const std::scoped_lock garde(verrou);
        lot.pret = false;
        pris = numero + 1;
        change.notify_all();
    }
    for (std::thread& membre : equipe)
        membre.join();
}

} // namespace velm
