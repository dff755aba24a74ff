#pragma once
// Settings as the system reads them: the user's value, else (for the keys that ask for it) the publisher's line in
// master.ini, else the built-in default.
#include "platform/system/profile.h"
#include "platform/system/settings.h"

#include <QString>
#include <QVariant>

#include <functional>

namespace velm {

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
    /// Who says that settings cannot be written: called at the first failure only.
    void surechec(std::function<void(const QString& raison)> dit);
    /// For writers of a whole batch.
    void signaleechec();

    // Readings with conversion; `maitre` sends the default through lireparametre first. A stored text that is no number
    // is a run-time error: values are never validated.
    QString texte(const QString& section, const QString& cle, const QString& defaut, bool maitre) const;
    qint64 entier(const QString& section, const QString& cle, qint64 defaut, bool maitre) const;
    double reel(const QString& section, const QString& cle, double defaut, bool maitre) const;
    bool booleen(const QString& section, const QString& cle, bool defaut, bool maitre) const;

    ReglagesStore& magasin() const { return magasin_; }

private:
    ReglagesStore& magasin_;
    Profile maitre_;
    QString cheminmaitre_;
    std::function<void(const QString&)> dit_;
};

} // namespace velm
