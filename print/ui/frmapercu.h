#pragma once
// The preview: the sheets of a job as they come out, before anything is printed or while a job is open. Modal to the
// frame, but shown, not executed; it goes when it is closed.
#include "core/reglages.h"
#include "core/texte.h"
#include "platform/paper/jobpages.h"

#include <QDialog>

class QLabel;
class QToolButton;

namespace velm {

class SheetsView;
class Toolbar;

class FrmApercu final : public QDialog {
    Q_OBJECT

public:
    /// What can be done with what is shown; null for a command that is not there.
    struct Actes {
        std::function<void()> imprime; ///< the window has closed before
        QString imprimer;              ///< what that is called
        std::function<void()> abandonne;
        std::function<void()> exporte; ///< the window stays
    };
    /// None is owned.
    FrmApercu(Reglages& reglages, Libelles texte, QWidget* parent);
    ~FrmApercu() override;

    /// Shows the window, empty still.
    void ouvre(const QString& titre, const Actes& actes);
    /// Sheets that are being made: they are looked at while more come. False when the window has gone.
    bool suit(const JobPages& pages);
    /// All sheets. `suite`: where the next document goes on the last one, twips; -1 for nowhere.
    void montre(JobPages pages, int suite);

    /// There will be no further sheets: the window goes, and lets go of what it showed.
    void abandonne();

    SheetsView& vue() const { return *vue_; }
    const JobPages& pages() const { return pages_; }

    void done(int resultat) override;

private:
    void construit();
    void construitbarre();
    void bouton(const QString& cle, Texte legende, const QString& image, const QKeySequence& touche,
                void (FrmApercu::*acte)());
    void imprimer();
    void abandonner();
    void exporter();
    void premiere();
    void precedente();
    void suivante();
    void derniere();
    void agrandir();
    void reduire();
    void pageentiere();
    void largeurdepage();
    void ditpage();
    void permet();
    void relitplace();
    void ecritplace() const;

    Reglages& reglages_;
    Libelles texte_;
    Actes actes_;
    JobPages pages_;
    Toolbar* barre_;
    SheetsView* vue_ = nullptr;
    QLabel* page_;
    QLabel* zoom_;
    bool complet_ = false; ///< all sheets are there
};

} // namespace velm
