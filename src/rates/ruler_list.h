// Operations on a ruler list: the threshold texts of one rate table, as
// GetRulerList returns them. The list is 1-based; element 0 exists and is
// never read as a threshold. A text's numeric value is its leading number
// ("More" and other words count 0).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kwfy::rates {

using RulerList = std::vector<std::string>;

// The largest threshold, each element rounded to a whole number (ties to
// even); 0 for a list without elements. Throws kwfy::Error when a threshold
// does not fit 16 bits.
int16_t GetMaxRuler(const RulerList& list);
// The smallest threshold among elements other than "More", starting from the
// first positive element; 0 when no element is positive. Rounded like
// GetMaxRuler.
int16_t GetMinRuler(const RulerList& list);
// Sorts elements 1.. ascending by numeric value (selection sort, so equal
// values keep no particular order).
void SortRulers(RulerList& list);
// The element before the first element greater than the quantity ("" when
// that is element 1); "0" when no element is greater.
std::string GetLowerRuler(double quantity, const RulerList& list);
// The first element greater than the quantity; "0" when none is.
std::string GetUpperRuler(double quantity, const RulerList& list);

}  // namespace kwfy::rates
