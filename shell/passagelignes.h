#pragma once
// A walk through very many rows of a list, for what is done with each of them.
#include "search/sourceentours.h"

#include <functional>

namespace velm {

class PassageLignes final : public Ouvrage {
public:
    /// From one row to another, both counted.
    PassageLignes(int premiere, int derniere, std::function<void(int ligne)> chaque);

    bool avance() override;
    double part() const override;

private:
    int premiere_;
    int derniere_;
    int ici_;
    std::function<void(int ligne)> chaque_;
};

} // namespace velm
