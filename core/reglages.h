#pragma once
// Settings as the system reads them: the user's value, else (for the keys that ask for it) the publisher's line in
// master.ini, else the built-in default.
#include "platform/base/failure.h"
#include "platform/system/profile.h"
#include "platform/system/settings.h"

#include <QHash>
#include <QString>
#include <QVariant>

#include <functional>
#include <limits>

namespace velm {

/// The whole numbers that a setting may be.
struct Bornes {
    qint64 min = std::numeric_limits<qint32>::min();
    qint64 max = std::numeric_limits<qint32>::max();
};

class Reglages {
public:
    /// `magasin` is not owned and must live longer.
    explicit Reglages(ReglagesStore& magasin);

    /// Where the publisher's defaults lie; a missing file gives no line at all.
    void choisitmaitre(const QString& chemin);
    QString fichiermaitre() const { return cheminmaitre_; }

    /// Default of a setting: the line of master.ini, else `defaut`. A numeric (or boolean, True is -1) default makes it
    /// a whole number read by the integer reader ("True" is 0 then), any other a text of at most 999 characters, where
    /// an empty line gives the default.
    QVariant lireparametre(const QString& section, const QString& cle, const QVariant& defaut) const;

    /// The user's text for a key, else the default.
    QString getsetting(const QString& section, const QString& cle, const QString& defaut = QString()) const;
    /// Writes a user's value. A failure is said once (see ReglagesStore::lastError) and the program goes on.
    bool savesetting(const QString& section, const QString& cle, const QString& valeur);
    /// The same for what the program writes by itself, as the places of windows at its end: a value that is set aside
    /// stays in its file as long as this is nothing but the number that stood in for it.
    bool note(const QString& section, const QString& cle, const QString& valeur);
    /// Who says that settings cannot be written: called at the first failure only.
    void surechec(std::function<void(const FileError& raison)> dit);
    /// For writers of a whole batch.
    void signaleechec();

    /// Who decides about a value that cannot be used. True sets it aside: what it stands before (the publisher's line,
    /// else the built-in default) counts in its place, and the file keeps it until the setting is saved. False ends the
    /// program, and so does any such value while nobody decides.
    void surfaute(std::function<bool(const RuntimeFailure& faute)> decide);

    // Readings with conversion; `maitre` sends the default through lireparametre first. A text that is no number, or a
    // number out of bounds, is a run-time error (see surfaute): values are never validated.
    QString texte(const QString& section, const QString& cle, const QString& defaut, bool maitre) const;
    qint64 entier(const QString& section, const QString& cle, qint64 defaut, bool maitre,
                  const Bornes& bornes = {}) const;
    double reel(const QString& section, const QString& cle, double defaut, bool maitre) const;
    bool booleen(const QString& section, const QString& cle, bool defaut, bool maitre) const;

    ReglagesStore& magasin() const { return magasin_; }

private:
    /// Turns a text into the number that it stands for, or tells what is wrong with it.
    using Conversion = std::function<std::optional<RuntimeFailure>(const QString& texte, double& valeur)>;
    struct Ligne {
        QString texte;
        QString fichier; ///< empty for the built-in default
    };

    double lit(const QString& section, const QString& cle, const QString& defaut, bool maitre,
               const Conversion& convertit) const;
    Ligne ligne(const QString& section, const QString& cle, const QString& defaut, bool maitre) const;
    void ecarte(const QString& section, const QString& cle, const Ligne& ligne, const RuntimeFailure& faute) const;

    ReglagesStore& magasin_;
    Profile maitre_;
    QString cheminmaitre_;
    std::function<void(const FileError&)> dit_;
    std::function<bool(const RuntimeFailure&)> decide_;
    /// The lines that are set aside, and what stands in for each. To read is what finds them.
    mutable QHash<QString, double> ecartes_;
};

} // namespace velm
