#pragma once
// Lists of documents for tests: a source in memory, and hands for a grid.
#include "core/colonnes.h"
#include "core/sourcedocuments.h"
#include "platform/text/frenchorder.h"
#include "platform/widgets/grid/flexgrid.h"

#include <QHeaderView>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace velm::test {

/// Rows of a title, a keyword and a key.
class SourceEssai final : public SourceDocuments {
public:
    static ModeleColonnes modele() {
        return {.colonnes = {{0, 3000, Texte::Titre}, {1, 2000, Texte::ColonneMotCle1}, {6, 0, {}}}};
    }

    explicit SourceEssai(std::vector<QStringList> lignes) : lignes_(std::move(lignes)) {}

    /// Row n is "Titre n", in five digits, with one of ten keywords and the key CO00000n; the last one comes first.
    static std::unique_ptr<SourceEssai> de(int nombre) {
        std::vector<QStringList> lignes;
        for (int n = nombre; n > 0; --n)
            lignes.push_back({QStringLiteral("Titre %1").arg(n, 5, 10, QChar(u'0')),
                              QStringLiteral("mot %1").arg(n % 10), QStringLiteral("CO") + sixchiffres(n)});
        return std::make_unique<SourceEssai>(std::move(lignes));
    }

    int rowCount() const override { return static_cast<int>(lignes_.size()); }
    QString text(int row, int column) const override {
        return row >= 0 && row < rowCount() ? lignes_[static_cast<std::size_t>(row)].value(column) : QString();
    }
    Cle cle(int row) const override { return decoupecle(text(row, 2)); }
    bool sort(int column, bool descending) override {
        std::vector<QStringList> rangees;
        for (const int row : frenchOrder(
                 rowCount(), [&](int rang) { return text(rang, column); }, descending))
            rangees.push_back(lignes_[static_cast<std::size_t>(row)]);
        lignes_ = std::move(rangees);
        return true;
    }

private:
    std::vector<QStringList> lignes_;
};

inline QString textenumerote(Texte lequel) {
    return QStringLiteral("t%1").arg(static_cast<int>(lequel));
}

/// The middle of a cell; row 0 is the header, which is another surface.
inline std::pair<QWidget*, QPoint> cellule(const FlexGrid& flex, int ligne, int place) {
    QTableView* vue = flex.view();
    const QHeaderView* entete = vue->horizontalHeader();
    const int colonne = entete->logicalIndex(place);
    if (ligne == 0)
        return {entete->viewport(),
                {entete->sectionViewportPosition(colonne) + entete->sectionSize(colonne) / 2, entete->height() / 2}};
    return {vue->viewport(), vue->visualRect(vue->model()->index(ligne - 1, colonne)).center()};
}

inline void clique(const FlexGrid& flex, int ligne, int place, Qt::MouseButton bouton = Qt::LeftButton) {
    const auto [surface, ou] = cellule(flex, ligne, place);
    QTest::mouseClick(surface, bouton, {}, ou);
}

inline void doubleclique(const FlexGrid& flex, int ligne, int place) {
    const auto [surface, ou] = cellule(flex, ligne, place);
    QTest::mouseClick(surface, Qt::LeftButton, {}, ou);
    QTest::mouseDClick(surface, Qt::LeftButton, {}, ou);
    QTest::mouseRelease(surface, Qt::LeftButton, {}, ou);
}

inline QStringList titres(const FlexGrid& flex, int nombre) {
    QStringList tous;
    for (int ligne = 1; ligne <= nombre; ++ligne)
        tous << flex.text(ligne, 0);
    return tous;
}

} // namespace velm::test
