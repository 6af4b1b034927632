// The floating band ("FloatForm") as a small tool window that carries the
// band's tools. It shows while the band is visible; closing it is the user
// closing the band (UserCloseBand).
#pragma once

#include <QWidget>

#include "gui/band_bar.h"

namespace kwfy::gui {

class FloatBandWindow : public QWidget {
    Q_OBJECT

public:
    FloatBandWindow(ToolbarModel& toolbar, ActionRunner runner, QWidget* parent);

    BandBar& Bar() { return *bar_; }
    // Follows the band: tools, title, shown or hidden.
    void Sync();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    ToolbarModel& toolbar_;
    ActionRunner runner_;
    BandBar* bar_;
    bool placed_ = false;
};

}  // namespace kwfy::gui
