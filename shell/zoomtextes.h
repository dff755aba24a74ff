#pragma once
// The size at which documents are shown: one for all windows, whoever changes it, and for the next run.
#include "core/reglages.h"
#include "core/texte.h"

#include <QObject>
#include <QTimer>

namespace velm {

class Actions;
class Bureau;
class Ecrangeneral;
class Textes;

class ZoomTextes final : public QObject {
    Q_OBJECT

public:
    /// None is owned; all of it outlives this. `premier` is the size as long as none was chosen, per cent.
    struct Donnees {
        Ecrangeneral& ecran;
        Actions& actions;
        Bureau& bureau;
        Reglages& reglages;
        Libelles texte;
        int premier;
    };
    explicit ZoomTextes(const Donnees& donnees);

    int pourcent() const { return pourcent_; }
    /// A window that is made, and not shown yet.
    void prend(const Textes& fenetre);
    /// To the next of the usual sizes, up or down.
    void pas(int sens);
    void normal();
    /// Writes a size that is not written yet, as the timer would do in a moment.
    void note();

private:
    void change(int pourcent);
    void montre();

    Donnees donnees_;
    int pourcent_;
    bool anoter_ = false;  ///< it was changed and is not written yet
    QTimer apreslechange_; ///< writes the size when it has not changed for a moment
};

} // namespace velm
