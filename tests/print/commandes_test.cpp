// The command that prints a document, and those that end a job.
#include "banc_impression.h"
#include "dialogue_script.h"
#include "print/commandesimpression.h"
#include "tests/support/dialogues_script.h"

namespace velm::test {

class CommandesDImpression : public BancImpression {
protected:
    CommandesDImpression() {
        documents.choiximprimante = true;
        montre(400);
    }
    /// The ranges that are asked for.
    QStringList etendues() const {
        QStringList toutes;
        for (const QString& appel : appareil.appels.filter(u"passage"_s))
            toutes << appel.section(u' ', 1, 1);
        return toutes;
    }

    DialogueScript dialogue;
    DialoguesScript dialogues;
    CommandesImpression commandes{{impression, documents, dialogue, dialogues, textefrancais}};
};

TEST_F(CommandesDImpression, TheDialogOffersASelectionWhereThereIsOne) {
    dialogue.reponses = {ReponseImpression::Annule, ReponseImpression::Annule};
    commandes.imprimerdocument(rtf);
    choisit(3, 5);
    commandes.imprimerdocument(rtf);
    EXPECT_EQ(dialogue.questions, (std::vector<DialogueImpression::Question>{{false, false}, {true, true}}));
}

TEST_F(CommandesDImpression, CancellingTheDialogChangesNothing) {
    dialogue.reponses = {ReponseImpression::Annule};
    commandes.imprimerdocument(rtf);
    EXPECT_TRUE(appareil.appels.isEmpty());
    EXPECT_EQ(etat, EtatImpression());
    EXPECT_TRUE(boutons.isEmpty());
}

TEST_F(CommandesDImpression, TheDialogDecidesBetweenAllAndTheSelection) {
    choisit(3, 5);
    dialogue.reponses = {ReponseImpression::Selection};
    commandes.imprimerdocument(rtf);
    EXPECT_EQ(etendues(), QStringList(u"3-8"_s));
    impression.terminetravail();
    appareil.oublie();
    dialogue.reponses = {ReponseImpression::Tout};
    commandes.imprimerdocument(rtf);
    EXPECT_EQ(etendues().first(), u"0--1");
}

TEST_F(CommandesDImpression, ASelectionThatIsNoneIsTheWhole) {
    dialogue.reponses = {ReponseImpression::Selection};
    commandes.imprimerdocument(rtf);
    EXPECT_EQ(etendues().first(), u"0--1");
}

TEST_F(CommandesDImpression, WithoutTheDialogASelectionPrintsAsTheSelection) {
    documents.choiximprimante = false;
    choisit(3, 5);
    commandes.imprimerdocument(rtf);
    EXPECT_EQ(etendues(), QStringList(u"3-8"_s));
    choisit(3, 0);
    appareil.oublie();
    commandes.imprimerdocument(rtf);
    EXPECT_EQ(etendues().first(), u"0--1");
    EXPECT_TRUE(dialogue.questions.empty());
}

TEST_F(CommandesDImpression, AnOpenJobShowsNoDialog) {
    dialogue.reponses = {ReponseImpression::Tout};
    commandes.imprimerdocument(rtf);
    ASSERT_TRUE(etat.travailencours);
    appareil.oublie();
    choisit(0, 5);
    commandes.imprimerdocument(rtf);
    EXPECT_EQ(dialogue.questions.size(), 1U);
    EXPECT_EQ(etendues(), QStringList(u"0-5"_s)) << "and prints the selection";
    commandes.terminetravail();
    dialogue.reponses = {ReponseImpression::Annule};
    commandes.imprimerdocument(rtf);
    EXPECT_EQ(dialogue.questions.size(), 2U);
}

TEST_F(CommandesDImpression, SettingsAreThoseOfTheMoment) {
    documents.choiximprimante = false;
    commandes.imprimerdocument(rtf);
    documents.ejectionautomatique = true;
    commandes.imprimerdocument(rtf);
    EXPECT_FALSE(etat.travailencours);
}

TEST_F(CommandesDImpression, APrinterThatFailsLeavesSilently) {
    documents.choiximprimante = false;
    appareil.pannea = 3;
    commandes.imprimerdocument(rtf);
    EXPECT_TRUE(dialogues.messages.empty());
    EXPECT_FALSE(etat.travailencours);
    appareil.pannea = -1;
    commandes.imprimerdocument(rtf);
    ASSERT_TRUE(etat.travailencours);
    appareil.pannea = static_cast<int>(appareil.appels.size());
    commandes.terminetravail();
    EXPECT_TRUE(etat.travailencours) << "as it stood";
    commandes.abandontravail();
    EXPECT_FALSE(etat.travailencours) << "there is a way out";
    EXPECT_TRUE(dialogues.messages.empty());
}

TEST_F(CommandesDImpression, APositionAbove32767EndsSilently) {
    documents.choiximprimante = false;
    appareil.feuille.height = 50000;
    commandes.imprimerdocument(rtf);
    EXPECT_TRUE(dialogues.messages.empty());
    EXPECT_FALSE(etat.travailencours);
}

TEST_F(CommandesDImpression, MarginsWithoutRoomAreTold) {
    documents.choiximprimante = false;
    documents.margehaute = 20000;
    commandes.imprimerdocument(rtf);
    EXPECT_EQ(dialogues.texts(), QStringList(u"<9647>"_s));
    EXPECT_TRUE(appareil.appels.isEmpty());
}

TEST_F(CommandesDImpression, EndingAndDiscardingAreTheEngines) {
    documents.choiximprimante = false;
    commandes.imprimerdocument(rtf);
    commandes.terminetravail();
    EXPECT_EQ(appareil.appels.last(), u"fin");
    commandes.imprimerdocument(rtf);
    commandes.abandontravail();
    EXPECT_EQ(appareil.appels.last(), u"jette");
}

} // namespace velm::test
