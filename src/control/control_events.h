// ControlEvents: the one receiver of everything the user does in the fee grid
// and the toolbar.
//
// The control's grid and toolbar send their event-sink notifications here;
// each handler forwards to the code that does the work, so the commands behind
// a click or an edit are found in one place.
#pragma once

#include <string>

#include "control/particular_dialog_host.h"
#include "feetable/grid_handlers.h"
#include "kwfy/grid_model.h"
#include "kwfy/toolbar_model.h"

namespace kwfy {

class ControlCore;

class ControlEvents : public GridEventSink, public ToolbarEventSink {
public:
    // The core must outlive the handler (it owns it).
    explicit ControlEvents(ControlCore& core) : core_(core), feeGrid_(core) {}
    ControlEvents(const ControlEvents&) = delete;
    ControlEvents& operator=(const ControlEvents&) = delete;

    // Fee grid.
    void OnRowColChange(int oldRow, int oldCol, int newRow, int newCol) override;
    void OnStartEdit(int row, int col, bool& cancel) override;
    void OnAfterEdit(int row, int col) override;
    void OnDblClick() override;
    void OnKeyDown(int keyCode, int shift) override;
    void OnMouseDown(int button, int shift, int x, int y) override;

    // Toolbar.
    void OnToolClick(const std::string& toolKey) override;
    void OnComboChange(const std::string& toolKey) override;
    void OnToolKeyDown(const std::string& toolKey, int keyCode) override;
    // Closing "FloatForm" hides it and unloads the particular-coefficients
    // dialog that belongs to it.
    void OnBandClose(const std::string& bandKey) override;
    // The toolbar's own customisation menu ("SysCustomize") never opens.
    void OnCustomizeRequest(const std::string& bandKey, bool& cancel) override;

    // The particular-coefficients dialog of the floating band.
    ParticularDialogHost& ParticularDialog() { return particular_; }

private:
    ControlCore& core_;
    feetable::FeeGridHandlers feeGrid_;
    ParticularDialogHost particular_;
};

}  // namespace kwfy
