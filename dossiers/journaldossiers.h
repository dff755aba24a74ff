#pragma once
// What was lost of the user's dossiers, kept for thirty days in a file beside the store: one line for each loss, the
// newest last. The file is written whole or not at all. One that cannot be read or written, or is another's, hinders
// nothing and stays as it is; manque() tells of it.
#include "dossiers/temoindossiers.h"

#include <QDateTime>

#include <functional>

namespace velm {

struct Perte {
    enum class Sorte {
        Element,        ///< a row was deleted
        Titre,          ///< a title was emptied
        Dossier,        ///< a dossier was never stored: its number and its name; `parent` where it stood
        DossierSupprime ///< a dossier was deleted, and what stood below it is still there
    };
    QDateTime quand;
    Sorte sorte = Sorte::Element;
    RangeeRangee rangee; ///< as it was; of a dossier its number only
    QString nomdossier;  ///< its name now, or its last one: a number alone may have become another's
    qint64 parent = 0;
    QString apres;          ///< the title that stands in its place
    QString nomparent = {}; ///< as nomdossier
    /// The dossier that shows one item less for it, where that is not its own: rows of the same document at the same
    /// place are taken for each other.
    std::optional<qint64> compte = {};

    bool dundossier() const { return sorte == Sorte::Dossier || sorte == Sorte::DossierSupprime; }
    /// The same loss, whenever it was.
    bool memeque(const Perte& autre) const;
};

class JournalDossiers {
public:
    static constexpr QStringView nomfichier = u"dossiers-journal.dat";
    static constexpr int jours = 30;
    static constexpr qsizetype octetsgardes = 2 << 20; ///< beyond that the oldest losses go

    explicit JournalDossiers(std::function<QDateTime()> maintenant = [] { return QDateTime::currentDateTimeUtc(); });

    /// Reads what lies beside a store. Lines that are none are passed over.
    void ouvre(const QString& magasin);
    /// The oldest first; none older than thirty days.
    const std::vector<Perte>& pertes() const { return pertes_; }
    /// Adds losses, with the present time.
    void note(std::vector<Perte> nouvelles);
    /// Takes off the newest loss that is the same as one of these, since it was put back or did not happen.
    void retire(const std::vector<Perte>& retrouvees);
    /// Dossiers have other names.
    void renomme(const std::vector<NomDossier>& noms);
    /// What was lost of a dossier belongs to another number.
    void renumerote(qint64 ancien, const QString& nom, qint64 nouveau);
    /// Whether the file could not be read or written.
    bool manque() const { return manque_; }

private:
    void suit(const std::function<bool(qint64& numero, QString& nom)>& change);
    void ecrit();

    std::function<QDateTime()> maintenant_;
    QString chemin_;
    std::vector<Perte> pertes_;
    bool lisible_ = false;
    bool manque_ = false;
};

} // namespace velm
