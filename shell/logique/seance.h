#pragma once
// A run of the program from `Main` on: the start sequence, the command line, the restoring of windows, and what was
// read for all of them. No window lives here: what must be shown is asked of `Ecrans`. How it ends is FinSeance.
#include "core/corpus.h"
#include "core/langue.h"
#include "core/parametres.h"
#include "core/reglages.h"
#include "platform/system/dialogues.h"
#include "shell/logique/ecrans.h"

#include <QString>

#include <functional>

namespace velm {

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
           const Ecrans& ecrans);

    /// `Main`: the start sequence up to the message loop.
    Demarrage demarre();

    /// Called by the frame while it loads:
    PositionFenetre positionprincipale(); ///< from the settings; minimised, it shows no tip at this start
    void restaurefenetres();              ///< the document windows of the last run
    void ouvrecriteresdelaligne();        ///< a criteria file on the command line

    void traitelignedecommande(const QString& ligne);

    /// Opens the base at the place of the settings; when none can be reached there, beside the program (whose folder
    /// may have been moved with it); else asks `connexion`. Writes the place to the settings; opens the tables. False
    /// when the user gave up.
    bool ouvrebase();
    bool ouvrelabase();

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
    void ouvrelevoulu(const Cle& cle);

    Environnement env_;
    Reglages& reglages_;
    Langue& langue_;
    Corpus& corpus_;
    Dialogues& dialogues_;
    Ecrans ecrans_;
    Parametres parametres_;
    Preferences preferences_;
    QString fichierbase_;
    QString fichierpartenaires_;
    bool sansastuce_ = false;
    bool documentvoulu_ = false; ///< by the command line
};

} // namespace velm
