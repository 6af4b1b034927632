// Saving the project's fee layout to a fee file and loading a category back
// from one; the open dialog for fee and rate files.
#include <filesystem>

#include "control/control_core.h"
#include "db/paths.h"
#include "feetable/load_fy.h"
#include "rates/frm_fl_model_index.h"
#include "rates/rate_catalogue.h"
#include "templates/category_rows.h"
#include "templates/template_commands.h"
#include "templates/template_file.h"
#include "templates/template_paths.h"

namespace kwfy::templates {

namespace {

namespace fs = std::filesystem;

void RemoveDatabaseFile(const std::string& path) {
    std::error_code ec;
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) fs::remove(path + suffix, ec);
}

bool SameFile(const std::string& a, const std::string& b) {
    std::error_code ec;
    return fs::equivalent(a, b, ec);
}

void WriteLayout(const ControlCore& core, const std::string& path) {
    db::Database::Create(path);
    auto project = db::Database::Open(core.ctx.WorkDBFullName);
    db::CopyTableRows(project, "FY", "FY", core.ctx.WorkID, path);
    // A single self-contained file, readable from read-only media too.
    db::Database::Open(path).Execute("PRAGMA journal_mode=DELETE");
}

}  // namespace

void OutputLayout(ControlCore& core) {
    auto chosen = core.ui.FileDialog(
        {true, "另存为...", UserLayoutPattern(core.ctx.AppPath), kFeeFileFilter, true});
    if (!chosen || chosen->empty()) return;
    const std::string& path = *chosen;
    // Replacing the project database itself would destroy what is exported.
    if (SameFile(path, core.ctx.WorkDBFullName)) return;
    std::error_code ec;
    if (fs::is_directory(path, ec)) return;
    if (fs::exists(path, ec)) {
        const MsgAnswer answer = core.ui.MessageBox({"该文件已经存在，确信替换吗？", "友情提示",
                                                     MsgButtons::YesNo, MsgIcon::Exclamation, 1});
        if (answer != MsgAnswer::Yes) return;
        RemoveDatabaseFile(path);
    }
    try {
        WriteLayout(core, path);
    } catch (const Error&) {
        // The operation ends silently; a half-written file is not left behind.
        RemoveDatabaseFile(path);
    }
}

void InputLayout(ControlCore& core) {
    const auto chosen = ShowOpenDialog(core, 0);
    if (!chosen) return;
    const std::string category = core.work.CurQFClass;
    const FeeRowsFile layout = ReadLayoutRows(*chosen, category);
    {
        // The reload stores the rates it resolves; it joins the replacement's
        // transaction, so a failure anywhere keeps the old table.
        rates::RateFiles files(core);
        db::Transaction tx(files.Project());
        ReplaceCategoryRows(files.Project(), core.ctx.WorkID, category, layout);
        BusyCursor busy(core.ui);
        feetable::LoadFY(core, files);
        tx.Commit();
    }
    core.events.AfterEdit();
}

std::optional<std::string> ShowOpenDialog(ControlCore& core, int16_t kind) {
    std::optional<std::string> chosen;
    if (kind == 0)
        chosen = core.ui.FileDialog(
            {false, "打开...", UserLayoutPattern(core.ctx.AppPath), kFeeFileFilter, true});
    else if (kind == 1)
        chosen = core.ui.FileDialog({false, "打开...", "", rates::kRateFileFilter, true});
    if (!chosen || chosen->empty()) return std::nullopt;
    return chosen;
}

}  // namespace kwfy::templates
