#include "rates/ruler_list.h"

#include <algorithm>
#include <cctype>

#include "rates/rate_numbers.h"

namespace kwfy::rates {
namespace {

int16_t Threshold(const std::string& text) {
    return ToInt16(Num(text), "ruler " + text);
}

bool IsMore(const std::string& text) {
    std::string t = text;
    t.erase(0, t.find_first_not_of(' '));
    t.erase(t.find_last_not_of(' ') + 1);
    std::transform(t.begin(), t.end(), t.begin(),
                   [](unsigned char c) { return char(std::toupper(c)); });
    return t == "MORE";
}

// Index of the first element (from 1) greater than the quantity, 0 if none.
size_t FirstAbove(double quantity, const RulerList& list) {
    for (size_t i = 1; i < list.size(); ++i)
        if (Num(list[i]) > quantity) return i;
    return 0;
}

}  // namespace

int16_t GetMaxRuler(const RulerList& list) {
    if (list.size() < 2) return 0;
    int16_t max = Threshold(list[1]);
    for (size_t i = 2; i < list.size(); ++i) max = std::max(max, Threshold(list[i]));
    return max;
}

int16_t GetMinRuler(const RulerList& list) {
    size_t first = 1;
    while (first < list.size() && !(Num(list[first]) > 0)) ++first;
    if (first >= list.size()) return 0;
    int16_t min = Threshold(list[first]);
    for (size_t i = 1; i < list.size(); ++i)
        if (!IsMore(list[i])) min = std::min(min, Threshold(list[i]));
    return min;
}

void SortRulers(RulerList& list) {
    for (size_t i = 1; i + 1 < list.size(); ++i) {
        size_t smallest = i;
        for (size_t j = i + 1; j < list.size(); ++j)
            if (Num(list[j]) < Num(list[smallest])) smallest = j;
        if (smallest != i) std::swap(list[i], list[smallest]);
    }
}

std::string GetLowerRuler(double quantity, const RulerList& list) {
    const size_t i = FirstAbove(quantity, list);
    return i == 0 ? "0" : list[i - 1];
}

std::string GetUpperRuler(double quantity, const RulerList& list) {
    const size_t i = FirstAbove(quantity, list);
    return i == 0 ? "0" : list[i];
}

}  // namespace kwfy::rates
