// Taking a library template for a fee category, chosen in the template
// chooser or named by the caller.
#include "control/control_core.h"
#include "db/keyinfo.h"
#include "db/paths.h"
#include "feetable/load_fy.h"
#include "rates/rate_catalogue.h"
#include "rates/rate_standard_choice.h"
#include "templates/category_rows.h"
#include "templates/frm_explorer.h"
#include "templates/template_commands.h"
#include "templates/template_file.h"
#include "templates/template_paths.h"

namespace kwfy::templates {

namespace {

// The switch is the text "1" itself, not a number: "1.0" leaves it off. A
// missing configuration file reads as every key missing.
bool DeletesRatesWithFees(const ControlCore& core) {
    const std::string path = db::ConfigDBPath(core.ctx.AppPath);
    if (!db::FileExists(path)) return false;
    auto config = db::Database::OpenReadOnly(path);
    return db::GetWithCode(config, "ChangeFYAutoDelFL") == "1";
}

// Older projects lack the column FY_FileName; they then keep no record.
void RecordTemplatePath(ControlCore& core, db::Database& project, const std::string& path,
                        const std::string& category) {
    auto rs = project.OpenTable("FY_FLFileName", "WorkID=? AND QFClass=? ORDER BY rowid",
                                {int64_t(core.ctx.WorkID), category});
    if (rs.Eof() || !rs.FieldExists("FY_FileName")) return;
    rs.Edit();
    rs.Set("FY_FileName", RelativeToLibrary(path, core.ctx.DataPath));
    rs.Update();
}

}  // namespace

void CallOtherFY_ByFileName(ControlCore& core, const std::string& p_FileName,
                            const std::string& p_QFClass) {
    const LibraryTemplate fees = ReadLibraryTemplate(p_FileName);
    const bool deleteRates = DeletesRatesWithFees(core);
    // A template without a "FileName" row keeps the standard of the one taken before.
    const std::string rateStandard = fees.rateStandard.value_or(core.work.TemplateFLName);
    const int16_t workId = core.ctx.WorkID;
    // The reload stores the rates it resolves for the new rows; it joins the
    // replacement's transaction, so a failure anywhere keeps the old table.
    rates::RateFiles files(core);
    db::Database& project = files.Project();
    db::Transaction tx(project);
    ReplaceCategoryRows(project, workId, p_QFClass, fees);
    if (deleteRates)
        project.Execute("DELETE FROM FY_FL WHERE QFClass=? AND WorkID=?",
                        {p_QFClass, int64_t(workId)});
    rates::StoreFLFileName(project, rateStandard, workId, p_QFClass);
    RecordTemplatePath(core, project, p_FileName, p_QFClass);
    const std::string previousStandard = core.work.TemplateFLName;
    core.work.TemplateFLName = rateStandard;
    try {
        BusyCursor busy(core.ui);
        feetable::LoadFYRows(core, files, p_QFClass);
        tx.Commit();
    } catch (...) {
        core.work.TemplateFLName = previousStandard;
        throw;
    }
}

void CallOtherFY(ControlCore& core) {
    FrmExplorer explorer;
    explorer.SetAppPath(core.ctx.AppPath);
    explorer.SetDataPath(core.ctx.DataPath);
    explorer.InitExplorer();
    core.ui.RunDialog(explorer);
    if (explorer.GetUnloadState() != 0) return;
    CallOtherFY_ByFileName(core, explorer.GetNodeFullPath(), core.work.CurQFClass);
    core.events.AfterEdit();
}

}  // namespace kwfy::templates
