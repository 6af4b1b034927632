// KW_FYTable: the fee table control.
//
// A host creates one instance with its Ui, sets the context (paths, project
// database, project, fee category, node), then drives it: LoadFY, CalcFY,
// SaveFY, value queries. The control answers through FYTableListener.
// Operations are named as the control's interface names them; parameters keep
// their "p_" names. Every operation that writes data runs in one transaction:
// on failure it throws kwfy::Error and the stored data is as it was.
//
// Not thread-safe: all calls come from one (the host's UI) thread, and a
// listener may call back into the control from an event.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "kwfy/grid_model.h"
#include "kwfy/price_key_resolver.h"
#include "kwfy/toolbar_model.h"
#include "kwfy/ui.h"

namespace kwfy {

// The five events. ReCalc and ChangeQFClass pass their argument by reference,
// as the control's event interface does.
class FYTableListener {
public:
    virtual ~FYTableListener() = default;
    virtual void CallFL() {}
    virtual void AfterEdit() {}
    virtual void EditClass() {}
    virtual void ReCalc(double& /*p_SumPrice*/) {}
    virtual void ChangeQFClass(std::string& /*p_QFClass*/) {}
};

class ControlCore;

class KW_FYTable {
public:
    // The Ui must outlive the control.
    explicit KW_FYTable(Ui& ui);
    ~KW_FYTable();
    KW_FYTable(const KW_FYTable&) = delete;
    KW_FYTable& operator=(const KW_FYTable&) = delete;

    // Listeners are not owned; several may be added.
    void AddListener(FYTableListener* listener);
    void RemoveListener(FYTableListener* listener);

    // --- Context (write-only properties; each stores its value only).
    void SetWorkID(int16_t value);
    void SetWorkDBFullName(const std::string& value);
    void SetQFClass(const std::string& value);
    void SetQFKind(int16_t value);
    void SetNodeID(int32_t value);
    void SetFYNodeID(int32_t value);
    void SetTableClass(const std::string& value);
    void SetAppPath(const std::string& value);
    void SetDataPath(const std::string& value);
    void SetAppClass(int16_t value);
    // The resolver of project aggregate and material price-difference keys.
    // Not owned: it must outlive the control or be replaced first. nullptr
    // restores DefaultPriceKeyResolver.
    void SetPriceKeyResolver(PriceKeyResolver* resolver);

    // --- Display properties.
    bool ShowBorder() const;
    void ShowBorder(bool value);  // grid border 1 (single) when true, else 0
    bool ShowBar() const;
    void ShowBar(bool value);  // shows or hides the toolbar, then Resize
    bool HideCoeComboBox() const;
    void HideCoeComboBox(bool value);  // hides "Edit_Coe" of "Main" when true

    // Persistence through the host form's property bag ("ShowBorder",
    // default true). Errors while reading or writing are ignored.
    void ReadProperties(PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;
    // The host resized the control (twips); runs Resize.
    void SetSize(int width, int height);
    // The control lost the focus: "FloatForm" is hidden.
    void LostFocus();

    // --- Grid accessors (no recalculation, no event). Indexes outside the
    // grid throw kwfy::Error; a count above 32768 is an overflow Error.
    int16_t GetCols() const;
    int16_t GetRows() const;
    std::string GetCellText(int16_t p_Row, int16_t p_Col) const;
    void SetCellText(int16_t p_Row, int16_t p_Col, const std::string& p_Value);
    int16_t GetOneRowLevel(int32_t p_Row) const;
    void HideCol_End();
    void HideCol_Wffs();
    void Resize();

    // --- Loading, saving, calculation.
    void LoadFY();
    void SaveFY();
    void SaveFY_One(int16_t p_startRow, int16_t p_endRow, const std::string& p_QFClass);
    void CalcFY();
    void CalcFY_One(int16_t p_startRow, int16_t p_endRow);

    // --- Value queries.
    double GetPriceByKey(const std::string& p_Key) const;
    // Empty (nullopt) when no row has the calculation key.
    std::optional<double> GetPriceByCalcKey(const std::string& p_Key) const;
    std::string GetFLByKey(const std::string& p_Key) const;
    std::string GetFLByCalcKey(const std::string& p_Key) const;
    // Fills both arrays with indexes 0 to the last row (element 0 empty).
    void GetFLKeyArray(std::vector<std::string>& p_arrKey, std::vector<double>& p_arrPrice) const;

    // --- Row and cell editing.
    void ClearRows();
    void FillSelText();
    void ClearSelText();
    void AddRow();
    void DelRow();

    // --- Project class columns.
    void AddItemCol();
    void InsertItemCol();
    void DeleteItemCol();

    // --- Rates.
    void AnalyzInterPolating(const std::string& p_Text, const std::string& p_Class,
                             int16_t p_Row = 0, const std::string& p_ListText = {});
    void AnalyzOnePatFL(const std::string& p_Text, const std::string& p_Class = {},
                        int16_t p_Col = 0, int16_t p_Row = 0, const std::string& p_ListText = {});
    void AnalyzeGFLCoe(const std::string& p_Text, const std::string& p_Class, int16_t p_ChkTag);
    void CallOtherFL(const std::string& p_FileName, int16_t p_WorkID = 0);
    void InputFLData();
    void OutputFLData();
    void ShowSelFLDialog();

    // --- Templates.
    void CallOtherFY();
    void CallOtherFY_ByFileName(const std::string& p_FileName, const std::string& p_QFClass);
    void OutputLayout();
    void InputLayout();
    void AddStandarItems();
    void CallDefaultFY();
    // p_Kind 0: fee files; 1: rate files. False when cancelled.
    bool ShowOpenDialog(int16_t p_Kind, std::string& p_FileName);

    // --- Toolbar switches.
    void HideToolButton_MateFY();
    void SetToolState_CallFL(bool p_State);
    void SetToolState_OpenFL(bool p_State);
    void SetToolState_SaveFL(bool p_State);
    void SetToolState_OpenFY(bool p_State);
    void SetToolState_SaveFY(bool p_State);

    // --- Models, for views and scripted hosts.
    GridModel& FeeGridModel();
    GridModel& IndexGridModel();
    ToolbarModel& Toolbar();
    ControlCore& Core() { return *core_; }

private:
    std::unique_ptr<ControlCore> core_;
};

}  // namespace kwfy
