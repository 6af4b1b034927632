// The rate-file and rate-standard operations, called by name. Their dialogs
// are answered with answer-file and answer-dialog (frmFL_Sel Name=...,
// frmFL_ModelIndex ID=... or button=cmdBrow).
#include "script/bind.h"
#include "script/ops.h"

namespace kwfy::script {

void RegisterRateFileOps(Registry& r) {
    AddMethod(r, "OutputFLData", &KW_FYTable::OutputFLData);
    AddMethod(r, "InputFLData", &KW_FYTable::InputFLData);
    AddMethod(r, "CallOtherFL", &KW_FYTable::CallOtherFL, Defaults(int16_t{0}));
    AddMethod(r, "ShowSelFLDialog", &KW_FYTable::ShowSelFLDialog);
}

}  // namespace kwfy::script
