#pragma once
// Rows of documents, one behind the other: all texts in one block, so that a hundred thousand rows are few blocks of
// memory. Rows count from 1.
#include <QString>
#include <QStringView>

#include <array>
#include <limits>
#include <vector>

namespace velm {

/// The fields of a row. `cle` is the collection's code and the number.
struct FicheDocument {
    QStringView reference, numart, titre, motcle1, motcle2, motcle3, cle;
};

class Lignes {
public:
    enum Champ : int { Titre, Motcle1, Motcle2, Motcle3, Numart, Reference, Clef };

    int nombre() const { return static_cast<int>(ordre_.size()); }
    /// Empty for a row or a field that is none.
    QString champ(int rang, Champ champ) const;
    QString cle(int rang) const { return champ(rang, Clef); }
    /// The same without a copy; valid until the rows change.
    QStringView vue(int rang, Champ champ) const;

    void vide();
    /// Puts a row behind the others. False, with the rows as they were, when no more are taken: a search then ends with
    /// those it has.
    bool ajoute(const FicheDocument& fiche);
    /// Removes rows, by their present numbers in ascending order; the rows below move up.
    void supprime(const std::vector<int>& rangs);
    /// Removes the rows from the first to the last of these, both of which are there.
    void supprime(int premier, int dernier);
    /// Puts the rows into another order: each place, from 0 on, names the present place of its row.
    void range(const std::vector<int>& places);

    /// How many rows are taken; without a call as many as can be numbered.
    void limite(int nombre) { capacite_ = nombre; }

private:
    static constexpr std::size_t nombredechamps = Clef + 1;
    struct Ligne {
        std::size_t debut = 0;
        std::array<quint32, nombredechamps> fins{};
    };

    std::vector<char16_t> textes_; ///< of all rows
    std::vector<Ligne> lignes_;
    std::vector<quint32> ordre_; ///< which of them stands where
    /// Row numbers are whole numbers, with one more for a header.
    int capacite_ = std::numeric_limits<int>::max() - 1;
};

} // namespace velm
