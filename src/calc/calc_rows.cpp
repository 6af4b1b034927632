#include <cstdint>
#include <initializer_list>
#include <unordered_map>

#include "calc/evaluator.h"
#include "calc/formula_text.h"
#include "calc/number_text.h"
#include "calc/recalc.h"

namespace kwfy::calc {
namespace {

// Joins texts; used instead of chains of operator+ that GCC 12 misreports.
std::string Concat(std::initializer_list<std::string_view> parts) {
    size_t size = 0;
    for (auto p : parts) size += p.size();
    std::string out;
    out.reserve(size);
    for (auto p : parts) out.append(p);
    return out;
}

enum class RowState : uint8_t { kPending, kInProgress, kComputed };

// One row being computed: its formula taken apart, and the value texts of
// the items resolved so far.
struct Frame {
    int row = 0;
    std::string_view format;
    std::string working;  // the formula without the rate suffix
    std::string suffix;   // "*rate", or empty
    bool single = false;  // working is one row reference
    int reference = -1;   // the row it names, when single
    std::vector<std::string> items;
    std::vector<std::string> valueTexts;

    bool Complete() const {
        return single ? !valueTexts.empty() : valueTexts.size() == items.size();
    }
    void Accept(double v) { valueTexts.push_back(PlainNumber(v)); }
};

class Calculation {
  public:
    explicit Calculation(std::vector<FeeCalcRow>& rows)
        : rows_(rows), states_(rows.size(), RowState::kPending), selfRef_(rows.size(), false) {
        codes_.reserve(rows.size());
        for (size_t i = 0; i < rows.size(); ++i) {
            codes_.emplace(rows[i].code, static_cast<int>(i));  // the first row wins
            rows[i].value = 0;
            if (!rows[i].formula.empty()) selfRef_[i] = NamesOwnCode(rows[i]);
        }
    }

    bool SelfReferencing(int i) const { return selfRef_[i]; }

    // CalcRowValue: the value of row `root`, computing the rows it refers to
    // first, depth-first on an explicit stack.
    double Compute(int root, std::string_view format) {
        std::optional<Frame> frame;
        double value = Enter(root, format, &frame);
        if (!frame) return value;
        std::vector<Frame> stack;
        stack.push_back(std::move(*frame));
        while (!stack.empty()) {
            std::optional<Frame> child;
            Frame& top = stack.back();
            while (!top.Complete() && !child) {
                int m = NextReference(top);
                if (m >= 0) {
                    double v = Enter(m, top.format, &child);
                    if (!child) top.Accept(v);
                }
            }
            if (child) {
                stack.push_back(std::move(*child));
                continue;
            }
            value = Finish(top);
            stack.pop_back();
            if (!stack.empty()) stack.back().Accept(value);
        }
        return value;
    }

  private:
    int Lookup(std::string_view item) const {
        item = StripSquareBrackets(item);
        if (item.empty()) return -1;
        auto it = codes_.find(item);
        return it == codes_.end() ? -1 : it->second;
    }

    static bool NamesOwnCode(const FeeCalcRow& row) {
        for (const std::string& item : SplitFormula(row.formula)) {
            std::string_view name = StripSquareBrackets(item);
            if (!name.empty() && name == row.code) return true;
        }
        return false;
    }

    // The value of row m when it is known at once; otherwise sets *frame to
    // the work that computes it.
    double Enter(int m, std::string_view format, std::optional<Frame>* frame) {
        const std::string& formula = rows_[m].formula;
        if (formula.empty() || selfRef_[m]) return 0;
        if (states_[m] == RowState::kComputed) return rows_[m].value;
        if (states_[m] == RowState::kInProgress) return 0;  // a reference cycle

        Frame f;
        f.row = m;
        f.format = format;
        size_t close =
            formula.size() >= 2 ? formula.rfind(')', formula.size() - 2) : std::string::npos;
        if (close != std::string::npos && formula[close + 1] == '*' && formula[0] == '(') {
            f.suffix = formula.substr(close + 1);
            f.working = formula.substr(1, close - 1);
        } else {
            f.working = formula;
        }
        if (f.working.starts_with('-')) f.working = Concat({"0", f.working});

        if (f.working.find_first_of("+-*/()") == std::string::npos) {
            if (Val(f.working) != 0)
                return Store(m, Concat({"(", f.working, ")", f.suffix}), format);
            f.single = true;
            f.reference = Lookup(f.working);
            if (f.reference < 0) {
                rows_[m].value = 0;
                return 0;
            }
        } else {
            f.items = SplitFormula(f.working);
            f.valueTexts.reserve(f.items.size());
        }
        states_[m] = RowState::kInProgress;
        *frame = std::move(f);
        return 0;
    }

    // The row the frame's next item needs computed, or -1 when the item's
    // value text could be written at once.
    int NextReference(Frame& f) {
        if (f.single) return f.reference;
        const std::string& item = f.items[f.valueTexts.size()];
        double v = Val(item);
        if (v > 0) {
            f.valueTexts.push_back(PlainNumber(v));
            return -1;
        }
        int m = Lookup(item);
        if (m < 0) f.valueTexts.emplace_back("0");
        return m;
    }

    double Finish(const Frame& f) {
        if (f.single) {
            const std::string& v = f.valueTexts.front();
            return Store(f.row, Concat({v.starts_with('-') ? "(0" : "(", v, ")", f.suffix}),
                         f.format);
        }
        std::string text = f.working;
        for (size_t k = 0; k < f.items.size(); ++k)
            text = ReplaceItem(text, f.items[k], f.valueTexts[k]);
        if (text.starts_with('-')) text = Concat({"0", text});
        if (!f.suffix.empty()) text = Concat({"(", text, ")", f.suffix});
        return Store(f.row, text, f.format);
    }

    double Store(int m, std::string_view expression, std::string_view format) {
        double v = RoundAsFormatted(EvalExpression(expression), format);
        rows_[m].value = v;
        states_[m] = RowState::kComputed;
        return v;
    }

    std::vector<FeeCalcRow>& rows_;
    std::unordered_map<std::string_view, int> codes_;
    std::vector<RowState> states_;
    std::vector<bool> selfRef_;
};

}  // namespace

bool CalcRows(std::vector<FeeCalcRow>& rows, std::string_view format) {
    Calculation calc(rows);
    bool selfReference = false;
    for (size_t i = 0; i < rows.size(); ++i) {
        if (rows[i].formula.empty()) continue;
        selfReference = selfReference || calc.SelfReferencing(static_cast<int>(i));
        std::string_view rowFormat = rows[i].name.starts_with('*') ? kFineAmountFormat : format;
        calc.Compute(static_cast<int>(i), rowFormat);
    }
    return selfReference;
}

}  // namespace kwfy::calc
