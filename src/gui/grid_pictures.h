// The small pictures the grids show in cells (the control names them by
// number: kMarkPicture, kHeaderMarkPicture).
#pragma once

#include <QPixmap>

namespace kwfy::gui {

// A 12x12 picture for a picture id: the formula-reference marker, the mark
// column's header icon, or a plain dot for an id this view does not know.
QPixmap GridPicture(int id);

}  // namespace kwfy::gui
