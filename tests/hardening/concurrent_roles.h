// The two programs of the concurrency test, each run in its own process on
// one project database (a workspace of MakeWorkspace):
//
// RunHost plays the host application: each operation adds an item of the
// category with a price of 1 under kPriceKey and sets WorkStruct.TotalPrice to
// the operation's number, in one transaction. Between operations it checks
// that the category's fee table is always whole (every save is atomic) and
// that the control's progress mark, the explanation of the first fee row
// "op N", never goes back.
//
// RunControl plays the control: each operation edits the first row's
// explanation to "op N" and saves (SaveFY), or, every tenth, takes the
// workspace's rate file; then it calculates and checks that the first row's
// amount, the sum of the host's prices, never goes back.
//
// Each finally waits until it sees the other's last change. Both print
// "ready" when set up and one summary line at the end; they throw
// kwfy::Error on a failed operation and std::runtime_error on a failed check.
#pragma once

#include <string>

#include "hardening/workload.h"

namespace kwfy::hardening {

// The rows of the concurrency workspace's fee table.
inline constexpr int kConcurrentRows = 20;

void RunHost(const Workspace& ws, int operations);
void RunControl(const Workspace& ws, int operations);

}  // namespace kwfy::hardening
