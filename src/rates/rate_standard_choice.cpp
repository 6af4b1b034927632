#include "rates/rate_standard_choice.h"

#include "control/control_core.h"
#include "rates/frm_fl_sel.h"
#include "rates/rate_catalogue.h"
#include "rates/rate_file_followups.h"

namespace kwfy::rates {

void StoreFLFileName(db::Database& project, const std::string& fileName, int16_t workId,
                     const std::string& category) {
    db::Transaction tx(project);
    auto rs = project.OpenTable("FY_FLFileName", "WorkID=? AND QFClass=? ORDER BY rowid",
                                {int64_t(workId), category});
    if (rs.Eof())
        rs.AddNew();
    else
        rs.Edit();
    rs.Set("FL_FileName", fileName);
    rs.Set("WorkID", int64_t(workId));
    rs.Set("QFClass", category);
    rs.Update();
    tx.Commit();
}

void ShowSelFLDialog(ControlCore& core) {
    FrmFLSel dialog;
    dialog.DataPath(core.ctx.DataPath);
    {
        auto project = db::Database::Open(core.ctx.WorkDBFullName);
        dialog.SetFLShortName(GetFLFileName(project, core.ctx.WorkID, core.work.CurQFClass));
    }
    dialog.Load();
    core.ui.RunDialog(dialog);
    if (dialog.UnloadState() != 1 || dialog.GetShortName().empty()) return;
    {
        auto project = db::Database::Open(core.ctx.WorkDBFullName);
        StoreFLFileName(project, dialog.GetShortName(), core.ctx.WorkID, core.work.CurQFClass);
    }
    BusyCursor busy(core.ui);
    ReloadFeeTable(core);
}

void CopyClassRates(ControlCore& core) {
    FeeGrid& fee = core.fee;
    GridModel& grid = core.grid;
    const int target = grid.Col();
    if (grid.Rows() < 2 || core.ctx.NodeID != 0 || !fee.IsClassCol(target)) return;
    const std::string targetClass = fee.caption(target);

    const std::string source = AskSourceClass(core);
    if (source.empty()) return;
    const MsgAnswer answer =
        core.ui.MessageBox({"确信以【" + source + "】的费率替换【" + targetClass + "】的费率值吗？",
                            "友情提示", MsgButtons::YesNo, MsgIcon::Exclamation, 0});
    if (answer != MsgAnswer::Yes) return;

    BusyCursor busy(core.ui);
    const FeeColumns& cols = fee.Columns();
    int from = -1;
    for (int c = cols.classFirst; c <= cols.classLast && c < grid.Cols(); ++c)
        if (fee.caption(c) == source) {
            from = c;
            break;
        }
    if (from < 0) return;

    std::vector<std::string> before;
    for (int r = 1; r <= fee.LastRow(); ++r) before.push_back(grid.Text(r, target));
    try {
        for (int r = 1; r <= fee.LastRow(); ++r) grid.SetText(r, target, grid.Text(r, from));
        SaveFeeTable(core);
    } catch (...) {
        for (int r = 1; r <= fee.LastRow() && r <= int(before.size()); ++r)
            grid.SetText(r, target, before[size_t(r - 1)]);
        throw;
    }
    core.events.AfterEdit();
}

}  // namespace kwfy::rates
