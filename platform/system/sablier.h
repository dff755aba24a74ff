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

/// Puts the hourglass up for a stretch of work, unless somebody has done so already.
class Attente {
public:
    explicit Attente(Sablier& sablier) : sablier_(sablier), mis_(sablier.pointeur() != Sablier::attente) {
        if (mis_)
            sablier_.fixepointeur(Sablier::attente);
    }
    ~Attente() {
        if (mis_)
            sablier_.fixepointeur(Sablier::defaut);
    }
    Attente(const Attente&) = delete;
    Attente& operator=(const Attente&) = delete;

private:
    Sablier& sablier_;
    bool mis_;
};

} // namespace velm
