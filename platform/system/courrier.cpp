#include "platform/system/courrier.h"

#include <QObject>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QUrl>

#include <algorithm>
#include <list>
#include <utility>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// A message on its way. The command may run as long as the mail program does, or hand the message on and end.
struct Envoi {
    Envoi() : folder(joinPath(tempFolder(), u"courriel-XXXXXX")) {}

    /// Where a message has a file, that goes into the folder.
    FileError attach(const Courriel& courriel);

    QTemporaryDir folder;
    QString path; ///< of the attachment
    QProcess process;
};

/// A file's name that says as much of the wanted one as it can: no folder is made of it, and its end stays.
QString attachedName(QString name) {
    constexpr qsizetype longest = 80; // units of up to three bytes, and the name grows while a file is written
    name.replace(u'/', u'-');
    const QString suffix = name.sliced(std::max<qsizetype>(name.lastIndexOf(u'.'), 0)).left(longest);
    return name.size() <= longest ? name : name.left(longest - suffix.size()) + suffix;
}

FileError Envoi::attach(const Courriel& courriel) {
    if (courriel.fileName.isEmpty())
        return {};
    path = folder.filePath(attachedName(courriel.fileName));
    return folder.isValid() ? writeWhole(path, courriel.file) : FileError{Obstacle::Other, folder.errorString()};
}

} // namespace

bool fitsMessage(const QString& subject, const QString& body) {
    // What the system takes as one argument is 131072 bytes.
    constexpr qsizetype longest = 100'000;
    // Each byte is one of the address at least.
    return subject.size() + body.size() <= longest &&
           QUrl::toPercentEncoding(subject).size() + QUrl::toPercentEncoding(body).size() <= longest;
}

struct SystemCourrier::Private {
    QString command;
    std::list<Envoi> envois;

    void forget(const Envoi* envoi) {
        envois.remove_if([envoi](const Envoi& one) { return &one == envoi; });
    }
    void fail(const Envoi& envoi, const Failed& failed, const QString& told) {
        forget(&envoi);
        failed(Failure::NoMailProgram, {Obstacle::Other, told});
    }

    QObject context; ///< goes first: nothing is heard of a process that is ended with this object
};

SystemCourrier::SystemCourrier(QString command) : d_(std::make_unique<Private>()) {
    d_->command = std::move(command);
}

SystemCourrier::~SystemCourrier() {
    for (Envoi& envoi : d_->envois) {
        envoi.process.disconnect(&d_->context);
        // The command ends; a mail program that it has opened goes on.
        if (envoi.process.state() != QProcess::NotRunning) {
            envoi.process.kill();
            envoi.process.waitForFinished();
        }
    }
}

QStringList SystemCourrier::arguments(const Courriel& courriel, const QString& path) {
    QStringList list{u"--utf8"_s};
    // An empty text is a mistake to the command.
    if (!courriel.subject.isEmpty())
        list << u"--subject"_s << courriel.subject;
    // The command makes both characters of a line end of a feed alone.
    if (!courriel.body.isEmpty())
        list << u"--body"_s << QString(courriel.body).replace(u"\r\n"_s, u"\n"_s);
    if (!path.isEmpty())
        list << u"--attach"_s << path;
    return list;
}

void SystemCourrier::compose(const Courriel& courriel, Failed failed) {
    const QString program = QStandardPaths::findExecutable(d_->command);
    if (program.isEmpty()) {
        failed(Failure::NoMailProgram, {});
        return;
    }
    Envoi& envoi = d_->envois.emplace_back();
    if (const FileError error = envoi.attach(courriel); !error.ok()) {
        d_->forget(&envoi);
        failed(Failure::NotWritten, error);
        return;
    }
    // What has failed is forgotten with its process, which is not to be in the middle of a signal then.
    QObject::connect(
        &envoi.process, &QProcess::finished, &d_->context,
        [this, &envoi, failed](int code, QProcess::ExitStatus status) {
            if (code != 0 || status != QProcess::NormalExit)
                d_->fail(envoi, failed, QString::fromLocal8Bit(envoi.process.readAllStandardError()).trimmed());
        },
        Qt::QueuedConnection);
    QObject::connect(
        &envoi.process, &QProcess::errorOccurred, &d_->context,
        [this, &envoi, failed](QProcess::ProcessError what) {
            // `finished` tells of the others.
            if (what == QProcess::FailedToStart)
                d_->fail(envoi, failed, envoi.process.errorString());
        },
        Qt::QueuedConnection);
    envoi.process.setStandardInputFile(QProcess::nullDevice());
    envoi.process.setStandardOutputFile(QProcess::nullDevice());
    envoi.process.start(program, arguments(courriel, envoi.path), QIODevice::ReadOnly);
}

} // namespace velm
