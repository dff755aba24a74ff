#pragma once
#include "platform/engine/database_p.h"

namespace velm {

struct Snapshot::Private {
    Database::Private* db = nullptr;
    std::vector<sql::Value> bound; ///< what the statement reads its values from
    sql::Statement statement;
    QStringList names;
    bool standing = false; ///< the statement is still open
    bool ended = true;
    sql::Row row;
    std::vector<sql::Row> held;
    size_t next = 0;

    void bind(const QVariantList& values);
    void advance();
    void drain();
    void detach();
    bool step(sql::Row& into);
    bool closed(int result);
    int column(const QString& field) const;
};

} // namespace velm
