// Helpers shared by the Jet tests: the test files, shell commands, SQLite
// results and environment variables.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <sstream>
#include <string>
#include <variant>
#include <vector>

#include "support/temp_dir.h"

namespace kwfy::test {

inline std::string JetFile(const std::string& name) {
    return std::string(KWFY_SHARED_DIR) + "/testdata/jet/" + name;
}

// Every Jet and ACE file of the test data folder, by name.
inline std::vector<std::string> AllJetFiles() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(JetFile("")))
        if (auto ext = entry.path().extension(); ext == ".mdb" || ext == ".accdb")
            names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

// Test names for parameters that are file names: "test V1.mdb" -> "test_V1_mdb".
inline std::string FileParamName(const ::testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    return name;
}

inline std::string Quote(const std::string& arg) {
    std::string quoted = "'";
    for (char c : arg) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

// The standard output of a shell command, line by line.
inline std::vector<std::string> CommandLines(const std::string& command) {
    std::string output;
    if (FILE* pipe = popen(command.c_str(), "r")) {
        char buffer[4096];
        for (size_t n; (n = fread(buffer, 1, sizeof buffer, pipe)) > 0;) output.append(buffer, n);
        pclose(pipe);
    }
    std::vector<std::string> lines;
    std::istringstream in(output);
    for (std::string line; std::getline(in, line);)
        if (!line.empty()) lines.push_back(line);
    return lines;
}

// A value read back from SQLite; a blob is a vector so it differs from text.
using Blob = std::vector<unsigned char>;
using Cell = std::variant<std::monostate, int64_t, double, std::string, Blob>;
using Rows = std::vector<std::vector<Cell>>;

inline Rows Query(const std::string& path, const std::string& sql) {
    sqlite3* db = nullptr;
    sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt* stmt = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &stmt, nullptr) != SQLITE_OK) {
        std::string error = sqlite3_errmsg(db);
        sqlite3_close(db);
        throw std::runtime_error(path + ": " + sql + ": " + error);
    }
    Rows rows;
    while (sqlite3_step(stmt) == SQLITE_ROW) {
        auto& row = rows.emplace_back();
        for (int i = 0; i < sqlite3_column_count(stmt); ++i) {
            auto* data = static_cast<const unsigned char*>(sqlite3_column_blob(stmt, i));
            size_t size = static_cast<size_t>(sqlite3_column_bytes(stmt, i));
            switch (sqlite3_column_type(stmt, i)) {
                case SQLITE_INTEGER:
                    row.emplace_back(int64_t(sqlite3_column_int64(stmt, i)));
                    break;
                case SQLITE_FLOAT:
                    row.emplace_back(sqlite3_column_double(stmt, i));
                    break;
                case SQLITE_TEXT:
                    row.emplace_back(std::string(data, data + size));
                    break;
                case SQLITE_BLOB:
                    row.emplace_back(Blob(data, data + size));
                    break;
                default:
                    row.emplace_back(std::monostate{});
            }
        }
    }
    sqlite3_finalize(stmt);
    sqlite3_close(db);
    return rows;
}

inline std::string Text(const Cell& cell) {
    return std::get<std::string>(cell);
}

// Sets an environment variable (unsets it for nullptr) until destroyed.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        value ? setenv(name, value, 1) : unsetenv(name);
    }
    ~ScopedEnv() { old_ ? setenv(name_, old_->c_str(), 1) : unsetenv(name_); }

private:
    const char* name_;
    std::optional<std::string> old_;
};

}  // namespace kwfy::test
