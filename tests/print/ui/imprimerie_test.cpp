// The one open job on a scripted printer: what stops it, what fails, and what is left then.
#include "print/exportpdf.h"
#include "print/imprimerie.h"
#include "tests/support/dialogues_script.h"
#include "tests/support/outside_script.h"

#include <QFile>
#include <QTemporaryDir>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Has enough at some page.
class AvancementScript final : public Avancement {
public:
    int assez = 1'000'000; ///< the page at which it stops
    int auprinter = 1'000'000;
    int fins = 0;
    std::vector<std::pair<int, int>> vues;

    bool page(int faites, int toutes) override {
        vues.emplace_back(faites, toutes);
        return toutes > 0 ? faites < auprinter : faites < assez;
    }
    void finit() override { ++fins; }
};

class ImprimerieTest : public testing::Test {
protected:
    ImprimerieTest() {
        for (ReglagesImpression* r : {&documents, &dossiers}) {
            r->choiximprimante = false;
            r->ejectionautomatique = false;
            r->nopagepied = 1;
        }
    }
    static QString texte(Texte lequel) { return u"<%1>"_s.arg(static_cast<int>(lequel)); }
    void imprime(const QString& mots, int fois = 1, const QString& titre = u"Titre"_s) {
        rtf.setText((mots + u"\r\n"_s).repeated(fois));
        imprimerie.imprimerdocument({rtf, titre, nullptr});
    }
    static QString lettres(const JobPages& pages) {
        QString tout;
        for (const JobPage& page : pages.pages) {
            for (const JobRun& run : page.runs)
                tout += pages.text(run).toString() + u'|';
        }
        return tout;
    }

    ImprimanteScript imprimante;
    ReglagesImpression documents;
    ReglagesImpression dossiers;
    DialoguesScript dialogues;
    Corpus corpus;
    TableStyles styles;
    SablierMuet sablier;
    AvancementScript avancement;
    CourrierScript courrier;
    QList<bool> boutons;
    QStringList dits;
    RichTextControl rtf;
    Imprimerie imprimerie{{imprimante, documents, dossiers, dialogues, corpus, styles, sablier, avancement, texte,
                           [this](bool ouvert) { boutons << ouvert; }, [this](const QString& mots) { dits << mots; }}};
};

} // namespace

TEST_F(ImprimerieTest, AJobIsOnThePaperThatIsChosenWhenItBegins) {
    imprimante.papier = {8000, 9000, 8000, 9000, 0, 0};
    imprime(u"Un"_s);
    imprimante.papier = sheetA4;
    imprime(u"Deux"_s);
    imprimerie.terminetravail();
    ASSERT_EQ(imprimante.travaux.size(), 1U);
    EXPECT_EQ(imprimante.travaux[0].pages.width, 8000) << "the paper of an open job stays";
    EXPECT_EQ(imprimante.travaux[0].titre, u"Titre");
    imprime(u"Trois"_s);
    imprimerie.terminetravail();
    EXPECT_EQ(imprimante.travaux[1].pages.width, sheetA4.width);
}

TEST_F(ImprimerieTest, StoppedWhileItIsSetAFirstDocumentLeavesNoJob) {
    avancement.assez = 3;
    imprime(u"Ligne"_s, 1000);
    EXPECT_FALSE(imprimerie.travailencours());
    EXPECT_EQ(imprimerie.etat().numeropage, 0);
    EXPECT_EQ(avancement.fins, 1);
    avancement.assez = 1'000'000;
    imprime(u"Seul"_s);
    imprimerie.terminetravail();
    ASSERT_EQ(imprimante.travaux.size(), 1U);
    EXPECT_EQ(imprimante.travaux[0].pages.pages.size(), 1U) << "nothing of the stopped one is left";
    EXPECT_TRUE(dits.isEmpty()) << "who stopped it knows";
}

TEST_F(ImprimerieTest, StoppedOnItsFirstSheetALaterDocumentLeavesTheJobAsItWas) {
    imprime(u"Premier"_s);
    const EtatImpression avant = imprimerie.etat();
    avancement.assez = 0;
    imprime(u"Ligne"_s, 1000);
    EXPECT_EQ(imprimerie.etat(), avant);
    avancement.assez = 1'000'000;
    imprimerie.terminetravail();
    EXPECT_EQ(lettres(imprimante.travaux.at(0).pages), u"Premier| 1|");
}

TEST_F(ImprimerieTest, APrinterThatFailsLeavesTheJobAsItWasAndIsSaid) {
    imprime(u"Premier"_s);
    const EtatImpression avant = imprimerie.etat();
    imprimante.works = false;
    imprimerie.terminetravail();
    EXPECT_EQ(imprimerie.etat(), avant);
    EXPECT_EQ(dits, QStringList{texte(Texte::ImpressionPasAboutie)});
    imprimante.works = true;
    avancement.auprinter = 0;
    imprimerie.terminetravail();
    EXPECT_EQ(imprimerie.etat(), avant) << "stopped while it goes out";
    EXPECT_EQ(dits.size(), 1);
    avancement.auprinter = 1'000'000;
    imprimerie.terminetravail();
    ASSERT_EQ(imprimante.travaux.size(), 1U);
    EXPECT_EQ(imprimante.travaux[0].pages.pages.at(0).runs.size(), 2U) << "its words, and its number once";
    EXPECT_EQ(imprimerie.etat(), EtatImpression({0, false, -1, avant.decalagex, avant.decalagey}));
}

TEST_F(ImprimerieTest, WithEjectionAFailureLeavesNothingBehind) {
    documents.ejectionautomatique = true;
    imprimante.works = false;
    imprime(u"Un"_s);
    EXPECT_FALSE(imprimerie.travailencours());
    EXPECT_EQ(dits.size(), 1);
    imprimante.works = true;
    imprime(u"Deux"_s);
    ASSERT_EQ(imprimante.travaux.size(), 1U);
    EXPECT_FALSE(lettres(imprimante.travaux[0].pages).contains(u"Un"));
}

TEST_F(ImprimerieTest, AProofOfTheJobIsWhatItsEndPrintsAndLeavesItOpen) {
    imprime(u"Premier"_s);
    imprime(u"Second"_s, 200);
    const JobPages epreuve = imprimerie.epreuvedutravail();
    EXPECT_TRUE(imprimerie.travailencours());
    imprimerie.terminetravail();
    EXPECT_EQ(lettres(epreuve), lettres(imprimante.travaux.at(0).pages));
    EXPECT_EQ(epreuve.pages.size(), imprimante.travaux.at(0).pages.pages.size());
}

TEST_F(ImprimerieTest, AProofOfADocumentIsWhatPrintingItGives) {
    for (const bool ejection : {true, false}) {
        documents.ejectionautomatique = ejection;
        rtf.setText(u"Ligne\r\n"_s.repeated(300));
        std::size_t vues = 0;
        const JobPages epreuve = imprimerie.epreuvedudocument({rtf, u"Titre"_s, nullptr}, [&](const JobPages& pages) {
            vues = pages.pages.size();
            return true;
        });
        EXPECT_EQ(vues + 1, epreuve.pages.size()) << "told of each sheet but the last";
        EXPECT_FALSE(imprimerie.travailencours());
        imprimante.travaux.clear();
        imprimerie.imprimerdocument({rtf, u"Titre"_s, nullptr});
        if (!ejection)
            imprimerie.terminetravail();
        EXPECT_EQ(lettres(epreuve), lettres(imprimante.travaux.at(0).pages));
    }
    EXPECT_THROW(imprimerie.epreuvedudocument({rtf, u"Titre"_s, nullptr}, [](const JobPages&) { return false; }),
                 PrintFailure);
}

TEST_F(ImprimerieTest, AnExportThatIsStoppedWritesNoFileAndSaysNothing) {
    QTemporaryDir dossier;
    const QString chemin = dossier.filePath(u"a.pdf"_s);
    ExportPdf sortie({dialogues, sablier, courrier, avancement, texte, [this](const QString& mots) { dits << mots; }});
    rtf.setText(u"Ligne\r\n"_s.repeated(500));
    const auto compose = [this](const auto& avance) {
        return imprimerie.epreuvedudocument({rtf, u"Titre"_s, nullptr}, avance);
    };
    for (int* borne : {&avancement.assez, &avancement.auprinter}) {
        *borne = 2;
        dialogues.saveFiles = {chemin};
        EXPECT_FALSE(sortie.exporte(u"Titre"_s, compose));
        EXPECT_FALSE(QFile::exists(chemin));
        EXPECT_TRUE(dialogues.messages.empty());
        *borne = 1'000'000;
    }
    dialogues.saveFiles = {chemin};
    EXPECT_TRUE(sortie.exporte(u"Titre: un"_s, compose));
    EXPECT_TRUE(QFile::exists(chemin));
    EXPECT_EQ(dialogues.fileQuestions.back().nom, u"Titre  un");
    EXPECT_EQ(dits.size(), 1);
    EXPECT_EQ(avancement.fins, 3);
    dialogues.saveFiles = {chemin};
    dialogues.answers = {Bouton::Oui};
    EXPECT_FALSE(sortie.exporte(u"Rien"_s, [](const auto&) { return JobPages(); }));
    EXPECT_EQ(dialogues.texts().back(), texte(Texte::PdfVide));
}

} // namespace velm::test
