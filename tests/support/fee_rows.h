// Fee rows placed straight into a control's grid, and a Ui and listener that
// record what the control showed and raised.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "kwfy/kw_fytable.h"
#include "kwfy/ui.h"

namespace kwfy::test {

struct FeeRowSpec {
    FeeRowSpec(std::string code, std::string formula, std::string rate = {},
               std::string category = {}, std::string calcKey = {}, std::string name = {},
               std::string rateSpec = {}, std::string amount = {})
        : code(std::move(code)),
          formula(std::move(formula)),
          rate(std::move(rate)),
          category(std::move(category)),
          calcKey(std::move(calcKey)),
          name(std::move(name)),
          rateSpec(std::move(rateSpec)),
          amount(std::move(amount)) {}

    std::string code, formula, rate, category, calcKey, name, rateSpec, amount;
};

// Replaces the grid's data rows by the given rows.
void PlaceRows(KW_FYTable& table, const std::vector<FeeRowSpec>& rows);
// The amount cells of rows 1..last.
std::vector<std::string> Amounts(KW_FYTable& table);

class RecordingUi : public Ui {
public:
    std::vector<MessageRequest> messages;

    MsgAnswer MessageBox(const MessageRequest& request) override;
    std::optional<std::string> FileDialog(const FileDialogRequest&) override { return {}; }
    bool RunDialog(Dialog&) override { return false; }
    void SetBusy(bool) override {}
    void FocusGrid() override {}
};

class RecordingListener : public FYTableListener {
public:
    std::vector<double> recalcs;
    void ReCalc(double& p_SumPrice) override { recalcs.push_back(p_SumPrice); }
};

}  // namespace kwfy::test
