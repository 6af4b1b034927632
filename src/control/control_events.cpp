#include "control/control_events.h"

#include "control/control_core.h"
#include "feetable/category_box.h"
#include "feetable/category_view.h"

namespace kwfy {

void ControlEvents::OnRowColChange(int, int, int, int) {}

void ControlEvents::OnStartEdit(int, int, bool&) {}

void ControlEvents::OnAfterEdit(int, int) {}

void ControlEvents::OnDblClick() {}

void ControlEvents::OnKeyDown(int, int) {}

void ControlEvents::OnMouseDown(int, int, int, int) {}

void ControlEvents::OnToolClick(const std::string&) {}

void ControlEvents::OnComboChange(const std::string& toolKey) {
    if (toolKey == feetable::kCategoryBox) return feetable::OnCategoryBoxChanged(core_);
}

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
