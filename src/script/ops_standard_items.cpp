// The standard fee item command, called by name. Its dialogs are answered
// with answer-dialog frmFY_AddItems (lst=..., F.<n>=+|-, button=cmdDefine)
// and answer-dialog frmFY_AddItems_User (txtName=..., txtPrice=...).
#include "script/bind.h"
#include "script/ops.h"

namespace kwfy::script {

void RegisterStandardItemOps(Registry& r) {
    AddMethod(r, "AddStandarItems", &KW_FYTable::AddStandarItems);
}

}  // namespace kwfy::script
