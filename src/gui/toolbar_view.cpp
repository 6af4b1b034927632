#include "gui/toolbar_view.h"

#include <QMenu>

#include "gui/band_menu.h"

namespace kwfy::gui {

ToolbarView::ToolbarView(ToolbarModel& toolbar, ActionRunner runner, QWidget* owner,
                         std::function<QPoint()> popupAt)
    : QObject(owner),
      toolbar_(toolbar),
      runner_(runner),
      owner_(owner),
      popupAt_(std::move(popupAt)),
      main_(new BandBar(toolbar, "Main", runner, owner)),
      float_(new FloatBandWindow(toolbar, runner, owner)) {
    toolbar_.AddObserver(this);
}

ToolbarView::~ToolbarView() {
    toolbar_.RemoveObserver(this);
}

void ToolbarView::LayoutChanged() {
    main_->Sync();
    main_->setVisible(toolbar_.Visible() && toolbar_.GetBand("Main").Visible());
    float_->Sync();
    emit layoutChanged();
}

// The chosen entry is clicked after the menu has closed, still inside the
// control's right-button handling, as the popup component reports it.
void ToolbarView::PopupRequested(const std::string& band, int, int) {
    std::unique_ptr<QMenu> menu = BuildBandMenu(toolbar_.GetBand(band), owner_);
    emit popupAboutToShow(menu.get());
    const std::string key = ToolKeyOf(menu->exec(popupAt_ ? popupAt_() : QPoint()));
    menu.reset();
    if (!key.empty()) runner_([&] { toolbar_.UserClick(key); });
}

}  // namespace kwfy::gui
