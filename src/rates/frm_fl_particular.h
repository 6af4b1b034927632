// FrmFLParticular: the particular-coefficients dialog.
//
// It shows one of three sections, chosen by the rate key it was opened for,
// and stores every input in the project's PatCoe table as soon as it changes;
// a change then has the control recompute the rate of the row that has the
// focus (AnalyzInterPolating or AnalyzeGFLCoe), so closing needs no save.
//
// Fields (Dialog::SetField / Field), by section:
//   "FL_ZFSBT_GL"  txtCoe0..txtCoe3   weights of the four supply items
//                  txtName0..txtName3 their transport distances
//                  txtResult          the weighted distance (computed, editable)
//   "FL_GDZY_GL"   txtDistance        the transfer distance
//                  Combo_GDZY         the transfer kind (an entry of its list)
//   "FL_GLF_GL"    Combo_GLF          "一类地区", "二类地区" or "三类地区"
//                  chkGLF             "0" or "1": subtract the "More" value
// FieldNames lists the fields of the shown section; SetField refuses a field
// of another section and a list value that is not an entry.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "kwfy/ui.h"

namespace kwfy {
class ControlCore;
class KW_FYTable;
}  // namespace kwfy

namespace kwfy::rates {

class FrmFLParticular : public Dialog {
public:
    enum class Section { None, Subsidy, Transfer, Region };

    // Set up, then LoadData, then show.
    void WorkFileName(const std::string& projectPath) { projectPath_ = projectPath; }
    void SetFLFileName(const std::string& rateStdPath) { rateStdPath_ = rateStdPath; }
    void WorkID(int16_t workId) { workId_ = workId; }
    void GetFLVar(const std::string& rateKey) { rateKey_ = rateKey; }
    // The control whose current row the results go to. Without one, inputs
    // are stored and no rate is computed.
    void SetKWControl(KW_FYTable& control);
    void SetKWControl(ControlCore& core) { core_ = &core; }
    // The class passed on to the control's rate operations.
    void NodeClass(const std::string& cls) { nodeClass_ = cls; }
    // Shows the section of the rate key (none for another key) and loads its
    // stored values. Changes made before LoadData are not handled.
    void LoadData();

    Section ShownSection() const { return section_; }
    // The entries of a list field ("Combo_GDZY", "Combo_GLF"); empty otherwise.
    std::vector<std::string> Entries(const std::string& field) const;

    std::string Name() const override { return "frmFL_Particular"; }
    std::vector<std::string> FieldNames() const override;
    std::string Field(const std::string& name) const override;
    bool SetField(const std::string& name, const std::string& value, Ui& ui) override;
    // Entries() for the two lists; "0" and "1" for chkGLF.
    std::vector<std::string> FieldChoices(const std::string& name) const override;
    bool Accept(Ui& ui) override;

private:
    std::string* FieldSlot(const std::string& name);
    bool InShownSection(const std::string& name) const;
    void Handle(const std::string& name);
    void SubsidyChanged(bool weights);
    void ResultChanged();
    void DistanceChanged();
    void RegionChanged();
    void SaveCoe(const std::string& key, const std::string& coe);
    void SaveValue(const std::string& key, const std::string& value);

    std::string projectPath_, rateStdPath_, rateKey_, nodeClass_;
    int16_t workId_ = 0;
    ControlCore* core_ = nullptr;
    Section section_ = Section::None;
    bool loaded_ = false;
    bool regionChosen_ = false;

    std::array<std::string, 4> txtCoe_, txtName_;
    std::string txtResult_, txtDistance_, comboGDZY_, comboGLF_, chkGLF_ = "0";
    std::vector<std::string> transferKinds_;
};

// The "tPatFLVar" command: sets the dialog up for the row that has the focus
// and shows it. Nothing happens when the focus is not on a data row.
void OpenParticularDialog(ControlCore& core);

}  // namespace kwfy::rates
