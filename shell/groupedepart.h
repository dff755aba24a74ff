#pragma once
// Rows of the start page that belong together, in one column or in two. The Tab key stops at one of them, the arrow
// keys, Home and End walk them.
#include "core/texte.h"
#include "shell/lignedepart.h"

#include <QWidget>

#include <vector>

namespace velm {

class GroupeDepart final : public QWidget {
    Q_OBJECT

public:
    explicit GroupeDepart(QWidget* parent);

    /// A new row at the end. It is the group's.
    LigneDepart& ajoute(const QIcon& image, const QString& nom);
    /// A row for a document of a collection, whose name stands behind its title.
    LigneDepart& ajoutedocument(int indice, const QString& titre, const Libelles& texte);
    void vide();
    const std::vector<LigneDepart*>& lignes() const { return lignes_; }
    /// To be called when rows were enabled or disabled: the Tab key stops at the first that can be pressed, unless the
    /// row at which it stopped still can.
    void choisitarret();

    /// At most this number of columns, of equal width, filled one after the other.
    void changecolonnes(int nombre);
    /// The width at which no name is cut in one column.
    int largeurvoulue() const;

    /// Gives the focus to its first row, or to its last one. False where no row can take it.
    bool prendfocus(bool premiere);

signals:
    void pressee(int place);   ///< a row, from 0
    void sortie(bool versbas); ///< the arrow keys lead out of the group, downwards or upwards

protected:
    void resizeEvent(QResizeEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    int hauteurdeligne() const;
    int lignesparcolonne() const;
    void dispose();
    void arrete(LigneDepart* ligne);
    bool touche(LigneDepart& ligne, int cle);
    void avance(std::size_t place, int pas);

    std::vector<LigneDepart*> lignes_;
    int colonnes_ = 1;
};

} // namespace velm
