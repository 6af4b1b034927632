// The statement families of control scripts. Each subsystem keeps its
// statements in its own file src/script/ops_<subsystem>.cpp with one
// Register<Subsystem>Ops function, declared here and called from
// RegisterAllOps (ops_all.cpp).
#pragma once

#include "script/registry.h"

namespace kwfy::script {

// Context setters, display properties, grid accessors, toolbar switches.
void RegisterControlOps(Registry& r);
// What a user does: grid and toolbar actions; queued answers to message
// boxes, file dialogs and modal dialogs; event handlers and echo.
void RegisterActionOps(Registry& r);
// Printing the grids and toolbar bands; database and file test aids.
void RegisterInspectOps(Registry& r);

// Loading, saving, calculation, value queries, row editing, class columns.
void RegisterDataOps(Registry& r);
// Rate read-outs, interpolation and particular coefficients.
void RegisterRatesOps(Registry& r);
// Rate files and the choice of rate standard.
void RegisterRateFileOps(Registry& r);
// Fee templates and user layouts.
void RegisterTemplateOps(Registry& r);
// Appending standard fee items.
void RegisterStandardItemOps(Registry& r);

void RegisterAllOps(Registry& r);

}  // namespace kwfy::script
