#include "feetable/load_fy.h"

#include <cmath>
#include <cstdint>

#include "calc/calc_fy.h"
#include "feetable/category_box.h"
#include "feetable/category_view.h"
#include "feetable/class_columns.h"
#include "feetable/loaded_rates.h"
#include "rates/composite_rates.h"
#include "rates/condition_marks.h"

namespace kwfy::feetable {

namespace {

constexpr double kSmallestCoe = 0.000001;

class UpdateScope {
public:
    explicit UpdateScope(GridModel& grid) : grid_(grid) { grid_.BeginUpdate(); }
    ~UpdateScope() { grid_.EndUpdate(); }
    UpdateScope(const UpdateScope&) = delete;
    UpdateScope& operator=(const UpdateScope&) = delete;

private:
    GridModel& grid_;
};

// A stored level outside the 16-bit range is clamped rather than refused, so
// one bad record does not stop the table from loading.
int16_t LevelOf(const db::Value& value) {
    const double level = std::nearbyint(value.Number());
    if (!(level > INT16_MIN)) return INT16_MIN;
    if (!(level < INT16_MAX)) return INT16_MAX;
    return int16_t(level);
}

// Drops every row and column, so that nothing of the previous table (class
// columns, captions, colours) survives into the new layout.
void ClearGrid(ControlCore& core) {
    GridModel& grid = core.grid;
    UpdateScope update(grid);
    grid.SetRows(1);
    grid.SetCols(0);
    FeeColumns& cols = core.fee.Columns();
    cols.classFirst = 0;
    cols.classLast = 0;
    core.fee.SetColumnIndexes();
    core.fee.InitGridLayout();
}

void ReadRows(ControlCore& core, rates::RateFiles& files, const std::string& category,
              const std::string& nodeClass) {
    db::Database& project = files.Project();
    auto rs =
        project.Query("SELECT * FROM FY WHERE WorkID=? AND QFClass=? AND NodeID=? ORDER BY Code",
                      {int64_t(core.ctx.WorkID), category, int64_t(core.ctx.FYNodeID)});
    const bool hasLevel = rs.FieldExists("Level");
    LoadedRates rates(core, files, category, nodeClass);

    FeeGrid& fee = core.fee;
    GridModel& grid = core.grid;
    db::Transaction tx(project);
    UpdateScope update(grid);
    for (int count = 1; !rs.Eof(); rs.MoveNext(), ++count) {
        grid.AddRow();
        const int r = grid.Rows() - 1;
        fee.setKey(r, rs.Text("Key"));
        fee.setName(r, rs.Text("Name"));
        fee.setRate(r, rs.Text("FL"));
        fee.setRateSpec(r, rs.Text("FL"));
        rates.Resolve(r);
        fee.setExplanation(r, rs.Text("SM"));
        fee.setFormula(r, rs.Text("Wffs"));
        fee.setCategory(r, category);
        fee.setId(r, rs.Text("ID"));
        fee.setCalcKey(r, rs.Text("CalcKey"));
        if (hasLevel) {
            grid.SetRowOutlineLevel(r, LevelOf(rs["Level"]));
            grid.SetOutlineNode(r, true);
        }
        grid.SetText(r, fee.Columns().rowNo, std::to_string(count));
    }
    tx.Commit();
}

}  // namespace

double ReadFYCoe(db::Database& project, int16_t workId, const std::string& category) {
    auto rs = project.Query("SELECT * FROM FY_FLFileName WHERE WorkID=? AND QFClass=?",
                            {int64_t(workId), category});
    if (rs.Eof()) return 1.0;
    const double coe = rs["Coe"].Number();
    return coe > kSmallestCoe ? coe : 1.0;
}

void LoadFY(ControlCore& core) {
    rates::RateFiles files(core);
    LoadFY(core, files);
}

void LoadFY(ControlCore& core, rates::RateFiles& files) {
    BusyCursor cursor(core.ui);
    WorkingState& work = core.work;
    work.FormulaLocked = true;
    work.CurQFClass = core.ctx.QFClass;

    db::Database& project = files.Project();
    FillQFClassCombo(core, project, work.CurQFClass);
    work.FYCoe =
        core.display.HideCoeComboBox ? 1.0 : ReadFYCoe(project, core.ctx.WorkID, work.CurQFClass);
    if (LoadQFIndexView(core, files)) return;

    const std::string& shown = CategoryBoxText(core);
    if (shown != work.CurQFClass) work.CurQFClass = shown;
    LoadFYRows(core, files, work.CurQFClass);
}

void LoadFYRows(ControlCore& core, const std::string& category) {
    rates::RateFiles files(core);
    LoadFYRows(core, files, category);
}

void LoadFYRows(ControlCore& core, rates::RateFiles& files, const std::string& category) {
    const Context& ctx = core.ctx;
    WorkingState& work = core.work;
    db::Database& project = files.Project();
    files.CloseRateStd();
    work.RateStdPath =
        rates::RateStdPathFor(ctx.DataPath, rates::GetFLFileName(project, ctx.WorkID, category));

    ClearGrid(core);
    rates::BuildMarkTools(core, files, category);
    if (ctx.NodeID == 0) LoadClassCols(core, project);
    work.RateMode = project.Query("SELECT * FROM Class").Eof() ? 1 : 2;
    const std::string nodeClass = rates::GetNodeFLClass(project, ctx.WorkID, ctx.NodeID);

    ReadRows(core, files, category, nodeClass);
    rates::CalcStarRates(core, nodeClass);

    if (work.RateMode == 2) {
        rates::TrimMainBand(core.toolbar);
        core.toolbar.RecalcLayout();
    }
    if (work.RateMode == 2 && ctx.NodeID == 0)
        core.grid.SetColWidth(core.fee.Columns().amount, 0);
    else
        calc::CalcFY(core, project);

    std::string loaded = category;
    core.events.ChangeQFClass(loaded);
}

}  // namespace kwfy::feetable
