#include "control/control_events.h"

#include "control/control_core.h"

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

void ControlEvents::OnToolClick(const std::string&) {}

void ControlEvents::OnComboChange(const std::string&) {}

void ControlEvents::OnToolKeyDown(const std::string&, int) {}

void ControlEvents::OnBandClose(const std::string& bandKey) {
    if (bandKey != "FloatForm") return;
    core_.toolbar.GetBand(bandKey).SetVisible(false);
    core_.toolbar.RecalcLayout();
}

void ControlEvents::OnCustomizeRequest(const std::string& bandKey, bool& cancel) {
    if (bandKey == "SysCustomize") cancel = true;
}

}  // namespace kwfy
