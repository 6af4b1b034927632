// Placeholder definitions until the template library lands.
#include "kwfy/error.h"
#include "templates/template_commands.h"

namespace kwfy::templates {

void CallOtherFY(ControlCore&) {
    throw Error("fee templates are not available in this build");
}
void CallOtherFY_ByFileName(ControlCore&, const std::string&, const std::string&) {
    throw Error("fee templates are not available in this build");
}
void OutputLayout(ControlCore&) {
    throw Error("fee layouts are not available in this build");
}
void InputLayout(ControlCore&) {
    throw Error("fee layouts are not available in this build");
}
std::optional<std::string> ShowOpenDialog(ControlCore&, int16_t) {
    return std::nullopt;
}
void CallDefaultFY(ControlCore&) {
    throw Error("fee templates are not available in this build");
}

}  // namespace kwfy::templates
