// The desk without the program around it.
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"
#include "tests/support/eventually.h"

#include <QPointer>
#include <QSignalSpy>

#include <gtest/gtest.h>
#include <new>

using namespace velm;

namespace {

/// A window that counts how often it is told that it has come forward.
class FilleComptee : public QWidget, public FenetreFille {
public:
    explicit FilleComptee(int& activations) : activations_(activations) {}
    Nature nature() const override { return Nature::Liste; }
    bool peut(Ordre) const override { return false; }
    void fait(Ordre) override {}
    void activation() override { ++activations_; }

private:
    int& activations_;
};

} // namespace

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
    bureau.sansmemoire = {};
    bureau.basculeslot(3);
    EXPECT_EQ(dit, 2) << "nobody is told";
}

TEST(BureauTest, AWindowBringsItsPictureAlong) {
    Ecrangeneral ecran([](Texte lequel) { return QString::number(static_cast<int>(lequel)); });
    Corpus corpus;
    const auto [actions, aire, volet] = ecran.pieces();
    Bureau bureau(ecran, aire, actions, corpus, [](int) -> Textes* { return nullptr; });
    int activations = 0;
    auto* fille = new FilleComptee(activations);
    fille->setWindowIcon(QPixmap(16, 16));
    bureau.ajoute(*fille, *fille);
    EXPECT_EQ(aire.around(fille)->windowIcon().cacheKey(), fille->windowIcon().cacheKey());
}

TEST(BureauTest, ItsEndClosesEveryWindowBringsNoneForwardAndTellsNobody) {
    Ecrangeneral ecran([](Texte lequel) { return QString::number(static_cast<int>(lequel)); });
    Corpus corpus;
    const auto [actions, aire, volet] = ecran.pieces();
    Bureau bureau(ecran, aire, actions, corpus, [](int) -> Textes* { return nullptr; });
    int activations = 0;
    QList<QPointer<FilleComptee>> filles;
    ecran.show();
    for (int i = 0; i < 2; ++i) {
        filles << new FilleComptee(activations);
        bureau.ajoute(*filles.back(), *filles.back());
        aire.activate(filles.back());
    }
    aire.activate(filles.front()); // the first to close, before the other one
    ASSERT_EQ(activations, 3);
    const QSignalSpy dits(&bureau, &Bureau::devantchange);
    bureau.fermefenetres();
    filles.front()->surchangement();
    bureau.slotchange(0, false);
    bureau.activehistorique(false, false);
    EVENTUALLY(bureau.filles().empty());
    EXPECT_EQ(activations, 3) << "there is no base any more to show anything from";
    EXPECT_EQ(dits.count(), 0);
    EXPECT_FALSE(filles.front() || filles.back());
}
