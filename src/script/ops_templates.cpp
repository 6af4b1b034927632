// The fee-template operations, called by name. The template chooser is
// answered with answer-dialog frmExplorer tvwExplorer=NODE, the file
// dialogs with answer-file and the overwrite question with answer.
#include "kwfy/kw_fytable.h"
#include "script/bind.h"
#include "script/ops.h"

namespace kwfy::script {

void RegisterTemplateOps(Registry& r) {
    AddMethod(r, "CallOtherFY", &KW_FYTable::CallOtherFY);
    AddMethod(r, "CallOtherFY_ByFileName", &KW_FYTable::CallOtherFY_ByFileName);
    AddMethod(r, "OutputLayout", &KW_FYTable::OutputLayout);
    AddMethod(r, "InputLayout", &KW_FYTable::InputLayout);
    AddMethod(r, "CallDefaultFY", &KW_FYTable::CallDefaultFY);
    // The chosen path is a by-reference output: printed after the result.
    r.Add("ShowOpenDialog", "KIND", 1, 1, [](Call& c) {
        std::string fileName;
        const bool chosen = c.Control().ShowOpenDialog(c.Get<int16_t>(0), fileName);
        c.Result(chosen);
        if (chosen) c.Result(fileName);
    });
}

}  // namespace kwfy::script
