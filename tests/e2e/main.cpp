#include "platform/widgets/look/look.h"

#include <QApplication>
#include <QThread>

#include <gtest/gtest.h>
#include <memory>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests))
        return RUN_ALL_TESTS();
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false); // the tests end it
    velm::look::apply(application, velm::look::Theme::Light);
    int failures = 1;
    const std::unique_ptr<QThread> tests(QThread::create([&failures] { failures = RUN_ALL_TESTS(); }));
    QObject::connect(tests.get(), &QThread::finished, &application, &QCoreApplication::quit);
    tests->start();
    QApplication::exec();
    tests->wait();
    return failures;
}
