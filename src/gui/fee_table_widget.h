// FeeTableWidget: the fee table control as a Qt widget.
//
// It owns a kwfy::KW_FYTable and shows its models: the toolbar band "Main"
// on top, the fee grid, and the category index grid below it while the
// combined-categories view applies, placed where the control's Resize puts
// them. The five events arrive as signals. The public operations carry the
// control's names and forward to it; a kwfy::Error (or any other failure)
// raised by an operation or a user action is shown in a critical message box
// titled "错误" and never leaves the slot.
#pragma once

#include <QString>
#include <QWidget>
#include <memory>

#include "gui/qt_ui.h"
#include "kwfy/kw_fytable.h"

class QTableView;

namespace kwfy::gui {

class FeeGridView;
class ToolbarView;
class BandBar;

class FeeTableWidget : public QWidget {
    Q_OBJECT

public:
    explicit FeeTableWidget(QWidget* parent = nullptr);
    ~FeeTableWidget() override;

    // The control itself, for hosts that call it directly (no error box).
    KW_FYTable& Control() { return *control_; }
    QtUi& Ui() { return ui_; }
    FeeGridView& FeeGrid() { return *feeView_; }
    QTableView& IndexGrid();
    BandBar& MainBar();
    ToolbarView& Toolbars() { return *toolbars_; }

    // Runs a host or user action on the control; a failure is shown in the
    // error box and gives false. The layout is brought up to date afterwards.
    bool Run(const std::function<void()>& action);
    // Where failures go instead of the error box (tests, hosts with a log);
    // an empty function restores the box.
    void SetErrorReporter(std::function<void(const QString&)> report) {
        reportError_ = std::move(report);
    }

signals:
    void CallFL();
    void AfterEdit();
    void EditClass();
    void ReCalc(double p_SumPrice);
    void ChangeQFClass(const QString& p_QFClass);

public slots:
    // Context.
    void SetWorkID(int value);
    void SetWorkDBFullName(const QString& value);
    void SetQFClass(const QString& value);
    void SetQFKind(int value);
    void SetNodeID(int value);
    void SetFYNodeID(int value);
    void SetTableClass(const QString& value);
    void SetAppPath(const QString& value);
    void SetDataPath(const QString& value);
    void SetAppClass(int value);
    // Display.
    void SetShowBorder(bool value);
    void SetShowBar(bool value);
    void SetHideCoeComboBox(bool value);
    // Grid.
    void SetCellText(int p_Row, int p_Col, const QString& p_Value);
    void HideCol_End();
    void HideCol_Wffs();
    void Resize();
    // Loading, saving, calculation.
    void LoadFY();
    void SaveFY();
    void SaveFY_One(int p_startRow, int p_endRow, const QString& p_QFClass);
    void CalcFY();
    void CalcFY_One(int p_startRow, int p_endRow);
    // Editing and class columns.
    void ClearRows();
    void FillSelText();
    void ClearSelText();
    void AddRow();
    void DelRow();
    void AddItemCol();
    void InsertItemCol();
    void DeleteItemCol();
    // Rates and templates.
    void CallOtherFL(const QString& p_FileName, int p_WorkID = 0);
    void InputFLData();
    void OutputFLData();
    void ShowSelFLDialog();
    void CallOtherFY();
    void CallOtherFY_ByFileName(const QString& p_FileName, const QString& p_QFClass);
    void OutputLayout();
    void InputLayout();
    void AddStandarItems();
    void CallDefaultFY();
    // Toolbar switches.
    void HideToolButton_MateFY();
    void SetToolState_CallFL(bool p_State);
    void SetToolState_OpenFL(bool p_State);
    void SetToolState_SaveFL(bool p_State);
    void SetToolState_OpenFY(bool p_State);
    void SetToolState_SaveFY(bool p_State);

public:
    // Read-only operations (a failure shows the error box and gives the
    // fallback value).
    bool ShowBorder() const { return control_->ShowBorder(); }
    bool ShowBar() const { return control_->ShowBar(); }
    bool HideCoeComboBox() const { return control_->HideCoeComboBox(); }
    int GetCols();
    int GetRows();
    QString GetCellText(int p_Row, int p_Col);
    int GetOneRowLevel(int p_Row);
    double GetPriceByKey(const QString& p_Key);
    QString GetFLByKey(const QString& p_Key);
    QString GetFLByCalcKey(const QString& p_Key);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    class Events;
    void ApplyLayout();
    void ScheduleLayout();
    void WatchFocus(QWidget* old, QWidget* now);

    QtUi ui_;
    std::unique_ptr<KW_FYTable> control_;
    std::unique_ptr<Events> events_;
    FeeGridView* feeView_ = nullptr;
    FeeGridView* indexView_ = nullptr;
    ToolbarView* toolbars_ = nullptr;
    std::function<void(const QString&)> reportError_;
    int depth_ = 0;
    bool layoutDue_ = false;
};

}  // namespace kwfy::gui
