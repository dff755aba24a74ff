// The links of a hostile document in the real program, with its real boxes and its real way to the desktop.
#include "platform/system/ui/qtdialogues.h"
#include "platform/system/ui/qtoutside.h"
#include "tests/shell/programme_support.h"
#include "tests/support/when_shown.h"

#include <QDesktopServices>
#include <QMessageBox>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// Stands for the desktop's programs.
class Bureautique : public QObject {
    Q_OBJECT

public:
    Bureautique() {
        for (const QString& schema : schemas)
            QDesktopServices::setUrlHandler(schema, this, "prend");
    }
    ~Bureautique() override {
        for (const QString& schema : schemas)
            QDesktopServices::unsetUrlHandler(schema);
    }
    Q_INVOKABLE void prend(const QUrl& url) { prises << QString::fromUtf8(url.toEncoded()); }

    QStringList prises;

private:
    const QStringList schemas{u"http"_s, u"https"_s,      u"mailto"_s, u"file"_s, u"ftp"_s,
                              u"ssh"_s,  u"javascript"_s, u"smb"_s,    u"data"_s, u"vnc"_s};
};

class LiensRefusesTest : public ProgrammeTest {
protected:
    std::vector<DocumentEssai> documents() const override {
        return {
            {u"CO000001"_s, u"Article premier"_s,
             "{\\rtf1\\ansi \\{U=alpha|ssh:-oProxyCommand=x\\} \\{U=beta|https://example.org/page\\} "
             "\\{E=gamma|a@b?attach=/etc/passwd\\} \\{E=delta|a@b,attach='/etc/passwd'\\} "
             "\\{U=epsilon|file:///etc/passwd.html\\} \\{U=zeta|data:<b>\\u8238?x\\} \\{U=sigma|www.example.org\\}}"}};
    }
    /// Clicks on a link; the text of the box that comes of it, empty when none comes.
    QString clic(const QString& mot) {
        QString dit;
        const auto boite = whenShown<QMessageBox>([&dit](QMessageBox& celle) {
            EXPECT_EQ(celle.textFormat(), Qt::PlainText);
            EXPECT_EQ(celle.icon(), QMessageBox::Warning);
            dit = celle.text();
            celle.accept();
        });
        Textes* fenetre = programme->fenetre(0);
        clique(*fenetre, fenetre->vue().control().text().indexOf(mot) + 1);
        return dit;
    }
};

} // namespace

TEST_F(LiensRefusesTest, OnlyTheWebAndMailReachTheDesktopAndTheUserIsToldOfTheRest) {
    QtDialogues boites;
    QtNavigateur navigateurvrai;
    Bureautique bureautique;
    OptionsProgramme options = optionsprogramme(u"CO1"_s);
    programme = std::make_unique<Programme>(options, MondeExterieur{boites, navigateurvrai, processus, sablier,
                                                                    pressepapiers, courrier, imprimante, lecteurs});
    ASSERT_EQ(programme->demarre(), Demarrage::EnMarche);

    EXPECT_EQ(clic(u"beta"_s), QString());
    EXPECT_EQ(clic(u"sigma"_s), QString());
    EXPECT_EQ(clic(u"gamma"_s), QString());
    const QStringList permises{u"https://example.org/page"_s, u"http://www.example.org"_s, u"mailto:a@b"_s};
    EXPECT_EQ(bureautique.prises, permises);

    for (const auto& [mot, adresse] :
         {std::pair(u"alpha"_s, u"ssh:-oProxyCommand=x"_s), std::pair(u"delta"_s, u"a@b,attach='/etc/passwd'"_s),
          std::pair(u"epsilon"_s, u"file:///etc/passwd.html"_s), std::pair(u"zeta"_s, u"data:<b>U+202Ex"_s)}) {
        const QString dit = clic(mot);
        EXPECT_TRUE(dit.startsWith(u"Ce lien n’a pas été ouvert"_s)) << dit.toStdString();
        EXPECT_TRUE(dit.endsWith(adresse)) << dit.toStdString();
    }
    EXPECT_EQ(bureautique.prises, permises);
    EXPECT_EQ(programme->fenetre(0)->referencecourante(), u"CO000001");
}

TEST(AideLocale, ItsFileIsOpenedByItsOwnDoor) {
    Bureautique bureautique;
    QtNavigateur navigateur;
    EXPECT_TRUE(navigateur.openFile(u"/aide/Velm2000.chm"_s));
    EXPECT_EQ(bureautique.prises, QStringList{u"file:///aide/Velm2000.chm"_s});
    EXPECT_FALSE(navigateur.openFile(QString()));
}

#include "liens_refuses_test.moc"
