// Reading computed amounts back from the fee grid by row code or by
// calculation key.
#pragma once

#include <optional>
#include <string>

#include "feetable/fee_grid.h"

namespace kwfy::pricekeys {

// The leading number of the amount of the first data row whose key (编号)
// equals key exactly; 0 when no row matches or the cell is empty.
double GetPriceByKey(const FeeGrid& fee, const std::string& key);

// The same by calculation key; nullopt (Empty) when no row has the key.
std::optional<double> GetPriceByCalcKey(const FeeGrid& fee, const std::string& key);

}  // namespace kwfy::pricekeys
