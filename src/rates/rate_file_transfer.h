// Rate files (.SFL): the rates a user chose in one project, carried to
// another. A rate file is a database holding the exporting project's FY_FL,
// FY_Mark and PatCoe rows and a KeyInfo table whose "WithFLFile" names the
// rate standard they were made with.
//
// Each operation works on the control's context (ControlCore). Writes to the
// project database run in one transaction; a failure throws kwfy::Error and
// leaves the stored data as it was.
#pragma once

#include <cstdint>
#include <string>

namespace kwfy {
class ControlCore;
}

namespace kwfy::rates {

// Asks for a file name (save dialog "另存为...") and writes the project's
// rates into a new rate file; "WithFLFile" is the rate standard of
// CurQFClass. An existing file is replaced only after the question
// "该文件已经存在，确信替换吗？" was answered Yes. The file is written beside its
// final name and moved into place when complete, so a failure never leaves a
// partly written rate file (and a replaced file survives a failed export).
void OutputFLData(ControlCore& core);

// Replaces the project's rates by those of a rate file: the FY_FL rows of
// CurQFClass by the file's rows (every row when fileWorkId is 0, else the
// rows of that project and of CurQFClass), each stored under CurQFClass;
// every FY_Mark and PatCoe row of the project, of every category, by the
// file's (of fileWorkId when not 0). A non-empty "WithFLFile" of the file
// becomes CurQFClass's rate standard. Then the fee table of CurQFClass is
// reloaded and its composite rates are computed and stored.
// A missing file, or one that is not a rate file (not a database, or
// lacking FY_FL, FY_Mark or PatCoe or their columns), shows "无效文件格式"
// and changes nothing. The file is only read. Returns true when it was taken.
bool CallOtherFL(ControlCore& core, const std::string& p_FileName, int16_t p_WorkID);

// Lets the user pick a rate file, from the project's rate-template index
// (frmFL_ModelIndex) when the configuration names one that exists, else with
// an open dialog "打开..."; takes it with CallOtherFL and raises AfterEdit
// when it was taken. Cancelling changes nothing.
void InputFLData(ControlCore& core);

}  // namespace kwfy::rates
