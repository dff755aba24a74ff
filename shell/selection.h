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
class Toolbar;
class VoletSelection;

class Selection final : public QObject, private VueListe {
    Q_OBJECT

public:
    /// Nothing is owned; all of it outlives the selection.
    Selection(Ecrangeneral& ecran, VoletSelection& volet, const Actions& actions, Bureau& bureau,
              const ControleListe::Services& services);
    ~Selection() override;

    ControleListe& controle() { return controle_; }
    ListeSelection& liste() { return controle_.liste(); }
    FlexGrid& flex() const { return grille_.flex(); }

signals:
    /// The search form is to be shown or hidden.
    void criteresvoulus(bool montres);

private:
    // ---- VueListe
    void permetbouton(const QString& cle, bool permis) override;
    void enfoncebouton(const QString& cle, bool enfonce) override;
    void infobulle(const QString& cle, const QString& texte) override;
    void ditetat(const QString& texte) override;
    void montrepanneau(bool visible) override;
    void elargitpanneau() override;
    void montrecriteres(bool montres) override;
    void majdispositions() override;
    void ouvredocument(const QString& cle, const QString& mot1, const QString& mot2) override;

    Toolbar& barre() const;
    void relieflex();
    void construitmenu(const Actions& actions);

    Ecrangeneral& ecran_;
    VoletSelection& volet_;
    Bureau& bureau_;
    GrilleSelection grille_;
    ControleListe controle_;
    QMenu* menu_ = nullptr;
};

} // namespace velm
