#pragma once
// A small base to read.
#include "core/schemas.h"
#include "tests/platform/engine/base.h"

#include <QFile>

namespace velm::testing {

class RecordsetTest : public EngineTest {
protected:
    const std::vector<QString> fields{u"référence"_s,          u"numart"_s, u"titre"_s, u"Date"_s,
                                      u"numeroarborescence"_s, u"contenu"_s};
    const Rows rows{{u"CO"_s, u"000001"_s, u"Étude"_s, u"2001-03-04"_s, 5, u"{\\rtf1 un}"_s},
                    {u"CO"_s, u"000002"_s, u"etude"_s, u"1999-12-31"_s, 5, u"{\\rtf1 deux}"_s},
                    {u"CO"_s, u"000003"_s, u"Abus"_s, QVariant(), 7, QVariant()},
                    {u"DI"_s, u"000001"_s, u"abus"_s, u"2001-03-04"_s, QVariant(), u"{\\rtf1 quatre}"_s},
                    {u"EU"_s, u"000009"_s, QVariant(), u"2000-01-01"_s, 5, u"{\\rtf1 cinq}"_s}};

    void SetUp() override {
        EngineTest::SetUp();
        {
            auto made = Database::create(path(), corpusSchema());
            ASSERT_TRUE(made.database) << made.message.toStdString();
            fill(*made.database, u"données"_s, fields, rows);
        }
        base = open(corpusSchema());
        ASSERT_TRUE(base);
        documents = base->openTable(u"données"_s);
    }

    QString key() const { return documents->text(u"référence"_s) + documents->text(u"numart"_s); }
    QStringList keysToEnd() {
        QStringList keys;
        for (; !documents->eof(); documents->moveNext())
            keys << key();
        return keys;
    }

    std::unique_ptr<Database> base;
    std::unique_ptr<Recordset> documents;
};

} // namespace velm::testing
