// The popup band ("Pop") as a QMenu.
#pragma once

#include <QMenu>
#include <memory>
#include <string>

#include "kwfy/toolbar_model.h"

namespace kwfy::gui {

// A menu of the band's visible tools in band order, captions as given (so
// "&S" is a mnemonic), tips as tool tips, disabled tools greyed. Separators
// stand only between two shown entries. Each action's data is its tool key.
std::unique_ptr<QMenu> BuildBandMenu(const Band& band, QWidget* parent);

// The tool key of a menu action built above; empty for none.
std::string ToolKeyOf(const QAction* action);

}  // namespace kwfy::gui
