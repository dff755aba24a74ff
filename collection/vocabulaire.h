#pragma once
// Invented words for synthetic collections: always the same, rare and frequent ones as in a real language.
#include <QString>

#include <vector>

namespace velm {

/// Numbers that look like chance and are the same on every run and machine.
class Alea {
public:
    explicit Alea(quint64 graine) : etat_(graine) {}
    quint64 suivant();
    /// From 0 to n-1.
    quint64 sous(quint64 n) { return suivant() % n; }
    bool surmille(quint64 n) { return sous(1000) < n; }

private:
    quint64 etat_;
};

class Vocabulaire {
public:
    Vocabulaire();

    /// A word by the law of frequencies: the n-th most frequent is about n times rarer than the first.
    const QString& mot(Alea& alea) const { return mots_[rangs_[alea.suivant() >> decalage]]; }
    /// A rarer word, for titles and labels.
    const QString& nom(Alea& alea) const { return mots_[mots_.size() / 4 + alea.sous(mots_.size() / 2)]; }
    /// One of the words that begin with "bro", all equally frequent.
    const QString& bro(Alea& alea) const { return bro_[alea.sous(bro_.size())]; }
    std::size_t nombre() const { return mots_.size(); }

private:
    static constexpr int bitsdetirage = 20;
    static constexpr int decalage = 64 - bitsdetirage;
    std::vector<QString> mots_;
    std::vector<QString> bro_;
    std::vector<quint16> rangs_; ///< by the high bits of a random number
};

} // namespace velm
