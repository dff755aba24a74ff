#pragma once
// The screen's mouse pointer, as far as the logic asks for it.

namespace velm {

class Sablier {
public:
    static constexpr int defaut = 0;
    static constexpr int attente = 11; ///< the hourglass

    virtual ~Sablier() = default;
    virtual int pointeur() const = 0;
    virtual void fixepointeur(int valeur) = 0;
};

/// A pointer that nobody sees: for work without a window.
class SablierMuet : public Sablier {
public:
    int pointeur() const override { return valeur_; }
    void fixepointeur(int valeur) override { valeur_ = valeur; }

private:
    int valeur_ = defaut;
};

} // namespace velm
