#pragma once
// A base in a folder of its own that goes with the test, and run-time errors that a test can see.
#include "platform/base/failure.h"
#include "platform/engine/recordset.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <stdexcept>

namespace velm::testing {

using namespace Qt::Literals::StringLiterals;

/// What a run-time error becomes in a test.
struct Ended : std::runtime_error {
    explicit Ended(const RuntimeFailure& failure)
        : std::runtime_error(failure.parts.join(u", "_s).toStdString()), what_(failure.what) {}
    Failure what_;
};

class EngineTest : public ::testing::Test {
protected:
    void SetUp() override {
        before_ = setRuntimeErrorHandler([](const RuntimeFailure& failure) { throw Ended(failure); });
        ASSERT_TRUE(folder_.isValid());
    }
    void TearDown() override { setRuntimeErrorHandler(before_); }

    QString path(const QString& name = u"base.dat"_s) const { return folder_.filePath(name); }

    /// Makes an empty base and opens it as the program does.
    std::unique_ptr<Database> store(const Schema& schema) {
        if (!QFile::exists(path()))
            Database::create(path(), schema);
        return open(schema);
    }
    std::unique_ptr<Database> open(const Schema& schema, OpenMode mode = OpenMode::Shared) {
        Database::Opened opened = Database::open(path(), mode, schema);
        EXPECT_EQ(opened.error, OpenError::None) << opened.message.toStdString();
        return std::move(opened.database);
    }
    /// Fills a table of a base of the corpus that is still in the making.
    using Rows = std::vector<std::vector<QVariant>>;
    static void fill(Database& base, const QString& table, const std::vector<QString>& fields, const Rows& rows) {
        TableWriter writer(base, table, fields);
        for (const auto& row : rows)
            ASSERT_TRUE(writer.add(row)) << base.lastError().toStdString();
        ASSERT_TRUE(writer.finish()) << base.lastError().toStdString();
    }
    /// Statements of another tool.
    void foreign(const QString& statements) const {
        sqlite3* handle = nullptr;
        ASSERT_EQ(sqlite3_open(path().toUtf8().constData(), &handle), SQLITE_OK);
        char* message = nullptr;
        EXPECT_EQ(sqlite3_exec(handle, statements.toUtf8().constData(), nullptr, nullptr, &message), SQLITE_OK)
            << (message ? message : "");
        sqlite3_free(message);
        sqlite3_close(handle);
    }

private:
    QTemporaryDir folder_;
    RuntimeErrorHandler before_;
};

/// The values of a field from the current row to the end.
inline QStringList rest(Recordset& recordset, const QString& field) {
    QStringList values;
    for (; !recordset.eof(); recordset.moveNext())
        values << recordset.text(field);
    return values;
}

/// Likewise to the beginning.
inline QStringList restBackward(Recordset& recordset, const QString& field) {
    QStringList values;
    for (; !recordset.bof(); recordset.movePrevious())
        values << recordset.text(field);
    return values;
}

} // namespace velm::testing
