#include "shell/passagelignes.h"

#include <algorithm>
#include <utility>

namespace velm {

PassageLignes::PassageLignes(int premiere, int derniere, std::function<void(int ligne)> chaque)
    : premiere_(premiere), derniere_(derniere), ici_(premiere), chaque_(std::move(chaque)) {}

bool PassageLignes::avance() {
    constexpr int lignesparpas = 64;
    for (const int pas = std::min(derniere_, ici_ + lignesparpas - 1); ici_ <= pas; ++ici_)
        chaque_(ici_);
    return ici_ > derniere_;
}

double PassageLignes::part() const {
    return static_cast<double>(ici_ - premiere_) / std::max(derniere_ - premiere_ + 1, 1);
}

} // namespace velm
