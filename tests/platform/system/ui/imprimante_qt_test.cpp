// A list on paper, which is a file here.
#include "platform/system/ui/qtimprimante.h"

#include <QFile>
#include <QPrinter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class ImprimanteQtTest : public testing::Test {
protected:
    static TableauImprime tableau(int lignes) {
        TableauImprime t{u"Impression"_s, {u"Titre"_s, u"Mot clé"_s, u"Clef"_s}, {3000, 1000, 0}, {}};
        for (int i = 1; i <= lignes; ++i)
            t.lignes += (i > 1 ? u"\r"_s : QString()) + u"Un titre qui est long, numéro %1\tvente\tCO%1"_s.arg(i);
        return t;
    }
    /// Sheets of what was printed; 0 when nothing was.
    int feuilles(const TableauImprime& t) const {
        const QString chemin = dossier.filePath(u"liste.pdf"_s);
        {
            QPrinter imprimante(QPrinter::HighResolution);
            imprimante.setOutputFormat(QPrinter::PdfFormat);
            imprimante.setOutputFileName(chemin);
            EXPECT_TRUE(imprimetableau(imprimante, t));
        }
        QFile fichier(chemin);
        if (!fichier.open(QIODevice::ReadOnly))
            return 0;
        const QByteArray octets = fichier.readAll();
        EXPECT_TRUE(octets.startsWith("%PDF"));
        return static_cast<int>(octets.count("/Type /Page\n"));
    }
    QTemporaryDir dossier;
};

} // namespace

TEST_F(ImprimanteQtTest, AShortListTakesOneSheetAndALongOneMore) {
    EXPECT_EQ(feuilles(tableau(1)), 1);
    EXPECT_EQ(feuilles(tableau(20)), 1);
    const int deuxcents = feuilles(tableau(200));
    EXPECT_GT(deuxcents, 2);
    const int deuxmille = feuilles(tableau(2000));
    // The last sheet is seldom full.
    EXPECT_GT(deuxmille, 10 * (deuxcents - 1));
    EXPECT_LE(deuxmille, 10 * deuxcents);
}

TEST_F(ImprimanteQtTest, LongCellsTakeSeveralLines) {
    TableauImprime long_ = tableau(40);
    const int avant = feuilles(long_);
    long_.lignes.replace(u"qui est long"_s, u"qui est "_s + u"vraiment très long "_s.repeated(20));
    EXPECT_GT(feuilles(long_), 2 * avant);
    // One that no sheet can hold is cut.
    long_.lignes = u"un mot "_s.repeated(20'000) + u"\rcourt"_s;
    EXPECT_EQ(feuilles(long_), 2);
}

TEST_F(ImprimanteQtTest, RowsThatFitNoColumnDoNoHarm) {
    EXPECT_EQ(feuilles({{}, {}, {}, u"a\tb\rc"_s}), 1);
    EXPECT_EQ(feuilles({u"t"_s, {u"un"_s}, {0, 0}, u"a\tb\t\tc\r\r"_s}), 1);
    EXPECT_EQ(feuilles({u"t"_s, {u"un"_s}, {1, 1, 1}, u"seule"_s}), 1);
}

TEST_F(ImprimanteQtTest, AFileThatCannotBeWrittenIsAFailure) {
    QPrinter imprimante(QPrinter::HighResolution);
    imprimante.setOutputFormat(QPrinter::PdfFormat);
    imprimante.setOutputFileName(dossier.filePath(u"absent/liste.pdf"_s));
    EXPECT_FALSE(imprimetableau(imprimante, tableau(3)));
}
