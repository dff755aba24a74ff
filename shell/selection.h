#pragma once
// The panel of the selection list: shows what the list does, and tells it what was pressed.
#include "search/controleliste.h"
#include "shell/grilleselection.h"

#include <QObject>

class QMenu;

namespace velm {

class Actions;
class Bureau;
class Ecrangeneral;
class VoletSelection;

class Selection final : public QObject, private VueListe {
    Q_OBJECT

public:
    /// Nothing is owned; all of it outlives the selection.
    Selection(Ecrangeneral& ecran, VoletSelection& volet, Actions& actions, Bureau& bureau,
              const ControleListe::Services& services);
    ~Selection() override;

    ControleListe& controle() { return controle_; }
    ListeSelection& liste() { return controle_.liste(); }
    FlexGrid& flex() const { return grille_.flex(); }

signals:
    /// The search form is to be shown or hidden.
    void criteresvoulus(bool montres);
    /// It has got rows, or lost them, or is seen, or no longer.
    void changee();

private:
    // ---- VueListe
    void permet(Ordre ordre, bool permis) override;
    void coche(Ordre ordre, bool cochee) override;
    void infobulle(Ordre ordre, const QString& texte) override;
    void ditetat(const QString& texte) override;
    void ditbilan(const BilanRecherche& bilan) override;
    void montrepanneau(bool visible) override;
    void elargitpanneau() override;
    void montrecriteres(bool montres) override;
    void majdispositions() override;
    void ouvredocument(const QString& cle, const QString& mot1, const QString& mot2) override;

    void relieflex();
    void construitmenu();
    void ditvide();

    Ecrangeneral& ecran_;
    VoletSelection& volet_;
    Actions& actions_;
    Bureau& bureau_;
    GrilleSelection grille_;
    ControleListe controle_;
    QString toutafficher_;
    QString aucundocument_;
    QString rien_;            ///< what the last search has not found, in words
    bool formulaire_ = false; ///< the search form is seen
    QMenu* menu_ = nullptr;
};

} // namespace velm
