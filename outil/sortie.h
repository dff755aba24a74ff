#pragma once
// What every command of the tool gets: the texts, its arguments, and two places to write.
#include "core/langue.h"
#include "core/texte.h"
#include "platform/system/files.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QString>
#include <QStringList>

namespace velm::outil {

/// Exit codes, the same for all commands.
enum Code {
    Reussite = 0,
    Echec = 1,           ///< a file that cannot be read or written, a base that is none
    LigneIncorrecte = 2, ///< unknown command or option, missing argument
    SourceFautive = 3,   ///< the source has errors: no base was written
    DocumentAbsent = 4   ///< the base has no such document
};

class Contexte {
public:
    Contexte(Langue& langue, QString dossierprogramme);

    /// What the command line holds, told by its reader.
    void prendoption(const QString& nom, const QString& valeur) { options_.insert(nom, valeur); }
    void prendarguments(const QStringList& arguments) { arguments_ << arguments; }

    /// True when the line has this option.
    bool option(const QString& nom) const { return options_.contains(nom); }
    /// The value of an option; an empty text without it.
    QString valeur(const QString& nom) const { return options_.value(nom); }
    const QStringList& arguments() const { return arguments_; }

    QString texte(Texte lequel) { return langue_.lireressource(lequel); }
    QString texte(Texte lequel, const QStringList& parties);
    /// A count as it is read by people.
    QString nombre(qint64 compte);
    Langue& langue() { return langue_; }
    QString dossierprogramme() const { return dossierprogramme_; }

    void ecrit(QByteArrayView octets) const;
    void ligne(const QString& texte) const;
    void erreur(const QString& texte) const;

    /// Says what is wrong and gives the code back.
    int echoue(Code code, Texte lequel, const QStringList& parties = {});
    /// Says that a file cannot be read or written (`lequel`), and why.
    int echouefichier(Texte lequel, const QString& chemin, Obstacle obstacle, const QString& mots);

private:
    Langue& langue_;
    QHash<QString, QString> options_;
    QStringList arguments_;
    QString dossierprogramme_;
};

/// A whole file, or nothing with the failure said.
std::optional<QByteArray> litfichier(Contexte& contexte, const QString& chemin, FileKind sorte);

int compiler(Contexte& contexte);
int synthese(Contexte& contexte);
int dossierscree(Contexte& contexte);
int dossiersliste(Contexte& contexte);
int dossiersexporte(Contexte& contexte);
int dossiersimporte(Contexte& contexte);
int dossiersverifie(Contexte& contexte);
int dossiersrepare(Contexte& contexte);
int info(Contexte& contexte);
int document(Contexte& contexte);
int texte(Contexte& contexte);
int mots(Contexte& contexte);
int rapide(Contexte& contexte);
int index(Contexte& contexte);
int chrono(Contexte& contexte);
int criteres(Contexte& contexte);
int numero(Contexte& contexte);
int motscles(Contexte& contexte);
int motcle(Contexte& contexte);
int cv2(Contexte& contexte);
int rtf(Contexte& contexte);
int formats(Contexte& contexte);
int pdf(Contexte& contexte);

} // namespace velm::outil
