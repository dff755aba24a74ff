// From the number of an article, and from a keyword, to the document.
#include "platform/widgets/grid/flexgrid.h"
#include "search/listemotcle.h"
#include "shell/fenetremotcle.h"
#include "shell/fenetrenumero.h"
#include "shell/selection.h"
#include "shell/volet.h"
#include "tests/e2e/hosted.h"

#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>

namespace velm::e2e {

namespace {

class Numbers : public Hosted {
protected:
    void SetUp() override { begin({}); }
    void begin(const QString& base) {
        ASSERT_NO_FATAL_FAILURE(layOut(base));
        host->setSetting(u"GENERALITES", u"CHECKQUIT", u"1"_s);
        start();
    }

    // ---- what is looked at; in the program's thread

    FenetreNumero* numbers() const { return host->frame()->findChild<FenetreNumero*>(); }
    FenetreMotcle* keywords() const { return host->frame()->findChild<FenetreMotcle*>(); }
    Selection& list() const { return host->program().selection(); }
    static Spot rowOf(const FlexGrid& grid, int number) {
        const QTableView& view = *grid.view();
        return {view.viewport(), view.visualRect(view.model()->index(number - 1, 0)) & view.viewport()->rect()};
    }
    static Spot headerOf(const FlexGrid& grid, int place) {
        const QHeaderView& header = *grid.view()->horizontalHeader();
        const int column = header.logicalIndex(place);
        return {header.viewport(),
                QRect(header.sectionViewportPosition(column), 0, header.sectionSize(column), header.height())};
    }
    bool shows(const QString& document) const {
        return host->front() && host->front()->referencecourante() == document;
    }

    // ---- what the user does

    static void typeNumber(const QString& number) {
        for (const QChar sign : number) {
            const bool named = !sign.isLetterOrNumber();
            key(!named         ? QString(sign)
                : sign == u'.' ? u"period"_s
                : sign == u'-' ? u"minus"_s
                : sign == u'*' ? u"asterisk"_s
                               : u"space"_s);
        }
    }
    void open(const QString& button) {
        ASSERT_TRUE(touch([&] { return Spot::named(host->bar(u"barrecommande"_s), button); }));
    }
    /// From the button of the bar to the document of an article, by the keys.
    void findArticle(const QString& typed, const QString& stored, const QString& pictures) {
        ASSERT_NO_FATAL_FAILURE(open(u"numéro"_s));
        ASSERT_TRUE(becomes([this] { return numbers() && numbers()->noart().hasFocus(); }));
        photo(pictures + u"-vide"_s);
        typeNumber(typed);
        ASSERT_TRUE(becomes([&] { return numbers()->noart().text() == typed; }));
        key(u"Return"_s);
        ASSERT_TRUE(becomes([&] { return numbers()->flex().rows() > 1 && numbers()->flex().text(1, 0) == stored; }));
        EXPECT_EQ(inProgram([this] { return numbers()->noart().text(); }), typed);
        photo(pictures + u"-trouve"_s);
        key(u"Down"_s);
        ASSERT_TRUE(becomes([this] { return numbers()->flex().view()->hasFocus() && numbers()->flex().row() == 1; }));
        const QString document =
            inProgram([this] { return numbers()->flex().text(1, 6) + numbers()->flex().text(1, 7); });
        key(u"Return"_s);
        ASSERT_TRUE(becomes([&] { return shows(document); }));
        photo(pictures + u"-ouvert"_s);
    }
    /// From the button of the bar to the documents of the keyword that most have, and to the first of them.
    void listKeyword(const QString& pictures) {
        ASSERT_NO_FATAL_FAILURE(open(u"motclé"_s));
        ASSERT_TRUE(becomes([this] { return keywords() && keywords()->flex().rows() > 3; }));
        photo(pictures + u"-liste"_s);
        for (const QChar mark : {u'>', u'<'}) {
            ASSERT_TRUE(touch([this] { return headerOf(keywords()->flex(), 1); }, Hand::DoubleClick));
            ASSERT_TRUE(becomes([&] { return keywords()->flex().headerCell(1).endsWith(mark); }));
        }
        EXPECT_EQ(inProgram([this] { return list().liste().lignes(); }), 0);
        ASSERT_TRUE(touch([this] { return rowOf(keywords()->flex(), 1); }));
        const int documents = inProgram([this] { return keywords()->flex().text(1, 1).toInt(); });
        ASSERT_TRUE(becomes([&] { return list().liste().lignes() == documents && list().flex().isVisible(); }));
        photo(pictures + u"-documents"_s);
        const QString first = inProgram([this] { return list().liste().cle(1); });
        ASSERT_TRUE(touch([this] { return rowOf(list().flex(), 1); }, Hand::DoubleClick));
        ASSERT_TRUE(becomes([&] { return shows(first); }));
    }
};

using NumbersOfTheRealCollection = OnTheRealCollection<Numbers>;

} // namespace

TEST_F(Numbers, AnArticleIsFoundByItsNumberAndOpenedByTheKeys) {
    ASSERT_NO_FATAL_FAILURE(findArticle(u"R531-2"_s, u"R. 531-2"_s, u"61-numero"_s));
}

TEST_F(Numbers, AnEmptyBoxAndAStarLeadOnAndCollectionsNarrow) {
    ASSERT_NO_FATAL_FAILURE(open(u"numéro"_s));
    ASSERT_TRUE(becomes([this] { return numbers() && numbers()->noart().hasFocus(); }));
    key(u"Return"_s);
    ASSERT_TRUE(becomes([this] { return numbers()->notexte().hasFocus(); }));
    key(u"asterisk"_s);
    key(u"Return"_s);
    ASSERT_TRUE(becomes([this] { return numbers()->notexte().text() == u"*"; }));
    EXPECT_TRUE(inProgram([this] { return numbers()->notexte().hasFocus() && numbers()->flex().rows() == 1; }));
    ASSERT_TRUE(touch([this] { return Spot::of(&numbers()->noart()); }));
    typeNumber(u"1*"_s);
    ASSERT_TRUE(becomes([this] { return numbers()->notexte().text().isEmpty(); }));
    key(u"Return"_s);
    ASSERT_TRUE(becomes([this] { return numbers()->flex().rows() > 3; }));
    const int all = inProgram([this] { return numbers()->flex().rows(); });
    ASSERT_TRUE(touch([this] { return Spot::named(&numbers()->barre(), u"toutdéselect"_s); }));
    ASSERT_TRUE(becomes([this] { return numbers()->flex().rows() == 1; }));
    photo(u"62-numero-sans-collection"_s);
    ASSERT_TRUE(touch([this] { return Spot::named(&numbers()->barre(), u"toutsélect"_s); }));
    ASSERT_TRUE(becomes([&] { return numbers()->flex().rows() == all; }));
}

TEST_F(Numbers, AClickOnAKeywordListsItsDocuments) {
    ASSERT_NO_FATAL_FAILURE(listKeyword(u"63-motcle"_s));
}

TEST_F(NumbersOfTheRealCollection, ArticlesAndKeywordsLeadToTheirDocuments) {
    ASSERT_NO_FATAL_FAILURE(findArticle(u"l111-1"_s, u"L111-1"_s, u"64-numero-reel"_s));
    ASSERT_NO_FATAL_FAILURE(listKeyword(u"65-motcle-reel"_s));
}

} // namespace velm::e2e
