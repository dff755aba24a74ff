// The desk without the program around it.
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"

#include <gtest/gtest.h>
#include <new>

using namespace velm;

TEST(BureauTest, WithoutMemoryForAWindowItIsSaidAndTheRunGoesOn) {
    Ecrangeneral ecran([](Texte lequel) { return QString::number(static_cast<int>(lequel)); });
    Corpus corpus;
    const auto [actions, aire, volet] = ecran.pieces();
    Bureau bureau(ecran, aire, actions, corpus, [](int) -> Textes* { throw std::bad_alloc(); });
    const int formes = bureau.nombredeformes();
    int dit = 0;
    bureau.sansmemoire = [&dit] { ++dit; };
    bureau.navigation().navigue(QStringLiteral("TACO000001"));
    EXPECT_EQ(dit, 1);
    EXPECT_FALSE(bureau.navigation().fenetreouverte(0));
    EXPECT_FALSE(bureau.navigation().maffichagef(0));
    EXPECT_EQ(bureau.nombredeformes(), formes);
    EXPECT_TRUE(bureau.fenetres().empty());
    bureau.basculeslot(3);
    EXPECT_EQ(dit, 2);
    EXPECT_FALSE(bureau.navigation().fenetreouverte(3));
}
