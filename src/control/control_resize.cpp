#include "control/control_resize.h"

#include "control/control_core.h"

namespace kwfy {

// The index grid keeps its own height; the fee grid takes what is left.
void ResizeControl(ControlCore& core) {
    core.display.layout =
        ComputeLayout(core.display.width, core.display.height, core.display.ShowBar,
                      core.toolbar.Height(), core.indexGrid.Visible(), core.indexGrid.Height());
}

}  // namespace kwfy
