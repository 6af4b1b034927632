#include "feetable/fee_grid.h"

#include <charconv>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "kwfy/error.h"

namespace kwfy {

namespace {

// The leading integer of a text (blanks skipped), 0 when there is none.
int64_t LeadingInteger(std::string_view text) {
    size_t start = text.find_first_not_of(" \t");
    if (start == std::string_view::npos) return 0;
    text.remove_prefix(start);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    int64_t value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

bool IsFormulaOperator(char c) {
    return c == '+' || c == '-' || c == '*' || c == '/' || c == '(' || c == ')';
}

}  // namespace

int FeeColumns::CalcKeyCol() const {
    int col = 0;
    auto [end, ec] = std::from_chars(calcKey.data(), calcKey.data() + calcKey.size(), col);
    if (ec != std::errc() || end != calcKey.data() + calcKey.size())
        throw Error("the calculation-key column index \"" + calcKey + "\" is not a number");
    return col;
}

int64_t FeeGrid::idNumber(int row) const {
    return LeadingInteger(id(row));
}

// The project-class bounds belong to the class-column code and are left as
// they are.
void FeeGrid::SetColumnIndexes() {
    FeeColumns fresh;
    fresh.classFirst = cols_.classFirst;
    fresh.classLast = cols_.classLast;
    cols_ = fresh;
}

void FeeGrid::InitGridLayout() {
    static constexpr int kWidths[] = {400, 350, 1000, 3000, 800, 2000, 1200, 2600, 0, 0, 0, 0};
    constexpr int kColumns = int(std::size(kWidths));

    grid_.BeginUpdate();
    if (grid_.Rows() < 1) grid_.SetRows(1);
    grid_.SetFixedRows(1);
    grid_.SetCols(kColumns);
    for (int c = 0; c < kColumns; ++c) grid_.SetColWidth(c, kWidths[c]);

    const struct {
        int col;
        Align align;
        const char* title;
    } fields[] = {
        {cols_.key, Align::CenterCenter, "编号"},   {cols_.name, Align::LeftCenter, "名称"},
        {cols_.rate, Align::RightCenter, "费率"},   {cols_.sm, Align::LeftCenter, "说明"},
        {cols_.amount, Align::RightCenter, "金额"}, {cols_.wffs, Align::LeftCenter, "计算公式"},
    };
    for (const auto& f : fields) grid_.SetColAlignment(f.col, f.align);
    for (const auto& f : fields) grid_.SetText(0, f.col, f.title);
    for (int c = 0; c < kColumns; ++c) grid_.SetCellAlignment(0, c, Align::CenterCenter);
    grid_.SetCellPicture(0, cols_.mark, kHeaderMarkPicture);

    grid_.SetOutlineCol(cols_.name);
    grid_.SetEditable(true);
    grid_.EndUpdate();
}

// Without class columns the fields keep following the rate column, which then
// stays visible: there is nowhere else the rates could show.
void FeeGrid::ReindexColumns() {
    const bool classView = HasClassCols();
    const int base = classView ? int(cols_.classLast) : int(cols_.rate);
    if (base + 7 > INT16_MAX)
        throw Error("fee grid column index overflow: the fields would start at column " +
                    std::to_string(base + 1));
    cols_.sm = int16_t(base + 1);
    cols_.amount = int16_t(base + 2);
    cols_.wffs = int16_t(base + 3);
    cols_.id = int16_t(base + 4);
    cols_.qfClass = int16_t(base + 5);
    cols_.flSpec = int16_t(base + 6);
    cols_.calcKey = std::to_string(base + 7);

    if (classView) grid_.SetColWidth(cols_.rate, 0);
    for (int c : {int(cols_.id), int(cols_.qfClass), int(cols_.flSpec), cols_.CalcKeyCol()})
        grid_.SetColWidth(c, 0);
}

void FeeGrid::HideCol_End() {
    grid_.SetColWidth(grid_.Cols() - 1, 0);
}

void FeeGrid::HideCol_Wffs() {
    grid_.SetColWidth(cols_.wffs, 0);
}

int16_t FeeGrid::GetOneRowLevel(int32_t row) const {
    return int16_t(grid_.RowOutlineLevel(int(row)));
}

// An empty operand (two operators in a row, or one at either end) names no row.
void FeeGrid::MarkFormulaRows(int row) {
    for (int r = 1; r < grid_.Rows(); ++r) grid_.SetCellPicture(r, cols_.mark, 0);
    if (!IsDataRow(row)) return;
    const std::string& text = formula(row);
    if (text.empty()) return;

    auto markOperand = [&](std::string_view operand) {
        if (operand.empty()) return;
        for (int r = 1; r < grid_.Rows(); ++r) {
            if (key(r) != operand) continue;
            grid_.SetCellPicture(r, cols_.mark, kMarkPicture);
            grid_.SetCellAlignment(r, cols_.mark, Align::CenterCenter);
            return;
        }
    };
    size_t start = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (!IsFormulaOperator(text[i])) continue;
        markOperand(std::string_view(text).substr(start, i - start));
        start = i + 1;
    }
    markOperand(std::string_view(text).substr(start));
}

}  // namespace kwfy
