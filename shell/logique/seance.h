#pragma once
// A run of the program from `Main` to its end: the start sequence, the command line, the restoring of windows, and the
// exit sequence with everything that it writes. No window lives here: what must be shown is asked of `Ecrans`.
#include "core/cle.h"
#include "core/corpus.h"
#include "core/langue.h"
#include "core/parametres.h"
#include "core/reglages.h"
#include "platform/system/dialogues.h"

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
struct FenetreFille {
    QString nom;       ///< form name: "Textes", "frmchrono"…
    QString reference; ///< key of the document that it shows, else empty
};

/// What the exit sequence asks of the frame.
struct EtatFenetres {
    std::array<bool, 12> cochees{};    ///< the slot's entry in the window menu is checked
    std::array<QString, 12> libelles;  ///< captions of the slots' entries in the window list
    std::vector<FenetreFille> filles;  ///< open children in order
    std::optional<QString> titreactif; ///< caption of the active child, if one can be had
    PositionFenetre principale;
    double largeurpane = 4305;
};

/// Everything that start and exit ask of the windows, in the terms of the sequence.
class Ecrans {
public:
    virtual ~Ecrans() = default;

    virtual void afficheetape(const QString& texte) = 0; ///< step label of the splash, "..." already joined
    virtual void montreaccueil() = 0;                    ///< the splash, above all others
    virtual void fermeaccueil() = 0;
    virtual void litstyles() = 0;
    virtual void effacereconstructions() = 0; ///< the twelve rebuild flags
    /// The base cannot be opened: false when the user gives up. True only with an open base.
    virtual bool connexion() = 0;
    virtual void ouvredossiers() = 0;
    virtual void fermedossiers() = 0;
    /// Loads the frame without showing it and gives its handle as decimal text.
    virtual QString chargeprincipale() = 0;
    virtual void montreprincipale() = 0;
    virtual void ouvre(const Cle& cle) = 0; ///< shows a document in the window of its collection
    virtual void ouvrefichierdossier(const QString& chemin) = 0;
    virtual void ouvrefichiercriteres(const QString& chemin) = 0;
    virtual void astuce() = 0;

    virtual bool impressionouverte() const = 0;
    virtual void termineimpression() = 0;
    virtual void abandonneimpression() = 0;
    virtual EtatFenetres etatfenetres() const = 0;
    virtual void sauvederniers() = 0;
    virtual void notefenetres() = 0;  ///< every form writes what it leaves when it closes, and stays open
    virtual void fermefenetres() = 0; ///< hides and unloads every form but the frame
    virtual void fermeprincipale() = 0;
};

/// Where the run stands outside the program's own windows.
struct Environnement {
    QString dossierprogramme;            ///< no final separator
    QString fichierprogramme;            ///< the running executable
    QString nomprogramme;                ///< its own name without suffix
    QString lignedecommande;             ///< arguments joined with blanks
    std::function<bool()> autreinstance; ///< another process of this user runs the program
    std::function<void(const QString& handle)> remonteinstance;
    std::function<bool(const QString& programme, const QString& argument)> lance; ///< minimised with focus, not awaited
    std::function<void(const QString& application, const QString& editeur)> enregistreextensions;
};

enum class Demarrage {
    EnMarche,      ///< the message loop may run
    AutreInstance, ///< the other process came to the front; this one ends
    MiseAJour,     ///< the update tool was started; the program ends with nothing closed and nothing said
    Renonce        ///< no base, the user gave up
};

class Seance {
public:
    Seance(Environnement environnement, Reglages& reglages, Langue& langue, Corpus& corpus, Dialogues& dialogues,
           Ecrans& ecrans);

    /// `Main`: the start sequence up to the message loop.
    Demarrage demarre();

    /// The load of the frame, told by the frame itself in its own order.
    PositionFenetre positionprincipale(); ///< read and, when it is minimised, no tip this time
    void restaurefenetres();              ///< the document windows of the last run
    void ouvrecriteresdelaligne();        ///< a criteria file on the command line

    void traitelignedecommande(const QString& ligne);

    /// Opens the base at the place of the settings; when none can be reached there, beside the program (whose folder
    /// may have been moved with it); else asks `connexion`. Writes the place to the settings; opens the tables. False
    /// when the user gave up.
    bool ouvrebase();
    bool ouvrelabase();

    /// The exit sequence. False: the user refused and nothing was closed.
    bool quitteprogramme();
    /// The same without its questions, for an end that nobody is asked about. An open print job is thrown away. Nothing
    /// happens when the program has ended already.
    void termine();
    /// Writes what the exit sequence writes and closes nothing: the desktop's session may end, or go on after all.
    void enregistre();

    void afficheetape(const QString& texte);
    /// Label of a slot from 0 to 11 (text slot + 10).
    QString libelle(int indice);
    QString libelleetape(int indice);

    const Parametres& parametres() const { return parametres_; }
    Parametres& parametres() { return parametres_; }
    const Preferences& preferences() const { return preferences_; }
    Preferences& preferences() { return preferences_; }
    QString fichierbase() const { return fichierbase_; }
    void choisitrepertoiredebase(const QString& repertoire);
    QString fichierpartenaires() const { return fichierpartenaires_; }

private:
    void restaureriched() const;
    void cherchepartenaires();
    bool metajour();
    bool trouvebase();
    bool quittequestions();
    void ferme();
    void ecritfenetres(const EtatFenetres& etat);
    void ecritposition(const PositionFenetre& position);

    Environnement env_;
    Reglages& reglages_;
    Langue& langue_;
    Corpus& corpus_;
    Dialogues& dialogues_;
    Ecrans& ecrans_;
    Parametres parametres_;
    Preferences preferences_;
    QString fichierbase_;
    QString fichierpartenaires_;
    bool sansastuce_ = false;
    bool fermee_ = false; ///< the exit sequence has begun to close
};

} // namespace velm
