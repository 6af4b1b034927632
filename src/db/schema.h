// The one description of every table and column the control reads or writes,
// per kind of database file. Every file the control, the tests and the demo
// create is made through these descriptions.
#pragma once

#include <string>
#include <vector>

#include "db/database.h"

namespace kwfy::db {

enum class ColumnType { Counter, Int16, Int32, Double, Text, Memo };

struct ColumnDesc {
    std::string name;
    ColumnType type;
    bool optional = false;  // older files may lack it (FY.Level, FY_FLFileName.FY_FileName)
};

struct IndexDesc {
    std::string name;
    std::vector<std::string> columns;
    bool unique = false;
};

struct TableDesc {
    std::string name;
    std::vector<ColumnDesc> columns;
    std::vector<IndexDesc> indexes;
};

enum class FileKind {
    Project,            // the control's own tables and the host tables it reads
    RateStandard,       // .RXFL
    RateFile,           // .SFL
    Template,           // .RXFY (FY, KeyInfo(Key, Value), SM)
    Config,             // System/Config.mdb (KeyInfo(Code, WithCode))
    Parameter,          // System/ParaFL.mdb (BaseLink)
    RateTemplateIndex,  // 费率模板/ index (Index)
};

struct SchemaOptions {
    bool withLevel = true;       // FY.Level
    bool withFYFileName = true;  // FY_FLFileName.FY_FileName
};

const std::vector<TableDesc>& Tables(FileKind kind);
// The description of one table of a kind; throws Error when unknown.
const TableDesc& Table(FileKind kind, const std::string& name);
// CREATE TABLE for one description (text columns COLLATE NOCASE), with its
// indexes; optional columns follow the options.
void CreateTable(Database& db, const TableDesc& table, const SchemaOptions& options = {});
// Creates every table of a kind in an open database.
void CreateTables(Database& db, FileKind kind, const SchemaOptions& options = {});
// Creates a new file and all the tables of a kind in it.
void CreateFile(const std::string& path, FileKind kind, const SchemaOptions& options = {});

}  // namespace kwfy::db
