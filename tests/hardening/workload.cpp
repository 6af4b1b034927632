#include "hardening/workload.h"

#include <algorithm>
#include <filesystem>

#include "db/database.h"
#include "db/paths.h"
#include "db/schema.h"
#include "kwfy/kw_fytable.h"

namespace kwfy::hardening {

namespace {

namespace fs = std::filesystem;

// Adds rows through one prepared statement in one transaction: a 10,000-row
// fixture written row by row would take longer than the tests themselves.
void InsertAll(db::Database& db, const std::string& sql, const std::vector<db::Params>& rows) {
    db::Transaction tx(db);
    for (const auto& row : rows) db.Execute(sql, row);
    tx.Commit();
}

std::string N(int i) {
    return std::to_string(i);
}

void MakeProject(const std::string& path, int rows) {
    db::CreateFile(path, db::FileKind::Project);
    auto db = db::Database::Open(path);
    std::vector<db::Params> fy, fl;
    for (int i = 1; i <= rows; ++i) {
        const std::string key = "F" + N(i);
        const bool typed = i % 3 == 0;
        fy.push_back({int64_t(kWorkID), kCategory, int64_t(0), int64_t(i), int64_t(1 + i % 2), key,
                      "费用" + N(i), typed ? "3%" : "", "说明" + N(i), kPriceKey,
                      i == rows ? "总合计" : ""});
        if (typed) fl.push_back({int64_t(kWorkID), kCategory, key, "", "3%"});
    }
    InsertAll(db,
              "INSERT INTO FY (WorkID, QFClass, NodeID, Code, Level, Key, Name, FL, SM, Wffs, "
              "CalcKey) VALUES (?,?,?,?,?,?,?,?,?,?,?)",
              fy);
    InsertAll(db, "INSERT INTO FY_FL (WorkID, QFClass, FL, Class, Value) VALUES (?,?,?,?,?)", fl);
    db.Execute("INSERT INTO FY_Mark (WorkID, QFClass, MarkKey, Value) VALUES (1, ?, 'DQ', '一类')",
               {kCategory});
    db.Execute("INSERT INTO PatCoe (WorkID, Key, Coe, Value) VALUES (1, 'GLF', '1.1', '1.1')");
    db.Execute("INSERT INTO WorkStruct (ID, DefaultQFClass, TotalPrice) VALUES (1, ?, 0)",
               {kCategory});
    db.Execute(
        "INSERT INTO Items (ID, WorkID, ParentID, QFClass, Level, OCode) "
        "VALUES (1, 1, 0, ?, 1, 0)",
        {kCategory});
    db.Execute("INSERT INTO Items_Price (ItemsID, Key, Price) VALUES (1, ?, 100)", {kPriceKey});
}

void MakeRateFile(const std::string& path, int rows) {
    db::CreateFile(path, db::FileKind::RateFile);
    auto db = db::Database::Open(path);
    std::vector<db::Params> fl;
    // Rates for the rows that have a typed rate; the others keep theirs.
    for (int i = 3; i <= rows; i += 3)
        fl.push_back({int64_t(7), "其他", "F" + N(i), "", N(1 + i % 9) + "%"});
    InsertAll(db, "INSERT INTO FY_FL (WorkID, QFClass, FL, Class, Value) VALUES (?,?,?,?,?)", fl);
    db.Execute(
        "INSERT INTO FY_Mark (WorkID, QFClass, MarkKey, Value) VALUES (7, '其他', 'JL', '2')");
    db.Execute("INSERT INTO PatCoe (WorkID, Key, Coe, Value) VALUES (7, 'GLF', '1.3', '1.3')");
    db.Execute("INSERT INTO KeyInfo (Code, WithCode) VALUES ('WithFLFile', '新标准.RXFL')");
}

void MakeTemplateFile(const std::string& path, int rows) {
    db::CreateFile(path, db::FileKind::Template);
    auto db = db::Database::Open(path);
    std::vector<db::Params> fy;
    for (int i = 1; i <= rows; ++i)
        fy.push_back({int64_t(0), kCategory, int64_t(0), int64_t(i), int64_t(1), "T" + N(i),
                      "模板费用" + N(i), "2%", "", kPriceKey, ""});
    InsertAll(db,
              "INSERT INTO FY (WorkID, QFClass, NodeID, Code, Level, Key, Name, FL, SM, Wffs, "
              "CalcKey) VALUES (?,?,?,?,?,?,?,?,?,?,?)",
              fy);
    db.Execute("INSERT INTO KeyInfo (Key, Value) VALUES ('FileName', '压力模板')");
}

void Rows(db::Database& db, const std::string& table, const std::string& sql,
          std::vector<std::string>& out) {
    for (auto rs = db.Query(sql); !rs.Eof(); rs.MoveNext()) {
        std::string line = table;
        for (const auto& f : rs.FieldNames()) line += "\x1f" + rs.Text(f);
        out.push_back(std::move(line));
    }
}

}  // namespace

void MakeWorkspace(const Workspace& ws, int rows) {
    db::MakeDirs(ws.DataPath() + "System");
    db::MakeDirs(ws.AppPath() + "System");
    MakeProject(ws.Pristine(), rows);
    MakeRateFile(ws.RateFile(), rows);
    MakeTemplateFile(ws.TemplateFile(), rows);
    RestoreProject(ws);
}

void RestoreProject(const Workspace& ws) {
    for (const char* tail : {"", "-wal", "-shm"}) fs::remove(ws.Project() + tail);
    fs::copy_file(ws.Pristine(), ws.Project());
}

void Attach(KW_FYTable& control, const Workspace& ws) {
    control.SetAppPath(ws.AppPath());
    control.SetDataPath(ws.DataPath());
    control.SetWorkDBFullName(ws.Project());
    control.SetWorkID(kWorkID);
    control.SetQFClass(kCategory);
}

std::vector<std::string> StoredState(const std::string& projectPath) {
    auto db = db::Database::Open(projectPath);
    std::vector<std::string> out;
    Rows(db, "FY",
         "SELECT WorkID, QFClass, NodeID, Code, Level, Key, Name, FL, SM, Wffs, CalcKey FROM FY",
         out);
    for (const char* t : {"FY_FL", "FY_Mark", "PatCoe", "FY_FLFileName"})
        Rows(db, t, std::string("SELECT * FROM ") + t, out);
    std::sort(out.begin(), out.end());
    return out;
}

std::string IntegrityCheck(const std::string& projectPath) {
    auto db = db::Database::Open(projectPath);
    auto rs = db.Query("PRAGMA integrity_check");
    return rs.Eof() ? "no answer" : rs[rs.FieldNames().front()].Text();
}

void RunOperation(KW_FYTable& control, const Workspace& ws, const std::string& operation) {
    if (operation == "save") {
        for (int16_t r = 1; r <= control.GetRows(); ++r) {  // GetRows: the last row
            control.SetCellText(r, 3, control.GetCellText(r, 3) + "·改");
            control.SetCellText(r, 5, "新说明" + N(r));
        }
        control.SaveFY();
    } else if (operation == "ratefile") {
        control.CallOtherFL(ws.RateFile(), 0);
    } else if (operation == "template") {
        control.CallOtherFY_ByFileName(ws.TemplateFile(), kCategory);
    } else {
        throw std::invalid_argument("unknown operation " + operation);
    }
}

}  // namespace kwfy::hardening
