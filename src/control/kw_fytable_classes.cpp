#include "control/control_core.h"
#include "feetable/class_columns.h"
#include "kwfy/kw_fytable.h"

namespace kwfy {

void KW_FYTable::AddItemCol() {
    feetable::AddItemCol(*core_);
}
void KW_FYTable::InsertItemCol() {
    feetable::InsertItemCol(*core_);
}
void KW_FYTable::DeleteItemCol() {
    feetable::DeleteItemCol(*core_);
}

}  // namespace kwfy
