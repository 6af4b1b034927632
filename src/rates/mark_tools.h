// Building blocks of the condition-mark tools, shared by the toolbar and
// panel code and the change handling.
#pragma once

#include <string>
#include <vector>

#include "control/control_core.h"
#include "db/database.h"
#include "rates/rate_catalogue.h"

namespace kwfy::rates {

// A mark as the rate standard defines it (FY_Mark of the rate standard).
struct MarkDef {
    bool defined = false;
    std::string shortName;
    std::vector<std::string> values;  // WithItem split at "|", in order
};

// Appends the marks the rate key depends on (FY_FL_WithMark) that the list
// does not hold yet.
void AppendMarksOf(db::Database& rateStd, const std::string& rateKey,
                   std::vector<std::string>& marks);
MarkDef ReadMarkDef(db::Database& rateStd, const std::string& mark);
// The project's stored choice of a mark for a category; "" when none.
std::string StoredChoice(db::Database& project, int16_t workId, const std::string& mark,
                         const std::string& category);
// Adds the label and the choice box of mark k to a band; the box selects the
// value equal to choice, else its first value.
void AddMarkTools(Band& band, int k, const MarkDef& def, const std::string& choice, int boxWidth);
// The choice box of mark k: the one on "Main", else the one on "FloatForm";
// nullptr when there is none.
Tool* FindMarkBox(ToolbarModel& toolbar, int k);
// The selected entry of a combo; "" when none is selected.
std::string SelectedValue(const Tool* box);
// SaveMarks on an open project database (the caller owns the transaction).
void SaveMarksIn(ControlCore& core, db::Database& project);
// RefreshMarkRates on files the caller has open.
void RefreshMarkRatesIn(ControlCore& core, RateFiles& files);

}  // namespace kwfy::rates
