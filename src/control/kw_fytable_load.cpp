// KW_FYTable's loading and saving members.
#include "control/control_core.h"
#include "feetable/load_fy.h"
#include "feetable/save_fy.h"
#include "kwfy/kw_fytable.h"

namespace kwfy {

void KW_FYTable::LoadFY() {
    feetable::LoadFY(*core_);
}

void KW_FYTable::SaveFY() {
    ControlCore& c = *core_;
    feetable::SaveFY_One(c, 1, c.fee.LastRow(), c.work.CurQFClass);
}

void KW_FYTable::SaveFY_One(int16_t p_startRow, int16_t p_endRow, const std::string& p_QFClass) {
    feetable::SaveFY_One(*core_, p_startRow, p_endRow, p_QFClass);
}

}  // namespace kwfy
