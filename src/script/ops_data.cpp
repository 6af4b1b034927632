// Script statements of the data operations: loading, saving, calculation,
// value queries, row editing and project class columns.
#include "kwfy/kw_fytable.h"
#include "script/bind.h"
#include "script/ops.h"

namespace kwfy::script {

void RegisterDataOps(Registry& r) {
    AddMethod(r, "LoadFY", &KW_FYTable::LoadFY);
    AddMethod(r, "SaveFY", &KW_FYTable::SaveFY);
    AddMethod(r, "SaveFY_One", &KW_FYTable::SaveFY_One);
    AddMethod(r, "CalcFY", &KW_FYTable::CalcFY);
    AddMethod(r, "CalcFY_One", &KW_FYTable::CalcFY_One);
    AddMethod(r, "GetPriceByKey", &KW_FYTable::GetPriceByKey);
    AddMethod(r, "GetPriceByCalcKey", &KW_FYTable::GetPriceByCalcKey);

    AddMethod(r, "AddRow", &KW_FYTable::AddRow);
    AddMethod(r, "DelRow", &KW_FYTable::DelRow);
    AddMethod(r, "ClearRows", &KW_FYTable::ClearRows);
    AddMethod(r, "FillSelText", &KW_FYTable::FillSelText);
    AddMethod(r, "ClearSelText", &KW_FYTable::ClearSelText);

    AddMethod(r, "AddItemCol", &KW_FYTable::AddItemCol);
    AddMethod(r, "InsertItemCol", &KW_FYTable::InsertItemCol);
    AddMethod(r, "DeleteItemCol", &KW_FYTable::DeleteItemCol);
}

}  // namespace kwfy::script
