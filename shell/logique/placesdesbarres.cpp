#include "shell/logique/placesdesbarres.h"

#include <array>

namespace velm {
namespace {

constexpr std::array barrecommande{
    PlaceDeBarre{Ordre::Precedent},       PlaceDeBarre{Ordre::Suivant},     PlaceDeBarre{{}, u"barrehistorique"},
    PlaceDeBarre{Ordre::Copier},          PlaceDeBarre{Ordre::Imprimer},    PlaceDeBarre{Ordre::Ejections},
    PlaceDeBarre{{}, u"barreimpression"}, PlaceDeBarre{Ordre::Rechercher},  PlaceDeBarre{Ordre::Chrono},
    PlaceDeBarre{Ordre::Numero},          PlaceDeBarre{Ordre::MotCle},      PlaceDeBarre{{}, u"barrelistes"},
    PlaceDeBarre{Ordre::Dossiers},        PlaceDeBarre{{}, u"barrebarres"}, PlaceDeBarre{Ordre::BarreEcran},
    PlaceDeBarre{Ordre::BarreOutils},     PlaceDeBarre{Ordre::Cascade},     PlaceDeBarre{Ordre::Horizontalement},
    PlaceDeBarre{Ordre::Verticalement}};

constexpr std::array barreecran{PlaceDeBarre{Ordre::Collection}};
constexpr std::array barreoutils{PlaceDeBarre{Ordre::Outil}};

constexpr std::array barredelaliste{PlaceDeBarre{Ordre::AfficherCriteres}, PlaceDeBarre{Ordre::Regrouper},
                                    PlaceDeBarre{{}, u"barreregrouper"},   PlaceDeBarre{Ordre::PrecedentRecherche},
                                    PlaceDeBarre{Ordre::SuivantRecherche}, PlaceDeBarre{{}, u"barrecritères"},
                                    PlaceDeBarre{Ordre::OuvrirCriteres},   PlaceDeBarre{Ordre::SauverCriteres},
                                    PlaceDeBarre{Ordre::ImprimerCriteres}, PlaceDeBarre{Ordre::EnvoyerCriteres}};

constexpr std::array ejections{Ordre::ImprimerPage, Ordre::EjecterPage, Ordre::AbandonnerTravail};

} // namespace

std::span<const PlaceDeBarre> placesde(Barre barre) {
    switch (barre) {
    case Barre::Ecran:
        return barreecran;
    case Barre::Outils:
        return barreoutils;
    case Barre::Commande:
        break;
    }
    return barrecommande;
}

std::span<const PlaceDeBarre> placesdelaliste() {
    return barredelaliste;
}

std::span<const Ordre> entreesdubouton(Ordre ordre) {
    return ordre == Ordre::Ejections ? std::span<const Ordre>(ejections) : std::span<const Ordre>();
}

Ordre ordredeplace(Barre barre) {
    switch (barre) {
    case Barre::Ecran:
        return Ordre::PlaceEcran;
    case Barre::Outils:
        return Ordre::PlaceOutils;
    case Barre::Commande:
        break;
    }
    return Ordre::PlaceCommande;
}

} // namespace velm
