#include "collection/temporaire.h"

#include "core/schemas.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// True when the name still leads to the open file: nobody has removed it, or put another in its place.
bool estencore(const QByteArray& nom, int descripteur) {
    struct stat ouvert {};
    struct stat nomme {};
    return fstat(descripteur, &ouvert) == 0 && lstat(nom.constData(), &nomme) == 0 && S_ISREG(nomme.st_mode) &&
           ouvert.st_dev == nomme.st_dev && ouvert.st_ino == nomme.st_ino;
}

QString nomprovisoire(const QString& cible, qint64 numero) {
    return cible + u'.' + QString::number(numero) + u".tmp"_s;
}

/// Removes the file unless somebody holds its lock.
void retiresilibre(const QByteArray& nom) {
    const int descripteur = ::open(nom.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descripteur < 0)
        return;
    if (flock(descripteur, LOCK_EX | LOCK_NB) == 0 && estencore(nom, descripteur))
        ::unlink(nom.constData());
    ::close(descripteur);
}

} // namespace

FichierEnCours::~FichierEnCours() {
    if (descripteur_ >= 0)
        ::close(descripteur_);
}

/// True when the file is made and ours. Without an error it is worth another name: that one was there, or another run
/// has taken it for a left one in the moment before it was locked.
bool FichierEnCours::prend(const QString& chemin, int& erreur) {
    const QByteArray nom = QFile::encodeName(chemin);
    constexpr mode_t droits = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    const int descripteur = ::open(nom.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, droits);
    if (descripteur < 0) {
        erreur = errno == EEXIST ? 0 : errno;
        return false;
    }
    // A file system without locks is no hindrance: nobody sweeps there either.
    const bool libre = flock(descripteur, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    if (!libre || !estencore(nom, descripteur)) {
        ::close(descripteur);
        return false;
    }
    descripteur_ = descripteur;
    chemin_ = chemin;
    return true;
}

int FichierEnCours::cree(const QString& cible) {
    constexpr int nomsessayes = 1000;
    const qint64 premier = QCoreApplication::applicationPid();
    int erreur = 0;
    for (int i = 0; i < nomsessayes && erreur == 0; ++i) {
        if (prend(nomprovisoire(cible, premier + i), erreur))
            return 0;
    }
    return erreur != 0 ? erreur : EEXIST;
}

void FichierEnCours::balaie(const QString& cible) {
    const QFileInfo info(cible);
    const QRegularExpression nom(
        QRegularExpression::anchoredPattern(QRegularExpression::escape(info.fileName()) + u"\\.[0-9]+\\.tmp"_s));
    const QStringList presents = info.absoluteDir().entryList(QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    for (const QString& present : presents) {
        if (nom.match(present).hasMatch())
            retiresilibre(QFile::encodeName(info.absoluteDir().filePath(present)));
    }
}

BaseTemporaire::BaseTemporaire(const QString& chemin) : chemin_(chemin) {
    const QFileInfo info(chemin);
    if ((info.exists() || info.isSymLink()) && !info.isFile()) {
        note(Obstacle::NotPlain, qt_error_string(EOPNOTSUPP));
        return;
    }
    if (info.isSymLink())
        chemin_ = info.canonicalFilePath();
    FichierEnCours::balaie(chemin_);
    if (const int erreur = fichier_.cree(chemin_); erreur != 0) {
        const Obstacle obstacle = obstacleOf(erreur);
        note(obstacle == Obstacle::Missing ? Obstacle::NoFolder : obstacle, qt_error_string(erreur));
        return;
    }
    Database::Opened creee = Database::create(fichier_.chemin(), corpusSchema(), Database::Making::OverEmpty);
    base_ = std::move(creee.database);
    if (base_ == nullptr) {
        note(creee.obstacle, creee.message);
        retire();
    }
}

BaseTemporaire::~BaseTemporaire() {
    if (base_ != nullptr)
        retire();
}

void BaseTemporaire::retire() {
    base_.reset();
    QFile::remove(fichier_.chemin());
}

void BaseTemporaire::note(Obstacle obstacle, const QString& raison) {
    obstacle_ = obstacle;
    raison_ = raison;
}

ResultatCompilation::Etat BaseTemporaire::etat() const {
    return obstacle_ == Obstacle::Full ? ResultatCompilation::Etat::DisquePlein
                                       : ResultatCompilation::Etat::EcritureImpossible;
}

bool BaseTemporaire::acheve() {
    if (!base_->sync()) {
        note(base_->obstacle(), base_->lastError());
        return false;
    }
    base_->close();
    if (std::rename(QFile::encodeName(fichier_.chemin()).constData(), QFile::encodeName(chemin_).constData()) != 0) {
        const int erreur = errno;
        note(obstacleOf(erreur), qt_error_string(erreur));
        return false;
    }
    base_.reset();
    return true;
}

void BaseTemporaire::echoue(Obstacle obstacle, const QString& raison) {
    if (base_ == nullptr)
        return;
    note(obstacle, raison);
    retire();
}

} // namespace velm
