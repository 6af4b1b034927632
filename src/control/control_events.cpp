#include "control/control_events.h"

#include "control/control_core.h"
#include "control/dispatch_tool.h"
#include "feetable/category_box.h"
#include "feetable/category_view.h"
#include "feetable/class_columns.h"
#include "rates/condition_marks.h"
#include "rates/particular_coefficients.h"

namespace kwfy {

void ControlEvents::OnRowColChange(int oldRow, int oldCol, int newRow, int newCol) {
    feeGrid_.OnRowColChange(oldRow, oldCol, newRow, newCol);
}

void ControlEvents::OnStartEdit(int row, int col, bool& cancel) {
    feeGrid_.OnStartEdit(row, col, cancel);
}

void ControlEvents::OnAfterEdit(int row, int col) {
    feeGrid_.OnAfterEdit(row, col);
}

void ControlEvents::OnDblClick() {
    feeGrid_.OnDblClick();
}

void ControlEvents::OnKeyDown(int keyCode, int shift) {
    feeGrid_.OnKeyDown(keyCode, shift);
}

void ControlEvents::OnMouseDown(int button, int shift, int x, int y) {
    feeGrid_.OnMouseDown(button, shift, x, y);
}

void ControlEvents::OnToolClick(const std::string& toolKey) {
    control::DispatchTool(core_, toolKey);
}

void ControlEvents::OnComboChange(const std::string& toolKey) {
    if (toolKey == feetable::kCategoryBox) return feetable::OnCategoryBoxChanged(core_);
    if (rates::MarkBoxNumber(toolKey) > 0) return rates::OnMarkBoxChanged(core_, toolKey);
}

void ControlEvents::OnToolKeyDown(const std::string& toolKey, int keyCode) {
    if (toolKey == "Edit_Coe" && keyCode == feetable::kEnterKey) {
        if (const Tool* box = core_.toolbar.FindTool("Main", "Edit_Coe"))
            rates::ApplyFeeCoefficient(core_, box->text);
    }
}

void ControlEvents::OnBandClose(const std::string& bandKey) {
    if (bandKey != "FloatForm") return;
    core_.toolbar.GetBand(bandKey).SetVisible(false);
    core_.toolbar.RecalcLayout();
    particular_.Unload();
}

void ControlEvents::OnCustomizeRequest(const std::string& bandKey, bool& cancel) {
    if (bandKey == "SysCustomize") cancel = true;
}

}  // namespace kwfy
