// Reading the fee rows of a template or layout file (.RXFY).
//
// A file is opened read-only and checked completely, and its rows are read
// into memory, before the caller touches the project database: a file that
// is missing, not a database, holds views or triggers, or has no FY table
// with the needed columns throws kwfy::Error naming the file, and nothing
// has been changed.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "db/database.h"

namespace kwfy::templates {

// One fee row as it is to be stored in the project (the project's WorkID,
// category and node are supplied when it is stored).
struct FeeRowValues {
    db::Param code, level, key, name, fl, sm, wffs, calcKey;
};

struct FeeRowsFile {
    std::vector<FeeRowValues> rows;
    bool hasLevel = false;  // the file's FY table has a Level column
};

struct LibraryTemplate : FeeRowsFile {
    // The rate standard named by the KeyInfo row "FileName" (Null as "");
    // nullopt when the file has no such row.
    std::optional<std::string> rateStandard;
};

// A library template: all FY rows in Code order, WorkID, QFClass and NodeID
// ignored; texts read as text (Null as ""), Code unchanged, Level as the
// number its text reads as (0 when empty).
LibraryTemplate ReadLibraryTemplate(const std::string& path);

// A user layout: the FY rows of one category (compared without regard to
// case), in the file's table order, every value as stored.
FeeRowsFile ReadLayoutRows(const std::string& path, const std::string& category);

// Opens a fee file read-only after the checks above (FY with Code, Key,
// Name, FL, SM, Wffs and CalcKey, plus the extra columns named).
db::Database OpenFeeFile(const std::string& path,
                         const std::vector<std::string>& extraColumns = {});

}  // namespace kwfy::templates
