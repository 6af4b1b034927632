// KW_FYTable's rate operations, forwarded to the rate subsystem.
#include "control/control_core.h"
#include "kwfy/kw_fytable.h"
#include "rates/interpolation.h"
#include "rates/particular_coefficients.h"
#include "rates/rate_readouts.h"

namespace kwfy {

std::string KW_FYTable::GetFLByKey(const std::string& p_Key) const {
    return rates::GetFLByKey(*core_, p_Key);
}

std::string KW_FYTable::GetFLByCalcKey(const std::string& p_Key) const {
    return rates::GetFLByCalcKey(*core_, p_Key);
}

void KW_FYTable::GetFLKeyArray(std::vector<std::string>& p_arrKey,
                               std::vector<double>& p_arrPrice) const {
    rates::GetFLKeyArray(*core_, p_arrKey, p_arrPrice);
}

void KW_FYTable::AnalyzInterPolating(const std::string& p_Text, const std::string& p_Class,
                                     int16_t p_Row, const std::string& p_ListText) {
    rates::AnalyzInterPolating(*core_, p_Text, p_Class, p_Row, p_ListText);
}

void KW_FYTable::AnalyzOnePatFL(const std::string& p_Text, const std::string& p_Class,
                                int16_t p_Col, int16_t p_Row, const std::string& p_ListText) {
    rates::AnalyzOnePatFL(*core_, p_Text, p_Class, p_Col, p_Row, p_ListText);
}

void KW_FYTable::AnalyzeGFLCoe(const std::string& p_Text, const std::string& p_Class,
                               int16_t p_ChkTag) {
    rates::AnalyzeGFLCoe(*core_, p_Text, p_Class, p_ChkTag);
}

}  // namespace kwfy
