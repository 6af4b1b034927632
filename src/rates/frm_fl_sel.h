// FrmFLSel: the dialog that chooses the rate standard (.RXFL) of the current
// fee category, captioned "费率库明细".
//
// Field for views and scripts: Name (the chosen file name; only a listed
// file is accepted). The current standard is preselected when it is listed.
//   answer-dialog frmFL_Sel Name=公路工程费率标准.RXFL
// Buttons: cmdSure (Accept: closes with the chosen name; with nothing chosen
// it closes as cmdCancel does) and cmdCancel.
//
// The list holds every file of DataPath + "System/" whose name ends exactly
// with ".RXFL" (case-sensitive, so neither a.rxfl nor a.RXFL.bak), sorted by
// name byte for byte: folder listings come in no fixed order, and the user
// and the scripts should see the same list on every system.
#pragma once

#include <string>
#include <vector>

#include "kwfy/ui.h"

namespace kwfy::rates {

class FrmFLSel : public Dialog {
public:
    static constexpr char kCaption[] = "费率库明细";

    // The data folder whose "System/" subfolder holds the rate standards.
    void DataPath(std::string path) { dataPath_ = std::move(path); }
    // The category's current standard; preselected by Load when listed.
    void SetFLShortName(std::string name) { current_ = std::move(name); }
    // Lists the files; call after DataPath and SetFLShortName. A missing
    // folder gives an empty list.
    void Load();

    // 1 when the dialog closed with a chosen name, 0 otherwise.
    int UnloadState() const { return unloadState_; }
    // The chosen name; empty unless UnloadState is 1.
    const std::string& GetShortName() const { return result_; }
    // The listed file names, in display order (each row's mark is "1").
    const std::vector<std::string>& Files() const { return files_; }

    std::string Name() const override { return "frmFL_Sel"; }
    std::vector<std::string> FieldNames() const override { return {"Name"}; }
    std::string Field(const std::string& name) const override;
    bool SetField(const std::string& name, const std::string& value, Ui& ui) override;
    std::vector<std::string> FieldChoices(const std::string& name) const override {
        return name == "Name" ? files_ : std::vector<std::string>{};
    }
    bool Accept(Ui& ui) override;
    bool Press(const std::string& button, Ui& ui) override;
    void Cancel() override;

private:
    std::string dataPath_;
    std::string current_;
    std::vector<std::string> files_;
    std::string chosen_;
    std::string result_;
    int unloadState_ = 0;
};

// True when a file name ends exactly with ".RXFL".
bool IsRateStandardName(const std::string& fileName);

}  // namespace kwfy::rates
