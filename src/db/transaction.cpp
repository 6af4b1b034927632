// A Transaction on a connection that is already inside one joins it: it
// neither begins nor commits, and the outer transaction decides the outcome.
// This lets an operation that writes in one transaction call another one.
#include <sqlite3.h>

#include "db/database.h"
#include "db/sqlite_util.h"

namespace kwfy::db {

Transaction::Transaction(Database& db) : db_(db) {
    if (!sqlite3_get_autocommit(db_.Handle())) {
        done_ = true;  // joined the outer transaction
        return;
    }
    db_.Execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    if (done_) return;
    // An engine error may already have rolled the transaction back.
    if (!sqlite3_get_autocommit(db_.Handle()))
        sqlite3_exec(db_.Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::Commit() {
    if (done_) return;
    db_.Execute("COMMIT");
    done_ = true;
}

}  // namespace kwfy::db
