// KW_FYTable's row and cell editing members.
#include "control/control_core.h"
#include "feetable/row_operations.h"
#include "kwfy/kw_fytable.h"

namespace kwfy {

void KW_FYTable::AddRow() {
    feetable::AddRow(*core_);
}

void KW_FYTable::DelRow() {
    feetable::DelRow(*core_);
}

void KW_FYTable::ClearRows() {
    feetable::ClearRows(*core_);
}

void KW_FYTable::FillSelText() {
    feetable::FillSelText(*core_);
}

void KW_FYTable::ClearSelText() {
    feetable::ClearSelText(*core_);
}

}  // namespace kwfy
