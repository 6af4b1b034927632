#include "control/dispatch_tool.h"

#include <functional>
#include <string_view>
#include <utility>

#include "control/control_core.h"
#include "feetable/class_columns.h"
#include "feetable/row_operations.h"
#include "rates/rate_file_transfer.h"
#include "rates/rate_standard_choice.h"
#include "templates/template_commands.h"

namespace kwfy::control {
namespace {

using Command = void (*)(ControlCore&);

// The import of rates from another project is the host's answer to CallFL.
void CallFLThenAfterEdit(ControlCore& core) {
    core.events.CallFL();
    core.events.AfterEdit();
}

void OpenParticularDialog(ControlCore& core) {
    core.handlers.ParticularDialog().Open(core);
}

// Keys in the order they are tried; the first match runs.
constexpr std::pair<std::string_view, Command> kCommands[] = {
    {"Pop_Add", feetable::AddRow},
    {"Pop_Del", feetable::DelRow},
    {"Pop_CallOtherFY", templates::CallOtherFY},
    {"Edit_Call", templates::CallOtherFY},
    {"Pop_CallDefaultFY", templates::CallDefaultFY},
    {"tPatFLVar", OpenParticularDialog},
    {"Pop_ClearText", feetable::ClearSelText},
    {"Pop_AddCol", feetable::AddItemCol},
    {"Pop_InsertCol", feetable::InsertItemCol},
    {"Pop_DelCol", feetable::DeleteItemCol},
    {"Pop_FillText", feetable::FillSelText},
    {"Pop_Input", templates::InputLayout},
    {"Edit_OpenFY", templates::InputLayout},
    {"Pop_Output", templates::OutputLayout},
    {"Edit_SaveFY", templates::OutputLayout},
    {"Edit_FLFile", rates::ShowSelFLDialog},
    {"Edit_OpenFL", rates::InputFLData},
    {"Edit_SaveFL", rates::OutputFLData},
    {"Edit_CallFL", CallFLThenAfterEdit},
    {"Pop_InputColValue", feetable::InputColValue},
    {"Pop_AddStandarItems", templates::AddStandarItems},
};

}  // namespace

void DispatchTool(ControlCore& core, const std::string& key) {
    for (const auto& [k, command] : kCommands) {
        if (k == key) return command(core);
    }
}

}  // namespace kwfy::control
