#include "core/noms.h"

#include <gtest/gtest.h>

namespace velm {

TEST(Noms, TheSettingsLieInTheUsersConfigurationFolder) {
    EXPECT_TRUE(noms::fichierreglages().endsWith(u"/VELMORANTE2000/VELMORANTE2000.ini"));
    EXPECT_FALSE(noms::fichierreglages().contains(u"//"));
}

} // namespace velm
