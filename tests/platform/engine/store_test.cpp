// The store that the program writes: edits, transactions, full disks.
#include "core/schemas.h"
#include "tests/platform/engine/base.h"

namespace velm::testing {
namespace {

class StoreTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        base = store(dossiersSchema());
        ASSERT_TRUE(base);
        items = base->openTable(u"données"_s);
        folders = base->openTable(u"arborescences"_s);
    }

    bool item(qint64 folder, qint64 place, const QString& number) {
        items->addNew();
        items->setValue(u"arborescence"_s, folder);
        items->setValue(u"noordre"_s, place);
        items->setValue(u"référence"_s, u"CO"_s);
        items->setValue(u"numart"_s, number);
        return items->update();
    }
    QStringList numbers() {
        items->moveFirst();
        return rest(*items, u"numart"_s);
    }

    std::unique_ptr<Database> base;
    std::unique_ptr<Recordset> items;
    std::unique_ptr<Recordset> folders;
};

TEST_F(StoreTest, AnEmptyTableStandsAtBothEnds) {
    EXPECT_TRUE(items->eof());
    EXPECT_TRUE(items->bof());
    EXPECT_EQ(items->recordCount(), 0);
    EXPECT_TRUE(items->value(u"numart"_s).isNull());
    EXPECT_EQ(items->text(u"numart"_s), QString());
    EXPECT_EQ(items->number(u"noordre"_s), 0);
    EXPECT_FALSE(items->bookmark().valid());
    items->moveNext();
    items->movePrevious();
    EXPECT_TRUE(items->eof());
}

TEST_F(StoreTest, NewRowsTakeTheirPlaceInTheOrder) {
    EXPECT_TRUE(item(2, 1, u"000003"_s));
    EXPECT_TRUE(item(1, 2, u"000002"_s));
    EXPECT_TRUE(item(1, 1, u"000001"_s));
    EXPECT_EQ(items->recordCount(), 3);
    EXPECT_EQ(numbers(), (QStringList{u"000001"_s, u"000002"_s, u"000003"_s}));
}

TEST_F(StoreTest, ThePositionStaysAfterANewRow) {
    item(1, 1, u"000001"_s);
    item(1, 3, u"000003"_s);
    items->seek(Seek::Equal, 1, 1);
    EXPECT_TRUE(item(1, 2, u"000002"_s));
    EXPECT_EQ(items->text(u"numart"_s), u"000001"_s);
    EXPECT_TRUE(items->setBookmark(items->lastModified()));
    EXPECT_EQ(items->text(u"numart"_s), u"000002"_s);
    items->moveNext();
    EXPECT_EQ(items->text(u"numart"_s), u"000003"_s);
}

TEST_F(StoreTest, ARepeatedUniquePairIsRefusedAndTheEditDropped) {
    EXPECT_TRUE(item(1, 1, u"000001"_s));
    EXPECT_TRUE(item(1, 2, u"000002"_s));
    EXPECT_FALSE(item(1, 1, u"000009"_s));
    EXPECT_NE(items->lastError(), QString());
    items->seek(Seek::Equal, 1, 2);
    items->edit();
    items->setValue(u"noordre"_s, 1);
    EXPECT_FALSE(items->update());
    EXPECT_EQ(items->number(u"noordre"_s), 2) << "the row stands as it was";
    EXPECT_EQ(numbers(), (QStringList{u"000001"_s, u"000002"_s}));
    EXPECT_TRUE(item(1, 3, u"000003"_s)) << "the next edit begins afresh";
    EXPECT_EQ(items->lastError(), QString());
}

TEST_F(StoreTest, EditedValuesShowBeforeTheyAreWritten) {
    item(1, 1, u"000001"_s);
    items->moveFirst();
    items->edit();
    items->setValue(u"titre"_s, u"Été"_s);
    EXPECT_EQ(items->text(u"titre"_s), u"Été"_s);
    EXPECT_EQ(items->text(u"numart"_s), u"000001"_s) << "fields not touched come from the row";
    items->cancelUpdate();
    EXPECT_TRUE(items->isNull(u"titre"_s));
    items->addNew();
    EXPECT_TRUE(items->isNull(u"numart"_s)) << "a new row begins empty";
    items->cancelUpdate();
    EXPECT_EQ(items->recordCount(), 1);
}

TEST_F(StoreTest, AMoveDropsTheEdit) {
    item(1, 1, u"000001"_s);
    item(1, 2, u"000002"_s);
    items->moveFirst();
    items->edit();
    items->setValue(u"numart"_s, u"999999"_s);
    items->moveNext();
    EXPECT_EQ(numbers(), (QStringList{u"000001"_s, u"000002"_s}));
    EXPECT_THROW(items->update(), Ended) << "nothing is being edited";
}

TEST_F(StoreTest, AnEditedKeyMovesTheRowAndItStaysCurrent) {
    for (int i = 1; i <= 3; ++i)
        item(1, i, u"00000%1"_s.arg(i));
    items->seek(Seek::Equal, 1, 1);
    items->edit();
    items->setValue(u"noordre"_s, 9);
    EXPECT_TRUE(items->update());
    EXPECT_EQ(items->text(u"numart"_s), u"000001"_s);
    EXPECT_EQ(items->number(u"noordre"_s), 9);
    items->moveNext();
    EXPECT_TRUE(items->eof());
    EXPECT_EQ(numbers(), (QStringList{u"000002"_s, u"000003"_s, u"000001"_s}));
}

TEST_F(StoreTest, AfterADeletionTheMovesGoToTheNeighbours) {
    for (int i = 1; i <= 5; ++i)
        item(1, i, u"00000%1"_s.arg(i));
    items->seek(Seek::Equal, 1, 3);
    EXPECT_TRUE(items->remove());
    EXPECT_TRUE(items->isNull(u"numart"_s));
    EXPECT_FALSE(items->bookmark().valid());
    EXPECT_FALSE(items->eof());
    items->moveNext();
    EXPECT_EQ(items->text(u"numart"_s), u"000004"_s);
    EXPECT_TRUE(items->remove());
    items->movePrevious();
    EXPECT_EQ(items->text(u"numart"_s), u"000002"_s);
    EXPECT_EQ(items->recordCount(), 3);
}

TEST_F(StoreTest, DeletingWhileWalkingDeletesEveryRow) {
    for (int i = 1; i <= 20; ++i)
        item(i % 3, i, u"000001"_s);
    for (items->moveFirst(); !items->eof(); items->moveNext())
        EXPECT_TRUE(items->remove());
    EXPECT_EQ(items->recordCount(), 0);
}

TEST_F(StoreTest, ADeletedRowsBookmarkIsGone) {
    item(1, 1, u"000001"_s);
    item(1, 2, u"000002"_s);
    items->moveFirst();
    const Bookmark place = items->bookmark();
    items->remove();
    EXPECT_FALSE(items->setBookmark(place));
    EXPECT_TRUE(items->eof());
}

TEST_F(StoreTest, IrefFindsTheFirstRowInWhateverFolder) {
    item(7, 1, u"000001"_s);
    item(2, 1, u"000001"_s);
    items->setIndex(u"iref"_s);
    items->seek(Seek::Equal, u"CO"_s, u"000001"_s, 1);
    EXPECT_FALSE(items->noMatch());
    EXPECT_EQ(items->number(u"arborescence"_s), 7) << "equal keys stand in the order they were written";
    items->seek(Seek::Equal, u"CO"_s, u"000001"_s, 2);
    EXPECT_TRUE(items->noMatch());
    EXPECT_TRUE(items->eof());
}

TEST_F(StoreTest, ATransactionIsWrittenAsAWholeOrNotAtAll) {
    ASSERT_TRUE(base->begin());
    EXPECT_FALSE(base->begin()) << "they do not nest";
    EXPECT_TRUE(base->inTransaction());
    item(1, 1, u"000001"_s);
    base->rollback();
    EXPECT_EQ(items->recordCount(), 0);
    ASSERT_TRUE(base->begin());
    item(1, 1, u"000001"_s);
    EXPECT_TRUE(base->commit());
    EXPECT_FALSE(base->inTransaction());
    EXPECT_FALSE(base->commit()) << "there is nothing to end";
    EXPECT_EQ(items->recordCount(), 1);
}

TEST_F(StoreTest, ARefusedRowDoesNotEndTheTransaction) {
    ASSERT_TRUE(base->begin());
    EXPECT_TRUE(item(1, 1, u"000001"_s));
    EXPECT_FALSE(item(1, 1, u"000002"_s));
    EXPECT_TRUE(item(1, 2, u"000003"_s));
    EXPECT_TRUE(base->commit());
    EXPECT_EQ(numbers(), (QStringList{u"000001"_s, u"000003"_s}));
}

TEST_F(StoreTest, AFullDiskRefusesTheRowAndNothingIsHalfWritten) {
    ASSERT_TRUE(item(1, 1, u"000001"_s));
    ASSERT_TRUE(base->execute(u"PRAGMA max_page_count=12"_s));
    ASSERT_TRUE(base->begin());
    int written = 0;
    items->addNew();
    for (;; items->addNew()) {
        items->setValue(u"arborescence"_s, 2);
        items->setValue(u"noordre"_s, written);
        items->setValue(u"titre"_s, QString(1000, u'x'));
        if (!items->update())
            break;
        ASSERT_LT(++written, 1000);
    }
    EXPECT_GT(written, 0);
    EXPECT_NE(items->lastError(), QString());
    const bool committed = base->commit();
    EXPECT_FALSE(base->inTransaction());
    EXPECT_EQ(items->recordCount(), committed ? written + 1 : 1);
    ASSERT_TRUE(base->execute(u"PRAGMA max_page_count=100000"_s));
    EXPECT_TRUE(item(3, 1, u"000003"_s)) << "the store goes on";
    QString report;
    EXPECT_TRUE(base->check(&report)) << report.toStdString();
}

TEST_F(StoreTest, AfterTheEngineHasRolledBackByItselfNothingMoreIsWritten) {
    ASSERT_TRUE(base->begin());
    EXPECT_TRUE(item(1, 1, u"000001"_s));
    ASSERT_TRUE(base->execute(u"ROLLBACK"_s)); // as the engine itself does when the disk is full
    EXPECT_FALSE(item(1, 2, u"000002"_s)) << "half of a transaction must not be written row by row";
    EXPECT_FALSE(base->commit());
    EXPECT_EQ(items->recordCount(), 0);
    EXPECT_TRUE(item(1, 3, u"000003"_s));
}

TEST_F(StoreTest, NoLockIsHeldBetweenTwoOperations) {
    for (int i = 1; i <= 3; ++i)
        item(1, i, u"00000%1"_s.arg(i));
    items->moveFirst();
    items->moveNext();
    const auto query = base->openQuery(u"SELECT * FROM données"_s);
    ASSERT_TRUE(query);
    foreign(u"BEGIN EXCLUSIVE; DELETE FROM données WHERE noordre=3; COMMIT;"_s);
    int rows = 0;
    for (; !query->eof(); query->moveNext())
        ++rows;
    EXPECT_EQ(rows, 3) << "a snapshot keeps what it has seen";
    EXPECT_EQ(items->text(u"numart"_s), u"000002"_s);
    items->moveNext();
    EXPECT_TRUE(items->eof());
}

TEST_F(StoreTest, AnotherWriterIsSeenAtTheNextMove) {
    item(1, 1, u"000001"_s);
    item(1, 5, u"000005"_s);
    items->moveFirst();
    foreign(u"INSERT INTO données(arborescence, noordre, numart) VALUES(1, 3, '000003')"_s);
    items->moveNext();
    EXPECT_EQ(items->text(u"numart"_s), u"000003"_s);
    items->moveNext();
    EXPECT_EQ(items->text(u"numart"_s), u"000005"_s);
}

TEST_F(StoreTest, ValuesComeBackAsTheyWere) {
    items->addNew();
    items->setValue(u"titre"_s, u"L'été « à \"Évry\" » œ €\n\tfin"_s);
    items->setValue(u"positiondébut"_s, qint64(1) << 40);
    items->setValue(u"positionfin"_s, -1);
    items->setValue(u"numart"_s, QString());
    EXPECT_TRUE(items->update());
    items->moveFirst();
    EXPECT_EQ(items->text(u"titre"_s), u"L'été « à \"Évry\" » œ €\n\tfin"_s);
    EXPECT_EQ(items->number(u"positiondébut"_s), qint64(1) << 40);
    EXPECT_EQ(items->value(u"positionfin"_s), QVariant(-1LL));
    EXPECT_FALSE(items->isNull(u"numart"_s)) << "an empty text is not Null";
    EXPECT_TRUE(items->isNull(u"référence"_s));
    EXPECT_EQ(items->text(u"positionfin"_s), u"-1"_s);
    EXPECT_EQ(items->number(u"titre"_s), 0);
}

TEST_F(StoreTest, TheSingleRowOfTheSettingsIsReadAndChanged) {
    const auto settings = base->openTable(u"paramètres"_s);
    settings->addNew();
    settings->setValue(u"dernoarborescence"_s, 4);
    EXPECT_TRUE(settings->update());
    settings->moveFirst();
    EXPECT_EQ(settings->number(u"dernoarborescence"_s), 4);
    settings->edit();
    settings->setValue(u"dernoarborescence"_s, 5);
    EXPECT_TRUE(settings->update());
    EXPECT_EQ(settings->number(u"dernoarborescence"_s), 5);
    EXPECT_EQ(settings->index(), QString());
    EXPECT_THROW(settings->seek(Seek::Equal, 5), Ended) << "it has no index";
}

TEST_F(StoreTest, EditsWithoutARowAreRunTimeErrors) {
    EXPECT_THROW(items->edit(), Ended);
    EXPECT_THROW(items->remove(), Ended);
    EXPECT_THROW(items->setValue(u"noordre"_s, 1), Ended);
    EXPECT_THROW(items->update(), Ended);
    items->addNew();
    EXPECT_THROW(items->setValue(u"inconnu"_s, 1), Ended);
}

TEST_F(StoreTest, TwoThousandRowsInOneTransaction) {
    ASSERT_TRUE(base->begin());
    for (int i = 1; i <= 2000; ++i) {
        folders->addNew();
        folders->setValue(u"numerodutype"_s, i);
        folders->setValue(u"dépendance"_s, i / 2);
        folders->setValue(u"ordre"_s, i);
        ASSERT_TRUE(folders->update());
    }
    for (int i = 1; i <= 2000; ++i) {
        folders->seek(Seek::Equal, i);
        ASSERT_FALSE(folders->noMatch());
        folders->edit();
        folders->setValue(u"ordre"_s, 2001 - i);
        ASSERT_TRUE(folders->update());
    }
    EXPECT_TRUE(base->commit());
    const auto children = base->openQuery(u"SELECT * FROM arborescences WHERE dépendance= 5 ORDER BY ordre"_s);
    ASSERT_TRUE(children);
    EXPECT_EQ(children->number(u"numerodutype"_s), 11);
    children->moveNext();
    EXPECT_EQ(children->number(u"numerodutype"_s), 10);
}

} // namespace
} // namespace velm::testing
