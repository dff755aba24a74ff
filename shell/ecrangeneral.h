#pragma once
#include "core/seance.h"

#include <QMainWindow>

#include <functional>

class QMdiArea;
class QMdiSubWindow;

namespace velm {

class Textes;

/// The frame: one window for each collection in it.
class Ecrangeneral final : public QMainWindow {
    Q_OBJECT

public:
    /// `texte` gives a text by its number.
    explicit Ecrangeneral(const std::function<QString(int)>& texte);

    /// Takes the place of the last run, twips.
    void place(const PositionFenetre& position);
    void montre();
    PositionFenetre position() const;

    /// Puts a document window into the frame, the one on top.
    void ajoute(Textes* fenetre);
    /// Brings a window of the frame forward.
    void avance(Textes* fenetre);
    std::vector<Textes*> fenetres() const;
    Textes* active() const;
    void fermefenetres();

    /// Closes without asking.
    void ferme();

    /// Asked before the user's closing; false keeps the frame open.
    std::function<bool()> avantfermeture;

signals:
    void quitter();

protected:
    void closeEvent(QCloseEvent* evenement) override;

private:
    QMdiArea* aire_;
    int etat_ = 2;
    bool parcode_ = false;
    bool enfermeture_ = false;
};

} // namespace velm
