#pragma once
// A watch for warnings of the toolkit.
#include <QString>
#include <QtGlobal>

#include <gtest/gtest.h>

namespace velm {

/// Every message of the toolkit fails the test that caused it.
class QuietTest : public testing::Test {
protected:
    QuietTest() : before_(qInstallMessageHandler(&QuietTest::complain)) {}
    ~QuietTest() override { qInstallMessageHandler(before_); }

private:
    static void complain(QtMsgType type, const QMessageLogContext& context, const QString& message) {
        Q_UNUSED(context)
        // The platform without a screen does not care for size hints and stacking, and says so.
        const bool ofPlatform = message.startsWith(QStringLiteral("This plugin does not support"));
        if (type != QtDebugMsg && type != QtInfoMsg && !ofPlatform)
            ADD_FAILURE() << "toolkit warning: " << message.toStdString();
    }
    QtMessageHandler before_;
};

} // namespace velm
