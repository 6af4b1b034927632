// Taking a rate file into the project, and choosing the file to take.
#include <optional>
#include <vector>

#include "control/control_core.h"
#include "db/keyinfo.h"
#include "db/paths.h"
#include "rates/frm_fl_model_index.h"
#include "rates/rate_file_followups.h"
#include "rates/rate_file_transfer.h"
#include "rates/rate_standard_choice.h"

namespace kwfy::rates {
namespace {

// A rate file's rows to take, read in full before the project is touched.
struct RateFileRows {
    struct Rate {
        std::string fl, cls, value;
    };
    struct Mark {
        std::string qfClass, markKey, value;
    };
    struct Coefficient {
        std::string key, value, coe;
    };
    std::vector<Rate> rates;
    std::vector<Mark> marks;
    std::vector<Coefficient> coefficients;
    std::string withFLFile;
};

class NotARateFile {};

// The rows of one table, with every named column present; a missing table or
// column means the file is not a rate file. With a project number the rows
// are that project's (and, when given, of that category only).
db::Recordset ReadTable(db::Database& file, const std::string& table,
                        std::vector<std::string> columns, int16_t workId,
                        const std::string* category = nullptr) {
    if (!file.TableExists(table)) throw NotARateFile{};
    const std::string from = "SELECT * FROM \"" + table + "\"";
    if (workId != 0) columns.push_back("WorkID");
    if (category) columns.push_back("QFClass");
    auto layout = file.Query(from + " WHERE 0");
    for (const std::string& column : columns)
        if (!layout.FieldExists(column)) throw NotARateFile{};
    if (workId == 0) return file.Query(from + " ORDER BY rowid");
    if (!category)
        return file.Query(from + " WHERE \"WorkID\"=? ORDER BY rowid", {int64_t(workId)});
    return file.Query(from + " WHERE \"WorkID\"=? AND \"QFClass\"=? COLLATE NOCASE ORDER BY rowid",
                      {int64_t(workId), *category});
}

// The rate standard the file was made with; "" when the file does not say.
std::string ReadWithFLFile(db::Database& file) {
    if (!file.TableExists("KeyInfo")) return {};
    auto layout = file.Query("SELECT * FROM \"KeyInfo\" WHERE 0");
    if (!layout.FieldExists("Code") || !layout.FieldExists("WithCode")) return {};
    return db::GetWithCode(file, "WithFLFile");
}

// nullopt when the path is not a readable rate file.
std::optional<RateFileRows> ReadRateFile(const std::string& path, int16_t workId,
                                         const std::string& category) {
    if (!db::FileExists(path)) return std::nullopt;
    try {
        auto file = db::Database::OpenReadOnly(path);
        RateFileRows rows;
        auto rs = ReadTable(file, "FY_FL", {"FL", "Class", "Value"}, workId, &category);
        for (; !rs.Eof(); rs.MoveNext())
            rows.rates.push_back({rs.Text("FL"), rs.Text("Class"), rs.Text("Value")});
        rs = ReadTable(file, "FY_Mark", {"QFClass", "MarkKey", "Value"}, workId);
        for (; !rs.Eof(); rs.MoveNext())
            rows.marks.push_back({rs.Text("QFClass"), rs.Text("MarkKey"), rs.Text("Value")});
        rs = ReadTable(file, "PatCoe", {"Key", "Value", "Coe"}, workId);
        for (; !rs.Eof(); rs.MoveNext())
            rows.coefficients.push_back({rs.Text("Key"), rs.Text("Value"), rs.Text("Coe")});
        rows.withFLFile = ReadWithFLFile(file);
        return rows;
    } catch (const NotARateFile&) {
        return std::nullopt;
    } catch (const Error&) {  // not a database, unreadable, damaged
        return std::nullopt;
    }
}

void ReplaceProjectRates(ControlCore& core, db::Database& project, const RateFileRows& rows) {
    const int64_t workId = core.ctx.WorkID;
    const std::string& category = core.work.CurQFClass;
    project.Execute("DELETE FROM FY_FL WHERE WorkID=? AND QFClass=?", {workId, category});
    for (const auto& r : rows.rates)
        project.Execute("INSERT INTO FY_FL (WorkID, QFClass, FL, Class, Value) VALUES (?,?,?,?,?)",
                        {workId, category, r.fl, r.cls, r.value});
    project.Execute("DELETE FROM FY_Mark WHERE WorkID=?", {workId});
    for (const auto& m : rows.marks)
        project.Execute("INSERT INTO FY_Mark (WorkID, QFClass, MarkKey, Value) VALUES (?,?,?,?)",
                        {workId, m.qfClass, m.markKey, m.value});
    project.Execute("DELETE FROM PatCoe WHERE WorkID=?", {workId});
    for (const auto& c : rows.coefficients)
        project.Execute("INSERT INTO PatCoe (WorkID, \"Key\", Value, Coe) VALUES (?,?,?,?)",
                        {workId, c.key, c.value, c.coe});
    if (!rows.withFLFile.empty())
        StoreFLFileName(project, rows.withFLFile, core.ctx.WorkID, category);
}

// The project's quota key: WithDEKey of its WorkStruct row.
std::string ProjectQuotaKey(const ControlCore& core) {
    auto project = db::Database::Open(core.ctx.WorkDBFullName);
    auto rs =
        project.Query("SELECT WithDEKey FROM WorkStruct WHERE ID=?", {int64_t(core.ctx.WorkID)});
    return rs.Eof() ? std::string() : rs.Text("WithDEKey");
}

// The rate-template index database named for the project, "" when there is
// none or the file does not exist.
std::string RateTemplateIndex(const ControlCore& core) {
    const std::string key = "FLModelIndex_" + ProjectQuotaKey(core);
    // Without a configuration there is no index to offer; browsing still works.
    const std::string configPath = db::ConfigDBPath(core.ctx.AppPath);
    if (!db::FileExists(configPath)) return {};
    auto config = db::Database::OpenReadOnly(configPath);
    const std::string index = db::GetWithCode(config, key);
    if (index.empty()) return {};
    std::string path = db::JoinPath(db::JoinPath(core.ctx.DataPath, "费率模板"), index);
    return db::FileExists(path) ? path : std::string();
}

std::string ChooseRateFile(ControlCore& core) {
    const std::string index = RateTemplateIndex(core);
    if (!index.empty()) {
        FrmFLModelIndex dialog;
        dialog.SetDBFullName(index);
        dialog.Load();
        core.ui.RunDialog(dialog);
        return dialog.GetCallFile();
    }
    return core.ui.FileDialog({false, "打开...", "", kRateFileFilter, true}).value_or("");
}

}  // namespace

bool CallOtherFL(ControlCore& core, const std::string& p_FileName, int16_t p_WorkID) {
    const auto rows = ReadRateFile(p_FileName, p_WorkID, core.work.CurQFClass);
    if (!rows) {
        core.ui.MessageBox({"无效文件格式", "提示", MsgButtons::OK, MsgIcon::Exclamation, 0});
        return false;
    }
    BusyCursor busy(core.ui);
    {
        auto project = db::Database::Open(core.ctx.WorkDBFullName);
        db::Transaction tx(project);
        ReplaceProjectRates(core, project, *rows);
        tx.Commit();
    }
    ReloadFeeTable(core);
    UpdateCompositeRates(core);
    return true;
}

void InputFLData(ControlCore& core) {
    const std::string file = ChooseRateFile(core);
    if (file.empty()) return;
    if (CallOtherFL(core, file, 0)) core.events.AfterEdit();
}

}  // namespace kwfy::rates
