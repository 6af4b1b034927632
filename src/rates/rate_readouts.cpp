#include "rates/rate_readouts.h"

#include <algorithm>

#include "control/control_core.h"
#include "rates/rate_numbers.h"

namespace kwfy::rates {

std::string GetFLByKey(const ControlCore& core, const std::string& key) {
    const FeeGrid& fee = core.fee;
    for (int r = 1; r <= fee.LastRow(); ++r)
        if (fee.key(r) == key) return fee.rate(r);
    return "";
}

std::string GetFLByCalcKey(const ControlCore& core, const std::string& key) {
    const FeeGrid& fee = core.fee;
    for (int r = 1; r <= fee.LastRow(); ++r)
        if (fee.calcKey(r) == key) return fee.rate(r);
    return "";
}

void GetFLKeyArray(const ControlCore& core, std::vector<std::string>& keys,
                   std::vector<double>& prices) {
    const FeeGrid& fee = core.fee;
    const size_t size = size_t(std::max(fee.Grid().Rows(), 1));
    keys.assign(size, std::string());
    prices.assign(size, 0.0);
    for (int r = 1; r <= fee.LastRow(); ++r) {
        keys[r] = fee.rate(r);
        prices[r] = Num(fee.amount(r));
    }
}

}  // namespace kwfy::rates
