// KW_FYTable's rate-file and rate-standard operations, forwarded to the rate
// subsystem.
#include "control/control_core.h"
#include "kwfy/kw_fytable.h"
#include "rates/rate_file_transfer.h"
#include "rates/rate_standard_choice.h"

namespace kwfy {

void KW_FYTable::CallOtherFL(const std::string& p_FileName, int16_t p_WorkID) {
    rates::CallOtherFL(*core_, p_FileName, p_WorkID);
}

void KW_FYTable::InputFLData() {
    rates::InputFLData(*core_);
}

void KW_FYTable::OutputFLData() {
    rates::OutputFLData(*core_);
}

void KW_FYTable::ShowSelFLDialog() {
    rates::ShowSelFLDialog(*core_);
}

}  // namespace kwfy
