// A base that does not open at the start: the dialog stands until it does, or until the user leaves.
#include "tests/shell/programme_support.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class ConnexionAuDemarrage : public test::ProgrammeTest {
protected:
    QString chemin(const QString& nom) const { return dossier.filePath(nom); }

    static QDialog* dialogue() {
        for (QWidget* fenetre : QApplication::topLevelWidgets()) {
            if (fenetre->objectName() == u"frmconnexion" && fenetre->isVisible())
                return qobject_cast<QDialog*>(fenetre);
        }
        return nullptr;
    }
    static QString texte(const char* nom) { return dialogue()->findChild<QLabel*>(QString::fromLatin1(nom))->text(); }
    static void presse(const char* nom) {
        QTest::mouseClick(dialogue()->findChild<QPushButton*>(QString::fromLatin1(nom)), Qt::LeftButton);
    }
    /// Does one thing after the other while the dialog is open; what is left over when it has gone fails the test.
    void pendantledialogue(std::vector<std::function<void()>> pas) {
        pas_ = std::move(pas);
        QObject::connect(&minuterie_, &QTimer::timeout, &minuterie_, [this] {
            if (!dialogue() || prochain_ == pas_.size())
                return;
            pas_[prochain_++]();
        });
        minuterie_.start(0);
    }
    void TearDown() override {
        EXPECT_EQ(prochain_, pas_.size());
        ProgrammeTest::TearDown();
    }

private:
    QTimer minuterie_;
    std::vector<std::function<void()>> pas_;
    std::size_t prochain_ = 0;
};

} // namespace

TEST_F(ConnexionAuDemarrage, AMissingBaseIsSaidWithItsFolderAndTheUserMayLeave) {
    ASSERT_TRUE(QFile::remove(chemin(u"velm2000.dat"_s)));
    pendantledialogue({[this] {
        EXPECT_TRUE(texte("Label1").contains(dossier.path())) << qPrintable(texte("Label1"));
        EXPECT_TRUE(texte("Label2").startsWith(u"Le disque")) << qPrintable(texte("Label2"));
        EXPECT_EQ(texte("Label3"), u"Vous pouvez\u00A0:");
        EXPECT_EQ(dialogue()->windowTitle(), u"Connexion à la base documentaire");
        EXPECT_TRUE(dialogue()->isModal());
        presse("Command3");
    }});
    EXPECT_EQ(demarre(QString()), Demarrage::Renonce);
    EXPECT_FALSE(QFile::exists(chemin(u"velm2000.dat"_s)));
    EXPECT_TRUE(dialogues.messages.empty());
}

TEST_F(ConnexionAuDemarrage, TheClosedDialogIsAGoodbye) {
    ASSERT_TRUE(QFile::remove(chemin(u"velm2000.dat"_s)));
    pendantledialogue({[] { QTest::keyClick(dialogue(), Qt::Key_Escape); }});
    EXPECT_EQ(demarre(QString()), Demarrage::Renonce);
}

TEST_F(ConnexionAuDemarrage, AForeignFileIsSaidAndOnceItIsReplacedAnotherTryOpens) {
    ASSERT_TRUE(QFile::rename(chemin(u"velm2000.dat"_s), chemin(u"bonne"_s)));
    QFile base(chemin(u"velm2000.dat"_s));
    ASSERT_TRUE(base.open(QIODevice::WriteOnly));
    base.write("not a base at all");
    base.close();
    pendantledialogue({[this] {
                           EXPECT_TRUE(texte("Label2").contains(chemin(u"velm2000.dat"_s)));
                           EXPECT_TRUE(texte("Label2").contains(u"endommagée")) << qPrintable(texte("Label2"));
                           presse("Command1");
                       },
                       [this] {
                           QFile::remove(chemin(u"velm2000.dat"_s));
                           QFile::rename(chemin(u"bonne"_s), chemin(u"velm2000.dat"_s));
                           QTest::keyClick(dialogue(), Qt::Key_Return);
                       }});
    EXPECT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    EXPECT_EQ(programme->fenetre(0)->referencecourante(), u"CO000001");
}

TEST_F(ConnexionAuDemarrage, ABaseThatTheUserFindsIsRemembered) {
    ASSERT_TRUE(QDir(dossier.path()).mkpath(u"ailleurs"_s));
    ASSERT_TRUE(QFile::rename(chemin(u"velm2000.dat"_s), chemin(u"ailleurs/velm2000.dat"_s)));
    dialogues.openFiles = {std::nullopt, chemin(u"langues/RES2000.FR"_s), chemin(u"ailleurs/velm2000.dat"_s)};
    pendantledialogue({[] { presse("Command2"); },
                       [this] {
                           EXPECT_TRUE(texte("Label1").contains(u'"' + dossier.path())) << "nothing was chosen";
                           presse("Command2");
                       },
                       [this] {
                           EXPECT_TRUE(texte("Label1").contains(chemin(u"langues"_s))) << qPrintable(texte("Label1"));
                           presse("Command2");
                       }});
    EXPECT_EQ(demarre(QString()), Demarrage::EnMarche);
    EXPECT_EQ(reglage("BASE", "CHEMIN"), chemin(u"ailleurs"_s));
}

TEST_F(ConnexionAuDemarrage, ADiscWithTheBaseNeedsNoDialog) {
    ASSERT_TRUE(QDir(dossier.path()).mkpath(u"disque"_s));
    ASSERT_TRUE(QFile::rename(chemin(u"velm2000.dat"_s), chemin(u"disque/velm2000.dat"_s)));
    lecteurs.lecteurs = {{chemin(u"disque"_s), Lecteur::Genre::Optique, true}};
    dialogues.answers = {Bouton::Oui};
    EXPECT_EQ(demarre(QString()), Demarrage::EnMarche);
    EXPECT_TRUE(QFile::exists(chemin(u"velm2000.dat"_s))) << "copied beside the program";
    EXPECT_EQ(reglage("BASE", "CHEMIN"), dossier.path());
    EXPECT_EQ(dialogue(), nullptr);
}

TEST_F(ConnexionAuDemarrage, AMovedFolderFindsItsBase) {
    regle(u"BASE", u"CHEMIN", u"/no/such/folder/"_s);
    EXPECT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    EXPECT_EQ(reglage("BASE", "CHEMIN"), dossier.path() + u'/');
    EXPECT_TRUE(dialogues.messages.empty());
}
