// The control's toolbar bands as they stand when the control is created.
#pragma once

#include "kwfy/toolbar_model.h"

namespace kwfy {

// Fills the bands "Main", "Pop" and "FloatForm" with their tools (replacing
// what they held) and shows "Main".
void BuildToolbarBands(ToolbarModel& toolbar);

}  // namespace kwfy
