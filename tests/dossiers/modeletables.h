#pragma once
// The tables of the store as plain vectors, and the texts and numbers of the tree step by step.
#include "magasin_support.h"

namespace velm::test {

/// The three tables; rows in the order in which they were added.
struct TablesModele {
    std::vector<RangeeDossier> arborescences;
    std::vector<RangeeElement> donnees;
    qint64 dernoarborescence = 0;

    RangeeDossier* dossier(qint64 numero);
    /// The number of items of a dossier.
    qint64 comptearticle(qint64 numero) const;
    bool prise(qint64 dossier, qint64 place) const;
    void effaceelements(qint64 dossier);
    void effacedossier(qint64 numero);
};

/// A number with its sign position.
QString decimal(qint64 nombre);
/// The whole number that a text begins with; blanks do not end it.
qint64 valeur(const QString& texte);

/// The count that the text of a node shows, the name without it, and the text with another one.
qint64 comptemodele(const QString& texte);
QString nommodele(const QString& texte);
QString textemodele(const QString& nom, qint64 compte);
QString changemodele(const QString& texte, qint64 delta);

} // namespace velm::test
