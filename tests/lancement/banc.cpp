#include "tests/lancement/banc.h"

#include "core/langue.h"
#include "core/schemas.h"
#include "platform/engine/recordset.h"
#include "platform/system/settings.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QJsonDocument>

namespace velm::test {

namespace {

constexpr int millisecondes = 120000;

const QString& portable() {
    static const QString dossier = QStringLiteral(VELM_BINARY_DIR "/bin/");
    return dossier;
}

/// The child's surroundings: its own folders, no display.
void environne(QProcess& processus, const QString& dossier) {
    QProcessEnvironment autour = QProcessEnvironment::systemEnvironment();
    for (const QString& nom :
         {u"HOME"_s, u"XDG_CONFIG_HOME"_s, u"XDG_DATA_HOME"_s, u"XDG_CACHE_HOME"_s, u"XDG_RUNTIME_DIR"_s})
        autour.insert(nom, dossier);
    autour.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    processus.setProcessEnvironment(autour);
}

Essai recueille(QProcess& processus) {
    EXPECT_TRUE(processus.waitForFinished(millisecondes)) << "it does not end";
    Essai essai{processus.exitStatus() == QProcess::NormalExit ? processus.exitCode() : -1,
                processus.readAllStandardOutput(), processus.readAllStandardError()};
    // Said by the toolkit's display without a screen, not by the program.
    essai.erreurs.replace("This plugin does not support propagateSizeHints()\n", "");
    return essai;
}

} // namespace

QList<QJsonObject> Essai::boites() const {
    QList<QJsonObject> toutes;
    for (const QByteArray& ligne : sortie.split('\n')) {
        const QJsonObject objet = QJsonDocument::fromJson(ligne).object();
        if (objet.contains(u"boutons"_s))
            toutes.append(objet);
    }
    return toutes;
}

QStringList Essai::textes() const {
    QStringList tous;
    for (const QJsonObject& boite : boites())
        tous.append(boite[u"texte"_s].toString());
    return tous;
}

void BancDeLancement::SetUp() {
    ASSERT_TRUE(dossier.isValid() && QDir(dossier.path()).mkpath(u"langues"_s));
    for (const QString& nom : {u"langues/RES2000.FR"_s, u"langues/TIPS.FR"_s, u"master.ini"_s})
        ASSERT_TRUE(QFile::copy(portable() + nom, dossier.filePath(nom)));
    remetbase();
    videreglages();
}

void BancDeLancement::regle(const QString& section, const QString& cle, const QString& valeur) const {
    ReglagesStore(reglages()).save(section, cle, valeur);
}

QString BancDeLancement::reglage(const QString& section, const QString& cle) const {
    return ReglagesStore(reglages()).get(section, cle, u"(absent)"_s);
}

void BancDeLancement::videreglages() const {
    ecrit(u"reglages.ini"_s, "[OPTIONS]\nTIPS=0\n");
}

void BancDeLancement::ecrit(const QString& nom, const QByteArray& octets) const {
    QFile fichier(dossier.filePath(nom));
    ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
    ASSERT_EQ(fichier.write(octets), octets.size());
}

QString BancDeLancement::texte(int numero) const {
    Langue langue([](const QString& absent) { ADD_FAILURE() << absent.toStdString(); });
    langue.choisitfichier(dossier.path(), dossier.path(), u"FR"_s);
    return langue.lireressource(Texte{numero});
}

void BancDeLancement::remetbase() const {
    const QString base = dossier.filePath(u"velm2000.dat"_s);
    QFile::remove(base);
    ASSERT_TRUE(QFile::copy(portable() + u"velm2000.dat"_s, base));
}

void BancDeLancement::ordonne(const QString& sql) const {
    const auto base = Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
    ASSERT_TRUE(base.database && base.database->execute(sql)) << base.message.toStdString();
}

void BancDeLancement::abimebase() const {
    QFile base(dossier.filePath(u"velm2000.dat"_s));
    ASSERT_TRUE(base.open(QIODevice::ReadWrite));
    QByteArray octets = base.readAll();
    constexpr qsizetype page = 4096;
    int abimees = 0;
    for (qsizetype debut = page; debut < octets.size(); debut += page) {
        // A page whose kind is none cannot be read; those of bodies show their rich text.
        if (octets.sliced(debut, page).contains("{\\rtf1")) {
            octets[debut] = '\x7F';
            ++abimees;
        }
    }
    ASSERT_GT(abimees, 0);
    ASSERT_TRUE(base.seek(0) && base.write(octets) == octets.size());
}

QStringList BancDeLancement::motsdelabase(int nombre) const {
    const auto base = Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
    const auto lignes = base.database->openQuery(u"SELECT mot FROM dico WHERE length(mot) > 6 AND mot NOT GLOB "
                                                 "'*[^A-Z]*' ORDER BY mot LIMIT "_s +
                                                 QString::number(nombre));
    QStringList mots;
    for (; !lignes->eof(); lignes->moveNext())
        mots.append(lignes->text(0));
    EXPECT_EQ(mots.size(), nombre);
    return mots;
}

Essai BancDeLancement::lance(const QString& ligne, const QString& reponses, const QString& faits,
                             bool sansquestion) const {
    if (sansquestion)
        regle(u"GENERALITES"_s, u"CHECKQUIT"_s, u"1"_s);
    QProcess processus;
    environne(processus, dossier.path());
    processus.start(portable() + u"essai_lancement"_s, {dossier.path(), ligne, reponses, faits});
    return recueille(processus);
}

Essai BancDeLancement::lancepuis(const QString& faits, const std::function<void(qint64 pid)>& alors,
                                 const QString& cleattendue) const {
    QProcess processus;
    environne(processus, dossier.path());
    processus.start(portable() + u"essai_lancement"_s, {dossier.path(), {}, {}, faits + u",attend"_s});
    EXPECT_TRUE(processus.waitForStarted(millisecondes));
    const QByteArray dernier = faits.contains(u"question") ? "question" : "attend";
    const auto pret = [&] {
        return cleattendue.isEmpty() ? QByteArray(processus.peek(1'000'000)).contains("\"" + dernier + "\"")
                                     : ReglagesStore(reglages()).contains(u"HWND", cleattendue);
    };
    for (const QDeadlineTimer assez(millisecondes); !pret() && !assez.hasExpired();)
        processus.waitForReadyRead(20);
    alors(processus.processId());
    return recueille(processus);
}

} // namespace velm::test
