#include "platform/system/systeminfo.h"
#include "tests/support/outside_script.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <map>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

const QString first = u"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO|PATH"_s;
const QString second = u"SOFTWARE\\Microsoft\\Shared Tools Location|MSINFO"_s;

class RegistreScript final : public Registre {
public:
    std::map<QString, std::variant<QString, quint32>> values;
    mutable QStringList asked;

    std::optional<std::variant<QString, quint32>> value(const QString& key, const QString& name) const override {
        const QString place = key + u'|' + name;
        asked.append(place);
        const auto found = values.find(place);
        return found == values.end() ? std::nullopt : std::optional<std::variant<QString, quint32>>(found->second);
    }
};

void program(const QString& path) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
}

#ifdef Q_OS_WIN
const QString tool = u"MSINFO32.EXE"_s;
#else
const QString tool = u"kinfocenter"_s;
#endif

} // namespace

TEST(SystemInfo, TheFirstPlaceIsTakenAsItStands) {
    RegistreScript registre;
    registre.values[first] = u"/nowhere/info"_s;
    registre.values[second] = u"/tmp"_s;
    EXPECT_EQ(systeminfotool(registre), u"/nowhere/info");
    EXPECT_EQ(registre.asked, QStringList{first});
}

TEST(SystemInfo, TheSecondPlaceCountsOnlyWithItsFile) {
    const QTemporaryDir folder;
    RegistreScript registre;
    registre.values[second] = folder.path();
    EXPECT_EQ(systeminfotool(registre), QString());
    EXPECT_EQ(registre.asked, (QStringList{first, second}));
    program(folder.filePath(tool));
    EXPECT_EQ(systeminfotool(registre), folder.filePath(tool));
    registre.values[second] = folder.path() + u'/';
    EXPECT_EQ(systeminfotool(registre), folder.filePath(tool));
}

TEST(SystemInfo, WithoutAPlaceThereIsNoTool) {
    RegistreScript registre;
    EXPECT_EQ(systeminfotool(registre), QString());
    registre.values[second] = QString();
    EXPECT_EQ(systeminfotool(registre), QString());
}

TEST(SystemInfo, ANumberIsHexadecimalText) {
    RegistreScript registre;
    registre.values[first] = quint32(0xDEADBEEF);
    EXPECT_EQ(getkeyvalue(registre, u"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"_s, u"PATH"_s), u"&hDEADBEEF");
    registre.values[first] = quint32(0);
    EXPECT_EQ(systeminfotool(registre), u"&h0");
}

TEST(SystemInfo, TheToolIsStarted) {
    RegistreScript registre;
    registre.values[first] = u"/opt/info"_s;
    ProcessusScript processus;
    EXPECT_TRUE(startsysinfo(registre, processus));
    ASSERT_EQ(processus.starts.size(), 1U);
    EXPECT_EQ(processus.starts.front().program, u"/opt/info");
    EXPECT_TRUE(processus.starts.front().arguments.isEmpty());
    processus.works = false;
    EXPECT_FALSE(startsysinfo(registre, processus));
}

TEST(SystemInfo, WithoutAToolNothingIsStarted) {
    const RegistreScript registre;
    ProcessusScript processus;
    EXPECT_FALSE(startsysinfo(registre, processus));
    EXPECT_TRUE(processus.starts.empty());
}

#ifndef Q_OS_WIN
TEST(SystemInfo, WithoutARegistryTheSearchPathAnswers) {
    const QTemporaryDir folder;
    const QByteArray before = qgetenv("PATH");
    qputenv("PATH", folder.path().toUtf8());
    const SystemRegistre registre;
    EXPECT_EQ(systeminfotool(registre), QString());
    program(folder.filePath(u"kinfocenter"_s));
    EXPECT_EQ(systeminfotool(registre), folder.filePath(u"kinfocenter"_s));
    program(folder.filePath(u"hardinfo"_s));
    EXPECT_EQ(systeminfotool(registre), folder.filePath(u"hardinfo"_s));
    EXPECT_FALSE(registre.value(u"SOFTWARE"_s, u"PATH"_s));
    qputenv("PATH", before);
}
#endif
