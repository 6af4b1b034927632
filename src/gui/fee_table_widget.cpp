#include "gui/fee_table_widget.h"

#include <QApplication>
#include <QCursor>
#include <QMessageBox>
#include <QResizeEvent>
#include <QTimer>

#include "control/control_core.h"
#include "control/control_resize.h"
#include "gui/band_bar.h"
#include "gui/fee_grid_view.h"
#include "gui/toolbar_view.h"
#include "gui/twips.h"

namespace kwfy::gui {

class FeeTableWidget::Events : public FYTableListener {
public:
    explicit Events(FeeTableWidget& w) : w_(w) {}
    void CallFL() override { emit w_.CallFL(); }
    void AfterEdit() override { emit w_.AfterEdit(); }
    void EditClass() override { emit w_.EditClass(); }
    void ReCalc(double& sum) override { emit w_.ReCalc(sum); }
    void ChangeQFClass(std::string& qfClass) override { emit w_.ChangeQFClass(Q(qfClass)); }

private:
    FeeTableWidget& w_;
};

namespace {

QRect PixelRect(const Rect& r) {
    return QRect(gui::ToPixels(r.left), gui::ToPixels(r.top), gui::ToPixels(r.width),
                 gui::ToPixels(r.height));
}

}  // namespace

FeeTableWidget::FeeTableWidget(QWidget* parent)
    : QWidget(parent),
      ui_(this),
      control_(std::make_unique<KW_FYTable>(ui_)),
      events_(std::make_unique<Events>(*this)) {
    control_->AddListener(events_.get());
    ActionRunner runner = [this](const std::function<void()>& action) { return Run(action); };

    feeView_ = new FeeGridView(control_->FeeGridModel(), runner, this);
    feeView_->setObjectName("FeeGrid");
    indexView_ = new FeeGridView(control_->IndexGridModel(), runner, this);
    indexView_->setObjectName("IndexGrid");
    indexView_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    indexView_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    indexView_->hide();
    toolbars_ = new ToolbarView(control_->Toolbar(), runner, this, [this] {
        const QPoint p = feeView_->LastRightClick();
        return p.isNull() ? QCursor::pos() : p;
    });

    connect(toolbars_, &ToolbarView::layoutChanged, this, &FeeTableWidget::ScheduleLayout);
    connect(&indexView_->Model(), &FeeGridModel::appearanceChanged, this,
            &FeeTableWidget::ScheduleLayout);
    connect(qApp, &QApplication::focusChanged, this, &FeeTableWidget::WatchFocus);
    ui_.SetFocusGrid([this] { feeView_->setFocus(); });
    setMinimumSize(240, 160);
}

// The views observe the control's models, so they go before the control; the
// focus watch goes first of all, as closing the widget moves the focus.
FeeTableWidget::~FeeTableWidget() {
    disconnect(qApp, nullptr, this, nullptr);
    control_->RemoveListener(events_.get());
    delete toolbars_;
    delete feeView_;
    delete indexView_;
}

QTableView& FeeTableWidget::IndexGrid() {
    return *indexView_;
}

BandBar& FeeTableWidget::MainBar() {
    return toolbars_->MainBar();
}

bool FeeTableWidget::Run(const std::function<void()>& action) {
    bool ok = false;
    ++depth_;
    try {
        action();
        ok = true;
    } catch (const std::exception& e) {
        const QString text = QString::fromUtf8(e.what());
        if (reportError_)
            reportError_(text);
        else
            QMessageBox::critical(this, "错误", text);
    } catch (...) {
        if (reportError_)
            reportError_("unknown failure");
        else
            QMessageBox::critical(this, "错误", "unknown failure");
    }
    if (--depth_ == 0 && layoutDue_) ApplyLayout();
    return ok;
}

// Layout requests that arrive while the control is working wait for it to
// finish: the index grid's visibility and the toolbar settle only then.
void FeeTableWidget::ScheduleLayout() {
    if (layoutDue_) return;
    layoutDue_ = true;
    if (depth_ == 0)
        QTimer::singleShot(0, this, [this] {
            if (layoutDue_) ApplyLayout();
        });
}

// The toolbar's own height is the bar's; the control computes the placement
// (Resize) and the widgets follow it.
void FeeTableWidget::ApplyLayout() {
    layoutDue_ = false;
    ControlCore& core = control_->Core();
    BandBar& bar = MainBar();
    core.toolbar.SetHeight(ToTwips(bar.sizeHint().height()));
    ResizeControl(core);
    const ControlLayout& layout = core.display.layout;
    bar.setVisible(layout.toolbarPlaced && core.toolbar.GetBand("Main").Visible());
    if (layout.toolbarPlaced) bar.setGeometry(PixelRect(layout.toolbar));
    feeView_->setGeometry(PixelRect(layout.feeGrid));
    feeView_->setVisible(layout.feeGrid.height > 0);
    indexView_->setVisible(layout.indexPlaced);
    if (layout.indexPlaced) indexView_->setGeometry(PixelRect(layout.indexGrid));
}

void FeeTableWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Run([&] { control_->SetSize(ToTwips(width()), ToTwips(height())); });
    ApplyLayout();
}

// The control loses the focus when it moves to another widget of the same
// window; a message box or dialog taking it for a moment does not count.
void FeeTableWidget::WatchFocus(QWidget* old, QWidget* now) {
    if (!old || !now) return;
    QWidget* floating = &toolbars_->FloatWindow();
    auto inside = [&](QWidget* w) {
        return w == this || isAncestorOf(w) || w->window() == floating;
    };
    if (inside(old) && !inside(now) && now->window() == window())
        Run([&] { control_->LostFocus(); });
}

}  // namespace kwfy::gui
