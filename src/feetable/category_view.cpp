#include "feetable/category_view.h"

#include <string>
#include <vector>

#include "calc/number_text.h"
#include "control/control_resize.h"
#include "db/keyinfo.h"
#include "db/paths.h"
#include "feetable/category_box.h"
#include "feetable/load_fy.h"
#include "pricekeys/price_lookup.h"

namespace kwfy::feetable {

namespace {

enum IndexCol { kCaptionCol = 0, kTotalCol = 1, kGapCol = 2, kCategoryCol = 3, kIndexCols = 4 };

void SetUpIndexGrid(GridModel& index, int categories) {
    const int rows = categories + 1;
    index.BeginUpdate();
    index.SetRows(0);  // drops the previous view's texts
    index.SetFixedRows(0);
    index.SetCols(kIndexCols);
    index.SetRows(rows);
    const int widths[kIndexCols] = {3000, 3000, 300, 0};
    for (int c = 0; c < kIndexCols; ++c) index.SetColWidth(c, widths[c]);
    index.SetColAlignment(kCaptionCol, Align::RightCenter);
    index.SetColAlignment(kTotalCol, Align::RightCenter);
    for (int r = 0; r < rows; ++r) index.SetRowHeight(r, kIndexRowHeight);
    index.SetHeight((kIndexRowHeight + kIndexRowGap) * rows);
    index.SetVisible(true);
    index.EndUpdate();
}

double CategoryTotal(const FeeGrid& fee) {
    double total = pricekeys::GetPriceByCalcKey(fee, "总合计").value_or(0);
    if (total == 0) total = pricekeys::GetPriceByCalcKey(fee, "综合合价").value_or(0);
    return total;
}

int IndexOf(const std::vector<std::string>& list, const std::string& item) {
    for (size_t i = 0; i < list.size(); ++i)
        if (list[i] == item) return int(i);
    return -1;
}

// The category rows end before the sum row, whose category cell is empty.
int IndexRowOf(const GridModel& index, const std::string& category) {
    if (index.Cols() <= kCategoryCol) return -1;
    for (int row = 0; row + 1 < index.Rows(); ++row)
        if (index.Text(row, kCategoryCol) == category) return row;
    return -1;
}

}  // namespace

bool IsShowQFIndexTable(ControlCore& core, db::Database& project) {
    const std::string configPath = db::ConfigDBPath(core.ctx.AppPath);
    if (!db::FileExists(configPath)) return false;
    const std::string key = "ShowQFIndexTable_" + db::GetEditKind(project);
    auto config = db::Database::OpenReadOnly(configPath);
    return db::IsNumericSwitchOn(db::GetWithCode(config, key));
}

bool LoadQFIndexView(ControlCore& core, rates::RateFiles& files) {
    db::Database& project = files.Project();
    GridModel& index = core.indexGrid;
    // A copy: loading a category does not refill the box, but the view must
    // not depend on that.
    const std::vector<std::string> categories = CategoryBoxItems(core);
    if (core.ctx.QFKind != 0 || categories.size() < 2 || !IsShowQFIndexTable(core, project)) {
        index.SetVisible(false);
        ResizeControl(core);
        return false;
    }
    const int n = int(categories.size());
    SetUpIndexGrid(index, n);
    ResizeControl(core);

    const std::string start = core.work.CurQFClass;
    double sum = 0;
    for (int i = 0; i < n; ++i) {
        const std::string& category = categories[size_t(i)];
        index.SetCurrentCell(i, kCaptionCol);
        core.work.CurQFClass = category;
        LoadFYRows(core, files, category);
        index.SetText(i, kCaptionCol, "[" + category + "]费用合计");
        index.SetText(i, kTotalCol, calc::FormatNumber(CategoryTotal(core.fee), "0.00"));
        index.SetText(i, kCategoryCol, category);
        sum += calc::Val(index.Text(i, kTotalCol));
    }
    index.SetText(n, kCaptionCol, "合  计");
    index.SetText(n, kTotalCol, calc::FormatNumber(sum, "0.00"));

    // The starting category's row becomes current, so that later calculations
    // refresh its total; a category the box lacks has no row, and the sum row
    // then takes the refresh, which recomputes it unchanged.
    {
        BusyScope busy(core.work);
        SelectCategory(core, start);
        core.toolbar.RecalcLayout();
    }
    const int startRow = IndexOf(categories, start);
    index.SetCurrentCell(startRow >= 0 ? startRow : n, kCaptionCol);
    core.work.CurQFClass = start;
    LoadFYRows(core, files, start);
    return true;
}

void OnCategoryBoxChanged(ControlCore& core) {
    if (core.work.Busy) return;
    BusyCursor cursor(core.ui);
    core.work.CurQFClass = CategoryBoxText(core);
    GridModel& index = core.indexGrid;
    // The calculation that follows writes the loaded category's total on the
    // current row, so the mark must stand on that category's own row.
    if (index.Visible() && index.Rows() > 0) {
        const int row = IndexRowOf(index, core.work.CurQFClass);
        index.SetCurrentCell(row >= 0 ? row : 0, index.Col());
    }
    LoadFYRows(core, core.work.CurQFClass);
    if (core.grid.Visible()) core.ui.FocusGrid();
    core.events.AfterEdit();
}

}  // namespace kwfy::feetable
