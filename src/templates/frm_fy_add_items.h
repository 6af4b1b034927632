// FrmFYAddItems: the dialog that chooses standard fee items and the fee rows
// that take them.
//
// Its list (lst) holds the configured standard items, then the project's
// change orders, then items the user defines with cmdDefine; each entry has a
// name and a base key, the text that becomes the new fee row's formula. Its
// grid (F) holds one row per fee row: the fee row's number (序号), a tick
// (计取), the fee's name indented by its outline level (费用项) and the
// operator "+" or "-" (计取方式[+/-]) with which the ticked row takes the
// items.
//
// Fields for views and scripts:
//   lst    the selected entries, "|"-separated; each a name (the first
//          entry of that name) or else "#n" (the n-th entry, from 1). Setting it replaces the
//          selection; an empty value selects nothing.
//   F.<n>  the fee row numbered n: "+" or "-" ticks it with that operator,
//          "" unticks it.
// Buttons: cmdDefine (runs frmFY_AddItems_User; a non-empty name is appended
// to lst with the amount as its base key, and selected; the dialog stays
// open), cmdSure (Accept) and cmdCancel.
//   answer-dialog frmFY_AddItems_User txtName=试验费 txtPrice=1500
//   answer-dialog frmFY_AddItems button=cmdDefine "lst=#1|试验费" F.2=+ F.3=-
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kwfy/ui.h"

namespace kwfy::templates {

// Cuts text at every delimiter; empty pieces are kept ("" gives one piece).
std::vector<std::string> SplitList(std::string_view text, char delimiter);

class FrmFYAddItems : public Dialog {
public:
    struct ListEntry {
        std::string name;
        std::string baseKey;
        bool selected = false;
    };
    struct FeeRow {
        int rowNo = 0;      // 序号: the fee grid's row number
        std::string name;   // 费用项, already indented
        bool take = false;  // 计取
        std::string operate = "+";
    };
    // The captions of F's columns.
    static constexpr const char* kColumnCaptions[4] = {"序号", "计取", "费用项", "计取方式[+/-]"};

    // The standard item list: entries "name,base key" separated by "|"; an
    // entry without "," has an empty base key.
    void SetStandarItems(std::string list) { list_ = std::move(list); }
    void SetWorkDBFullName(std::string path) { workDbFullName_ = std::move(path); }
    // Fills lst from the list and the project's change orders (WorkStruct rows
    // of Kind '变更' in OCode order, base key "<[" + ID + "]>"). Call after the
    // two setters, before the dialog is shown. Throws kwfy::Error when the
    // project database cannot be read.
    void Load();
    // Adds one fee row to F, its name indented one space per outline level.
    void AddFYItems(int rowNo, const std::string& name, int level);

    // The result once accepted (all empty/0 when cancelled). Items are in list
    // order; i is 1-based and "" is returned outside 1..GetAddCount().
    int GetAddCount() const { return int(chosen_.size()); }
    std::string GetAddName(int i) const;
    std::string GetAddBaseKey(int i) const;
    // The 序号 of the ticked rows joined by ",", and their operators in the
    // same order.
    const std::string& GetWithRowList() const { return withRowList_; }
    const std::string& GetWithOperate() const { return withOperate_; }

    // For views: the list and the grid as shown, and the user's changes.
    const std::vector<ListEntry>& ListEntries() const { return entries_; }
    const std::vector<FeeRow>& FeeRows() const { return rows_; }
    // Each returns false when index (0-based) or the operator is out of range.
    bool SetSelected(size_t index, bool selected);
    bool SetTake(size_t index, bool take);
    bool SetOperate(size_t index, const std::string& op);

    std::string Name() const override { return "frmFY_AddItems"; }
    std::vector<std::string> FieldNames() const override;
    std::string Field(const std::string& name) const override;
    bool SetField(const std::string& name, const std::string& value, Ui& ui) override;
    bool Accept(Ui& ui) override;
    bool Press(const std::string& button, Ui& ui) override;
    void Cancel() override;

private:
    void LoadChangeOrders();
    bool SelectByText(const std::string& value);
    // The index in rows_ of the row numbered rowNo; rows_.size() when none.
    size_t RowIndex(const std::string& rowNo) const;
    const ListEntry* Chosen(int i) const;

    std::string list_;
    std::string workDbFullName_;
    std::vector<ListEntry> entries_;
    std::vector<FeeRow> rows_;
    std::vector<ListEntry> chosen_;
    std::string withRowList_, withOperate_;
};

}  // namespace kwfy::templates
