#include "demo_data.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>

#include "calc/number_text.h"
#include "db/database.h"
#include "db/paths.h"
#include "kwfy/error.h"

namespace fytable::demo {

namespace fs = std::filesystem;
using kwfy::Error;
using kwfy::db::ColumnType;
using kwfy::db::FileKind;

namespace {

std::string Trim(std::string_view s) {
    size_t b = s.find_first_not_of(" \t\r");
    if (b == std::string_view::npos) return {};
    size_t e = s.find_last_not_of(" \t\r");
    return std::string(s.substr(b, e - b + 1));
}

std::optional<FileKind> KindNamed(const std::string& name) {
    static const std::pair<const char*, FileKind> kinds[] = {
        {"Project", FileKind::Project},
        {"RateStandard", FileKind::RateStandard},
        {"RateFile", FileKind::RateFile},
        {"Template", FileKind::Template},
        {"Config", FileKind::Config},
        {"Parameter", FileKind::Parameter},
        {"RateTemplateIndex", FileKind::RateTemplateIndex},
    };
    for (const auto& [n, k] : kinds)
        if (name == n) return k;
    return std::nullopt;
}

std::vector<std::string> ReadLines(const std::string& path) {
    std::ifstream in(fs::path(path), std::ios::binary);
    if (!in) throw Error(path, "cannot read the demo data file");
    std::vector<std::string> lines;
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

// Reads the rows of a plain CSV file (header first) into table.
void ReadCsvRows(const std::string& path, TableRows& table) {
    auto lines = ReadLines(path);
    bool header = true;
    for (size_t i = 0; i < lines.size(); ++i) {
        if (Trim(lines[i]).empty()) continue;
        auto fields = SplitCsvLine(lines[i]);
        if (header) {
            table.columns = fields;
            header = false;
            continue;
        }
        if (fields.size() != table.columns.size())
            throw Error(path, "line " + std::to_string(i + 1) + " has " +
                                  std::to_string(fields.size()) + " fields, the header " +
                                  std::to_string(table.columns.size()));
        table.rows.push_back(std::move(fields));
    }
}

// "[T < file.csv | A=1 | B=x]": the table, the CSV file and the constants.
TableRows ReadSectionHead(const std::string& head, const std::string& folder,
                          const std::string& where) {
    std::vector<std::string> parts;
    size_t start = 0;
    for (size_t bar = head.find('|');; bar = head.find('|', start)) {
        parts.push_back(Trim(head.substr(start, bar == std::string::npos ? bar : bar - start)));
        if (bar == std::string::npos) break;
        start = bar + 1;
    }
    TableRows table;
    size_t lt = parts[0].find('<');
    table.table = Trim(parts[0].substr(0, lt));
    if (table.table.empty()) throw Error(where, "a section without a table name");
    if (lt == std::string::npos) {
        if (parts.size() > 1) throw Error(where, "constant columns need a rows file (\"<\")");
        return table;
    }
    ReadCsvRows(kwfy::db::JoinPath(folder, Trim(parts[0].substr(lt + 1))), table);
    for (size_t i = 1; i < parts.size(); ++i) {
        size_t eq = parts[i].find('=');
        if (eq == std::string::npos) throw Error(where, "\"" + parts[i] + "\" is not Column=value");
        table.columns.push_back(Trim(parts[i].substr(0, eq)));
        for (auto& row : table.rows) row.push_back(Trim(parts[i].substr(eq + 1)));
    }
    return table;
}

kwfy::db::Param Typed(ColumnType type, const std::string& text, const std::string& where) {
    bool isText = type == ColumnType::Text || type == ColumnType::Memo;
    if (isText) return text;
    if (text.empty()) return nullptr;
    auto number = kwfy::calc::StrictNumber(text);
    if (!number) throw Error(where, "\"" + text + "\" is not a number");
    if (type == ColumnType::Double) return *number;
    if (*number != static_cast<double>(static_cast<int64_t>(*number)))
        throw Error(where, "\"" + text + "\" is not a whole number");
    return static_cast<int64_t>(*number);
}

void InsertRows(kwfy::db::Database& db, FileKind kind, const TableRows& rows,
                const std::string& source) {
    const auto& desc = kwfy::db::Table(kind, rows.table);
    std::vector<ColumnType> types;
    std::string sql = "INSERT INTO \"" + rows.table + "\" (";
    std::string marks;
    for (const auto& column : rows.columns) {
        auto it = std::find_if(desc.columns.begin(), desc.columns.end(),
                               [&](const auto& c) { return c.name == column; });
        if (it == desc.columns.end())
            throw Error(source, "table " + rows.table + " has no column \"" + column + "\"");
        types.push_back(it->type);
        sql += (marks.empty() ? "\"" : ", \"") + column + "\"";
        marks += marks.empty() ? "?" : ", ?";
    }
    sql += ") VALUES (" + marks + ")";
    for (size_t r = 0; r < rows.rows.size(); ++r) {
        std::string where = rows.table + " row " + std::to_string(r + 1);
        kwfy::db::Params params;
        for (size_t c = 0; c < types.size(); ++c)
            params.push_back(Typed(types[c], rows.rows[r][c], source + ": " + where));
        db.Execute(sql, params);
    }
}

}  // namespace

std::vector<std::string> SplitCsvLine(std::string_view line) {
    std::vector<std::string> fields(1);
    bool quoted = false;
    for (size_t i = 0; i < line.size(); ++i) {
        char c = line[i];
        if (quoted) {
            if (c != '"') {
                fields.back() += c;
            } else if (i + 1 < line.size() && line[i + 1] == '"') {
                fields.back() += '"';
                ++i;
            } else {
                quoted = false;
            }
        } else if (c == '"') {
            quoted = true;
        } else if (c == ',') {
            fields.emplace_back();
        } else {
            fields.back() += c;
        }
    }
    if (quoted) throw Error("an unclosed quote in \"" + std::string(line) + "\"");
    return fields;
}

DataFile ReadDataFile(const std::string& path) {
    DataFile file;
    file.source = path;
    bool hasKind = false;
    TableRows* current = nullptr;
    bool wantHeader = false;
    auto lines = ReadLines(path);
    std::string folder = kwfy::db::GetFilePath(path);
    for (size_t i = 0; i < lines.size(); ++i) {
        std::string where = path + ":" + std::to_string(i + 1);
        std::string line = Trim(lines[i]);
        if (line.empty() || line[0] == '#') continue;
        if (line.rfind("@file ", 0) == 0) {
            file.target = Trim(line.substr(6));
        } else if (line.rfind("@kind ", 0) == 0) {
            auto kind = KindNamed(Trim(line.substr(6)));
            if (!kind) throw Error(where, "unknown kind \"" + Trim(line.substr(6)) + "\"");
            file.kind = *kind;
            hasKind = true;
        } else if (line[0] == '[') {
            if (line.back() != ']') throw Error(where, "a section head must end with \"]\"");
            file.tables.push_back(ReadSectionHead(line.substr(1, line.size() - 2), folder, where));
            current = &file.tables.back();
            wantHeader = current->columns.empty();
        } else if (!current || (!wantHeader && current->columns.empty())) {
            throw Error(where, "a row outside a table section");
        } else {
            auto fields = SplitCsvLine(lines[i]);
            if (wantHeader) {
                current->columns = std::move(fields);
                wantHeader = false;
            } else if (fields.size() != current->columns.size()) {
                throw Error(where, "the row has " + std::to_string(fields.size()) +
                                       " fields, the header " +
                                       std::to_string(current->columns.size()));
            } else {
                current->rows.push_back(std::move(fields));
            }
        }
    }
    if (file.target.empty() || !hasKind) throw Error(path, "needs an @file and an @kind line");
    return file;
}

std::vector<DataFile> ReadDataFolder(const std::string& folder) {
    std::vector<std::string> paths;
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(fs::path(folder), ec)) {
        std::string name = entry.path().filename().string();
        const std::string suffix = ".tables.txt";
        if (name.size() > suffix.size() &&
            name.compare(name.size() - suffix.size(), suffix.size(), suffix) == 0)
            paths.push_back(entry.path().string());
    }
    if (ec) throw Error(folder, "cannot list the demo data folder: " + ec.message());
    if (paths.empty()) throw Error(folder, "holds no demo data (*.tables.txt)");
    std::sort(paths.begin(), paths.end());
    std::vector<DataFile> files;
    for (const auto& path : paths) files.push_back(ReadDataFile(path));
    return files;
}

void MakeDatabase(const DataFile& file, const std::string& root) {
    std::string target = kwfy::db::JoinPath(root, file.target);
    std::string partial = target + ".partial";
    kwfy::db::MakeDirs(kwfy::db::GetFilePath(target));
    std::error_code ec;
    fs::remove(fs::path(partial), ec);
    try {
        kwfy::db::CreateFile(partial, file.kind);
        auto db = kwfy::db::Database::Open(partial);
        kwfy::db::Transaction tx(db);
        for (const auto& rows : file.tables) InsertRows(db, file.kind, rows, file.source);
        tx.Commit();
    } catch (...) {
        fs::remove(fs::path(partial), ec);
        throw;
    }
    fs::rename(fs::path(partial), fs::path(target), ec);
    if (ec) throw Error(target, "cannot move the new database into place: " + ec.message());
}

}  // namespace fytable::demo
