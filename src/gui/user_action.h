// How the views hand what the user did to the core.
//
// Every user action (a click, an edit, a key) runs through an ActionRunner,
// which reports a failure instead of letting an exception unwind into Qt's
// event loop. FeeTableWidget supplies one that shows a critical message box.
#pragma once

#include <functional>

namespace kwfy::gui {

// Runs the action; returns false when it failed (the failure was reported).
using ActionRunner = std::function<bool(const std::function<void()>&)>;

// A runner that reports failures with qWarning only: for views used without a
// FeeTableWidget around them.
ActionRunner WarningRunner();

}  // namespace kwfy::gui
