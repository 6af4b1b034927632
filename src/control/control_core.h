// ControlCore: the state one KW_FYTable instance shares among its subsystems.
//
// The host-set context, the display switches, the working fields, the fee
// grid and index grid, the toolbar, the Ui and the event listeners. Subsystem
// code (feetable/, calc/, rates/, templates/) takes a ControlCore& and works
// on it; KW_FYTable forwards its public operations to that code.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "control/control_events.h"
#include "feetable/fee_grid.h"
#include "kwfy/grid_model.h"
#include "kwfy/kw_fytable.h"
#include "kwfy/toolbar_model.h"
#include "kwfy/ui.h"

namespace kwfy {

// Set by the host; nothing in the control writes these.
struct Context {
    int16_t WorkID = 0;
    std::string WorkDBFullName;
    std::string QFClass;
    int16_t QFKind = 0;
    int32_t NodeID = 0;
    int32_t FYNodeID = 0;
    std::string TableClass;
    std::string AppPath;
    std::string DataPath;
    int16_t AppClass = 0;
};

struct DisplayState {
    bool ShowBorder = false;
    bool ShowBar = true;
    bool HideCoeComboBox = false;
    int width = 0;   // twips
    int height = 0;  // twips
    ControlLayout layout;  // where the last Resize placed the toolbar and grids
};

struct WorkingState {
    std::string CurQFClass;
    int16_t RateMode = 0;  // 1: no project classes; 2: rates per class; 0 before a load
    double FYCoe = 1.0;
    bool Busy = false;              // combo handlers ignore changes while set
    bool FormulaLocked = false;     // formula column not editable while set
    bool BuildingClassCols = false;  // current-cell handler ignores changes while set
    std::string RateStdPath;
    std::vector<std::string> MarkKeys;  // condition marks shown on the toolbar
    std::string TemplateFLName;         // rate standard named by the last template taken
};

// Raises the five events to every listener, in the order they were added.
class EventRaiser {
public:
    void Add(FYTableListener* l);
    void Remove(FYTableListener* l);
    void CallFL();
    void AfterEdit();
    void EditClass();
    void ReCalc(double& sum);
    void ChangeQFClass(std::string& qfClass);

private:
    std::vector<FYTableListener*> listeners_;
};

class ControlCore {
public:
    explicit ControlCore(Ui& ui) : ui(ui), fee(grid) {}
    ControlCore(const ControlCore&) = delete;
    ControlCore& operator=(const ControlCore&) = delete;

    Ui& ui;
    Context ctx;
    DisplayState display;
    WorkingState work;
    GridModel grid;  // the fee grid
    FeeGrid fee;     // named access to the fee grid's rows
    GridModel indexGrid;
    ToolbarModel toolbar;
    EventRaiser events;
    ControlEvents handlers{*this};  // receives the grid's and the toolbar's user events
};

}  // namespace kwfy
