// Bases that are not quite as they should be.
#include "recordsetfixture.h"

namespace velm::testing {
namespace {

TEST_F(RecordsetTest, ABodyInTheRowIsFoundToo) {
    base.reset();
    foreign(u"ALTER TABLE données ADD COLUMN contenu TEXT; UPDATE données SET contenu='dans la rangée';"
            "DELETE FROM données_contenu WHERE id=2"_s);
    base = open(corpusSchema());
    documents = base->openTable(u"données"_s);
    EXPECT_EQ(documents->text(u"contenu"_s), u"{\\rtf1 un}"_s);
    documents->moveNext();
    EXPECT_EQ(documents->text(u"contenu"_s), u"dans la rangée"_s);
    EXPECT_EQ(documents->bytes(u"contenu"_s), "dans la rang\xe9"
                                              "e");
    documents.reset();
    base.reset();
    foreign(u"DROP TABLE données_contenu"_s);
    base = open(corpusSchema());
    documents = base->openTable(u"données"_s);
    EXPECT_EQ(documents->text(u"contenu"_s), u"dans la rangée"_s);
    EXPECT_EQ(documents->text(u"numart"_s), u"000001"_s);
}

TEST_F(RecordsetTest, ABaseThatHasNoBodiesAtAllSaysSoWhereOneIsRead) {
    base.reset();
    foreign(u"DROP TABLE données_contenu"_s);
    base = open(corpusSchema());
    documents = base->openTable(u"données"_s);
    EXPECT_EQ(documents->text(u"titre"_s), u"Étude"_s);
    EXPECT_THROW(documents->text(u"contenu"_s), Ended);
}

TEST_F(RecordsetTest, EditsOfABaseOfTheCorpusKeepItsKeysAndBodies) {
    documents->seek(Seek::Equal, u"CO"_s, u"000001"_s);
    documents->edit();
    documents->setValue(u"titre"_s, u"Zèbre"_s);
    documents->setValue(u"contenu"_s, u"neuf"_s);
    ASSERT_TRUE(documents->update()) << documents->lastError().toStdString();
    EXPECT_EQ(documents->text(u"contenu"_s), u"neuf"_s);
    documents->addNew();
    documents->setValue(u"référence"_s, u"AD"_s);
    documents->setValue(u"numart"_s, u"000001"_s);
    documents->setValue(u"titre"_s, u"Neuf"_s);
    documents->setValue(u"contenu"_s, u"corps"_s);
    ASSERT_TRUE(documents->update());
    documents->setIndex(u"icattitre"_s);
    documents->seek(Seek::Equal, u"CO"_s, u"zèbre"_s);
    EXPECT_EQ(key(), u"CO000001"_s);
    ASSERT_TRUE(documents->remove());
    documents->moveFirst();
    EXPECT_EQ(documents->text(u"contenu"_s), u"corps"_s);
    documents->addNew();
    documents->setValue(u"référence"_s, u"AD"_s);
    documents->setValue(u"numart"_s, u"000001"_s);
    documents->setValue(u"contenu"_s, u"de trop"_s);
    EXPECT_FALSE(documents->update());
    const auto bodies = base->openQuery(u"SELECT count(*) AS n FROM données_contenu"_s);
    ASSERT_TRUE(bodies);
    EXPECT_EQ(bodies->number(u"n"_s), 4) << "the deleted row's body went with it, the refused one's was not kept";
    EXPECT_TRUE(base->check());
}

TEST_F(RecordsetTest, ABaseOfAnotherToolIsReadWithoutKeysAndIndexes) {
    base.reset();
    QFile::remove(path());
    foreign(u"CREATE TABLE données(numart, référence, titre, Date, contenu);"
            "INSERT INTO données VALUES('000002','CO','b',NULL,'deux'),('000001','CO','é','2000-01-01','un');"
            "CREATE TABLE dico(mot, liste);"
            "INSERT INTO dico VALUES('ZOÉ', x'41000001'),('ABC', x''),('ZOE', 'A')"_s);
    base = open(corpusSchema(), OpenMode::ExclusiveReadOnly);
    ASSERT_TRUE(base);
    documents = base->openTable(u"données"_s);
    EXPECT_EQ(keysToEnd(), (QStringList{u"CO000001"_s, u"CO000002"_s}));
    documents->setIndex(u"icattitre"_s);
    documents->seek(Seek::Equal, u"CO"_s, u"É"_s, u"000001"_s);
    EXPECT_FALSE(documents->noMatch());
    EXPECT_EQ(documents->text(u"contenu"_s), u"un"_s);
    EXPECT_THROW(documents->setIndex(u"numerodutype"_s), Ended) << "its field is missing";
    EXPECT_THROW(documents->text(u"motclé1"_s), Ended);
    const auto words = base->openTable(u"dico"_s);
    EXPECT_EQ(rest(*words, u"mot"_s), (QStringList{u"ABC"_s, u"ZOE"_s, u"ZOÉ"_s}));
    words->seek(Seek::Equal, u"zoé"_s);
    EXPECT_EQ(words->bytes(u"liste"_s).size(), 4);
}

TEST_F(RecordsetTest, AnIndexOfOurNameOnOtherFieldsIsNotTrusted) {
    base.reset();
    foreign(u"DROP INDEX données_idate; CREATE INDEX données_idate ON données(titre);"
            "DROP INDEX données_numerodutype; CREATE INDEX données_numerodutype ON données(numeroarborescence DESC)"_s);
    base = open(corpusSchema());
    documents = base->openTable(u"données"_s);
    documents->setIndex(u"idate"_s);
    EXPECT_EQ(keysToEnd(), (QStringList{u"CO000003"_s, u"CO000002"_s, u"EU000009"_s, u"CO000001"_s, u"DI000001"_s}));
    documents->setIndex(u"numerodutype"_s);
    EXPECT_EQ(keysToEnd(), (QStringList{u"DI000001"_s, u"CO000001"_s, u"CO000002"_s, u"EU000009"_s, u"CO000003"_s}));
}

} // namespace
} // namespace velm::testing
