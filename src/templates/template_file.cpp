#include "templates/template_file.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "db/keyinfo.h"
#include "db/sqlite_util.h"

namespace kwfy::templates {

namespace {

const std::vector<std::string> kFeeColumns = {"Code", "Key", "Name", "FL", "SM", "Wffs", "CalcKey"};

// Reading a template never writes to it, but a view or trigger is code that
// the file brings with it; fee files are plain tables, so anything else
// means the file was not made as one.
void RefuseCode(db::Database& file) {
    auto rs = file.Query(
        "SELECT type, name FROM sqlite_master WHERE type IN ('view', 'trigger') ORDER BY name");
    if (!rs.Eof())
        throw Error(file.Path(), "not a fee file: it holds the " + rs.Text("type") + " \"" +
                                     rs.Text("name") + "\"");
}

// The stored level of a template row: the number its text reads as, kept
// within the column's 16-bit range.
int64_t LevelNumber(const db::Value& value) {
    const double n = std::nearbyint(db::Value(value.Text()).Number());
    if (!(n > INT16_MIN)) return INT16_MIN;
    if (!(n < INT16_MAX)) return INT16_MAX;
    return int64_t(n);
}

}  // namespace

db::Database OpenFeeFile(const std::string& path, const std::vector<std::string>& extraColumns) {
    auto file = db::Database::OpenReadOnly(path);
    RefuseCode(file);
    if (!file.TableExists("FY")) throw Error(path, "not a fee file: it has no table FY");
    auto layout = file.Query("SELECT * FROM \"FY\" WHERE 0");
    std::vector<std::string> needed = kFeeColumns;
    needed.insert(needed.end(), extraColumns.begin(), extraColumns.end());
    for (const std::string& column : needed)
        if (!layout.FieldExists(column))
            throw Error(path, "not a fee file: its table FY has no column " + column);
    return file;
}

LibraryTemplate ReadLibraryTemplate(const std::string& path) {
    auto file = OpenFeeFile(path);
    LibraryTemplate result;
    bool found = false;
    std::string name = db::GetTemplateKey(file, "FileName", &found);
    if (found) result.rateStandard = std::move(name);

    auto rs = file.Query("SELECT * FROM \"FY\" ORDER BY \"Code\"");
    result.hasLevel = rs.FieldExists("Level");
    for (; !rs.Eof(); rs.MoveNext()) {
        FeeRowValues row;
        row.code = db::detail::ToParam(rs["Code"]);
        if (result.hasLevel) row.level = LevelNumber(rs["Level"]);
        row.key = rs.Text("Key");
        row.name = rs.Text("Name");
        row.fl = rs.Text("FL");
        row.sm = rs.Text("SM");
        row.wffs = rs.Text("Wffs");
        row.calcKey = rs.Text("CalcKey");
        result.rows.push_back(std::move(row));
    }
    return result;
}

FeeRowsFile ReadLayoutRows(const std::string& path, const std::string& category) {
    auto file = OpenFeeFile(path, {"QFClass"});
    FeeRowsFile result;
    auto rs = file.Query("SELECT * FROM \"FY\" WHERE \"QFClass\"=? COLLATE NOCASE ORDER BY rowid",
                         {category});
    result.hasLevel = rs.FieldExists("Level");
    using db::detail::ToParam;
    for (; !rs.Eof(); rs.MoveNext()) {
        FeeRowValues row;
        row.code = ToParam(rs["Code"]);
        if (result.hasLevel) row.level = ToParam(rs["Level"]);
        row.key = ToParam(rs["Key"]);
        row.name = ToParam(rs["Name"]);
        row.fl = ToParam(rs["FL"]);
        row.sm = ToParam(rs["SM"]);
        row.wffs = ToParam(rs["Wffs"]);
        row.calcKey = ToParam(rs["CalcKey"]);
        result.rows.push_back(std::move(row));
    }
    return result;
}

}  // namespace kwfy::templates
