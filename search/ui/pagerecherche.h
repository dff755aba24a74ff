#pragma once
// A tab of the search form: its fields, and what belongs to them below the tabs, where it is always seen: the button
// that searches, or stops, the one that gives up, and what came of the search.
#include "core/bilan.h"
#include "core/texte.h"
#include "search/ui/rangees.h"

#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace velm {

class BoiteDerniers;
class NoteLine;

class PageRecherche : public QWidget {
    Q_OBJECT

public:
    /// Where one types first.
    virtual QLineEdit& champ() const = 0;

    QPushButton& lanceur() const { return *lanceur_; }
    /// The buttons and the line below them. Whoever shows the tab puts it in its place.
    QWidget& pied() const { return *pied_; }
    /// Says below the buttons what came of the search.
    void ditbilan(const BilanRecherche& bilan);

signals:
    void cherchevoulu();
    void annulationvoulue();
    void toutvoulu(); ///< what the search has found, and not only the first of it

protected:
    explicit PageRecherche(Libelles texte);

    QString texte(Texte lequel) const { return texte_(lequel); }
    Rangees& rangees() const { return *rangees_; }
    /// A text box that remembers what was searched. Its Return key searches.
    BoiteDerniers* boite(const QString& nom, Texte intitule);
    /// The list of the three limits.
    QComboBox* limites(const QString& nom);
    /// One more row begins with a label; `nomme` is what has the focus by it.
    QLabel* ajouterangee(Texte intitule, QWidget* nomme, const Rangees::Espaces& espaces = {});
    /// A quiet line directly under the field above: what is searched.
    QLabel* ajouteconseil(Texte conseil);
    /// The buttons, with what stands at the left of the two, and the line that says what came of the search.
    void ajouteboutons(const QString& chercher, const QString& annuler, QWidget* gauche = nullptr);

private:
    Libelles texte_;
    Rangees* rangees_ = nullptr;
    QWidget* pied_ = nullptr;
    QPushButton* lanceur_ = nullptr;
    NoteLine* note_ = nullptr;
};

} // namespace velm
