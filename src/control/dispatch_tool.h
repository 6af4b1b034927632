// DispatchTool: the one handler of every tool click, in the toolbar "Main",
// the popup menu "Pop" and the floating band "FloatForm".
#pragma once

#include <string>

namespace kwfy {
class ControlCore;
}

namespace kwfy::control {

// Runs the command behind the clicked tool's key; a key that names no command
// does nothing. The same command may sit in several bands under different
// keys ("Edit_Call" and "Pop_CallOtherFY"). A command's kwfy::Error reaches
// the caller unchanged: the command has left the data as it was.
void DispatchTool(ControlCore& core, const std::string& key);

}  // namespace kwfy::control
