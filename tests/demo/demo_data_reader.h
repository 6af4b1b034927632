// A small, independent reader of the demo data files for the tests: the
// sections of a *.tables.txt file as lists of column -> text maps.
#pragma once

#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "support/command_runner.h"

namespace kwfy::test {

using DataRow = std::map<std::string, std::string>;

inline std::vector<std::string> CsvFields(const std::string& line) {
    std::vector<std::string> fields(1);
    bool quoted = false;
    for (char c : line) {
        if (c == '"')
            quoted = !quoted;
        else if (c == ',' && !quoted)
            fields.emplace_back();
        else if (c != '\r')
            fields.back() += c;
    }
    return fields;
}

// Rows of every section named table (plain sections only) in a data file.
inline std::vector<DataRow> SectionRows(const std::string& file, const std::string& table) {
    std::ifstream in(DemoDataDir() + "/" + file);
    std::vector<DataRow> rows;
    std::vector<std::string> header;
    bool inside = false, wantHeader = false;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#' || line[0] == '@') continue;
        if (line[0] == '[') {
            inside = line == "[" + table + "]";
            wantHeader = inside;
            continue;
        }
        if (!inside) continue;
        auto fields = CsvFields(line);
        if (wantHeader) {
            header = fields;
            wantHeader = false;
            continue;
        }
        DataRow row;
        for (size_t i = 0; i < header.size() && i < fields.size(); ++i) row[header[i]] = fields[i];
        rows.push_back(row);
    }
    return rows;
}

// The rows of a plain CSV file of the data folder.
inline std::vector<DataRow> CsvRows(const std::string& file) {
    std::ifstream in(DemoDataDir() + "/" + file);
    std::vector<DataRow> rows;
    std::vector<std::string> header;
    for (std::string line; std::getline(in, line);) {
        auto fields = CsvFields(line);
        if (header.empty()) {
            header = fields;
            continue;
        }
        DataRow row;
        for (size_t i = 0; i < header.size() && i < fields.size(); ++i) row[header[i]] = fields[i];
        rows.push_back(row);
    }
    return rows;
}

}  // namespace kwfy::test
