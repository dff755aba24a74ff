#pragma once
// Every command of the frame finds its deed here.
#include "core/ordre.h"
#include "shell/logique/barres.h"

#include <QObject>

#include <array>
#include <functional>

namespace velm {

class Actions;
class Bureau;
class ControleListe;
class Ecrangeneral;
class FenetreDossiers;
class FenetresAnnexes;
class FenetresListes;
class Impressions;
class Recherches;
class ZoomTextes;

class Commandes final : public QObject {
    Q_OBJECT

public:
    /// Those who carry the commands out; none is owned, and all of them outlive this.
    struct Acteurs {
        Ecrangeneral& ecran;
        Actions& actions;
        Bureau& bureau;
        EtatBarres& barres;
        Reglages& reglages;
        ControleListe& liste;
        Recherches& recherches;
        FenetresAnnexes& annexes;
        FenetresListes& listes;
        ZoomTextes& zoom;
        FenetreDossiers& dossiers;
        Impressions& impressions;
        std::function<void()> quitte;
        std::function<void()> aide;
    };
    /// Carries out what the actions give.
    explicit Commandes(const Acteurs& acteurs);

    /// Whether there is a deed for it; what waits for what it commands has none.
    bool sait(Ordre ordre) const { return static_cast<bool>(faits_.at(static_cast<std::size_t>(ordre))); }
    /// Carries a command out; false when there is no deed for it.
    bool fait(Ordre ordre, int rang = 0);

private:
    using Fait = std::function<void(int rang)>;
    void sur(Ordre ordre, Fait fait) { faits_.at(static_cast<std::size_t>(ordre)) = std::move(fait); }
    void apprendfenetres();
    void apprendlistes();
    void apprendcadre();
    void apprenddispositions();
    void apprendbarres();
    void apprendliste();
    void apprendprogramme();

    void toutferme();
    void vachercher();
    void toutselectionner();
    void placebarre(Barre barre, int position);
    void basculebarre(Barre barre);
    void commutebarreetat();
    void changeunefenetre(bool une);
    void regroupe(bool regroupees);

    Acteurs acteurs_;
    std::array<Fait, nombredordres> faits_;
};

} // namespace velm
