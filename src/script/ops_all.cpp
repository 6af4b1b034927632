#include "script/ops.h"

namespace kwfy::script {

void RegisterAllOps(Registry& r) {
    RegisterControlOps(r);
    RegisterActionOps(r);
    RegisterInspectOps(r);
    RegisterDataOps(r);
    RegisterRatesOps(r);
    RegisterRateFileOps(r);
    RegisterTemplateOps(r);
    RegisterStandardItemOps(r);
}

}  // namespace kwfy::script
