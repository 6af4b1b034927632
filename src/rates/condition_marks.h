// Condition marks: the project's choices (region class, terrain ...) on which
// catalogue rates depend, the choice boxes on the toolbar, and the rates that
// follow from the choices.
//
// WorkingState::MarkKeys lists the marks shown; the choice box of the k-th
// mark (1-based) is the combo tool "A" + k, on the band "Main" and, for the
// row that has the focus, on the band "FloatForm". The project's choices are
// the FY_Mark rows of the project database (per project and fee category).
// Operations that write run in one transaction on the project database;
// database failures throw kwfy::Error.
#pragma once

#include <cstdint>
#include <string>

#include "control/control_core.h"
#include "db/database.h"
#include "rates/rate_catalogue.h"

namespace kwfy::rates {

// Tools the band "Main" keeps before the mark tools (separators not counted).
constexpr int kMainStandardTools = 9;
constexpr int kMarkLabelWidth = 1200;
constexpr int kMarkBoxWidth = 2600;
// The "FloatForm" button of rows with particular coefficients.
inline const char kPatCoeTool[] = "tPatFLVar";
constexpr int kPatCoeToolId = 3001;

// Removes from "Main" every tool after its standard tools.
void TrimMainBand(ToolbarModel& toolbar);

// The key of the choice box of mark k ("A1", "A2" ...), and its inverse: the
// mark number of a box key, 0 when the key names no choice box.
std::string MarkBoxKey(int k);
int MarkBoxNumber(const std::string& toolKey);

// Lays the grid out afresh, collects the marks the category's rates depend on
// into MarkKeys (no duplicates), rebuilds the mark tools after the standard
// tools of "Main" with each box showing the stored choice (or its first
// value), then stores every box's choice (SaveMarks). Marks the rate standard
// does not define get no tools. Without a rate standard file no marks are
// shown.
void BuildMarkTools(ControlCore& core, const std::string& category);
// The same on files the caller has open.
void BuildMarkTools(ControlCore& core, RateFiles& files, const std::string& category);

// Stores the selected value of every mark box of "Main" for the project and
// CurQFClass; a box without a selection is skipped.
void SaveMarks(ControlCore& core);

// Shows the rates that follow from the current choices, times FYCoe: with
// RateMode 1 in the rate cell of every row whose rate key is a mark key
// ("FL_", "XS_"); with RateMode 2 in the row that has the focus only (its rate
// cell for a node table, else each class cell).
void RefreshMarkRates(ControlCore& core);

// A mark box changed (toolbar combo change of "A" + k): stores the choices,
// refreshes the rates, recalculates and saves as the rate mode asks, gives the
// grid the focus and raises AfterEdit. Ignored while WorkingState::Busy.
void OnMarkBoxChanged(ControlCore& core, const std::string& toolKey);

// Fills "FloatForm" for the FY row of that ID: the button tPatFLVar when the
// row's rate key has particular coefficients, else the label and choice box
// of each mark the row's rate key depends on.
void ShowMarkPanel(ControlCore& core, int64_t rowId);

// FLClass of the host's node (Items row NodeID of the project); "" when the
// node is not found.
std::string GetNodeFLClass(db::Database& project, int16_t workId, int32_t nodeId);
// True when the rate standard has particular coefficients for the rate key.
bool HasPatCoe(db::Database& rateStd, const std::string& rateKey);

// Display width of a text: 1 per code point up to U+00FF, 2 for any other.
// Invalid UTF-8 bytes count as other characters.
int GetTextWidth(const std::string& text);
// Tool width in twips for a text width n: n * 100 + 300, at least 1200.
int GetToolWidth(int n);

}  // namespace kwfy::rates
