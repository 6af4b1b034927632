// KW_FYTable's calculation and value-query members.
#include "calc/calc_fy.h"
#include "control/control_core.h"
#include "kwfy/kw_fytable.h"
#include "pricekeys/price_lookup.h"

namespace kwfy {

void KW_FYTable::SetPriceKeyResolver(PriceKeyResolver* resolver) {
    core_->priceKeyResolver = resolver;
}

void KW_FYTable::CalcFY() {
    calc::CalcFY(*core_);
}

void KW_FYTable::CalcFY_One(int16_t p_startRow, int16_t p_endRow) {
    calc::CalcFY_One(*core_, p_startRow, p_endRow);
}

double KW_FYTable::GetPriceByKey(const std::string& p_Key) const {
    return pricekeys::GetPriceByKey(core_->fee, p_Key);
}

std::optional<double> KW_FYTable::GetPriceByCalcKey(const std::string& p_Key) const {
    return pricekeys::GetPriceByCalcKey(core_->fee, p_Key);
}

}  // namespace kwfy
