// The toolbar's fee-category box ("Edit_Kind" of "Main") and the list of
// categories it offers for the host's node.
#pragma once

#include <string>
#include <vector>

#include "control/control_core.h"
#include "db/database.h"

namespace kwfy::feetable {

inline const char kCategoryBox[] = "Edit_Kind";

// The fee categories of the host's node, each once (compared without regard
// to case; the first spelling is kept), empty ones left out:
//  - NodeID below 1: every category of the project's items;
//  - otherwise the categories of the node's subtree (the node's Items row and
//    the rows after it in OCode order while their Level is greater than the
//    node's), among the items of TableClass when that is set.
// Empty when the node is not found.
std::vector<std::string> GetNodeQFClassList(db::Database& project, const Context& ctx);

// Fills the category box with the node's categories (the given category
// alone when QFKind is 1 or the node has none) and selects the entry equal
// to the category. A category the list lacks stays the box's text, with no
// entry selected. Busy is set while the box is filled.
void FillQFClassCombo(ControlCore& core, db::Database& project, const std::string& category);

// The box's entries and its text. Throws Error when "Main" lacks the box.
const std::vector<std::string>& CategoryBoxItems(ControlCore& core);
const std::string& CategoryBoxText(ControlCore& core);
// Selects the entry equal to the category (exactly, else without regard to
// case), or none; the text becomes the selected entry, else the category.
void SelectCategory(ControlCore& core, const std::string& category);

// Sets WorkingState::Busy for its lifetime and restores the previous value,
// so that programmatic combo changes are not taken for the user's.
class BusyScope {
public:
    explicit BusyScope(WorkingState& work) : work_(work), was_(work.Busy) { work_.Busy = true; }
    ~BusyScope() { work_.Busy = was_; }
    BusyScope(const BusyScope&) = delete;
    BusyScope& operator=(const BusyScope&) = delete;

private:
    WorkingState& work_;
    bool was_;
};

}  // namespace kwfy::feetable
