// Real keys and clicks on the lists of all documents: the index and the dates.
#include "platform/widgets/grid/flexgrid.h"
#include "search/ui/bandeannees.h"
#include "shell/fenetrechrono.h"
#include "shell/fenetretypes.h"
#include "tests/e2e/hosted.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTableView>

namespace velm::e2e {

namespace {

class Lists : public Hosted {
protected:
    void begin(const QString& base = {}) {
        ASSERT_NO_FATAL_FAILURE(layOut(base));
        host->setSetting(u"GENERALITES", u"CHECKQUIT", u"1"_s);
        ASSERT_NO_FATAL_FAILURE(start());
    }
    void quit() {
        key(u"ctrl+q"_s);
        ASSERT_TRUE(becomes([this] { return host->hasEnded(); }));
        inProgram([this] { host->clear(); });
    }

    // ---- what is looked at; in the program's thread

    FenetreTypes* list(const QString& name) const { return host->frame()->findChild<FenetreTypes*>(name); }
    bool filled(const QString& name) const {
        return list(name) && list(name)->isVisible() && !list(name)->encours() && list(name)->flex().rows() > 2;
    }
    FlexGrid& grid(const QString& name) const { return list(name)->flex(); }
    Spot bar(const QString& which, const QString& name) const { return Spot::named(host->bar(which), name); }
    Spot type(const QString& name, const QString& button) const { return Spot::named(&list(name)->barre(), button); }
    Spot cell(const QString& name, int row, int place) const {
        const QTableView* view = grid(name).view();
        const QHeaderView* header = view->horizontalHeader();
        const int column = header->logicalIndex(place);
        if (row == 0)
            return {header->viewport(),
                    QRect(header->sectionViewportPosition(column), 0, header->sectionSize(column), header->height())};
        return {view->viewport(), view->visualRect(view->model()->index(row - 1, column))};
    }
    bool shows(const QString& document) const {
        return host->front() && host->front()->referencecourante() == document;
    }
    QString keyOf(const QString& name, int row) const {
        return static_cast<const SourceDocuments*>(grid(name).source())->cle(row - 1).texte();
    }

    // ---- the roads

    /// Open by the button, sort, look up by a letter, open, copy, release and press collections, close and come again.
    void walkTheIndex(const QString& picture);
    /// Open by the button, go to a year, sort by the month, open, close by the button.
    void walkTheDates(const QString& picture);
};

void Lists::walkTheIndex(const QString& picture) {
    const QString index = u"fIndex"_s;
    ASSERT_TRUE(touch([this] { return bar(u"barreécran"_s, u"Index"_s); }));
    ASSERT_TRUE(becomes([&] { return filled(index); }));
    photo(picture);
    const int all = inProgram([&] { return grid(index).rows(); });
    ASSERT_TRUE(touch([&] { return cell(index, 0, 2); }, Hand::DoubleClick));
    ASSERT_TRUE(becomes([&] { return !list(index)->encours() && grid(index).headerCell(2).endsWith(u'>'); }));
    ASSERT_TRUE(touch([&] { return cell(index, 1, 2); }));
    ASSERT_TRUE(becomes([&] { return grid(index).row() == 1; }));
    key(u"c"_s);
    ASSERT_TRUE(becomes([&] { return grid(index).text(grid(index).row(), 2).startsWith(u'C', Qt::CaseInsensitive); }));
    key(u"shift+Down"_s);
    ASSERT_TRUE(becomes([&] { return grid(index).rowSel() == grid(index).row() + 1; }));
    key(u"ctrl+c"_s);
    const QString title = inProgram([&] { return grid(index).text(grid(index).row(), 2); });
    ASSERT_TRUE(becomes([&] { return QGuiApplication::clipboard()->text().contains(title); }));
    EXPECT_EQ(inProgram([] { return QGuiApplication::clipboard()->text().count(u'\n'); }), 1);
    const QString last = inProgram([&] { return keyOf(index, grid(index).rowSel()); });
    key(u"Return"_s);
    ASSERT_TRUE(becomes([&] { return shows(last); })) << "both are open, the last one in front";
    ASSERT_TRUE(touch([this] { return bar(u"barreécran"_s, u"Index"_s); }));
    ASSERT_TRUE(becomes([&] { return !list(index)->isVisible(); })) << "it was open behind the documents";
    ASSERT_TRUE(touch([this] { return bar(u"barreécran"_s, u"Index"_s); }));
    ASSERT_TRUE(becomes([&] { return filled(index); }));
    ASSERT_TRUE(touch([&] { return type(index, u"CO"_s); }));
    ASSERT_TRUE(becomes([&] { return filled(index) && grid(index).rows() < all; }));
    ASSERT_TRUE(touch([&] { return type(index, u"toutdéselect"_s); }));
    ASSERT_TRUE(becomes([&] { return !grid(index).isVisible(); }));
    ASSERT_TRUE(touch([&] { return type(index, u"toutsélect"_s); }));
    ASSERT_TRUE(becomes([&] { return filled(index) && grid(index).isVisible() && grid(index).rows() == all; }));
    ASSERT_TRUE(touch([&] { return type(index, u"EU"_s); }));
    ASSERT_TRUE(becomes([&] { return filled(index) && grid(index).rows() < all; }));
    key(u"ctrl+w"_s);
    ASSERT_TRUE(becomes([&] { return !list(index); }));
}

void Lists::walkTheDates(const QString& picture) {
    const QString chrono = u"frmchrono"_s;
    ASSERT_TRUE(touch([this] { return bar(u"barrecommande"_s, u"chrono"_s); }));
    ASSERT_TRUE(becomes([&] { return filled(chrono); }));
    photo(picture);
    const auto strip = [&] { return list(chrono)->findChild<BandeAnnees*>(); };
    ASSERT_TRUE(becomes([&] { return strip() && strip()->barres().size() > 2; }));
    const auto lastBar = [&] { return static_cast<int>(strip()->barres().size()) - 1; };
    ASSERT_TRUE(touch([&] { return Spot{strip(), strip()->place(lastBar())}; }));
    ASSERT_TRUE(becomes([&] {
        const BarreAnnees year = strip()->barres().back();
        const int row = grid(chrono).row();
        return row > 1 && grid(chrono).text(row, 0).toInt() >= year.annee &&
               grid(chrono).text(row - 1, 0).toInt() < year.annee;
    }));
    key(u"Home"_s);
    key(u"Return"_s);
    ASSERT_TRUE(becomes([&] { return grid(chrono).row() == 1; })) << "the strip has the keys";
    photo(picture + u"-annee"_s);
    ASSERT_TRUE(touch([&] { return cell(chrono, 0, 1); }, Hand::DoubleClick));
    ASSERT_TRUE(becomes([&] { return !list(chrono)->encours() && grid(chrono).headerCell(1).endsWith(u'>'); }));
    // The selected row has gone with its document to where that stands now.
    const int seen = inProgram([&] { return grid(chrono).topRow() + 1; });
    const QString opened = inProgram([&] { return keyOf(chrono, seen); });
    ASSERT_TRUE(touch([&] { return cell(chrono, seen, 3); }, Hand::DoubleClick));
    ASSERT_TRUE(becomes([&] { return shows(opened); }));
    // From behind it comes forward; in front it closes.
    ASSERT_TRUE(touch([this] { return bar(u"barrecommande"_s, u"chrono"_s); }));
    ASSERT_TRUE(becomes([&] { return list(chrono) && list(chrono)->isActiveWindow() && grid(chrono).isVisible(); }));
    ASSERT_TRUE(touch([this] { return bar(u"barrecommande"_s, u"chrono"_s); }));
    ASSERT_TRUE(becomes([&] { return !list(chrono); }));
}

using ListsOfTheRealCollection = OnTheRealCollection<Lists>;

} // namespace

TEST_F(Lists, TheIndexIsWalkedByKeysAndClicksAndRemembersItsTypes) {
    ASSERT_NO_FATAL_FAILURE(begin());
    ASSERT_NO_FATAL_FAILURE(walkTheIndex(u"51-index"_s));
    ASSERT_NO_FATAL_FAILURE(quit());
    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_TRUE(touch([this] { return bar(u"barreécran"_s, u"Index"_s); }));
    ASSERT_TRUE(becomes([&] { return filled(u"fIndex"_s); }));
    EXPECT_EQ(inProgram([&] { return list(u"fIndex"_s)->types().statut(); }), u"10111111111");
    photo(u"52-index-retour"_s);
}

TEST_F(Lists, TheDatesAreWalkedByYearsAndMonths) {
    ASSERT_NO_FATAL_FAILURE(begin());
    ASSERT_NO_FATAL_FAILURE(walkTheDates(u"53-dates"_s));
    ASSERT_NO_FATAL_FAILURE(quit());
}

TEST_F(ListsOfTheRealCollection, TheSameRoads) {
    ASSERT_NO_FATAL_FAILURE(walkTheIndex(u"54-index-reel"_s));
    ASSERT_NO_FATAL_FAILURE(walkTheDates(u"55-dates-reel"_s));
}

} // namespace velm::e2e
