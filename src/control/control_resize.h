// Placing the toolbar and the two grids in the control's area.
#pragma once

namespace kwfy {

class ControlCore;

// Lays the control out for its current size, toolbar and index grid
// visibility (KW_FYTable::Resize); the placement is kept in
// DisplayState::layout for the views.
void ResizeControl(ControlCore& core);

}  // namespace kwfy
