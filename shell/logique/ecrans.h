#pragma once
// What a run asks of those who can be seen, each by what it answers for.
#include "core/cle.h"
#include "core/fenetrefille.h"

#include <QString>

#include <array>
#include <functional>
#include <optional>
#include <vector>

namespace velm {

/// Position of the frame, twips; state 0 normal, 1 minimised, 2 maximised.
struct PositionFenetre {
    int etat = 2;
    int gauche = 0;
    int haut = 0;
    int largeur = 9600;
    int hauteur = 7200;
};

/// An open child window as the exit sequence records it.
struct FilleOuverte {
    Nature nature = Nature::Document;
    QString reference; ///< key of the document that it shows, else empty
};

/// What the exit sequence asks of the frame.
struct EtatFenetres {
    std::array<bool, 12> cochees{};    ///< the slot's entry in the window menu is checked
    std::array<QString, 12> libelles;  ///< captions of the slots' entries in the window list
    std::vector<FilleOuverte> filles;  ///< open children in order
    std::optional<QString> titreactif; ///< caption of the active child, if one can be had
    PositionFenetre principale;
    double largeurpane = 4305;
};

/// The window of the start.
class Accueil {
public:
    virtual ~Accueil() = default;
    /// Label of the step, "..." already joined; remembered while the window is not there.
    virtual void afficheetape(const QString& texte) = 0;
    virtual void montreaccueil() = 0; ///< above all others
    virtual void fermeaccueil() = 0;
};

/// The frame and the windows in it.
class Cadre {
public:
    virtual ~Cadre() = default;
    virtual void effacereconstructions() = 0; ///< no window is to show its document once more
    /// Loads the frame without showing it and gives its handle as decimal text.
    virtual QString chargeprincipale() = 0;
    virtual void montreprincipale() = 0;
    virtual void ouvre(const Cle& cle) = 0; ///< shows a document in the window of its collection
    virtual void ouvrefichiercriteres(const QString& chemin) = 0;
    virtual void astuce(bool attend) = 0; ///< `attend`: when what the command line has opened is closed
    virtual EtatFenetres etatfenetres() const = 0;
    virtual void sauvederniers() = 0;
    virtual void notefenetres() = 0;  ///< every form writes what it leaves when it closes, and stays open
    virtual void fermefenetres() = 0; ///< hides and unloads every form but the frame
    virtual void fermeprincipale() = 0;
};

/// The user's own tree of documents; there is none yet.
class Dossiers {
public:
    virtual ~Dossiers() = default;
    virtual void ouvredossiers() {}
    virtual void fermedossiers() {}
    virtual void ouvrefichierdossier(const QString& chemin) { Q_UNUSED(chemin) }
};

/// What goes on in the background and has to end before the program does: a print job.
class Travaux {
public:
    virtual ~Travaux() = default;
    virtual bool impressionouverte() const = 0;
    virtual void termineimpression() = 0;
    virtual void abandonneimpression() = 0;
};

/// None is owned.
struct Ecrans {
    Accueil& accueil;
    Cadre& cadre;
    Dossiers& dossiers;
    Travaux& travaux;
    std::function<void()> litstyles; ///< called when the settings have been read: reads the table of styles
    /// The base cannot be opened: false when the user gives up. True only with an open base.
    std::function<bool()> connexion;
};

} // namespace velm
