#pragma once
// The files that a source consists of, wherever they lie.
#include "platform/system/files.h"

#include <QDir>
#include <QString>
#include <QStringList>

namespace velm {

/// All calls may come from several threads at once.
class FichiersSource {
public:
    FichiersSource() = default;
    virtual ~FichiersSource() = default;
    FichiersSource(const FichiersSource&) = delete;
    FichiersSource& operator=(const FichiersSource&) = delete;

    /// Where the source lies, for a message.
    virtual QString lieu() const = 0;
    /// Why there is no source at all; None when there is one.
    virtual Obstacle obstacle() const = 0;
    /// Names of the source's own files that a pattern ("documents*.jsonl") fits, in the order of their letters.
    virtual QStringList noms(const QString& motif) const = 0;

    /// All of a file of the source's own, or why it cannot be read.
    virtual FileBytes lit(const QString& nom) const = 0;
    /// True when a name that stands in a document leads out of the source.
    virtual bool dehors(const QString& chemin) const = 0;
};

/// The files of a folder on the disk.
class DossierDeFichiers final : public FichiersSource {
public:
    explicit DossierDeFichiers(const QString& dossier) : lieu_(dossier), dossier_(dossier) {}

    QString lieu() const override { return lieu_; }
    Obstacle obstacle() const override;
    QStringList noms(const QString& motif) const override;
    FileBytes lit(const QString& nom) const override;
    bool dehors(const QString& chemin) const override;

private:
    QString lieu_;
    QDir dossier_;
};

} // namespace velm
