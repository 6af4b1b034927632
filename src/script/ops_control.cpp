// The control's context, display and grid operations, called by name.
#include <map>

#include "script/bind.h"
#include "script/ops.h"
#include "script/tokenizer.h"

namespace kwfy::script {

namespace {

// The host form's property bag as a script sees it: ReadProperties takes the
// saved values from its arguments; WriteProperties prints what is saved.
class ScriptPropertyBag : public PropertyBag {
public:
    std::optional<std::string> Read(const std::string& name) override {
        auto it = values.find(name);
        if (it == values.end()) return std::nullopt;
        return it->second;
    }
    void Write(const std::string& name, const std::string& value) override {
        written.emplace_back(name, value);
    }
    std::map<std::string, std::string> values;
    std::vector<std::pair<std::string, std::string>> written;
};

void RegisterHostForm(Registry& r) {
    r.Add("ReadProperties", "[NAME=VALUE ...]", 0, 64, [](Call& call) {
        ScriptPropertyBag bag;
        for (size_t i = 0; i < call.Count(); ++i) {
            const std::string& a = call.Text(i);
            auto eq = a.find('=');
            if (eq == std::string::npos)
                throw UsageError("argument " + std::to_string(i + 1) + " is not NAME=VALUE");
            bag.values[a.substr(0, eq)] = a.substr(eq + 1);
        }
        call.Control().ReadProperties(bag);
    });
    r.Add("WriteProperties", "", 0, 0, [](Call& call) {
        ScriptPropertyBag bag;
        call.Control().WriteProperties(bag);
        for (const auto& [name, value] : bag.written)
            call.Print("= " + QuoteToken(name) + " " + QuoteToken(OneLine(value)));
    });
    AddMethod(r, "SetSize", &KW_FYTable::SetSize);
    AddMethod(r, "LostFocus", &KW_FYTable::LostFocus);
}

}  // namespace

void RegisterControlOps(Registry& r) {
    AddMethod(r, "SetWorkID", &KW_FYTable::SetWorkID);
    AddMethod(r, "SetWorkDBFullName", &KW_FYTable::SetWorkDBFullName);
    AddMethod(r, "SetQFClass", &KW_FYTable::SetQFClass);
    AddMethod(r, "SetQFKind", &KW_FYTable::SetQFKind);
    AddMethod(r, "SetNodeID", &KW_FYTable::SetNodeID);
    AddMethod(r, "SetFYNodeID", &KW_FYTable::SetFYNodeID);
    AddMethod(r, "SetTableClass", &KW_FYTable::SetTableClass);
    AddMethod(r, "SetAppPath", &KW_FYTable::SetAppPath);
    AddMethod(r, "SetDataPath", &KW_FYTable::SetDataPath);
    AddMethod(r, "SetAppClass", &KW_FYTable::SetAppClass);

    AddProperty(r, "ShowBorder", &KW_FYTable::ShowBorder, &KW_FYTable::ShowBorder);
    AddProperty(r, "ShowBar", &KW_FYTable::ShowBar, &KW_FYTable::ShowBar);
    AddProperty(r, "HideCoeComboBox", &KW_FYTable::HideCoeComboBox, &KW_FYTable::HideCoeComboBox);
    RegisterHostForm(r);

    AddMethod(r, "GetCols", &KW_FYTable::GetCols);
    AddMethod(r, "GetRows", &KW_FYTable::GetRows);
    AddMethod(r, "GetCellText", &KW_FYTable::GetCellText);
    AddMethod(r, "SetCellText", &KW_FYTable::SetCellText);
    AddMethod(r, "GetOneRowLevel", &KW_FYTable::GetOneRowLevel);
    AddMethod(r, "HideCol_End", &KW_FYTable::HideCol_End);
    AddMethod(r, "HideCol_Wffs", &KW_FYTable::HideCol_Wffs);
    AddMethod(r, "Resize", &KW_FYTable::Resize);

    AddMethod(r, "SetToolState_CallFL", &KW_FYTable::SetToolState_CallFL);
    AddMethod(r, "SetToolState_OpenFL", &KW_FYTable::SetToolState_OpenFL);
    AddMethod(r, "SetToolState_SaveFL", &KW_FYTable::SetToolState_SaveFL);
    AddMethod(r, "SetToolState_OpenFY", &KW_FYTable::SetToolState_OpenFY);
    AddMethod(r, "SetToolState_SaveFY", &KW_FYTable::SetToolState_SaveFY);
    AddMethod(r, "HideToolButton_MateFY", &KW_FYTable::HideToolButton_MateFY);
}

}  // namespace kwfy::script
