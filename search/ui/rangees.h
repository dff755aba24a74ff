#pragma once
// Rows of a form: a label, and behind it controls from the left to the right. Where the form is narrow the labels stand
// above what they name, and the controls of a row below one another, so that a form as wide as its widest control shows
// all of them.
#include "platform/widgets/look/look.h"

#include <QLayout>

#include <memory>
#include <vector>

class QLabel;

namespace velm {

class Rangees final : public QLayout {
public:
    struct Espaces {
        int ecart = look::spacing; ///< between the controls of the row
        int dessus = 0;            ///< more of it, or less, above the row than usual
        bool adroite = false; ///< where one line does not hold all of it, the first goes below the others, at the right
    };

    explicit Rangees(QWidget* parent = nullptr);
    ~Rangees() override;

    /// What is added from now on stands in a new row. Without a label it stands under the controls of the row above.
    void rangee(QLabel* etiquette, const Espaces& espaces);
    /// One more control of the row. One that expands takes what the others leave.
    using QLayout::addWidget;
    /// Controls that stay together, or have rows of their own.
    void addLayout(QLayout* ensemble);
    /// What follows in the row stands at its right end, as long as all of it has room in one line.
    void ajouteressort();

    void addItem(QLayoutItem* piece) override;
    int count() const override { return static_cast<int>(pieces_.size()); }
    QLayoutItem* itemAt(int rang) const override;
    QLayoutItem* takeAt(int rang) override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int largeur) const override;
    Qt::Orientations expandingDirections() const override;
    void setGeometry(const QRect& place) override;

private:
    struct Rangee {
        QLayoutItem* etiquette = nullptr;
        std::vector<QLayoutItem*> pieces;
        Espaces espaces;

        bool remplie() const;
        bool prendlereste() const;
        int hauteur() const;
    };
    using Ligne = std::vector<QLayoutItem*>;

    int intitules() const;
    int premieres() const;
    int largeurutile() const;
    int besoin(const Rangee& rangee, const QLayoutItem* piece) const;
    int enligne(const Rangee& rangee, const Ligne& ligne) const;
    std::vector<Ligne> lignes(const Rangee& rangee, int largeur) const;
    int dispose(const QRect& dans, bool pose) const;
    int poserangee(const Rangee& rangee, const QRect& dans, bool pose) const;
    int poseligne(const Rangee& rangee, const Ligne& ligne, const QRect& dans, bool pose) const;

    std::vector<std::unique_ptr<QLayoutItem>> pieces_; ///< labels, too
    std::vector<Rangee> rangees_;
};

} // namespace velm
