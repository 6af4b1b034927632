#include "control/control_resize.h"

#include "control/control_core.h"
#include "kwfy/error.h"

namespace kwfy {

// The index grid keeps its own height; the fee grid takes what is left. The
// particular-coefficients dialog belongs with the floating band, so while the
// band shows, an open dialog is set up again for the row that has the focus;
// like a placement that does not fit, a failure there does not stop the
// layout.
void ResizeControl(ControlCore& core) {
    core.display.layout =
        ComputeLayout(core.display.width, core.display.height, core.display.ShowBar,
                      core.toolbar.Height(), core.indexGrid.Visible(), core.indexGrid.Height());
    if (!core.toolbar.GetBand("FloatForm").Visible()) return;
    try {
        core.handlers.ParticularDialog().SetUpAgain(core);
    } catch (const Error&) {
        core.handlers.ParticularDialog().Unload();
    }
}

}  // namespace kwfy
