// FrmFLModelIndex: the dialog that picks a rate file from a rate-template
// index database (its table "Index": ID, WithFileName and, where the table
// has it, the display text Name).
//
// Fields for views and scripts: ID (the chosen entry's ID) and Name (chooses
// the first entry showing that text). The first entry is preselected.
//   answer-dialog frmFL_ModelIndex ID=2
//   answer-dialog frmFL_ModelIndex Name=一级公路
//   answer-dialog frmFL_ModelIndex button=cmdBrow   (then answer-file PATH)
// Buttons: cmdSure (Accept: the index database's folder + the entry's
// WithFileName), cmdBrow (an open dialog "打开..." for any rate file; a
// cancelled browse leaves this dialog open) and cmdCancel.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kwfy/ui.h"

namespace kwfy::rates {

// The filter of every rate-file dialog.
inline const char kRateFileFilter[] = "费率文件(*.SFL)|*.SFL";

class FrmFLModelIndex : public Dialog {
public:
    struct Entry {
        int64_t id = 0;
        std::string text;  // display text; empty when the table has none
        std::string withFileName;
    };

    // The index database (a path below DataPath + "费率模板/").
    void SetDBFullName(std::string path) { dbFullName_ = std::move(path); }
    // Reads the entries, in table order. Throws kwfy::Error when the file is
    // not a database with a table Index holding ID and WithFileName.
    void Load();
    // The chosen rate file; empty when the dialog was cancelled.
    const std::string& GetCallFile() const { return callFile_; }
    const std::vector<Entry>& Entries() const { return entries_; }

    std::string Name() const override { return "frmFL_ModelIndex"; }
    std::vector<std::string> FieldNames() const override { return {"ID", "Name"}; }
    std::string Field(const std::string& name) const override;
    // Only the ID or text of a listed entry is accepted.
    bool SetField(const std::string& name, const std::string& value, Ui& ui) override;
    // The entries' IDs for "ID"; their display texts for "Name" when the
    // table has them.
    std::vector<std::string> FieldChoices(const std::string& name) const override;
    std::vector<std::string> ButtonNames() const override { return {"cmdBrow"}; }
    // False (the dialog stays open) when no entry is chosen.
    bool Accept(Ui& ui) override;
    bool Press(const std::string& button, Ui& ui) override;
    void Cancel() override { callFile_.clear(); }

private:
    const Entry* Chosen() const;

    std::string dbFullName_;
    std::vector<Entry> entries_;
    int chosen_ = -1;
    std::string callFile_;
};

}  // namespace kwfy::rates
