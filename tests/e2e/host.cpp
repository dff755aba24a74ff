#include "tests/e2e/host.h"

#include "platform/system/settings.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QProcess>
#include <QThread>

#include <gtest/gtest.h>

namespace velm::e2e {

using namespace Qt::Literals::StringLiterals;

namespace {

bool copyInto(const QDir& folder, const QDir& from, const QString& name) {
    return QFile::copy(from.filePath(name), folder.filePath(name));
}

} // namespace

QString realCollection() {
    static const QTemporaryDir folder;
    static const QString compiled = [] {
        const QString source = QStringLiteral(VELM_SOURCE_DIR "/../shared/corpus");
        if (!QFile::exists(source + u"/documents.jsonl"_s))
            return QString();
        const QString base = folder.filePath(u"velm2000.dat"_s);
        QProcess compiler;
        compiler.start(QStringLiteral(VELM_BINARY_DIR "/bin/velmoutil"), {u"compiler"_s, source, base});
        EXPECT_TRUE(compiler.waitForFinished(300'000));
        EXPECT_EQ(compiler.exitCode(), 0) << compiler.readAllStandardError().toStdString();
        return base;
    }();
    return compiled;
}

Host::Host(const QString& base) {
    const QDir portable(QStringLiteral(VELM_BINARY_DIR "/bin"));
    const QDir folder(folder_.path());
    // What the program registers with the desktop stays in its folder.
    qputenv("XDG_DATA_HOME", QFile::encodeName(folder.filePath(u"donnees"_s)));
    ready_ = folder_.isValid() && folder.mkpath(u"langues"_s);
    const QString collection = u"velm2000.dat"_s;
    const QString source = base.isEmpty() ? portable.filePath(collection) : base;
    ready_ = ready_ && QFile::copy(source, folder.filePath(collection));
    for (const QString& name : {u"dossiers.dat"_s, u"master.ini"_s})
        ready_ = ready_ && copyInto(folder, portable, name);
    for (const QString& name : QDir(portable.filePath(u"langues"_s)).entryList(QDir::Files))
        ready_ = ready_ && copyInto(folder, portable, u"langues/"_s + name);
    // As after a run in which windows lay beside one another: on a first start they fill the frame.
    setSetting(u"POSITIONFORME", u"WINDOWSSTATE10", u"0"_s);
}

Host::~Host() = default;

void Host::setSetting(QStringView section, QStringView key, const QString& value) const {
    ReglagesStore(QDir(folder()).filePath(u"reglages.ini"_s)).save(section, key, value);
}

Demarrage Host::start() {
    OptionsProgramme options;
    options.dossierprogramme = folder();
    options.fichierprogramme = QDir(folder()).filePath(u"velm2000"_s);
    options.fichierreglages = QDir(folder()).filePath(u"reglages.ini"_s);
    options.dossierinstance = folder();
    options.dossierdonnees = QDir(folder()).filePath(u"donnees"_s);
    program_ = std::make_unique<Programme>(options, MondeExterieur{dialogues_, navigateur_, processus_, sablier_,
                                                                   pressepapiers_, courrier_, imprimante_, lecteurs_});
    imprimante_.setMots([this] { return program_->motsdelimprimante(); });
    dialogues_.setCaptions([this](Bouton bouton) { return program_->libellebouton(bouton); });
    return program_->demarre();
}

QString Host::copyExecutable() const {
    const QString copy = QDir(folder()).filePath(u"velm2000"_s);
    return QFile::copy(QStringLiteral(VELM_BINARY_DIR "/bin/velm2000"), copy) ? copy : QString();
}

bool Host::hasEnded() const {
    return frame() && !frame()->isVisible() && QThread::currentThread()->loopLevel() == 1;
}

QWidget* Host::bar(const QString& name) const {
    return frame()->findChild<QWidget*>(name);
}

Textes* Host::front() const {
    return frame() ? program_->bureau().active() : nullptr;
}

QMessageBox* Host::box() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

} // namespace velm::e2e
