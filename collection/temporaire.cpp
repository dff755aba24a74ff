#include "collection/temporaire.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <filesystem>
#include <system_error>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// With less than this left, a failed write is taken for a full disk whatever the engine calls it.
constexpr qint64 placepresquenulle = qint64{1024} * 1024;

} // namespace

BaseTemporaire::BaseTemporaire(const QString& chemin)
    : chemin_(chemin),
      // Two runs at once must not meet in one file.
      provisoire_(chemin + u'.' + QString::number(QCoreApplication::applicationPid()) + u".tmp"_s) {
    if (QFileInfo(chemin).isDir()) {
        raison_ = QString::fromStdString(std::make_error_code(std::errc::is_a_directory).message());
        return;
    }
    QFile::remove(provisoire_);
    Database::Opened creee = Database::create(provisoire_, corpusSchema());
    base_ = std::move(creee.database);
    if (base_ == nullptr)
        note(creee.message);
}

BaseTemporaire::~BaseTemporaire() {
    if (base_ == nullptr)
        return;
    base_.reset();
    QFile::remove(provisoire_);
}

void BaseTemporaire::note(const QString& raison) {
    raison_ = raison;
    const QStorageInfo disque(QFileInfo(provisoire_).absolutePath());
    const bool plein = raison.contains(u"full"_s) || (disque.isValid() && disque.bytesAvailable() < placepresquenulle);
    etat_ = plein ? ResultatCompilation::Etat::DisquePlein : ResultatCompilation::Etat::EcritureImpossible;
}

bool BaseTemporaire::acheve() {
    if (!base_->sync()) {
        raison_ = base_->lastError();
        return false;
    }
    base_->close();
    std::error_code erreur;
    std::filesystem::rename(QFile::encodeName(provisoire_).constData(), QFile::encodeName(chemin_).constData(), erreur);
    if (erreur) {
        raison_ = QString::fromStdString(erreur.message());
        return false;
    }
    base_.reset();
    return true;
}

void BaseTemporaire::echoue(const QString& raison) {
    if (base_ == nullptr)
        return;
    // A full disk is looked for while the file still takes its room.
    note(raison);
    base_.reset();
    QFile::remove(provisoire_);
}

} // namespace velm
