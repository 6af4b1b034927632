// The control's construction, context, display switches, persistence, layout
// and grid accessors. The data operations live with their subsystems.
#include "kwfy/kw_fytable.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <string>

#include "control/control_core.h"
#include "control/control_resize.h"
#include "control/toolbar_layout.h"
#include "kwfy/error.h"

namespace kwfy {

namespace {

constexpr char kShowBorderProperty[] = "ShowBorder";

std::string Lower(std::string s) {
    std::transform(s.begin(), s.end(), s.begin(),
                   [](unsigned char c) { return char(std::tolower(c)); });
    return s;
}

// The property bag holds Boolean texts as written by WriteProperties ("True",
// "False"); numeric forms are accepted too. Anything else is a read error.
bool ParseBool(const std::string& text) {
    const std::string t = Lower(text);
    if (t == "true" || t == "-1" || t == "1") return true;
    if (t == "false" || t == "0") return false;
    throw Error("\"" + text + "\" is not a Boolean value");
}

int16_t LastIndex(int count, const char* what) {
    if (count - 1 > INT16_MAX)
        throw Error(std::string("overflow: the fee grid has ") + std::to_string(count) + " " +
                    what);
    return int16_t(count - 1);
}

Tool& MainTool(ToolbarModel& toolbar, const std::string& key) {
    Tool* t = toolbar.FindTool("Main", key);
    if (!t) throw Error("the toolbar band \"Main\" has no tool \"" + key + "\"");
    return *t;
}

void SetMainToolVisible(ToolbarModel& toolbar, const std::string& key, bool visible) {
    MainTool(toolbar, key).visible = visible;
    toolbar.RecalcLayout();
}

}  // namespace

KW_FYTable::KW_FYTable(Ui& ui) : core_(std::make_unique<ControlCore>(ui)) {
    ControlCore& c = *core_;
    c.grid.SetEventSink(&c.handlers);
    c.toolbar.SetEventSink(&c.handlers);
    BuildToolbarBands(c.toolbar);

    c.fee.SetColumnIndexes();
    c.fee.InitGridLayout();
    c.indexGrid.SetFixedRows(0);
    c.indexGrid.SetVisible(false);

    // Initialisation; "ShowBorder" stays False until the host's properties
    // are read.
    ShowBar(true);
    HideCoeComboBox(false);
    c.display.ShowBorder = false;
    c.grid.SetBorderStyle(0);
}

KW_FYTable::~KW_FYTable() = default;

void KW_FYTable::AddListener(FYTableListener* listener) {
    core_->events.Add(listener);
}
void KW_FYTable::RemoveListener(FYTableListener* listener) {
    core_->events.Remove(listener);
}

void KW_FYTable::SetWorkID(int16_t value) {
    core_->ctx.WorkID = value;
}
void KW_FYTable::SetWorkDBFullName(const std::string& value) {
    core_->ctx.WorkDBFullName = value;
}
void KW_FYTable::SetQFClass(const std::string& value) {
    core_->ctx.QFClass = value;
}
void KW_FYTable::SetQFKind(int16_t value) {
    core_->ctx.QFKind = value;
}
void KW_FYTable::SetNodeID(int32_t value) {
    core_->ctx.NodeID = value;
}
void KW_FYTable::SetFYNodeID(int32_t value) {
    core_->ctx.FYNodeID = value;
}
void KW_FYTable::SetTableClass(const std::string& value) {
    core_->ctx.TableClass = value;
}
void KW_FYTable::SetAppPath(const std::string& value) {
    core_->ctx.AppPath = value;
}
void KW_FYTable::SetDataPath(const std::string& value) {
    core_->ctx.DataPath = value;
}
void KW_FYTable::SetAppClass(int16_t value) {
    core_->ctx.AppClass = value;
}

bool KW_FYTable::ShowBorder() const {
    return core_->display.ShowBorder;
}

void KW_FYTable::ShowBorder(bool value) {
    core_->display.ShowBorder = value;
    core_->grid.SetBorderStyle(value ? 1 : 0);
}

bool KW_FYTable::ShowBar() const {
    return core_->display.ShowBar;
}

void KW_FYTable::ShowBar(bool value) {
    core_->display.ShowBar = value;
    core_->toolbar.SetVisible(value);
    Resize();
}

bool KW_FYTable::HideCoeComboBox() const {
    return core_->display.HideCoeComboBox;
}

void KW_FYTable::HideCoeComboBox(bool value) {
    core_->display.HideCoeComboBox = value;
    SetMainToolVisible(core_->toolbar, "Edit_Coe", !value);
}

// A failed or unreadable read leaves the border as it was.
void KW_FYTable::ReadProperties(PropertyBag& bag) {
    try {
        std::optional<std::string> saved = bag.Read(kShowBorderProperty);
        ShowBorder(saved ? ParseBool(*saved) : true);
    } catch (const std::exception&) {
    }
}

void KW_FYTable::WriteProperties(PropertyBag& bag) const {
    try {
        bag.Write(kShowBorderProperty, core_->display.ShowBorder ? "True" : "False");
    } catch (const std::exception&) {
    }
}

void KW_FYTable::SetSize(int width, int height) {
    core_->display.width = width;
    core_->display.height = height;
    Resize();
}

void KW_FYTable::LostFocus() {
    core_->toolbar.GetBand("FloatForm").SetVisible(false);
    core_->toolbar.RecalcLayout();
}

int16_t KW_FYTable::GetCols() const {
    return LastIndex(core_->grid.Cols(), "columns");
}

int16_t KW_FYTable::GetRows() const {
    return LastIndex(core_->grid.Rows(), "rows");
}

std::string KW_FYTable::GetCellText(int16_t p_Row, int16_t p_Col) const {
    return core_->grid.Text(p_Row, p_Col);
}

void KW_FYTable::SetCellText(int16_t p_Row, int16_t p_Col, const std::string& p_Value) {
    core_->grid.SetText(p_Row, p_Col, p_Value);
}

int16_t KW_FYTable::GetOneRowLevel(int32_t p_Row) const {
    return core_->fee.GetOneRowLevel(p_Row);
}

void KW_FYTable::HideCol_End() {
    core_->fee.HideCol_End();
}

void KW_FYTable::HideCol_Wffs() {
    core_->fee.HideCol_Wffs();
}

// The placement is kept in the display state for the views to apply.
void KW_FYTable::Resize() {
    ResizeControl(*core_);
}

void KW_FYTable::HideToolButton_MateFY() {
    ToolbarModel& bar = core_->toolbar;
    for (const char* key : {"Edit_Kind", "Edit_Coe", "Edit_CallFL", "Edit_FLFile"})
        MainTool(bar, key).visible = false;
    Band& pop = bar.GetBand("Pop");
    for (const char* key : {"Pop_AddCol", "Pop_InsertCol", "Pop_DelCol", "Pop_FillText",
                            "Pop_ClearText", "Edit_FLFile"})
        if (Tool* t = pop.Find(key)) t->visible = false;
    bar.RecalcLayout();
}

void KW_FYTable::SetToolState_CallFL(bool p_State) {
    SetMainToolVisible(core_->toolbar, "Edit_CallFL", p_State);
}
void KW_FYTable::SetToolState_OpenFL(bool p_State) {
    SetMainToolVisible(core_->toolbar, "Edit_OpenFL", p_State);
}
void KW_FYTable::SetToolState_SaveFL(bool p_State) {
    SetMainToolVisible(core_->toolbar, "Edit_SaveFL", p_State);
}
void KW_FYTable::SetToolState_OpenFY(bool p_State) {
    SetMainToolVisible(core_->toolbar, "Edit_OpenFY", p_State);
}
void KW_FYTable::SetToolState_SaveFY(bool p_State) {
    SetMainToolVisible(core_->toolbar, "Edit_SaveFY", p_State);
}

GridModel& KW_FYTable::FeeGridModel() {
    return core_->grid;
}
GridModel& KW_FYTable::IndexGridModel() {
    return core_->indexGrid;
}
ToolbarModel& KW_FYTable::Toolbar() {
    return core_->toolbar;
}

}  // namespace kwfy
