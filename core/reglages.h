#pragma once
// Settings as the system reads them: the user's value, else (for those that ask for it) the publisher's line in
// master.ini, else the default. Which there are, core/tablereglages.h tells.
#include "core/sortesreglages.h"
#include "platform/base/failure.h"
#include "platform/system/profile.h"
#include "platform/system/settings.h"

#include <QHash>
#include <QString>
#include <QVariant>

#include <functional>
#include <memory>
#include <vector>

namespace velm {

class Reglages {
public:
    /// Keeps a function on the list of those that are told of changes; without it the function is told no more.
    using Ecoute = std::shared_ptr<const std::function<void()>>;

    /// `magasin` is not owned and must live longer.
    explicit Reglages(ReglagesStore& magasin);

    /// Where the publisher's defaults lie; a missing file gives no line at all.
    void choisitmaitre(const QString& chemin);
    QString fichiermaitre() const { return cheminmaitre_; }

    // What a setting is now. A text that is no number where its kind asks for one, or a number out of bounds, is a
    // run-time error (see surfaute): values are never validated.
    bool lit(const ReglageBooleen& reglage) const;
    int lit(const ReglageEntier& reglage) const;
    double lit(const ReglageReel& reglage) const;
    double lit(const ReglageLibre& reglage) const;
    QString lit(const ReglageTexte& reglage) const;
    QString lit(const ReglageLieu& reglage, const QString& defaut) const;
    /// Whether the user's own file has a value for it, whatever that is.
    bool existe(const CleReglage& cle) const { return magasin_.contains(cle.nomdesection(), cle.nom()); }
    /// A setting that is no number must not keep a window from opening where this is how it is read.
    double litlibre(const ReglageEntier& reglage) const;

    // Write a user's value, and tell those that listen if the setting has changed. A failure is said once (see
    // ReglagesStore::lastError) and the program goes on; false then.
    bool ecrit(const ReglageBooleen& reglage, bool valeur);
    bool ecrit(const ReglageEntier& reglage, int valeur);
    bool ecrit(const ReglageReel& reglage, double valeur);
    bool ecrit(const ReglageLibre& reglage, int valeur);
    bool ecrit(const ReglageTexte& reglage, const QString& valeur);
    bool ecrit(const ReglageLieu& reglage, const QString& valeur);
    /// The same for what the program writes by itself, as the places of windows at its end: a value that is set aside
    /// stays in its file as long as this is nothing but the number that stood in for it.
    bool note(const ReglageEntier& reglage, int valeur);
    bool note(const ReglageReel& reglage, double valeur);

    /// `dit` is called after each `ecrit` and `note` that gives this setting another value, for as long as what comes
    /// back lives. It may read and write settings.
    [[nodiscard]] Ecoute quandchange(const CleReglage& cle, std::function<void()> dit);

    /// Default of a setting: the line of master.ini, else `defaut`. A numeric (or boolean, True is -1) default makes it
    /// a whole number read by the integer reader ("True" is 0 then), any other a text of at most 999 characters, where
    /// an empty line gives the default.
    QVariant lireparametre(const QString& section, const QString& cle, const QVariant& defaut) const;

    /// The user's text for a key, else the default.
    QString getsetting(const QString& section, const QString& cle, const QString& defaut = QString()) const;
    /// Writes a user's value. A failure is said once (see ReglagesStore::lastError) and the program goes on.
    bool savesetting(const QString& section, const QString& cle, const QString& valeur);
    /// Who says that settings cannot be written: called at the first failure only.
    void surechec(std::function<void(const FileError& raison)> dit);
    /// For writers of a whole batch.
    void signaleechec();

    /// Who decides about a value that cannot be used. True sets it aside: what it stands before (the publisher's line,
    /// else the built-in default) counts in its place, and the file keeps it until the setting is saved. False ends the
    /// program, and so does any such value while nobody decides.
    void surfaute(std::function<bool(const RuntimeFailure& faute)> decide);

    ReglagesStore& magasin() const { return magasin_; }

private:
    /// Turns a text into the number that it stands for, or tells what is wrong with it.
    using Conversion = std::function<std::optional<RuntimeFailure>(const QString& texte, double& valeur)>;
    struct Ligne {
        QString texte;
        QString fichier; ///< empty for the built-in default
    };
    struct Ecouteur {
        QString nom; ///< of the setting
        std::weak_ptr<const std::function<void()>> dit;
    };

    // By section and key; `maitre` sends the default through lireparametre first.
    QString texte(const QString& section, const QString& cle, const QString& defaut, bool maitre) const;
    qint64 entier(const QString& section, const QString& cle, qint64 defaut, bool maitre, const Bornes& bornes) const;
    double reel(const QString& section, const QString& cle, double defaut, bool maitre) const;
    bool booleen(const QString& section, const QString& cle, bool defaut, bool maitre) const;
    bool note(const QString& section, const QString& cle, const QString& valeur);
    double nombrelu(const QString& section, const QString& cle, const QString& defaut, bool maitre,
                    const Conversion& convertit) const;
    /// Writes, as the program by itself or as a user, and tells who listens if the setting is another one then.
    bool change(const CleReglage& cle, const QString& valeur, bool deluimeme, const std::function<QString()>& actuelle);
    template <class Sorte>
    bool changenombre(const Sorte& reglage, const QString& valeur, bool deluimeme);
    void ditchangement(const QString& nom);
    Ligne ligne(const QString& section, const QString& cle, const QString& defaut, bool maitre) const;
    void ecarte(const QString& section, const QString& cle, const Ligne& ligne, const RuntimeFailure& faute) const;

    ReglagesStore& magasin_;
    Profile maitre_;
    QString cheminmaitre_;
    std::function<void(const FileError&)> dit_;
    std::function<bool(const RuntimeFailure&)> decide_;
    /// The lines that are set aside, and what stands in for each. To read is what finds them.
    mutable QHash<QString, double> ecartes_;
    std::vector<Ecouteur> ecouteurs_;
};

} // namespace velm
