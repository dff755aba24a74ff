#pragma once
// A base in the making under a temporary name beside its place.
#include "collection/collection.h"
#include "platform/engine/database.h"

namespace velm {

/// Makes the file; removes it again unless acheve() has given it its name.
class BaseTemporaire {
public:
    explicit BaseTemporaire(const QString& chemin);
    ~BaseTemporaire();
    BaseTemporaire(const BaseTemporaire&) = delete;
    BaseTemporaire& operator=(const BaseTemporaire&) = delete;

    /// Null when it could not be made.
    Database* base() const { return base_.get(); }

    /// Brings the file to the disk, closes it and gives it its name, in the place of an older one.
    bool acheve();
    /// Notes that writing has failed and why, and removes the file.
    void echoue(const QString& raison);

    /// After a failure: why, and which kind it is.
    QString raison() const { return raison_; }
    ResultatCompilation::Etat etat() const { return etat_; }

private:
    void note(const QString& raison);
    QString chemin_;
    QString provisoire_;
    QString raison_;
    ResultatCompilation::Etat etat_ = ResultatCompilation::Etat::EcritureImpossible;
    std::unique_ptr<Database> base_;
};

/// The rest of both ways to a base.
ResultatCompilation fabrique(const Provenance& provenance, const QString& base, Problemes problemes,
                             const Progres& progres, bool textes);

} // namespace velm
