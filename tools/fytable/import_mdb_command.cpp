// fytable import-mdb SOURCE DEST.db: converts a whole Jet file to SQLite.
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>
#include <memory>

#include "commands.h"
#include "db/jet_import.h"
#include "db/jet_sqlite_writer.h"
#include "kwfy/error.h"

namespace fytable {

namespace {

// Files from this size on show their progress table by table.
constexpr off_t kProgressFrom = 1 << 20;

struct ImportMdbArgs {
    std::string source;
    std::string dest;
    bool force = false;
    int timeLimit = 600;
};

bool Exists(const std::string& path) {
    struct stat st;
    return lstat(path.c_str(), &st) == 0;
}

// Counts every table's rows in the written file and compares them with what
// the reader reported; throws Error on the first difference.
void VerifyRowCounts(const std::string& path, const kwfy::db::JetImportReport& report) {
    sqlite3* raw = nullptr;
    int rc = sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READONLY, nullptr);
    std::unique_ptr<sqlite3, int (*)(sqlite3*)> db(raw, sqlite3_close);
    if (rc != SQLITE_OK) throw kwfy::Error(path, "cannot be opened to check it");
    for (const auto& [table, expected] : report.tables) {
        std::string sql = "SELECT COUNT(*) FROM " + kwfy::db::QuoteIdentifier(table);
        sqlite3_stmt* stmt = nullptr;
        int64_t counted = -1;
        if (sqlite3_prepare_v2(db.get(), sql.c_str(), -1, &stmt, nullptr) == SQLITE_OK &&
            sqlite3_step(stmt) == SQLITE_ROW)
            counted = sqlite3_column_int64(stmt, 0);
        sqlite3_finalize(stmt);
        if (counted != expected)
            throw kwfy::Error(path, "table " + table + " holds " + std::to_string(counted) +
                                        " rows, but " + std::to_string(expected) + " were read");
    }
}

int RunImportMdb(const ImportMdbArgs& args) {
    if (Exists(args.dest) && !args.force) {
        std::cerr << args.dest << ": already exists (use --force to replace it)\n";
        return 1;
    }
    const std::string tmp = args.dest + ".importing-" + std::to_string(getpid());
    try {
        struct stat st;
        bool showProgress = stat(args.source.c_str(), &st) == 0 && st.st_size >= kProgressFrom;
        kwfy::db::JetImportOptions options;
        options.timeLimitSeconds = args.timeLimit;
        if (showProgress) {
            options.progress = [](int done, int all) {
                std::cerr << "\rimporting tables: " << done << "/" << all << std::flush;
                if (done == all) std::cerr << "\n";
            };
        }
        unlink(tmp.c_str());
        kwfy::db::JetImportReport report = kwfy::db::ImportJet(args.source, tmp, options);
        VerifyRowCounts(tmp, report);
        if (!args.force && Exists(args.dest))
            throw kwfy::Error(args.dest, "appeared while importing; use --force to replace it");
        if (rename(tmp.c_str(), args.dest.c_str()) != 0)
            throw kwfy::Error(args.dest, std::string("cannot be written: ") + std::strerror(errno));
        int64_t rows = 0;
        for (const auto& table : report.tables) rows += table.second;
        std::cout << args.dest << ": " << report.tables.size() << " tables, " << rows << " rows\n";
        return 0;
    } catch (const std::exception& e) {
        unlink(tmp.c_str());
        std::string message = e.what();
        if (size_t at = message.find(tmp); at != std::string::npos)
            message.replace(at, tmp.size(), args.dest);
        std::cerr << message << "\n";
        return 1;
    }
}

}  // namespace

void AddImportMdbCommand(CLI::App& app, int* exitCode) {
    auto args = std::make_shared<ImportMdbArgs>();
    CLI::App* cmd = app.add_subcommand(
        "import-mdb", "Convert a Jet database (.mdb, .accdb and the like) to an SQLite file");
    cmd->add_option("SOURCE", args->source, "the Jet file to read")->required();
    cmd->add_option("DEST", args->dest, "the SQLite file to write")->required();
    cmd->add_flag("--force", args->force, "replace DEST if it exists");
    cmd->add_option("--time-limit", args->timeLimit, "seconds the reading may take")
        ->check(CLI::PositiveNumber);
    cmd->callback([args, exitCode] { *exitCode = RunImportMdb(*args); });
}

}  // namespace fytable
