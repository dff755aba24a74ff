// A dossier on paper: its questions, its items, and the end of its job.
#include "banc_impression.h"
#include "core/schemas.h"
#include "dialogue_script.h"
#include "document/affichage.h"
#include "print/impressiondossier.h"
#include "tests/support/dialogues_script.h"

#include <QTemporaryDir>

namespace velm::test {

struct FormulaireVu final : FormulaireRiche {
    RichTextControl& rtfRichTextBox1() override { return controle; }
    ListesLiens* listes() override { return nullptr; }
    RichTextControl controle;
};

class DossierImprime : public BancImpression {
protected:
    void SetUp() override {
        ASSERT_TRUE(dossier_.isValid());
        dossiers.choiximprimante = false;
        dossiers.textpied = u"{DOSSIER}"_s;
        dossiers.nopageentete = 1;
        // Of the middle one, markup and the document that it includes.
        ouvre({{u"CO000001"_s, texte(50)},
               {u"EU000002"_s, "{\\rtf1 a \\{I=CO000001\\} b}"},
               {u"CO000003"_s, texte(200)},
               {u"CO000004"_s, "{\\rtf1 texte\\{S=note\\}note\\{-S\\}}"}});
    }
    static QByteArray texte(int lettres) { return "{\\rtf1 " + QByteArray(lettres, 'x') + "}"; }
    void ouvre(const QList<std::pair<QString, QByteArray>>& documentsdelabase) {
        const QString chemin = dossier_.filePath(u"base.dat"_s);
        {
            const auto base = Database::create(chemin, corpusSchema());
            ASSERT_NE(base.database, nullptr);
            TableWriter table(*base.database, u"données"_s, {u"référence"_s, u"numart"_s, u"titre"_s, u"contenu"_s});
            for (const auto& [cle, corps] : documentsdelabase)
                ASSERT_TRUE(table.add({cle.left(2), cle.mid(2), cle, corps}));
        }
        ASSERT_EQ(corpus.connecte(chemin), OpenError::None);
        corpus.ouvretables();
    }
    void oui(int combien = 1) {
        dialogues.answers.insert(dialogues.answers.end(), static_cast<std::size_t>(combien), Bouton::Oui);
    }
    void imprime(const QStringList& cles, const QString& libelle = u"Baux [3]"_s) {
        oui();
        commande.imprimer(libelle, cles);
    }

    Corpus corpus;
    TableStyles styles;
    SablierMuet sablier;
    DialogueScript dialogue;
    DialoguesScript dialogues;
    ImpressionDossier commande{{impression, dossiers, dialogue, dialogues, corpus, styles, sablier, textefrancais}};

private:
    QTemporaryDir dossier_;
};

TEST_F(DossierImprime, TheQuestionNamesTheDossierWithoutItsCount) {
    dialogues.answers = {Bouton::Non};
    commande.imprimer(u"Baux [3]"_s, {u"CO000001 1"_s});
    ASSERT_EQ(dialogues.messages.size(), 1U);
    const Message& question = dialogues.messages.front();
    EXPECT_EQ(question.texte, u"<4410> \"Baux\" ?");
    EXPECT_EQ(question.titre, u"<114>");
    EXPECT_EQ(question.icone, Icone::Question);
    EXPECT_EQ(question.boutons, Bouton::Oui | Bouton::Non | Bouton::Aide);
}

TEST_F(DossierImprime, DecliningPrintsNothing) {
    dialogues.answers = {Bouton::Non};
    commande.imprimer(u"Baux"_s, {u"CO000001 1"_s});
    EXPECT_TRUE(appareil.appels.isEmpty());
    EXPECT_EQ(etat, EtatImpression());
}

TEST_F(DossierImprime, AnEmptyDossierCannotBePrinted) {
    commande.imprimer(u"Baux"_s, {});
    EXPECT_TRUE(dialogues.messages.empty());
    EXPECT_TRUE(appareil.appels.isEmpty());
}

TEST_F(DossierImprime, ItemsRunOnWithoutEjection) {
    dossiers.ligneseparatrice = true;
    imprime({u"CO000001 1"_s, u"CO000003 2"_s});
    EXPECT_EQ(appareil.passages,
              QStringList({u"0-50@1260:6260"_s, u"0-40@6460:10460"_s, u"40-130@1260:10260"_s, u"130-200@1260:8260"_s}));
    EXPECT_EQ(appareil.appels.filter(u"trait"_s), QStringList({u"trait 0-11906 6360"_s, u"trait 0-11906 8360"_s}));
    EXPECT_EQ(appareil.appels.filter(u"texte [ "_s), QStringList({u"texte [ 1]"_s, u"texte [ 2]"_s, u"texte [ 3]"_s}))
        << "page numbers run through the dossier";
    EXPECT_EQ(nombre(u"texte [Baux]"_s), 3);
}

TEST_F(DossierImprime, TheJobEndsWithTheDossierAndTheButtonsAreOff) {
    imprime({u"CO000001 1"_s});
    EXPECT_EQ(appareil.appels.last(), u"fin");
    EXPECT_EQ(nombre(u"fin"_s), 1);
    EXPECT_EQ(etat, (EtatImpression{0, false, -1, 250, 240}));
    EXPECT_EQ(boutons, QList<bool>({false}));
}

TEST_F(DossierImprime, EachItemIsItsOwnJobWithEjectionOn) {
    dossiers.ejectionautomatique = true;
    imprime({u"CO000001 1"_s, u"CO000001 2"_s});
    EXPECT_EQ(appareil.passages, QStringList({u"0-50@1260:6260"_s, u"0-50@1260:6260"_s}));
    EXPECT_EQ(nombre(u"texte [ 1]"_s), 3) << "numbers begin anew; a last sheet has header and footer only";
    EXPECT_EQ(nombre(u"fin"_s), 3);
    EXPECT_EQ(boutons, QList<bool>({false}));
}

TEST_F(DossierImprime, DocumentsAreRenderedAsTheirWindowsShowThem) {
    imprime({u"EU000002 1"_s});
    ASSERT_EQ(appareil.passages.size(), 1);
    const qsizetype longueur = appareil.passages.first().section(u'@', 0, 0).section(u'-', 1).toLongLong();
    FormulaireVu vu;
    vu.controle.setTextRtf(corpus.corps(decoupecle(u"EU000002")).value_or(QByteArray()));
    SourceCorpus source(corpus);
    chargecontenu(vu, false, {styles, source, sablier});
    EXPECT_EQ(longueur, vu.controle.length());
    EXPECT_TRUE(vu.controle.text().contains(QString(50, u'x'))) << "the document that it includes";
}

TEST_F(DossierImprime, AnExtractPrintsFromItsStartForItsLength) {
    imprime({u"CO000003 1 20 15P"_s});
    EXPECT_EQ(appareil.passages, QStringList(u"20-35@1260:3260"_s));
}

TEST_F(DossierImprime, AnExtractPrintsAtMostOnePage) {
    imprime({u"CO000003 1 5 190P"_s, u"CO000001 2"_s});
    EXPECT_EQ(appareil.passages.first(), u"5-95@1260:10260");
    EXPECT_EQ(appareil.passages.size(), 2);
}

TEST_F(DossierImprime, AnExtractBehindTheEndPrintsNothingAndGoesOn) {
    imprime({u"CO000001 1 1000 310P"_s, u"CO000001 2"_s});
    EXPECT_EQ(appareil.passages, QStringList({u"50-50@1260:1260"_s, u"0-50@1460:6460"_s}));
}

TEST_F(DossierImprime, KeysOfAnyFormPrintWhatTheyName) {
    imprime({u"CO000001 1 -9 310P"_s, u"CO000001 2 0 99999999999999999999P"_s, u"CO000001 3 4 -2P"_s, u"CO000001P"_s,
             u"CO000001"_s, u""_s, u"P"_s});
    EXPECT_EQ(appareil.passages, QStringList({u"0-50@1260:6260"_s, u"0-40@6460:10460"_s, u"4-4@1260:1260"_s,
                                              u"0-0@1460:1460"_s, u"0-50@1660:6660"_s}));
}

TEST_F(DossierImprime, PositionsBeyondAllBoundsStayWithinTheText) {
    imprime({u"CO000001 1 4 99999999999999999999P"_s, u"CO000001 1 0 -1P"_s, u"CO000001 1 4 -2P"_s});
    QStringList etendues;
    for (const QString& appel : appareil.appels.filter(u"passage"_s))
        etendues << appel.section(u' ', 1, 1);
    EXPECT_EQ(etendues, QStringList({u"4-50"_s, u"0-0"_s, u"4-4"_s}));
}

TEST_F(DossierImprime, NotesThatTheShortDisplayLeavesOutArePrinted) {
    styles.styles[0].nom = u"note"_s;
    styles.ajoutecondense(u"note"_s);
    imprime({u"CO000004 1"_s});
    EXPECT_EQ(appareil.passages, QStringList(u"0-9@1260:2260"_s));
}

TEST_F(DossierImprime, AMissingDocumentIsPassedOver) {
    imprime({u"CO999999 1"_s, u"CO000001 2"_s});
    EXPECT_EQ(appareil.passages.size(), 1);
    EXPECT_EQ(dialogues.messages.size(), 1U) << "without a word";
}

TEST_F(DossierImprime, WithoutAnyDocumentThereIsOnlyTheEnd) {
    imprime({u"CO999999 1"_s});
    EXPECT_TRUE(appareil.passages.isEmpty());
    EXPECT_EQ(nombre(u"blanc"_s), 0);
    EXPECT_EQ(appareil.appels.last(), u"fin");
    EXPECT_EQ(nombre(u"texte [Baux]"_s), 1) << "and its blocks";
    EXPECT_EQ(boutons, QList<bool>({false}));
}

TEST_F(DossierImprime, AnOpenJobIsOfferedToBeFinishedFirst) {
    documents.textentete = u"Document"_s;
    montre(20);
    imprimetout();
    appareil.oublie();
    oui();
    imprime({u"CO000001 1"_s});
    ASSERT_EQ(dialogues.messages.size(), 2U);
    EXPECT_EQ(dialogues.messages[1].texte, u"<4402>");
    EXPECT_EQ(dialogues.messages[1].titre, u"<4403>");
    EXPECT_EQ(dialogues.messages[1].icone, Icone::Question);
    EXPECT_EQ(dialogues.messages[1].boutons, Bouton::Oui | Bouton::Non);
    EXPECT_EQ(nombre(u"texte [Document]"_s), 1) << "with the header of documents";
    EXPECT_EQ(nombre(u"fin"_s), 2);
    EXPECT_EQ(appareil.passages, QStringList(u"0-50@1260:6260"_s)) << "on a sheet of its own";
}

TEST_F(DossierImprime, AnOpenJobThatIsNotFinishedGoesOn) {
    dossiers.choiximprimante = true; // its printer stays: nobody is asked
    montre(20);
    imprimetout();
    appareil.oublie();
    dialogues.answers = {Bouton::Oui, Bouton::Non};
    commande.imprimer(u"Baux"_s, {u"CO000001 1"_s});
    EXPECT_EQ(appareil.passages, QStringList(u"0-50@3460:8460"_s));
    EXPECT_EQ(nombre(u"fin"_s), 1);
    EXPECT_TRUE(dialogue.questions.empty());
}

TEST_F(DossierImprime, TheDialogHasNoRange) {
    dossiers.choiximprimante = true;
    dialogue.reponses = {ReponseImpression::Selection};
    imprime({u"CO000001 1"_s});
    EXPECT_EQ(dialogue.questions, (std::vector<DialogueImpression::Question>{{false, false}}));
    EXPECT_EQ(appareil.passages, QStringList(u"0-50@1260:6260"_s)) << "what it answers is not looked at";
}

TEST_F(DossierImprime, CancellingTheDialogLeavesBeforeAnyPage) {
    dossiers.choiximprimante = true;
    dialogue.reponses = {ReponseImpression::Annule};
    imprime({u"CO000001 1"_s});
    EXPECT_TRUE(appareil.appels.isEmpty());
    EXPECT_TRUE(boutons.isEmpty());
}

TEST_F(DossierImprime, APrinterThatFailsLeavesSilentlyAsItStood) {
    imprime({u"CO000001 1"_s});
    const auto appels = static_cast<int>(appareil.appels.size());
    appareil.oublie();
    boutons.clear();
    appareil.pannea = appels; // in the second item
    imprime({u"CO000001 1"_s, u"CO000001 2"_s, u"CO000001 3"_s});
    EXPECT_TRUE(etat.travailencours);
    EXPECT_TRUE(boutons.isEmpty()) << "the buttons stay";
    EXPECT_EQ(dialogues.messages.size(), 2U) << "the two questions";
}

TEST_F(DossierImprime, ABaseThatCannotBeReadLeavesSilently) {
    corpus.fermebase();
    imprime({u"CO000001 1"_s});
    EXPECT_TRUE(appareil.appels.isEmpty());
    EXPECT_EQ(dialogues.messages.size(), 1U);
}

TEST_F(DossierImprime, MarginsWithoutRoomAreToldOnce) {
    dossiers.margehaute = 30000;
    imprime({u"CO000001 1"_s, u"CO000001 2"_s});
    EXPECT_EQ(dialogues.texts(), QStringList({u"<4410> \"Baux\" ?"_s, u"<9647>"_s}));
    EXPECT_TRUE(appareil.appels.isEmpty());
}

TEST_F(DossierImprime, OnlyTheGivenItemsPrint) {
    imprime({u"EU000002 7"_s});
    EXPECT_EQ(appareil.passages.size(), 1) << "no dossier below it, no contents";
}

} // namespace velm::test
