#include "core/listes.h"
#include "tests/support/dialogues_script.h"
#include "tests/support/outside_script.h"

#include <gtest/gtest.h>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

QString texte(Texte lequel) {
    switch (const int numero = static_cast<int>(lequel)) {
    case 2171:
        return u"document"_s;
    case 2172:
        return u"documents"_s;
    case 9495:
        return u"Ouvrir %1"_s;
    case 9760:
        return u"1.000"_s;
    default:
        return u"t%1"_s.arg(numero);
    }
}

/// Looks at the pointer while it prints.
class ImprimanteLente final : public Imprimante {
public:
    explicit ImprimanteLente(const Sablier& sablier) : sablier_(sablier) {}
    bool imprime(const PaperTable&) override {
        pointeur = sablier_.pointeur();
        return true;
    }
    ReponseImpression demande(const Question&) override { return ReponseImpression::Annule; }
    PrintDevice::Sheet feuille() const override { return sheetA4; }
    void imprimepages(const JobPages&, const QString&, const Avance&) override {}
    void configure() override {}
    int pointeur = Sablier::defaut;

private:
    const Sablier& sablier_;
};

class ListesTest : public testing::Test {
protected:
    DialoguesScript dialogues;
    ImprimanteScript imprimante;
    SablierMuet sablier;
};

} // namespace

TEST_F(ListesTest, TheCountIsSingularUpToOne) {
    EXPECT_EQ(textecompte(0, texte), u" 0 document");
    EXPECT_EQ(textecompte(1, texte), u" 1 document");
    EXPECT_EQ(textecompte(2, texte), u" 2 documents");
    EXPECT_EQ(textecompte(18'402, texte), u" 18.402 documents");
}

TEST_F(ListesTest, ALanguageThatSaysNoneInThePluralCountsItSo) {
    const auto english = [](Texte lequel) {
        return lequel == Texte::BureauAucunDocument ? u"no documents"_s : texte(lequel);
    };
    EXPECT_EQ(textecompte(0, english), u" 0 documents");
    EXPECT_EQ(textecompte(1, english), u" 1 document");
}

TEST_F(ListesTest, MoreThanFiftyDocumentsAreOpenedAfterAQuestionOnly) {
    EXPECT_TRUE(veutouvrir(50, dialogues, texte));
    dialogues.answers = {Bouton::Non, Bouton::Oui};
    EXPECT_FALSE(veutouvrir(51, dialogues, texte));
    EXPECT_TRUE(veutouvrir(1'000, dialogues, texte));
    EXPECT_EQ(dialogues.texts(), (QStringList{u"Ouvrir 51"_s, u"Ouvrir 1.000"_s}));
    EXPECT_EQ(dialogues.messages.front().titre, u"t8");
    EXPECT_EQ(dialogues.messages.front().icone, Icone::Question);
    EXPECT_EQ(dialogues.messages.front().boutons, Bouton::Oui | Bouton::Non);
    EXPECT_EQ(dialogues.messages.front().defaut, Bouton::Non);
    EXPECT_EQ(dialogues.messages.front().accord, u"t9781");
    EXPECT_EQ(dialogues.messages.front().refus, u"t9272");
}

TEST_F(ListesTest, PrintingIsAskedForUnderTheTitleThatThePaperBears) {
    dialogues.answers = {Bouton::Non, Bouton::Oui};
    EXPECT_FALSE(veutimprimer(dialogues, texte));
    EXPECT_TRUE(veutimprimer(dialogues, texte));
    EXPECT_EQ(dialogues.messages.front().texte, u"t2432");
    EXPECT_EQ(dialogues.messages.front().titre, titreimprime(texte));
    EXPECT_EQ(dialogues.messages.front().boutons, Bouton::Oui | Bouton::Non);
}

TEST_F(ListesTest, APrinterThatDoesNotPrintIsReported) {
    const PaperTable papier{u"titre"_s, {u"a"_s}, {100}, u"x"_s};
    imprimeliste(papier, imprimante, sablier, dialogues, texte);
    ASSERT_EQ(imprimante.tableaux.size(), 1U);
    EXPECT_EQ(imprimante.tableaux.front().rows, u"x");
    EXPECT_TRUE(dialogues.messages.empty());
    imprimante.works = false;
    dialogues.answers = {Bouton::Ok};
    imprimeliste(papier, imprimante, sablier, dialogues, texte);
    EXPECT_EQ(dialogues.texts(), QStringList{u"t9496"_s});
    EXPECT_EQ(dialogues.messages.front().titre, u"t33");
    EXPECT_EQ(dialogues.messages.front().icone, Icone::Exclamation);
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}

TEST_F(ListesTest, PrintingTakesItsTimeUnderTheWaitCursor) {
    ImprimanteLente lente(sablier);
    imprimeliste({}, lente, sablier, dialogues, texte);
    EXPECT_EQ(lente.pointeur, Sablier::attente);
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}
