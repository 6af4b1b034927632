// Database reads behind GetPriceKeys: which keys a category uses, what a
// display name stands for, and the price sums of stored keys.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "db/database.h"

namespace kwfy::pricekeys {

// The category itself, or the project's WorkStruct.DefaultQFClass when it is
// empty ("" when the project has no WorkStruct row).
std::string CategoryOrDefault(db::Database& project, int16_t workId, const std::string& category);

// The price-key items of the category's stored formulas, each once, in order
// of first appearance.
std::vector<std::string> GatherKeys(db::Database& project, int16_t workId,
                                    const std::string& category);

// BaseLink.LinkName of a display name, nullopt when BaseLink has no row.
std::optional<std::string> LinkNameOf(db::Database& params, const std::string& name);

// Sums of Items_Price.Price per stored key, keyed by FoldCase(key): over the
// project's items (of the category, when not empty) when nodeId is 0, else
// over the node's own rows. Keys without rows are absent.
std::unordered_map<std::string, double> SumPrices(db::Database& project,
                                                  const std::vector<std::string>& keys,
                                                  int16_t workId, const std::string& category,
                                                  int32_t nodeId);

}  // namespace kwfy::pricekeys
