#include "script/ops.h"

namespace kwfy::script {

void RegisterAllOps(Registry& r) {
    RegisterControlOps(r);
    RegisterActionOps(r);
    RegisterInspectOps(r);
}

}  // namespace kwfy::script
