#include "gui/float_band_window.h"

#include <QCloseEvent>
#include <QVBoxLayout>

#include "gui/twips.h"

namespace kwfy::gui {

namespace {
constexpr char kFloatBand[] = "FloatForm";
}

FloatBandWindow::FloatBandWindow(ToolbarModel& toolbar, ActionRunner runner, QWidget* parent)
    : QWidget(parent, Qt::Tool),
      toolbar_(toolbar),
      runner_(runner),
      bar_(new BandBar(toolbar, kFloatBand, runner, this)) {
    setObjectName(kFloatBand);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(bar_);
    Sync();
}

void FloatBandWindow::Sync() {
    const Band& band = toolbar_.GetBand(kFloatBand);
    setWindowTitle(Q(band.Caption()));
    bar_->Sync();
    if (!band.Visible()) return hide();
    adjustSize();
    // The first time it opens beside the top right corner of its owner.
    if (!placed_ && parentWidget()) {
        const QWidget* owner = parentWidget();
        move(owner->mapToGlobal(QPoint(std::max(owner->width() - width() - 20, 0), 40)));
        placed_ = true;
    }
    show();
}

void FloatBandWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    if (toolbar_.GetBand(kFloatBand).Visible())
        runner_([&] { toolbar_.UserCloseBand(kFloatBand); });
}

}  // namespace kwfy::gui
