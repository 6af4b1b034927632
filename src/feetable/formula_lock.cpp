#include "feetable/formula_lock.h"

namespace kwfy::feetable {

void SetGridEditable(ControlCore& core, bool editable) {
    core.grid.SetEditable(editable);
    core.grid.SetEditableCue(editable ? kEditableCue : kReadOnlyCue);
}

bool IsLockedColumn(const ControlCore& core, int col) {
    return core.work.FormulaLocked && col == core.fee.Columns().wffs;
}

void DecideEditability(ControlCore& core, int newCol) {
    SetGridEditable(core, !IsLockedColumn(core, newCol));
}

bool AskUnlockFormula(ControlCore& core) {
    if (!IsLockedColumn(core, core.grid.Col())) return false;
    MessageRequest ask{"为防止误修改，计算式列默认是锁定的，是否取消锁定？", "提示",
                       MsgButtons::YesNo, MsgIcon::Exclamation};
    if (core.ui.MessageBox(ask) != MsgAnswer::Yes) return false;
    core.work.FormulaLocked = false;
    SetGridEditable(core, true);
    core.ui.FocusGrid();
    return true;
}

}  // namespace kwfy::feetable
