// GetPriceKeys: the values of every price key a fee category's formulas name.
#pragma once

#include <cstdint>
#include <string>

#include "calc/recalc.h"
#include "db/database.h"
#include "kwfy/price_key_resolver.h"

namespace kwfy::pricekeys {

// Gathers the keys ("$K$", "$K!$", "<name>", "<name!>", "<[...]>") that the
// stored FY formulas of one project and category use, in order of first
// appearance, and values each:
//   - display names are translated through BaseLink of the parameter
//     database below dataPath; the list keeps the text as written;
//   - "$K$" sums Items_Price.Price of key "$K$", "$K!$" also of "$K_CS$",
//     over the whole project (nodeId 0; restricted to the category's items
//     when category is not empty) or over the node's own rows (nodeId set);
//   - "<[...]>" comes from resolver.AggregateValue, for the whole project
//     only; keys beginning "$JC", "<Rc", "<Cc", "<Jc" from
//     resolver.PriceDifference, overriding any sum.
// An empty category takes the key names from the project's default category
// (WorkStruct.DefaultQFClass). Keys that nothing knows are 0.
//
// A missing parameter database leaves display names untranslated; they are
// then summed under their own text, which normally gives 0. A missing or
// unreadable project database, or a missing table, throws kwfy::Error.
// Both databases are closed before the function returns.
calc::PriceKeyList GetPriceKeys(const std::string& dataPath, const std::string& projectDbPath,
                                int16_t workId, const std::string& category, int32_t nodeId,
                                PriceKeyResolver& resolver);
// The same on a project database the caller has open (and closes).
calc::PriceKeyList GetPriceKeys(const std::string& dataPath, db::Database& project, int16_t workId,
                                const std::string& category, int32_t nodeId,
                                PriceKeyResolver& resolver);

}  // namespace kwfy::pricekeys
