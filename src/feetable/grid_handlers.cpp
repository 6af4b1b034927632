#include "feetable/grid_handlers.h"

#include "control/control_core.h"
#include "db/database.h"
#include "db/keyinfo.h"
#include "feetable/cell_edit.h"
#include "feetable/formula_lock.h"
#include "rates/condition_marks.h"

namespace kwfy::feetable {

void FeeGridHandlers::OnRowColChange(int oldRow, int, int newRow, int newCol) {
    if (core_.work.BuildingClassCols) return;
    DecideEditability(core_, newCol);
    if (oldRow == newRow || !core_.fee.IsDataRow(newRow)) return;

    core_.fee.MarkFormulaRows(newRow);
    // Only a table with project classes shows the marks row by row. Its load
    // has already cut "Main" back to the standard tools, its mark changes
    // refresh only the row that has the focus, and the particular-coefficient
    // button lives on the same floating band. Without classes the marks stay
    // on "Main" for the whole table, where trimming here would take them away.
    if (core_.work.RateStdPath.empty() || core_.work.RateMode != 2) return;
    rates::TrimMainBand(core_.toolbar);
    core_.toolbar.RecalcLayout();
    const int64_t id = core_.fee.idNumber(newRow);
    if (id > 0) rates::ShowMarkPanel(core_, id);
}

void FeeGridHandlers::OnStartEdit(int, int col, bool& cancel) {
    // The editability follows cell moves only; a reload that leaves the
    // current cell in the formula column must still find it locked.
    if (IsLockedColumn(core_, col)) {
        cancel = true;
        return;
    }
    const FeeColumns& cols = core_.fee.Columns();
    afterEditPending_ = col >= cols.rate && col <= cols.wffs;
}

void FeeGridHandlers::OnAfterEdit(int row, int col) {
    if (afterEditPending_) {
        afterEditPending_ = false;
        core_.events.AfterEdit();
    }
    ProcessCellEdit(core_, row, col);
}

void FeeGridHandlers::OnDblClick() {
    AskUnlockFormula(core_);
}

void FeeGridHandlers::OnKeyDown(int keyCode, int) {
    if (keyCode == kEnterKey) AskUnlockFormula(core_);
}

void FeeGridHandlers::OnMouseDown(int button, int, int x, int y) {
    if (button == kRightButton) ShowGridPopup(core_, x, y);
}

int RowAtY(const GridModel& grid, int y) {
    if (y < 0) return -1;
    int top = 0;
    for (int r = 0; r < grid.Rows(); ++r) {
        if (grid.IsRowHiddenByOutline(r)) continue;
        top += grid.RowHeight(r) > 0 ? grid.RowHeight(r) : kDefaultRowHeight;
        if (y < top) return r;
    }
    return -1;
}

void ShowGridPopup(ControlCore& core, int x, int y) {
    GridModel& g = core.grid;
    const int clicked = RowAtY(g, y);
    if (g.Row() == g.RowSel() && clicked >= g.FixedRows()) g.UserSelect(clicked, g.Col());

    ToolbarModel& bar = core.toolbar;
    Band& pop = bar.GetBand("Pop");
    if (core.work.RateMode == 2 && core.ctx.NodeID == 0) {
        for (const char* key : {"Pop_AddCol", "Pop_InsertCol", "Pop_DelCol", "Pop_InputColValue"})
            if (Tool* t = pop.Find(key)) t->visible = true;
        bar.RecalcLayout();
    }

    const std::string items = db::GetEditKindConfig(core.ctx.WorkDBFullName, core.ctx.AppPath,
                                                    db::kStandardItemsKeyPrefix);
    if (items.empty())
        if (Tool* t = pop.Find("Pop_AddStandarItems")) t->visible = false;

    bar.ShowPopup("Pop", x, y);
}

}  // namespace kwfy::feetable
