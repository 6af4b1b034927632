// Row and block operations on the fee grid: adding, deleting and clearing
// rows, filling and clearing a selected block.
//
// Each operation works on the grid's current row and does nothing (and
// reports nothing) when that is not a data row. Saving goes through the
// fee-table save, which runs in its own transaction; database failures
// throw kwfy::Error after the grid was changed.
#pragma once

#include <string>

#include "control/control_core.h"
#include "rates/rate_catalogue.h"

namespace kwfy::feetable {

// Inserts an empty row above the current row and makes it current: an
// outline node with the level of the row below, under that row's fee
// category. The category is stored again without rates (the new row gets its
// ID). Raises no event.
void AddRow(ControlCore& core);

// The grid part of AddRow alone: inserts the row and makes it current, stores
// nothing. False (and nothing changed) when the current row is not a data row.
bool InsertRowAboveCurrent(ControlCore& core);

// Asks "确信要删除当前行吗！"; on Yes removes the current row, removes its key
// from the other rows' formulas (RemoveKeyFromFormula), recalculates, stores
// the category again without rates, raises AfterEdit and gives the grid the
// focus. Any other answer changes nothing and raises nothing.
void DelRow(ControlCore& core);

// The grid keeps only its header row; nothing is stored, no event.
void ClearRows(ControlCore& core);

// Copies the current cell's text into the selected block, skipping rows
// whose stored rate entry ends with "*" (composite rates, which are
// computed); each filled row's pattern rates are worked out again
// (RefreshRowPatternRates), then the composite rates are brought up to date
// and AfterEdit is raised. Nothing is recalculated or stored.
void FillSelText(ControlCore& core);

// Asks "确信要清除选择单元格的文本吗？" (No is the default); on Yes empties
// the selected block as FillSelText would fill it, recalculates under
// RateMode 1 and raises AfterEdit, also when the recalculation throws (the
// error is passed on after the event).
void ClearSelText(ControlCore& core);

// A formula with a deleted row's key taken out: every key + "+", then every
// key + "-", removed (letter case ignored). A key standing last stays, as
// does any text when the key is empty.
std::string RemoveKeyFromFormula(const std::string& formula, const std::string& key);

// The rate class of the host's node ("" for a category-wide table).
std::string NodeClassOf(ControlCore& core, rates::RateFiles& files);

// Brings the composite rates ("*" rate keys) up to date in the rate cells.
void RefreshCompositeRates(ControlCore& core, const std::string& nodeClass);

// The pattern rates of a row: when its stored rate entry is one of the
// particular-coefficient rates of the rate standard, every rate cell of the
// row (RateCells) is worked out again from the quantities the project stores
// for it (the weighted distance, the transfer distance and kind, the region
// and its deduction) times FYCoe. A rate whose quantity was never entered
// keeps its cells, as does any other row. Nothing is stored. Without a rate
// standard file nothing happens.
void RefreshRowPatternRates(ControlCore& core, rates::RateFiles& files, int row,
                            const std::string& nodeClass);

}  // namespace kwfy::feetable
