// ToolbarView: the Qt face of the control's toolbar model.
//
// "Main" is a BandBar placed by the owner, "FloatForm" a FloatBandWindow, and
// "Pop" a QMenu opened whenever the model asks for the popup. Every
// LayoutChanged of the model brings the bar and the window up to date.
#pragma once

#include <QObject>
#include <QPoint>
#include <functional>
#include <string>

#include "gui/band_bar.h"
#include "gui/float_band_window.h"
#include "gui/user_action.h"
#include "kwfy/toolbar_model.h"

namespace kwfy::gui {

class ToolbarView : public QObject, private ToolbarObserver {
    Q_OBJECT

public:
    // The model must outlive the view. The main bar becomes a child of
    // owner; popupAt gives the screen position a popup opens at.
    ToolbarView(ToolbarModel& toolbar, ActionRunner runner, QWidget* owner,
                std::function<QPoint()> popupAt);
    ~ToolbarView() override;

    BandBar& MainBar() { return *main_; }
    FloatBandWindow& FloatWindow() { return *float_; }

signals:
    // The bars were brought up to date (their size may have changed).
    void layoutChanged();
    // A popup menu is about to open; tests and hosts may inspect it.
    void popupAboutToShow(QMenu* menu);

private:
    void LayoutChanged() override;
    void PopupRequested(const std::string& band, int x, int y) override;

    ToolbarModel& toolbar_;
    ActionRunner runner_;
    QWidget* owner_;
    std::function<QPoint()> popupAt_;
    BandBar* main_;
    FloatBandWindow* float_;
};

}  // namespace kwfy::gui
