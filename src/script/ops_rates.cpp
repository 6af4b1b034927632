// Script statements of the rate subsystem: the control's rate operations.
// The particular-coefficients dialog needs none: its fields (txtCoe0..3,
// txtName0..3, txtResult, txtDistance, Combo_GDZY, Combo_GLF, chkGLF) are set
// with answer-dialog frmFL_Particular FIELD=VALUE.
#include <string>
#include <vector>

#include "kwfy/kw_fytable.h"
#include "script/bind.h"
#include "script/ops.h"

namespace kwfy::script {

void RegisterRatesOps(Registry& r) {
    AddMethod(r, "GetFLByKey", &KW_FYTable::GetFLByKey);
    AddMethod(r, "GetFLByCalcKey", &KW_FYTable::GetFLByCalcKey);
    r.Add("GetFLKeyArray", "", 0, 0, [](Call& c) {
        std::vector<std::string> keys;
        std::vector<double> prices;
        c.Control().GetFLKeyArray(keys, prices);
        c.ResultPairs(keys, prices);
    });
    AddMethod(r, "AnalyzInterPolating", &KW_FYTable::AnalyzInterPolating,
              Defaults(int16_t{0}, std::string()));
    AddMethod(r, "AnalyzOnePatFL", &KW_FYTable::AnalyzOnePatFL,
              Defaults(std::string(), int16_t{0}, int16_t{0}, std::string()));
    AddMethod(r, "AnalyzeGFLCoe", &KW_FYTable::AnalyzeGFLCoe);
}

}  // namespace kwfy::script
