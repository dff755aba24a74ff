#pragma once
// A tab of the search form: its controls over two buttons, one that searches, or stops, and one that gives up.
#include "core/bilan.h"
#include "core/texte.h"

#include <QWidget>

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace velm {

class BoiteDerniers;
class NoteLine;

class PageRecherche : public QWidget {
    Q_OBJECT

public:
    /// Where one types first.
    virtual QLineEdit& champ() const = 0;

    QPushButton& lanceur() const { return *lanceur_; }
    /// Says below the buttons what came of the search.
    void ditbilan(const BilanRecherche& bilan);

signals:
    void cherchevoulu();
    void annulationvoulue();
    void toutvoulu(); ///< what the search has found, and not only the first of it

protected:
    explicit PageRecherche(Libelles texte);

    QString texte(Texte lequel) const { return texte_(lequel); }
    /// Lines of controls, and what goes below them.
    QGridLayout& grille() const { return *grille_; }
    QVBoxLayout& disposition() const { return *disposition_; }
    /// A text box that remembers what was searched. Its Return key searches.
    BoiteDerniers* boite(const QString& nom, Texte intitule);
    /// The list of the three limits.
    QComboBox* limites(const QString& nom);
    /// A quiet line of the grid, under a field: what is searched.
    QLabel* ajouteconseil(Texte conseil, int ligne, int colonne, int colonnes = 1);
    /// The buttons below the last field, with what stands at the left of the two, and the line that says what came of
    /// the search.
    void ajouteboutons(const QString& chercher, const QString& annuler, QWidget* gauche = nullptr);

private:
    Libelles texte_;
    QVBoxLayout* disposition_ = nullptr;
    QGridLayout* grille_ = nullptr;
    QPushButton* lanceur_ = nullptr;
    NoteLine* note_ = nullptr;
};

} // namespace velm
