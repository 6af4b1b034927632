// Helpers shared by the Jet tests: the test files, shell commands and a
// small reader of SQLite results.
#pragma once

#include <sqlite3.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <variant>
#include <vector>

namespace kwfy::test {

inline std::string JetDataDir() {
    return std::string(KWFY_SHARED_DIR) + "/testdata/jet";
}
inline std::string JetFile(const std::string& name) {
    return JetDataDir() + "/" + name;
}

inline const std::vector<std::string>& AllJetFiles() {
    static const std::vector<std::string> files = {"testV1997.mdb",
                                                   "test2V2000.mdb",
                                                   "testUnicodeCompV2003.mdb",
                                                   "delColTestV2003.mdb",
                                                   "fixedNumericTestV2003.mdb",
                                                   "overflowTestV2003.mdb",
                                                   "testV2007.accdb",
                                                   "oldDatesV2007.accdb",
                                                   "emptyJet4.mdb"};
    return files;
}

inline std::string Quote(const std::string& arg) {
    std::string quoted = "'";
    for (char c : arg) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

// Runs a shell command and returns its standard output.
inline std::string CommandOutput(const std::string& command) {
    std::string output;
    if (FILE* pipe = popen(command.c_str(), "r")) {
        char buffer[4096];
        size_t n;
        while ((n = fread(buffer, 1, sizeof buffer, pipe)) > 0) output.append(buffer, n);
        pclose(pipe);
    }
    return output;
}

inline std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        if (!line.empty()) lines.push_back(line);
    return lines;
}

inline std::string ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

inline void WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

struct Blob {
    std::string bytes;
    bool operator==(const Blob&) const = default;
};
using Cell = std::variant<std::monostate, int64_t, double, std::string, Blob>;

// The column names and rows of a query on an SQLite file.
struct QueryResult {
    std::vector<std::string> columns;
    std::vector<std::vector<Cell>> rows;
};

inline QueryResult Query(const std::string& path, const std::string& sql) {
    QueryResult result;
    sqlite3* db = nullptr;
    sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt* stmt = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &stmt, nullptr) != SQLITE_OK) {
        std::string error = sqlite3_errmsg(db);
        sqlite3_close(db);
        throw std::runtime_error(path + ": " + sql + ": " + error);
    }
    for (int i = 0; i < sqlite3_column_count(stmt); ++i)
        result.columns.push_back(sqlite3_column_name(stmt, i));
    while (sqlite3_step(stmt) == SQLITE_ROW) {
        std::vector<Cell> row;
        for (int i = 0; i < sqlite3_column_count(stmt); ++i) {
            switch (sqlite3_column_type(stmt, i)) {
                case SQLITE_INTEGER:
                    row.emplace_back(int64_t(sqlite3_column_int64(stmt, i)));
                    break;
                case SQLITE_FLOAT:
                    row.emplace_back(sqlite3_column_double(stmt, i));
                    break;
                case SQLITE_TEXT:
                    row.emplace_back(
                        std::string(reinterpret_cast<const char*>(sqlite3_column_text(stmt, i)),
                                    sqlite3_column_bytes(stmt, i)));
                    break;
                case SQLITE_BLOB: {
                    auto* data = static_cast<const char*>(sqlite3_column_blob(stmt, i));
                    row.emplace_back(
                        Blob{std::string(data ? data : "", sqlite3_column_bytes(stmt, i))});
                    break;
                }
                default:
                    row.emplace_back(std::monostate{});
            }
        }
        result.rows.push_back(std::move(row));
    }
    sqlite3_finalize(stmt);
    sqlite3_close(db);
    return result;
}

}  // namespace kwfy::test
