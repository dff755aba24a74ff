#pragma once
// Questions to the user: message boxes and file dialogs. The logic asks through this interface; a test answers by
// script, so that no box ever blocks it.
#include <QFlags>
#include <QString>
#include <QStringList>

#include <optional>

namespace velm {

enum class Icone { Aucune, Question, Information, Exclamation, Stop };

enum class Bouton : unsigned {
    Aucun = 0,
    Ok = 1,
    Annuler = 2,
    Oui = 4,
    Non = 8,
    /// Shows the help of the box's context; never an answer, the box stays.
    Aide = 16,
};
Q_DECLARE_FLAGS(Boutons, Bouton)
Q_DECLARE_OPERATORS_FOR_FLAGS(Boutons)

struct Message {
    QString texte;
    QString titre;
    Icone icone = Icone::Aucune;
    Boutons boutons = Bouton::Ok;
    /// The button that Return presses; with Aucun the first one.
    Bouton defaut = Bouton::Aucun;
    /// Page of the help file that the help button shows.
    int contexteAide = 0;
    /// Caption of a check box above the buttons; empty for none.
    QString option = {};
    /// Where the state of the check box goes when the box closes; not owned, may be null.
    bool* optioncochee = nullptr;
    /// Captions of the buttons that agree (Oui, Ok) and that refuse (Non, or else Annuler), which say what is done;
    /// empty for the usual ones.
    QString accord = {};
    QString refus = {};
};

struct ChoixFichier {
    QString titre;
    /// Where it begins; empty: where the last one ended, and at first in the user's documents.
    QString dossier;
    /// Pairs of label and pattern, all parted by "|": "Base (*.DAT)|*.DAT|Tous (*.*)|*.*".
    QString filtre;
    QString nom;
    /// Put behind a name typed without one when saving, without its point.
    QString extension;
    /// When saving: asks whether an existing file shall be replaced. False where the caller asks.
    bool demanderemplacement = true;
    /// Where the number of the filter that is in force in the end goes, from 1; not owned, may be null. It begins with
    /// the first.
    int* filtrechoisi = nullptr;
};

/// What file dialogs call the things that they list.
struct SortesFichier {
    QString dossier;
    QString lecteur;
    QString fichier; ///< with "%1" for its extension
    QString sansextension;
};

class Dialogues {
public:
    virtual ~Dialogues() = default;

    /// The pressed button. A box closed without a button gives Annuler if it has that, else Non, else Ok.
    virtual Bouton message(const Message& message) = 0;

    Bouton message(const QString& texte, const QString& titre, Icone icone = Icone::Aucune,
                   Boutons boutons = Bouton::Ok, Bouton defaut = Bouton::Aucun, int contexteAide = 0) {
        return message(Message{texte, titre, icone, boutons, defaut, contexteAide, {}, nullptr, {}, {}});
    }

    /// The chosen path; nothing when the user gave up.
    virtual std::optional<QString> openFile(const ChoixFichier& choix) = 0;
    /// The same for a file to be written.
    virtual std::optional<QString> saveFile(const ChoixFichier& choix) = 0;
    virtual std::optional<QString> chooseFolder(const QString& titre, const QString& dossier) = 0;
};

/// The button a box counts as pressed when it is closed without one.
Bouton boutonAbandon(Boutons boutons);

struct Filtre {
    QString libelle;
    QStringList motifs;
};

/// The pairs of a filter text. Patterns are given in both cases of their letters, as names differ in case here, and
/// "*.*" as "*", as it means every file. A label without a pattern is left out.
QList<Filtre> lisfiltres(const QString& filtre);

/// The path with the extension behind it if its name has none.
QString avecextension(const QString& path, const QString& extension);

} // namespace velm
