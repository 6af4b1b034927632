// The demo installation's data: text files that describe one database each
// (data/demo/*.tables.txt, see data/demo/README.md), and the making of those
// databases through the table descriptions.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/schema.h"

namespace fytable::demo {

// The rows of one table as written in a data file, fields as text.
struct TableRows {
    std::string table;
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;
};

// One database to make: its path relative to the demo folder, its kind, and
// its tables' rows.
struct DataFile {
    std::string source;  // the data file it was read from
    std::string target;
    kwfy::db::FileKind kind = kwfy::db::FileKind::Project;
    std::vector<TableRows> tables;
};

// Splits one CSV line: fields cut at ",", a field in double quotes may hold
// commas, "" inside quotes is one quote. Throws kwfy::Error on an unclosed
// quote.
std::vector<std::string> SplitCsvLine(std::string_view line);

// Reads one data file. A section "[T < rows.csv | Col=value ...]" reads its
// rows from a CSV file beside it and adds the constant columns to every row.
// Throws kwfy::Error naming the file and line on any malformed line, an
// unknown kind, or a row whose field count differs from its header.
DataFile ReadDataFile(const std::string& path);

// Every "*.tables.txt" of a folder, sorted by name.
std::vector<DataFile> ReadDataFolder(const std::string& folder);

// Makes the database of one data file under root: the file is created with
// every table of its kind (db::CreateFile), then the rows are added with
// bound values typed by the table description (empty text fields are "",
// empty number fields Null). The file is built beside the target and moved
// into place only when complete. Throws kwfy::Error naming the table and row
// for an unknown table or column or a value that is not a number.
void MakeDatabase(const DataFile& file, const std::string& root);

}  // namespace fytable::demo
