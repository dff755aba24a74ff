// Too little memory for a document, for a list, for the base: one message, and the run goes on.
#include "document/ui/listedeliens.h"
#include "document/ui/panneautextes.h"
#include "platform/widgets/grid/flexgrid.h"
#include "shell/bureau.h"
#include "shell/selection.h"
#include "tests/shell/ecran_support.h"
#include "tests/support/little_memory.h"

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class MemoireTest : public EcranTest {
protected:
    static constexpr int nombre = 400;

    /// Two short documents, a body of many megabytes, and titles that together are as long.
    std::vector<DocumentEssai> documents() const override {
        std::vector<DocumentEssai> tous{
            {u"CO000001"_s, u"Article premier"_s, "{\\rtf1\\ansi Un.\\par}"},
            {u"CO000002"_s, u"Le grand"_s, "{\\rtf1\\ansi " + QByteArray("mot ").repeated(3'000'000) + "}"},
            {u"CO000003"_s, u"Article 3"_s, "{\\rtf1\\ansi Trois.\\par}"}};
        for (int numero = 1; numero <= nombre; ++numero)
            tous.push_back({u"JP"_s + sixchiffres(numero), u"Titre "_s + QString(20'000, u'x'), {}});
        return tous;
    }
    QString texte() const { return programme->fenetre(0)->vue().control().text(); }
    /// What was said since the last time.
    QStringList dits() {
        QStringList textes = dialogues.texts();
        dialogues.messages.clear();
        return textes;
    }
};

} // namespace

TEST_F(MemoireTest, ADocumentThatDoesNotFitIsOneMessageAndOpensLater) {
    ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    {
        const LittleMemory peu;
        programme->ouvre(decoupecle(u"CO000002"));
    }
    const QStringList textes = dits();
    ASSERT_EQ(textes.size(), 1);
    EXPECT_TRUE(textes.first().startsWith(u"La mémoire disponible ne suffit pas pour afficher le document"_s));
    EXPECT_TRUE(textes.first().contains(u"Le grand"_s));
    EXPECT_EQ(texte(), QString());
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
    EXPECT_TRUE(programme->fenetre(0)->vue().control().redraw());

    programme->ouvre(decoupecle(u"CO000003"));
    EXPECT_EQ(texte(), u"Trois."_s);
    {
        const LittleMemory peu;
        programme->ouvre(decoupecle(u"CO000002"));
    }
    EXPECT_EQ(dits().size(), 1);
    programme->ouvre(decoupecle(u"CO000002")); // the same again, now that there is room
    EXPECT_EQ(texte().size(), 12'000'000);
    EXPECT_TRUE(dits().isEmpty());
}

TEST_F(MemoireTest, AListThatDoesNotFitIsOneMessageAndWhatItHasStays) {
    ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    QStringList cles{u"CO000001"_s, u"CO000002"_s};
    for (int numero = 1; numero <= nombre; ++numero)
        cles << u"JP"_s + sixchiffres(numero);
    {
        const LittleMemory peu(0);
        programme->selection().controle().remplissage().remplitdecles(cles);
    }
    const QStringList textes = dits();
    ASSERT_EQ(textes.size(), 1);
    EXPECT_TRUE(textes.first().startsWith(u"La mémoire disponible ne suffit pas pour remplir cette liste"_s));
    EXPECT_LT(programme->selection().liste().lignes(), cles.size());
    EXPECT_FALSE(programme->selection().controle().remplissage().encours());
    programme->selection().controle().remplissage().remplitdecles(cles);
    EXPECT_EQ(programme->selection().liste().lignes(), cles.size());
    EXPECT_TRUE(programme->selection().flex().isVisible());
    EXPECT_TRUE(dits().isEmpty());
}

TEST_F(MemoireTest, ABlockOfAWindowThatDoesNotFitIsFilledTheNextTime) {
    ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    Textes& fenetre = *programme->fenetre(0);
    fenetre.barrechild().widget(u"recherchedico"_s)->click();
    {
        const LittleMemory peu(0);
        fenetre.barrechild().widget(u"tableau"_s)->click();
    }
    const QStringList textes = dits();
    ASSERT_EQ(textes.size(), 1);
    EXPECT_TRUE(textes.first().startsWith(u"La mémoire disponible ne suffit pas pour remplir cette liste"_s));
    fenetre.barrechild().widget(u"recherchedico"_s)->click();
    fenetre.barrechild().widget(u"tableau"_s)->click();
    EXPECT_EQ(fenetre.panneau().flex().rows(), 4);
    EXPECT_TRUE(dits().isEmpty());
}

TEST_F(MemoireTest, ABaseThatDoesNotFitIsOneMessageAndTheStartIsGivenUp) {
    const LittleMemory peu(0);
    EXPECT_EQ(demarre(u"CO1"_s), Demarrage::Renonce);
    const QStringList textes = dits();
    ASSERT_EQ(textes.size(), 1);
    EXPECT_TRUE(textes.first().startsWith(u"La mémoire disponible ne suffit pas pour ouvrir la base"_s));
    EXPECT_TRUE(textes.first().contains(u"velm2000.dat"_s));
}
