#include "shell/logique/largeurvolet.h"

#include <gtest/gtest.h>

namespace velm {

TEST(LargeurVoletTest, ThePaneIsNeverNarrowerThanItsMinimum) {
    LargeurVolet volet(4365);
    EXPECT_EQ(volet.largeurliste(), 4305);
    EXPECT_EQ(volet.largeurpane(), 4365);
    volet.changelargeurliste(10);
    EXPECT_EQ(volet.largeurliste(), 60);
    EXPECT_EQ(volet.largeurpane(), 120);
    volet.changelargeurliste(100'000);
    EXPECT_EQ(volet.largeurliste(), 32'767);
    EXPECT_EQ(LargeurVolet(-5).largeurliste(), 60);
    EXPECT_EQ(LargeurVolet(1e300).largeurliste(), 32'767);
}

} // namespace velm
