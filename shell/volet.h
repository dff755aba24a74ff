#pragma once
// The selection panel at the left of the frame: the place of the result list, and the bar that resizes it.
#include "shell/logique/largeurvolet.h"

#include <QWidget>

namespace velm {

class FlexGrid;
class NoteLine;
class SplitterBar;
class Toolbar;

class VoletSelection final : public QWidget {
    Q_OBJECT

public:
    explicit VoletSelection(QWidget* parent);

    FlexGrid& flex() const { return *flex_; }
    Toolbar& recherchetoolbar() const { return *recherchetoolbar_; }
    /// The line over the list.
    NoteLine& note() const { return *note_; }
    /// Says there what the list is; `suite` names a link to more of it, empty for none.
    void dit(const QString& phrase, const QString& suite);

    /// What the list and the bar beside it are called where they are spoken.
    void nomme(const QString& liste, const QString& separateur);

    QSize sizeHint() const override;

    /// Width that the panel is to have, twips: that of the list, at least 60, and 60 more. Stored as the panel's. It
    /// takes at most what the frame has beside its windows.
    void changelargeurpane(double twips);
    double largeurpane() const { return largeur_.largeurpane(); }
    /// Width of the list, twips.
    void changelargeurliste(int twips);
    int largeurliste() const { return largeur_.largeurliste(); }

protected:
    void resizeEvent(QResizeEvent* evenement) override;

private:
    void ajustepane();
    void lache(int position);
    void dispose();

    Toolbar* recherchetoolbar_;
    NoteLine* note_;
    FlexGrid* flex_;
    SplitterBar* separateurrecherche_;
    LargeurVolet largeur_;
};

} // namespace velm
