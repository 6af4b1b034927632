#include "rates/rate_file_followups.h"

#include "control/control_core.h"
#include "feetable/frm_col_value.h"
#include "feetable/load_fy.h"
#include "feetable/save_fy.h"
#include "rates/composite_rates.h"
#include "rates/condition_marks.h"

namespace kwfy::rates {

void ReloadFeeTable(ControlCore& core) {
    feetable::LoadFYRows(core, core.work.CurQFClass);
}

void UpdateCompositeRates(ControlCore& core) {
    auto project = db::Database::Open(core.ctx.WorkDBFullName);
    // A node table shows the rates of its node's rate class; a category-wide
    // table those of its class columns.
    const std::string nodeClass =
        core.ctx.NodeID != 0 ? GetNodeFLClass(project, core.ctx.WorkID, core.ctx.NodeID)
                             : std::string();
    if (!CalcStarRates(core, nodeClass)) return;
    db::Transaction tx(project);
    StoreStarRates(core, project, nodeClass);
    tx.Commit();
}

void SaveFeeTable(ControlCore& core) {
    feetable::SaveFY_One(core, 1, core.fee.LastRow(), core.work.CurQFClass);
}

std::string AskSourceClass(ControlCore& core) {
    feetable::FrmColValue dialog;
    dialog.WorkFullName(core.ctx.WorkDBFullName);
    dialog.WorkID(core.ctx.WorkID);
    dialog.Load();
    core.ui.RunDialog(dialog);
    return dialog.GetProjectClass();
}

}  // namespace kwfy::rates
