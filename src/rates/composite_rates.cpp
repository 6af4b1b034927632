#include "rates/composite_rates.h"

#include <set>
#include <vector>

#include "calc/evaluator.h"
#include "calc/formula_text.h"
#include "control/control_core.h"
#include "rates/rate_catalogue.h"
#include "rates/rate_cells.h"
#include "rates/rate_numbers.h"

namespace kwfy::rates {
namespace {

const char kPending[] = "...";
// Chains deeper than this count 0 beyond it, so that no table can exhaust
// the stack.
constexpr int kMaxChainDepth = 256;

bool IsCompositeKey(const std::string& key) {
    return EndsWith(key, "*");
}

// Evaluates the composite rates of one column.
class StarColumn {
public:
    StarColumn(ControlCore& core, int col)
        : fee_(core.fee), col_(col), active_(size_t(fee_.LastRow()) + 1, false) {}

    void Evaluate(int row) {
        if (active_[row] || depth_ >= kMaxChainDepth) return;
        std::string formula = fee_.formula(row);
        if (formula.find(kPending, 1) != std::string::npos) formula = calc::ExpandRange(formula);
        std::vector<std::string> operands;
        for (const std::string& item : calc::SplitFormula(formula)) {
            // Numbers stay; everything else names a row (Val 0), brackets or not.
            if (item.empty() || Num(item) != 0) continue;
            if (calc::StripSquareBrackets(item) == fee_.key(row)) return;
            operands.push_back(item);
        }
        active_[row] = true;
        ++depth_;
        for (const std::string& item : operands)
            formula = calc::ReplaceItem(formula, item,
                                        GenText(OperandRate(calc::StripSquareBrackets(item))));
        --depth_;
        active_[row] = false;
        fee_.Grid().SetText(row, col_, RateCellText(calc::EvalExpression(formula)));
    }

private:
    double OperandRate(std::string_view code) {
        const int row = FindRow(code);
        if (row < 0) return 0;
        if (fee_.Grid().Text(row, col_) == kPending) Evaluate(row);
        const std::string& text = fee_.Grid().Text(row, col_);
        if (EndsWith(text, "%")) return Num(StripPercent(text));
        return Num(text) * 100;
    }

    int FindRow(std::string_view code) const {
        for (int r = 1; r <= fee_.LastRow(); ++r)
            if (fee_.key(r) == code) return r;
        return -1;
    }

    FeeGrid& fee_;
    int col_;
    std::vector<bool> active_;
    int depth_ = 0;
};

}  // namespace

bool CalcStarRates(ControlCore& core, const std::string& nodeClass) {
    FeeGrid& fee = core.fee;
    std::vector<int> rows;
    for (int r = 1; r <= fee.LastRow(); ++r)
        if (IsCompositeKey(fee.rateSpec(r))) rows.push_back(r);
    if (rows.empty()) return false;

    const auto cells = RateCells(core, nodeClass);
    for (const RateCell& cell : cells)
        for (int r : rows) fee.Grid().SetText(r, cell.col, kPending);
    for (const RateCell& cell : cells) {
        StarColumn column(core, cell.col);
        for (int r = 1; r <= fee.LastRow(); ++r)
            if (fee.Grid().Text(r, cell.col) == kPending) column.Evaluate(r);
    }
    return true;
}

void StoreStarRates(ControlCore& core, db::Database& project, const std::string& nodeClass) {
    std::set<std::string> keys;
    auto rs = project.Query("SELECT * FROM FY WHERE QFClass=? AND WorkID=?",
                            {core.work.CurQFClass, int64_t(core.ctx.WorkID)});
    for (; !rs.Eof(); rs.MoveNext()) {
        std::string fl = rs.Text("FL");
        if (IsCompositeKey(fl)) keys.insert(std::move(fl));
    }
    if (keys.empty()) return;
    FeeGrid& fee = core.fee;
    for (const RateCell& cell : RateCells(core, nodeClass))
        for (int r = 1; r <= fee.LastRow(); ++r)
            if (keys.count(fee.rateSpec(r)))
                SaveProjectFL(project, core.ctx.WorkID, fee.rateSpec(r), cell.cls,
                              fee.Grid().Text(r, cell.col), core.work.CurQFClass);
}

}  // namespace kwfy::rates
