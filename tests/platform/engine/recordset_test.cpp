#include "recordsetfixture.h"

namespace velm::testing {
namespace {

TEST_F(RecordsetTest, OpensOnTheFirstRowOfThePrimaryOrder) {
    EXPECT_EQ(documents->index(), u"primarykey"_s);
    EXPECT_EQ(key(), u"CO000001"_s);
    EXPECT_EQ(keysToEnd(), (QStringList{u"CO000001"_s, u"CO000002"_s, u"CO000003"_s, u"DI000001"_s, u"EU000009"_s}));
}

TEST_F(RecordsetTest, SeekEqualFindsTheRowAndMovesGoOnFromThere) {
    documents->seek(Seek::Equal, u"CO"_s, u"000003"_s);
    EXPECT_FALSE(documents->noMatch());
    EXPECT_EQ(documents->text(u"titre"_s), u"Abus"_s);
    documents->moveNext();
    EXPECT_EQ(key(), u"DI000001"_s);
    documents->movePrevious();
    documents->movePrevious();
    EXPECT_EQ(key(), u"CO000002"_s);
}

TEST_F(RecordsetTest, IndexesOrderTheRows) {
    documents->setIndex(u"icattitre"_s);
    EXPECT_EQ(keysToEnd(), (QStringList{u"CO000003"_s, u"CO000002"_s, u"CO000001"_s, u"DI000001"_s, u"EU000009"_s}));
    documents->setIndex(u"idate"_s);
    EXPECT_EQ(keysToEnd(), (QStringList{u"CO000003"_s, u"CO000002"_s, u"EU000009"_s, u"CO000001"_s, u"DI000001"_s}));
    documents->setIndex(u"numerodutype"_s);
    EXPECT_EQ(keysToEnd(), (QStringList{u"DI000001"_s, u"CO000001"_s, u"CO000002"_s, u"EU000009"_s, u"CO000003"_s}));
}

TEST_F(RecordsetTest, TheBodyIsFetchedOnDemand) {
    documents->seek(Seek::Equal, u"CO"_s, u"000002"_s);
    EXPECT_EQ(documents->text(u"contenu"_s), u"{\\rtf1 deux}"_s);
    documents->moveNext();
    EXPECT_TRUE(documents->isNull(u"contenu"_s));
    documents->moveNext();
    EXPECT_EQ(documents->bytes(u"contenu"_s), "{\\rtf1 quatre}");
}

TEST_F(RecordsetTest, AnUnknownIndexIsARunTimeError) {
    EXPECT_THROW(documents->setIndex(u"inconnu"_s), Ended);
    EXPECT_EQ(documents->index(), u"primarykey"_s);
}

TEST_F(RecordsetTest, SettingTheIndexInForceKeepsThePosition) {
    documents->seek(Seek::Equal, u"DI"_s, u"000001"_s);
    documents->setIndex(u"primarykey"_s);
    EXPECT_EQ(key(), u"DI000001"_s);
    documents->setIndex(u"idate"_s);
    EXPECT_EQ(key(), u"CO000003"_s) << "another one begins at its first row";
    documents->moveNext();
    documents->setIndex(u"idate"_s);
    EXPECT_EQ(key(), u"CO000002"_s);
}

TEST_F(RecordsetTest, ASeekWithoutAMatchLeavesNoRow) {
    documents->seek(Seek::Equal, u"CO"_s, u"999999"_s);
    EXPECT_TRUE(documents->noMatch());
    EXPECT_TRUE(documents->eof());
    EXPECT_TRUE(documents->value(u"titre"_s).isNull());
    EXPECT_FALSE(documents->bookmark().valid());
    documents->movePrevious();
    EXPECT_EQ(key(), u"EU000009"_s) << "from the end backward";
    documents->seek(Seek::Equal, u"CO"_s);
    EXPECT_FALSE(documents->noMatch());
}

TEST_F(RecordsetTest, TheChronologicalSeekPassesOverRowsWithoutADate) {
    documents->setIndex(u"idate"_s);
    documents->seek(Seek::Greater, QString());
    EXPECT_EQ(keysToEnd(), (QStringList{u"CO000002"_s, u"EU000009"_s, u"CO000001"_s, u"DI000001"_s}));
}

TEST_F(RecordsetTest, TheWalkUnderATreeNodeReadsWhileTheNumberIsEqual) {
    documents->setIndex(u"numerodutype"_s);
    documents->seek(Seek::GreaterOrEqual, 5);
    QStringList keys;
    for (; !documents->eof() && documents->number(u"numeroarborescence"_s) == 5; documents->moveNext())
        keys << key();
    EXPECT_EQ(keys, (QStringList{u"CO000001"_s, u"CO000002"_s, u"EU000009"_s}));
    documents->seek(Seek::GreaterOrEqual, u"6"_s);
    EXPECT_EQ(key(), u"CO000003"_s) << "a number given as text";
}

TEST_F(RecordsetTest, TheNeighboursByTitleAreFoundFromTitleAndNumber) {
    documents->setIndex(u"icattitre"_s);
    documents->seek(Seek::Equal, u"CO"_s, u"étude"_s, u"000001"_s);
    EXPECT_FALSE(documents->noMatch());
    documents->movePrevious();
    EXPECT_EQ(key(), u"CO000002"_s);
    documents->movePrevious();
    EXPECT_EQ(key(), u"CO000003"_s);
    documents->movePrevious();
    EXPECT_TRUE(documents->bof());
    documents->movePrevious();
    EXPECT_TRUE(documents->bof());
    documents->moveNext();
    EXPECT_EQ(key(), u"CO000003"_s);
}

TEST_F(RecordsetTest, CodesAreFoundInWhateverCase) {
    documents->seek(Seek::Equal, u"co"_s, u"000002"_s);
    EXPECT_FALSE(documents->noMatch());
}

TEST_F(RecordsetTest, MoreKeysThanFieldsIsARunTimeError) {
    documents->setIndex(u"numerodutype"_s);
    EXPECT_THROW(documents->seek(Seek::Equal, 5, 6), Ended);
}

TEST_F(RecordsetTest, AWalkGoesOnAfterADisturbance) {
    documents->seek(Seek::GreaterOrEqual, u"CO"_s);
    QStringList keys;
    while (!documents->eof()) {
        keys << key();
        const Bookmark here = documents->bookmark();
        const QString index = documents->index();
        // What a window's event may do in between.
        documents->setIndex(u"idate"_s);
        documents->seek(Seek::Greater, QString());
        documents->moveNext();
        documents->setIndex(index);
        ASSERT_TRUE(documents->setBookmark(here));
        documents->moveNext();
    }
    EXPECT_EQ(keys, (QStringList{u"CO000001"_s, u"CO000002"_s, u"CO000003"_s, u"DI000001"_s, u"EU000009"_s}));
}

TEST_F(RecordsetTest, RecordsetsOnOneTableDoNotDisturbOneAnother) {
    const auto other = base->openTable(u"données"_s);
    QStringList keys;
    for (; !documents->eof(); documents->moveNext()) {
        keys << key();
        other->moveLast();
        other->setIndex(keys.size() % 2 == 0 ? u"idate"_s : u"icattitre"_s);
        other->moveNext();
    }
    EXPECT_EQ(keys.size(), 5);
}

TEST_F(RecordsetTest, ABookmarkHoldsAcrossIndexes) {
    documents->seek(Seek::Equal, u"DI"_s, u"000001"_s);
    const Bookmark place = documents->bookmark();
    EXPECT_TRUE(place.valid());
    documents->setIndex(u"idate"_s);
    EXPECT_TRUE(documents->setBookmark(place));
    EXPECT_EQ(key(), u"DI000001"_s);
    documents->movePrevious();
    EXPECT_EQ(key(), u"CO000001"_s) << "the neighbour is that of the index in force";
    EXPECT_FALSE(documents->setBookmark({4711}));
    EXPECT_FALSE(documents->setBookmark({}));
    EXPECT_TRUE(documents->eof());
}

TEST_F(RecordsetTest, BeyondTheEndsEverythingIsNull) {
    documents->moveLast();
    EXPECT_FALSE(documents->eof());
    documents->moveNext();
    EXPECT_TRUE(documents->eof());
    documents->moveNext();
    EXPECT_TRUE(documents->eof());
    EXPECT_TRUE(documents->isNull(u"titre"_s));
    EXPECT_EQ(documents->bytes(u"contenu"_s), QByteArray());
    documents->moveFirst();
    documents->movePrevious();
    EXPECT_TRUE(documents->bof());
    EXPECT_FALSE(documents->eof());
    EXPECT_EQ(documents->text(u"titre"_s), QString());
    EXPECT_EQ(documents->recordCount(), 5);
}

TEST_F(RecordsetTest, ATableWithoutPrimaryKeyBeginsInTheOrderOfItsRows) {
    base.reset();
    QFile::remove(path());
    {
        auto made = Database::create(path(), corpusSchema());
        fill(*made.database, u"typedocument"_s, {u"typedocument"_s, u"ordre"_s}, {{u"Loi"_s, 2}, {u"Arrêt"_s, 1}});
    }
    base = open(corpusSchema());
    const auto kinds = base->openTable(u"typedocument"_s);
    EXPECT_EQ(rest(*kinds, u"typedocument"_s), (QStringList{u"Loi"_s, u"Arrêt"_s}));
    kinds->setIndex(u"iordre"_s);
    EXPECT_EQ(rest(*kinds, u"typedocument"_s), (QStringList{u"Arrêt"_s, u"Loi"_s}));
    kinds->moveLast();
    EXPECT_EQ(restBackward(*kinds, u"typedocument"_s), (QStringList{u"Loi"_s, u"Arrêt"_s}));
}

TEST_F(RecordsetTest, WordsDifferByAccentsAndNotByCase) {
    base.reset();
    QFile::remove(path());
    {
        auto made = Database::create(path(), corpusSchema());
        fill(*made.database, u"dico"_s, {u"mot"_s, u"liste"_s},
             {{u"MARCHES"_s, QByteArray("A\0\0\1", 4)},
              {u"MARCHE"_s, QByteArray("A\0\0\2", 4)},
              {u"MARCHÉ"_s, QByteArray("A\0\xff\x80", 4)},
              {u"MARCHÉS"_s, QByteArray()},
              {u"ŒUVRE"_s, QVariant()}});
    }
    base = open(corpusSchema());
    const auto words = base->openTable(u"dico"_s);
    EXPECT_EQ(rest(*words, u"mot"_s), (QStringList{u"MARCHE"_s, u"MARCHÉ"_s, u"MARCHES"_s, u"MARCHÉS"_s, u"ŒUVRE"_s}));
    words->seek(Seek::Equal, u"marché"_s);
    EXPECT_EQ(words->bytes(u"liste"_s), QByteArray("A\0\xff\x80", 4));
    words->seek(Seek::Equal, u"MARCHE"_s);
    EXPECT_EQ(words->bytes(u"liste"_s), QByteArray("A\0\0\2", 4));
    words->seek(Seek::Equal, u"MARCHER"_s);
    EXPECT_TRUE(words->noMatch());
    words->seek(Seek::GreaterOrEqual, u"MARCHE"_s);
    EXPECT_EQ(rest(*words, u"mot"_s).size(), 5) << "all that share the folded letters stand together";
}

TEST_F(RecordsetTest, APostingListStoredAsTextGivesOneByteForEachCharacter) {
    base.reset();
    foreign(u"INSERT INTO dico(mot, liste, clé_mot) VALUES('MOT', 'A' || char(1, 233, 8364, 129), x'4D4F5400')"_s);
    base = open(corpusSchema());
    const auto words = base->openTable(u"dico"_s);
    words->seek(Seek::Equal, u"mot"_s);
    EXPECT_EQ(words->bytes(u"liste"_s), QByteArray("A\x01\xe9\x80\x81"));
}

TEST_F(RecordsetTest, ArticleNumbersAreFoundByNumberAcrossTheCollections) {
    base.reset();
    QFile::remove(path());
    {
        auto made = Database::create(path(), corpusSchema());
        fill(*made.database, u"generelien"_s, {u"référence"_s, u"numart"_s, u"numarticle"_s, u"numtitre"_s},
             {{u"EU"_s, u"000002"_s, u"L. 1"_s, u"2014-344"_s},
              {u"CO"_s, u"000009"_s, u"l. 1"_s, u"2001-1"_s},
              {u"CO"_s, u"000001"_s, u"L. 1"_s, QVariant()},
              {u"CO"_s, u"000003"_s, u"L. 10"_s, u"2014-344"_s}});
    }
    base = open(corpusSchema());
    const auto numbers = base->openTable(u"generelien"_s);
    numbers->seek(Seek::GreaterOrEqual, u"L. 1"_s);
    EXPECT_EQ(rest(*numbers, u"numart"_s), (QStringList{u"000001"_s, u"000009"_s, u"000002"_s, u"000003"_s}));
    numbers->setIndex(u"inumtitre"_s);
    numbers->seek(Seek::GreaterOrEqual, u"2014"_s);
    EXPECT_EQ(rest(*numbers, u"numart"_s), (QStringList{u"000003"_s, u"000002"_s}));
}

} // namespace
} // namespace velm::testing
