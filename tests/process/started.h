#pragma once
// The executable in a portable folder of its own, with the settings, the cache and the temporary files of nobody else.
#include "platform/system/files.h"
#include "platform/system/settings.h"
#include "tests/support/eventually.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

class StartedProgram : public testing::Test {
protected:
    static constexpr int milliseconds = 60000;

    void SetUp() override {
        const QDir portable(QStringLiteral(VELM_BINARY_DIR "/bin"));
        const QDir place(place_.path());
        ASSERT_TRUE(place_.isValid() && place.mkpath(u"folder/langues"_s) && place.mkpath(u"run"_s));
        ASSERT_EQ(QFile::setPermissions(at(u"run"_s), QFile::Permissions(0x7700)), true);
        for (const QString& name : {u"velm2000"_s, u"velm2000.dat"_s, u"dossiers.dat"_s, u"master.ini"_s,
                                    u"langues/RES2000.FR"_s, u"langues/TIPS.FR"_s})
            ASSERT_TRUE(QFile::copy(portable.filePath(name), at(u"folder/"_s + name))) << name.toStdString();
        set(u"OPTIONS", u"TIPS", u"0"_s);
        environment_ = QProcessEnvironment::systemEnvironment();
        environment_.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        // The desktop's own tools, which the program starts and which outlive it, are not found.
        environment_.insert(u"PATH"_s, at(u"none"_s));
        for (const auto& [name, folder] :
             {std::pair(u"HOME"_s, u"home"_s), std::pair(u"XDG_CONFIG_HOME"_s, u"config"_s),
              std::pair(u"XDG_DATA_HOME"_s, u"data"_s), std::pair(u"XDG_CACHE_HOME"_s, u"cache"_s),
              std::pair(u"XDG_RUNTIME_DIR"_s, u"run"_s)})
            environment_.insert(name, at(folder));
    }
    void TearDown() override {
        for (const auto& one : started_) {
            one->kill();
            one->waitForFinished(milliseconds);
        }
    }

    QString at(const QString& name) const { return QDir(place_.path()).filePath(name); }
    QString settings() const { return at(u"config/VELMORANTE2000/VELMORANTE2000.ini"_s); }
    void set(QStringView section, QStringView key, const QString& value) const {
        ReglagesStore(settings()).save(section, key, value);
    }
    QString get(QStringView section, QStringView key) const { return ReglagesStore(settings()).get(section, key); }

    QProcess& start(const QString& folder = u"folder"_s, const QStringList& arguments = {}) {
        started_.push_back(std::make_unique<QProcess>());
        QProcess& program = *started_.back();
        program.setProcessEnvironment(environment_);
        program.start(at(folder + u"/velm2000"_s), arguments);
        EXPECT_TRUE(program.waitForStarted(milliseconds));
        return program;
    }
    /// The frame has been made: its handle is written then.
    bool stands() const { return !get(u"HWND", u"HWnd").isEmpty(); }

    QProcessEnvironment environment_;

private:
    QTemporaryDir place_;
    std::vector<std::unique_ptr<QProcess>> started_;
};

} // namespace velm::test
