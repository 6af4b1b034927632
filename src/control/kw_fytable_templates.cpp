// KW_FYTable's template operations, forwarded to the template subsystem.
#include "control/control_core.h"
#include "kwfy/kw_fytable.h"
#include "templates/template_commands.h"

namespace kwfy {

void KW_FYTable::CallOtherFY() {
    templates::CallOtherFY(*core_);
}

void KW_FYTable::CallOtherFY_ByFileName(const std::string& p_FileName,
                                        const std::string& p_QFClass) {
    templates::CallOtherFY_ByFileName(*core_, p_FileName, p_QFClass);
}

void KW_FYTable::OutputLayout() {
    templates::OutputLayout(*core_);
}

void KW_FYTable::InputLayout() {
    templates::InputLayout(*core_);
}

void KW_FYTable::AddStandarItems() {
    templates::AddStandarItems(*core_);
}

void KW_FYTable::CallDefaultFY() {
    templates::CallDefaultFY(*core_);
}

bool KW_FYTable::ShowOpenDialog(int16_t p_Kind, std::string& p_FileName) {
    auto chosen = templates::ShowOpenDialog(*core_, p_Kind);
    if (!chosen) return false;
    p_FileName = *chosen;
    return true;
}

}  // namespace kwfy
