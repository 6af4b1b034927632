#include <cstdint>
#include <unordered_map>

#include "calc/formula_text.h"
#include "calc/number_text.h"
#include "calc/recalc.h"

namespace kwfy::calc {
namespace {

// The names a formula refers to: its items, range-expanded, square brackets
// removed, empty items left out.
std::vector<std::string> ReferencedNames(const std::string& formula) {
    std::vector<std::string> names;
    const bool range = formula.find("...") != std::string::npos;
    for (std::string& item : SplitFormula(range ? ExpandRange(formula) : formula)) {
        std::string_view name = StripSquareBrackets(item);
        if (!name.empty()) names.emplace_back(name);
    }
    return names;
}

struct Visit {
    size_t row;
    std::vector<std::string> names;
    size_t next = 0;
};

}  // namespace

bool CheckFormulaCycle(const std::vector<std::string>& codes,
                       const std::vector<std::string>& formulas, size_t row) {
    const size_t n = std::min(codes.size(), formulas.size());
    if (row >= n) return true;
    std::unordered_map<std::string_view, size_t> firstRow;
    firstRow.reserve(n);
    for (size_t i = 0; i < n; ++i) firstRow.emplace(codes[i], i);

    // Depth-first over the rows reached by reference. A row on the current
    // chain is "open"; a row fully explored without finding a way back is
    // "done" and needs no second visit: any way back from it would have ended
    // on a row that was open then and is still open now.
    enum class Mark : uint8_t { kNew, kOpen, kDone };
    std::vector<Mark> marks(n, Mark::kNew);
    const std::string& ownCode = codes[row];
    std::vector<Visit> chain;
    chain.push_back({row, ReferencedNames(formulas[row])});
    marks[row] = Mark::kOpen;
    while (!chain.empty()) {
        Visit& v = chain.back();
        if (v.next == v.names.size()) {
            marks[v.row] = Mark::kDone;
            chain.pop_back();
            continue;
        }
        const std::string& name = v.names[v.next++];
        if (name == codes[v.row] || name == ownCode) return false;
        if (Val(name) != 0) continue;
        auto found = firstRow.find(name);
        if (found == firstRow.end()) continue;
        const size_t m = found->second;
        if (marks[m] == Mark::kOpen) return false;
        if (marks[m] == Mark::kNew) {
            marks[m] = Mark::kOpen;
            chain.push_back({m, ReferencedNames(formulas[m])});
        }
    }
    return true;
}

}  // namespace kwfy::calc
