#pragma once
// A tab of the search form: its controls over two buttons, one that searches, or stops, and one that gives up.
#include "core/texte.h"

#include <QWidget>

class QComboBox;
class QGridLayout;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace velm {

class BoiteDerniers;

class PageRecherche : public QWidget {
    Q_OBJECT

public:
    /// Where one types first.
    virtual QLineEdit& champ() const = 0;

    QPushButton& lanceur() const { return *lanceur_; }

signals:
    void cherchevoulu();
    void annulationvoulue();

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
    /// The last line of the tab, with what stands at the left of the two buttons.
    void ajouteboutons(const QString& chercher, const QString& annuler, QWidget* gauche = nullptr);

private:
    Libelles texte_;
    QVBoxLayout* disposition_ = nullptr;
    QGridLayout* grille_ = nullptr;
    QPushButton* lanceur_ = nullptr;
};

} // namespace velm
