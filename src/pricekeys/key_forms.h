// The textual forms of price keys, independent of any database.
//
// A formula names a price key as "$" + key + "$" or by a display name
// "<" + name + ">"; a "!" before the closing delimiter also counts the
// key's "_CS" companion. Aggregate keys are "<[" + name + "]>"; material
// price-difference keys begin "$JC", "<Rc", "<Cc" or "<Jc".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kwfy::pricekeys {

// True for a formula item that names a price key: "$...$" or "<...>".
bool IsPriceKeyItem(std::string_view item);
// "<" ... ">": looked up in BaseLink before it is summed.
bool IsDisplayName(std::string_view text);
// "<[" ... "]>": a project aggregate.
bool IsAggregateKey(std::string_view text);

// What to look up in BaseLink for a display name: "<X!>" is looked up as
// "<X>" and marked, "<X>" as itself.
struct DisplayNameLookup {
    std::string name;
    bool withCompanion = false;
};
DisplayNameLookup LookupFor(std::string_view displayName);

// The working key after a BaseLink hit: the LinkName itself, or for a marked
// name the LinkName with "!" put before its closing "$" ("$A$" -> "$A!$").
std::string LinkedKey(const std::string& linkName, bool withCompanion);

// The stored Items_Price keys whose prices make up a working key:
// "$K!$" -> {"$K$", "$K_CS$"}; anything else -> {itself}.
std::vector<std::string> StoredKeys(const std::string& workingKey);

// The key handed to the price-difference routine for a key as written, or
// nullopt when it is no material key. Display names of the fixed table are
// mapped ("<Rc>" -> "$JC_R_S_Q$"); other "<Rc..." texts pass unchanged.
std::optional<std::string> MaterialKey(const std::string& written);

// Case folding as the database compares keys (ASCII letters only), so that
// sums read back from the database can be matched to the keys asked for.
std::string FoldCase(std::string_view text);

}  // namespace kwfy::pricekeys
