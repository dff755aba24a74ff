#pragma once
// A test with the program on the screen, where real hands use it.
#include "document/ui/textes.h"
#include "platform/widgets/frame/toolbar.h"
#include "shell/ecrangeneral.h"
#include "tests/e2e/host.h"
#include "tests/e2e/robot.h"
#include "tests/e2e/thread.h"

#include <gtest/gtest.h>
#include <memory>

namespace velm::e2e {

using namespace Qt::Literals::StringLiterals;

class Hosted : public testing::Test {
protected:
    /// Lays out a collection, or the sample's. The program does not run yet, and will show no tip.
    void layOut(const QString& base = {}) {
        inProgram([&] { host = std::make_unique<Host>(base); });
        ASSERT_TRUE(host->isReady());
        host->setSetting(u"OPTIONS", u"TIPS", u"0"_s);
    }
    void start() {
        ASSERT_EQ(inProgram([this] { return host->start(); }), Demarrage::EnMarche);
        ASSERT_TRUE(becomes([this] { return host->frame()->isVisible() && host->frame()->isActiveWindow(); }));
    }
    void TearDown() override {
        if (HasFailure())
            photo(u"echec-"_s + QString::fromUtf8(testing::UnitTest::GetInstance()->current_test_info()->name()));
        inProgram([this] { host.reset(); });
    }

    /// A button of the bar of the window in front. In the program's thread.
    Spot tool(const QString& name) const {
        return host->front() ? Spot::named(&host->front()->barrechild(), name) : Spot();
    }

    std::unique_ptr<Host> host;
};

/// The same roads on the real collection, where it is at hand.
template <typename Roads>
class OnTheRealCollection : public Roads {
protected:
    void SetUp() override {
        const QString base = realCollection();
        if (base.isEmpty())
            GTEST_SKIP() << "the real collection is not at hand";
        ASSERT_NO_FATAL_FAILURE(this->begin(base));
    }
};

} // namespace velm::e2e
