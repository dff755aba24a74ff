// The executable on what ends it: a setting that cannot be used, a base that lacks something, a signal. One box, exit
// code 1, nothing on standard error, and never a crash.
#include "core/schemas.h"
#include "platform/engine/database.h"
#include "platform/system/settings.h"
#include "search/fichiercriteres.h"
#include "tests/e2e/host.h"
#include "tests/e2e/robot.h"
#include "tests/e2e/thread.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QThread>

#include <csignal>
#include <gtest/gtest.h>

namespace velm::e2e {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int milliseconds = 60000;

class TheExecutable : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(host.isReady() && settings.isValid());
        executable = host.copyExecutable();
        ASSERT_FALSE(executable.isEmpty());
        set(u"OPTIONS"_s, u"TIPS"_s, u"0"_s);
    }
    void TearDown() override {
        if (HasFailure())
            photo(u"echec-"_s + QString::fromUtf8(testing::UnitTest::GetInstance()->current_test_info()->name()));
    }

    QString iniFile() const { return settings.filePath(u"VELMORANTE2000/VELMORANTE2000.ini"_s); }
    void set(const QString& section, const QString& key, const QString& value) const {
        ReglagesStore(iniFile()).save(section, key, value);
    }
    QString stored(const QString& section, const QString& key) const {
        return ReglagesStore(iniFile()).get(section, key, u"(none)"_s);
    }
    QString inFolder(const QString& name) const { return QDir(host.folder()).filePath(name); }
    void execute(const QString& sql) const {
        const auto base = Database::open(inFolder(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
        ASSERT_TRUE(base.database && base.database->execute(sql));
    }

    void start(const QStringList& arguments = {}) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, settings.path());
        program.setProcessEnvironment(environment);
        program.start(executable, arguments);
        ASSERT_TRUE(program.waitForStarted(milliseconds));
    }
    /// A window in front with these words in its title; the tools spell letters with an accent in their own way.
    bool shows(const QString& beginning) { return comesForward(program.processId(), beginning); }
    void endsWith(int code) {
        ASSERT_TRUE(program.waitForFinished(milliseconds));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), code);
        EXPECT_EQ(program.readAllStandardError().toStdString(), "");
    }
    /// The box of an error that ends the program is in front, and answered.
    void fails(const QString& picture = {}) {
        ASSERT_TRUE(shows(u"Erreur d"_s));
        if (!picture.isEmpty())
            photo(picture);
        key(u"Return"_s);
        endsWith(1);
    }

    /// The frame comes before it has the keys, and before a form has its text: a key that comes too early asks for
    /// nothing. False when no window of that title answers.
    bool pressUntilItShows(const QString& keys, const QString& beginning) {
        for (int times = 0; times < 30; ++times) {
            key(keys);
            if (comesForward(program.processId(), beginning, 2000))
                return true;
        }
        return false;
    }
    void pressUntilItFails() {
        ASSERT_TRUE(pressUntilItShows(u"Return"_s, u"Erreur d"_s)) << "no box of an error";
        fails();
    }

    Host host;
    QTemporaryDir settings;
    QString executable;
    QProcess program;
};

/// Words as the dictionary has them, one behind the other.
QString words(const QString& base, int count) {
    const auto opened = Database::open(base, OpenMode::Shared, corpusSchema());
    const auto rows = opened.database->openQuery(
        u"SELECT mot FROM dico WHERE length(mot) > 6 AND mot NOT GLOB '*[^A-Z]*' ORDER BY mot LIMIT %1"_s.arg(count));
    QStringList all;
    for (; !rows->eof(); rows->moveNext())
        all.append(rows->text(0));
    return all.join(u' ');
}

} // namespace

TEST_F(TheExecutable, AsksAboutASettingAndEndsOnNo) {
    const std::array<QString, 3> faults[] = {{u"TOOLS"_s, u"NOMBRE"_s, u"21"_s},
                                             {u"GENERALITES"_s, u"CHECKQUIT"_s, u"abc"_s},
                                             {u"EDITEUR"_s, u"PRINTERMARGEHAUTE"_s, u"large"_s}};
    for (const auto& [section, name, value] : faults) {
        SCOPED_TRACE(name.toStdString());
        ASSERT_TRUE(QFile::remove(iniFile()));
        set(section, name, value);
        start();
        ASSERT_TRUE(shows(u"R"_s));
        photo(u"30-reglage-"_s + name);
        key(u"Escape"_s);
        endsWith(1);
        EXPECT_EQ(stored(section, name), value);
    }
}

TEST_F(TheExecutable, GoesOnWithTheDefaultOfASetting) {
    set(u"GENERALITES"_s, u"CHECKQUIT"_s, u"abc"_s);
    set(u"TOOLS"_s, u"NOMBRE"_s, u"21"_s);
    start();
    ASSERT_TRUE(shows(u"R"_s));
    key(u"Return"_s);
    ASSERT_TRUE(shows(u"R"_s));
    photo(u"31-second-reglage"_s);
    key(u"Return"_s);
    ASSERT_TRUE(shows(u"Velmorante 2000"_s));
    ASSERT_TRUE(pressUntilItShows(u"ctrl+q"_s, u"Quitter"_s));
    key(u"Return"_s);
    endsWith(0);
    EXPECT_EQ(stored(u"GENERALITES"_s, u"CHECKQUIT"_s), u"abc");
    EXPECT_EQ(stored(u"TOOLS"_s, u"NOMBRE"_s), u"21");
}

TEST_F(TheExecutable, EndsInOneBoxOnABaseWithoutATable) {
    set(u"POSITIONFORME"_s, u"WINDOWSARBRE0"_s, u"1"_s); // the tree is loaded with the window
    for (const QString& table : {u"arborescences"_s, u"données"_s}) {
        SCOPED_TRACE(table.toStdString());
        execute(u"DROP TABLE "_s + table);
        start({u"CO2"_s});
        fails(u"32-table"_s);
    }
}

TEST_F(TheExecutable, EndsInOneBoxOnADamagedPage) {
    QFile base(inFolder(u"velm2000.dat"_s));
    ASSERT_TRUE(base.open(QIODevice::ReadWrite));
    QByteArray bytes = base.readAll();
    constexpr qsizetype page = 4096;
    for (qsizetype at = page; at < bytes.size(); at += page) {
        if (bytes.sliced(at, page).contains("{\\rtf1"))
            bytes[at] = '\x7F'; // no kind of page
    }
    ASSERT_TRUE(base.seek(0) && base.write(bytes) == bytes.size() && base.flush());
    start({u"CO2"_s});
    fails();
}

TEST_F(TheExecutable, EndsInOneBoxOnTheTwentyFirstWordAndWithoutADictionary) {
    FichierCriteres criteria;
    criteria.ongletrecherche = 2;
    criteria.Textedico = words(inFolder(u"velm2000.dat"_s), 21);
    criteria.boutons.fill(true);
    const QString path = inFolder(u"mots.cv2"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(ecritcriteres(criteria));
    file.close();
    for (const bool dictionary : {true, false}) {
        if (!dictionary)
            execute(u"DROP TABLE dico"_s);
        start({path});
        ASSERT_TRUE(shows(u"Velmorante 2000"_s));
        pressUntilItFails();
    }
}

TEST_F(TheExecutable, WritesWhatAnOrdinaryEndWritesWhenItIsToldToEnd) {
    start({u"CO2"_s});
    ASSERT_TRUE(shows(u"Velmorante 2000"_s));
    ASSERT_EQ(::kill(static_cast<pid_t>(program.processId()), SIGTERM), 0);
    endsWith(0);
    EXPECT_EQ(stored(u"DERNIERSDOCUMENTS"_s, u"REF0"_s), u"CO000002");
    EXPECT_EQ(stored(u"POSITIONFORME"_s, u"MDICHILDCONTENU"_s).left(8), u"CO000002");
    EXPECT_NE(stored(u"POSITIONFORME"_s, u"WINDOWSSTATE0"_s), u"(none)");
    EXPECT_NE(stored(u"POSITIONMDI"_s, u"WINDOWSHEIGHT"_s), u"(none)");
}

TEST_F(TheExecutable, WritesWhatAnOrdinaryEndWritesFromInsideAQuestion) {
    start({u"CO2"_s});
    ASSERT_TRUE(shows(u"Velmorante 2000"_s));
    ASSERT_TRUE(pressUntilItShows(u"ctrl+q"_s, u"Quitter"_s));
    ASSERT_EQ(::kill(static_cast<pid_t>(program.processId()), SIGTERM), 0);
    endsWith(0);
    EXPECT_EQ(stored(u"DERNIERSDOCUMENTS"_s, u"REF0"_s), u"CO000002");
}

} // namespace velm::e2e
