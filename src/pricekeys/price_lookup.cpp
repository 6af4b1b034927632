#include "pricekeys/price_lookup.h"

#include "calc/number_text.h"

namespace kwfy::pricekeys {

double GetPriceByKey(const FeeGrid& fee, const std::string& key) {
    for (int row = 1; row <= fee.LastRow(); ++row)
        if (fee.key(row) == key) return calc::Val(fee.amount(row));
    return 0;
}

std::optional<double> GetPriceByCalcKey(const FeeGrid& fee, const std::string& key) {
    for (int row = 1; row <= fee.LastRow(); ++row)
        if (fee.calcKey(row) == key) return calc::Val(fee.amount(row));
    return std::nullopt;
}

}  // namespace kwfy::pricekeys
