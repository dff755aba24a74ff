#pragma once
// A base in the making under a temporary name beside its place.
#include "collection/collection.h"
#include "platform/engine/database.h"

namespace velm {

/// A new, empty file that this run alone works on: as long as the object lives it is locked, so that another run knows
/// it from what a killed one has left. The lock is the kernel's and ends with the process.
class FichierEnCours {
public:
    FichierEnCours() = default;
    ~FichierEnCours();
    FichierEnCours(const FichierEnCours&) = delete;
    FichierEnCours& operator=(const FichierEnCours&) = delete;

    /// Makes the file under the first free of the names `cible`.NUMBER.tmp. The system's error, 0 when all went well.
    int cree(const QString& cible);
    QString chemin() const { return chemin_; }

    /// Removes the files of that name beside `cible` that no run works on any more. What cannot be removed stays.
    static void balaie(const QString& cible);

private:
    bool prend(const QString& chemin, int& erreur);
    int descripteur_ = -1;
    QString chemin_;
};

/// Makes the file; removes it again unless acheve() has given it its name.
class BaseTemporaire {
public:
    /// `chemin` may be a link: what it points at is replaced. A place that holds something else than a plain file is
    /// refused.
    explicit BaseTemporaire(const QString& chemin);
    ~BaseTemporaire();
    BaseTemporaire(const BaseTemporaire&) = delete;
    BaseTemporaire& operator=(const BaseTemporaire&) = delete;

    /// Null when it could not be made.
    Database* base() const { return base_.get(); }

    /// Brings the file to the disk, closes it and gives it its name, in the place of an older one.
    bool acheve();
    /// Notes that writing has failed and why, and removes the file.
    void echoue(Obstacle obstacle, const QString& raison);

    /// After a failure: its kind, and the words of whoever met it.
    Obstacle obstacle() const { return obstacle_; }
    QString raison() const { return raison_; }
    ResultatCompilation::Etat etat() const;

private:
    void note(Obstacle obstacle, const QString& raison);
    void retire();
    QString chemin_;
    QString raison_;
    Obstacle obstacle_ = Obstacle::None;
    FichierEnCours fichier_;
    std::unique_ptr<Database> base_;
};

/// The rest of both ways to a base.
ResultatCompilation fabrique(const Provenance& provenance, const QString& base, Problemes problemes,
                             const Progres& progres, bool textes);

} // namespace velm
