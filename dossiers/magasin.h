#pragma once
// The store of the user's dossiers: the one base that the program writes. One object holds it open, with its three
// tables, from start to exit. Who works on a table sets the index just before its seek.
#include "platform/engine/recordset.h"

#include <QDate>

#include <functional>
#include <memory>

class QLockFile;

namespace velm {

/// How a change of the store ended.
struct EchecEcriture {
    Obstacle obstacle = Obstacle::None;
    QString mots; ///< of whoever met it

    bool ok() const { return obstacle == Obstacle::None; }
};

/// What the window of the dossiers was opened with: a document, or an extract of it, that waits to be stored.
struct ElementEnAttente {
    QString itemreference; ///< eight characters; empty for none
    QString itemtitre;
    qint64 itemdebut = 0; ///< both 0 for the whole document
    qint64 itemlongueur = 0;
};

class Magasin {
public:
    explicit Magasin(std::function<QDate()> aujourdhui = [] { return QDate::currentDate(); });
    ~Magasin();
    Magasin(const Magasin&) = delete;
    Magasin& operator=(const Magasin&) = delete;

    static constexpr QStringView nomfichier = u"dossiers.dat";

    /// Opens the store in a folder, which may end in one or two separators, with its tables. Nothing is said when that
    /// fails: what was open stays, and dossiersindisponibles() is true.
    void ouvredossiers(const QString& dossierchemin);
    /// The same for a file of any name.
    void ouvremagasin(const QString& chemin);
    /// Nothing where the store is not available.
    void fermedossiers();
    /// Closes the store and opens it again: its file is another one now. No other program gets it meanwhile.
    void rouvre();
    bool dossiersindisponibles() const { return indisponibles_; }
    /// Full path of the store, whether it opened or not.
    const QString& cheminbasedossiers() const { return chemin_; }
    /// Why the last opening failed.
    const EchecEcriture& echec() const { return echec_; }

    /// A run-time error where the store is not open.
    Recordset& rsarborescences() const { return table(arborescences_, u"arborescences"); }
    Recordset& rsdonnees() const { return table(donnees_, u"données"); }
    Recordset& rsparametres() const { return table(parametres_, u"paramètres"); }
    Database& dbdossiers() const;

    /// Whether what is open can be trusted: all of it passes the engine's check, and no table or first row is missing.
    /// Found out at the first question. A store that is Damaged is read as far as it goes and never written; any other
    /// obstacle stands in the way of reading it just now.
    Obstacle etat();
    bool sain() { return etat() == Obstacle::None; }

    /// The newest copy beside the store that passes the same check; empty for none. Slow.
    QString derniercopie() const;

    /// Does some work that only reads. A run-time error in it is a failure, but not that there is no store.
    EchecEcriture lit(const std::function<void()>& travail);
    /// Does some work on the tables, all of it or none: `travail` gives false where a table says no. A run-time error
    /// in it is a failure like any other. Inside another one it is a part of that. Before the first change of a day the
    /// store is copied, see copiemanquee().
    EchecEcriture ecrit(const std::function<bool()>& travail);
    /// Whether today's copy could not be made; the store is written nevertheless.
    bool copiemanquee() const { return copiemanquee_; }

private:
    Recordset& table(const std::unique_ptr<Recordset>& table, QStringView nom) const;
    EchecEcriture dernier() const;
    bool litschema();
    EchecEcriture ecritseul(const std::function<bool()>& travail);
    bool ouvre();
    bool tientleverrou();
    void copiedujour();

    std::function<QDate()> aujourdhui_;
    QString chemin_;
    EchecEcriture echec_;
    bool indisponibles_ = true;
    std::unique_ptr<Database> base_;
    std::unique_ptr<Recordset> arborescences_, donnees_, parametres_;
    std::unique_ptr<QLockFile> verrou_; ///< held while the store is open: other programs that would write it ask for it
    std::optional<Obstacle> etat_;      ///< None or Damaged, once it is known
    QDate copie_;                       ///< the day of the last copy
    bool copiemanquee_ = false;
    bool ecriture_ = false;
};

} // namespace velm
