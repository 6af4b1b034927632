#include "feetable/class_columns.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "db/database.h"
#include "feetable/cell_edit.h"
#include "feetable/frm_class.h"
#include "feetable/frm_col_value.h"
#include "kwfy/error.h"

namespace kwfy::feetable {

namespace {

constexpr char kTitle[] = "友情提示";

void Warn(Ui& ui, const std::string& text) {
    ui.MessageBox({text, kTitle, MsgButtons::OK, MsgIcon::Exclamation, 0});
}

class BuildingFlag {
public:
    explicit BuildingFlag(WorkingState& work) : work_(work) { work_.BuildingClassCols = true; }
    ~BuildingFlag() { work_.BuildingClassCols = false; }
    BuildingFlag(const BuildingFlag&) = delete;
    BuildingFlag& operator=(const BuildingFlag&) = delete;

private:
    WorkingState& work_;
};

class GridUpdate {
public:
    explicit GridUpdate(GridModel& grid) : grid_(grid) { grid_.BeginUpdate(); }
    ~GridUpdate() { grid_.EndUpdate(); }
    GridUpdate(const GridUpdate&) = delete;
    GridUpdate& operator=(const GridUpdate&) = delete;

private:
    GridModel& grid_;
};

int16_t CheckedColumn(int64_t col) {
    if (col > INT16_MAX) throw Error("fee grid: too many project class columns");
    return int16_t(col);
}

// Adds a column at the end of the grid and moves it to index at: a class
// column captioned with the class name, centred caption, right-aligned cells.
void PlaceClassColumn(GridModel& grid, int at, const std::string& name) {
    grid.AddColumn();
    grid.MoveColumn(grid.Cols() - 1, at);
    grid.SetText(0, at, name);
    grid.SetColWidth(at, kClassColWidth);
    grid.SetCellAlignment(0, at, Align::CenterCenter);
    grid.SetColAlignment(at, Align::RightCenter);
}

// Rows whose rate comes from the catalogue (a rate key that is neither a
// typed percentage nor a composite rate) are greyed in a class view.
bool HasCatalogueRateKey(const FeeGrid& fee, int row) {
    const std::string& spec = fee.rateSpec(row);
    return !spec.empty() && spec.back() != '*' && spec.back() != '%';
}

// Without class columns the bounds may be 0/0 (nothing built yet); an empty
// set is then written as "last just before first", both after the rate column.
void NormaliseEmptyBounds(FeeColumns& cols) {
    if (cols.classFirst > 0 && cols.classLast >= cols.classFirst) return;
    cols.classFirst = CheckedColumn(cols.rate + 1);
    cols.classLast = cols.rate;
}

// Asks for a new class name; empty when the dialog was not accepted.
std::string AskClassName(ControlCore& core) {
    FrmClass dialog;
    dialog.SetWorkFileName(core.ctx.WorkDBFullName);
    if (!core.ui.RunDialog(dialog) || dialog.UnloadState() != 1) return {};
    return dialog.GetText();
}

int64_t MaxOrderNumber(db::Database& project) {
    auto rs = project.Query("SELECT Max(OCode) AS MaxCode FROM Class");
    return rs.Eof() ? 0 : rs["MaxCode"].Int();
}

void AddClassRow(db::Database& project, const std::string& name, int16_t workId, int64_t ocode) {
    if (ocode > INT16_MAX || ocode < INT16_MIN)
        throw Error(project.Path(), "Class: order number " + std::to_string(ocode) + " of class [" +
                                        name + "] is out of range");
    auto table = project.OpenTable("Class");
    table.AddNew();
    table.Set("Name", name);
    table.Set("WorkID", int64_t(workId));
    table.Set("OCode", ocode);
    table.Update();
}

// Inserts the class column at index at, then reindexes the fields.
void InsertClassColumn(ControlCore& core, int at, const std::string& name) {
    FeeColumns& cols = core.fee.Columns();
    NormaliseEmptyBounds(cols);
    int16_t last = CheckedColumn(int64_t(cols.classLast) + 1);
    PlaceClassColumn(core.grid, at, name);
    cols.classLast = last;
    core.fee.ReindexColumns();
}

}  // namespace

void LoadClassCols(ControlCore& core) {
    auto project = db::Database::Open(core.ctx.WorkDBFullName);
    LoadClassCols(core, project);
}

void LoadClassCols(ControlCore& core, db::Database& project) {
    BuildingFlag building(core.work);
    FeeColumns& cols = core.fee.Columns();
    cols.classFirst = 0;
    cols.classLast = 0;

    std::vector<std::string> names;
    {
        auto rs = project.Query("SELECT * FROM Class WHERE WorkID=? ORDER BY OCode",
                                {int64_t(core.ctx.WorkID)});
        for (; !rs.Eof(); rs.MoveNext()) names.push_back(rs.Text("Name"));
    }
    if (names.empty()) return;

    const int first = cols.rate + 1;
    const int16_t last = CheckedColumn(int64_t(cols.rate) + int64_t(names.size()));
    GridUpdate update(core.grid);
    for (size_t i = 0; i < names.size(); ++i) PlaceClassColumn(core.grid, first + int(i), names[i]);
    cols.classFirst = int16_t(first);
    cols.classLast = last;
    core.fee.ReindexColumns();
}

// The stored class always gets the next order number. On an empty Class
// table it is stored with OCode 1 as well, so that a class added by the host
// before any other is not lost at the next load.
void AddItemCol(ControlCore& core) {
    const std::string name = AskClassName(core);
    if (name.empty()) return;
    {
        auto project = db::Database::Open(core.ctx.WorkDBFullName);
        db::Transaction tx(project);
        AddClassRow(project, name, core.ctx.WorkID, MaxOrderNumber(project) + 1);
        tx.Commit();
    }

    FeeColumns& cols = core.fee.Columns();
    NormaliseEmptyBounds(cols);
    InsertClassColumn(core, cols.classLast + 1, name);
    GridModel& grid = core.grid;
    if (core.ctx.NodeID == 0) {
        for (int r = 1; r < grid.Rows(); ++r)
            if (HasCatalogueRateKey(core.fee, r))
                grid.SetRangeBackColor(r, 1, r, grid.Cols() - 1, kClassGreyColor);
    }
    core.ui.FocusGrid();
    core.events.EditClass();
}

void InsertItemCol(ControlCore& core) {
    const int col = core.grid.Col();
    if (!core.fee.IsClassCol(col)) {
        Warn(core.ui, "请先用光标选择“工程类别”列，再重试该操作！");
        return;
    }
    const std::string name = AskClassName(core);
    if (name.empty()) return;
    const std::string caption = core.fee.caption(col);
    {
        auto project = db::Database::Open(core.ctx.WorkDBFullName);
        db::Transaction tx(project);
        auto rs = project.Query("SELECT * FROM Class WHERE Name=?", {caption});
        const int64_t position = rs.Eof() ? 0 : rs["OCode"].Int();
        if (MaxOrderNumber(project) >= INT16_MAX)
            throw Error(project.Path(),
                        "Class: no order number left to insert class [" + name + "]");
        // Order numbers are shared by all projects of the database.
        project.Execute("UPDATE Class SET OCode=OCode+1 WHERE OCode>=?", {position});
        AddClassRow(project, name, core.ctx.WorkID, position);
        tx.Commit();
    }

    InsertClassColumn(core, col, name);
    GridModel& grid = core.grid;
    if (core.ctx.NodeID == 0) {
        for (int r = 1; r < grid.Rows(); ++r)
            if (HasCatalogueRateKey(core.fee, r)) grid.SetCellBackColor(r, col, kClassGreyColor);
    }
    core.events.EditClass();
}

void DeleteItemCol(ControlCore& core) {
    const int col = core.grid.Col();
    if (!core.fee.IsClassCol(col)) {
        Warn(core.ui, "请选择“工程类别”列，再重试该操作！");
        return;
    }
    const std::string caption = core.fee.caption(col);
    const MsgAnswer answer = core.ui.MessageBox(
        {"确信要删除[" + caption + "]吗？", kTitle, MsgButtons::YesNo, MsgIcon::Critical, 1});
    if (answer != MsgAnswer::Yes) {
        core.ui.FocusGrid();
        return;
    }
    {
        auto project = db::Database::Open(core.ctx.WorkDBFullName);
        db::Transaction tx(project);
        const int64_t workId = core.ctx.WorkID;
        project.Execute("DELETE FROM Class WHERE Name=? AND WorkID=?", {caption, workId});
        project.Execute("DELETE FROM FY_FL WHERE WorkID=? AND Class=? AND QFClass=?",
                        {workId, caption, core.work.CurQFClass});
        tx.Commit();
    }

    GridModel& grid = core.grid;
    FeeColumns& cols = core.fee.Columns();
    const int row = grid.Row();
    grid.MoveColumn(col, grid.Cols() - 1);
    grid.SetCols(grid.Cols() - 1);
    cols.classLast = int16_t(cols.classLast - 1);
    core.fee.ReindexColumns();
    grid.SetCurrentCell(row, std::min(col, grid.Cols() - 1));
    core.events.EditClass();
}

// Not reached from the host, only from the popup menu, which offers it with
// class columns only; the class-column check still guards the explanation and
// hidden columns against being overwritten.
void InputColValue(ControlCore& core) {
    const int col = core.grid.Col();
    if (!core.fee.IsClassCol(col)) {
        Warn(core.ui, "请选择“工程类别”列，再重试该操作！");
        return;
    }
    const std::string caption = core.fee.caption(col);
    FrmColValue dialog;
    dialog.WorkFullName(core.ctx.WorkDBFullName);
    dialog.WorkID(core.ctx.WorkID);
    dialog.Load();
    core.ui.RunDialog(dialog);
    const std::string chosen = dialog.GetProjectClass();
    if (chosen.empty()) return;
    const MsgAnswer answer =
        core.ui.MessageBox({"确信以【" + chosen + "】的费率替换【" + caption + "】的费率值吗？",
                            kTitle, MsgButtons::YesNo, MsgIcon::Exclamation, 0});
    if (answer != MsgAnswer::Yes) return;

    BusyCursor busy(core.ui);
    const FeeColumns& cols = core.fee.Columns();
    GridModel& grid = core.grid;
    for (int c = cols.classFirst; c <= cols.classLast; ++c) {
        if (core.fee.caption(c) != chosen) continue;
        for (int r = 1; r < grid.Rows(); ++r) grid.SetText(r, col, grid.Text(r, c));
        ProcessClassColumnEdit(core, col);
        break;
    }
}

}  // namespace kwfy::feetable
