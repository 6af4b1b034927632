// The table descriptions of every kind of file. Host tables the control only
// reads carry the columns it uses, with types of our choosing.
#include "db/schema_tables.h"

namespace kwfy::db::detail {

namespace {

using T = ColumnType;

ColumnDesc Opt(std::string name, ColumnType type) {
    return {std::move(name), type, true};
}

TableDesc ProjectFY() {
    return {"FY",
            {{"ID", T::Counter},
             {"WorkID", T::Int16},
             {"QFClass", T::Text},
             {"NodeID", T::Int32},
             {"Code", T::Int16},
             Opt("Level", T::Int16),
             {"Key", T::Text},
             {"Name", T::Text},
             {"FL", T::Text},
             {"SM", T::Memo},
             {"Wffs", T::Memo},
             {"CalcKey", T::Text}},
            {{"FY_Work", {"WorkID", "QFClass", "NodeID", "Code"}}}};
}

TableDesc ProjectFL() {
    return {"FY_FL",
            {{"WorkID", T::Int16},
             {"QFClass", T::Text},
             {"FL", T::Text},
             {"Class", T::Text},
             {"Value", T::Text}},
            {{"FY_FL_Work", {"WorkID", "QFClass", "FL", "Class"}}}};
}

TableDesc ProjectMark() {
    return {"FY_Mark",
            {{"WorkID", T::Int16}, {"QFClass", T::Text}, {"MarkKey", T::Text}, {"Value", T::Text}},
            {{"FY_Mark_Work", {"WorkID", "QFClass", "MarkKey"}}}};
}

TableDesc ProjectPatCoe() {
    return {"PatCoe",
            {{"WorkID", T::Int16}, {"Key", T::Text}, {"Coe", T::Text}, {"Value", T::Text}},
            {{"PatCoe_Work", {"WorkID", "Key"}}}};
}

TableDesc KeyInfo() {
    return {"KeyInfo", {{"Code", T::Text}, {"WithCode", T::Memo}}, {{"KeyInfo_Code", {"Code"}}}};
}

std::vector<TableDesc> HostTables() {
    return {
        {"Items",
         {{"ID", T::Counter},
          {"WorkID", T::Int16},
          {"ParentID", T::Int32},
          {"TableClass", T::Text},
          {"QFClass", T::Text},
          {"Level", T::Int16},
          {"OCode", T::Int32},
          {"ProjectKind", T::Text},
          {"NoSum", T::Int16},
          {"Inerim", T::Int16},
          {"CaleKind", T::Text},
          {"Apportionment", T::Double},
          {"FLClass", T::Text},
          {"DEKey", T::Text},
          {"DQ", T::Text},
          {"ZHHJ", T::Double}},
         {{"Items_Work", {"WorkID", "QFClass"}}, {"Items_Order", {"WorkID", "OCode"}}}},
        {"Items_Price",
         {{"ID", T::Counter}, {"ItemsID", T::Int32}, {"Key", T::Text}, {"Price", T::Double}},
         {{"Items_Price_Item", {"ItemsID", "Key"}}, {"Items_Price_Key", {"Key", "ItemsID"}}}},
        {"Mate_Analyz",
         {{"WorkID", T::Int16},
          {"NodeID", T::Int32},
          {"MateID", T::Int32},
          {"MateKey", T::Text},
          {"DEKey", T::Text},
          {"MateKind", T::Text},
          {"JG", T::Double},
          {"SH", T::Double},
          {"Number", T::Double},
          {"NoT", T::Int16}},
         {{"Mate_Analyz_Work", {"WorkID", "NodeID"}}}},
        {"MatePrice",
         {{"WorkID", T::Int16},
          {"MateID", T::Int32},
          {"MateKey", T::Text},
          {"PriceKey", T::Text},
          {"DEKey", T::Text},
          {"SC", T::Double},
          {"Price", T::Double}},
         {{"MatePrice_Work", {"WorkID", "MateKey"}}}},
        {"MateInfo",
         {{"WorkID", T::Int16},
          {"MateID", T::Int32},
          {"MateKey", T::Text},
          {"Name", T::Text},
          {"Unit", T::Text},
          {"Price", T::Double},
          {"MarketPrice", T::Double}},
         {{"MateInfo_Work", {"WorkID", "MateKey"}}}},
        {"WorkStruct",
         {{"ID", T::Counter},
          {"Kind", T::Text},
          {"OCode", T::Int32},
          {"Name", T::Text},
          {"DefaultQFClass", T::Text},
          {"WithDEKey", T::Text},
          {"TotalPrice", T::Double}},
         {}},
        {"WorkInfo",
         {{"WorkID", T::Int16}, {"Code", T::Text}, {"Text", T::Memo}},
         {{"WorkInfo_Work", {"WorkID", "Code"}}}},
        {"DEIndex",
         {{"WorkID", T::Int16},
          {"DEKey", T::Text},
          {"WithPriceCount", T::Int16},
          {"WithPriceName", T::Text},
          {"WithPriceKey", T::Text}},
         {{"DEIndex_Work", {"WorkID", "DEKey"}}}},
        {"Speciality", {{"Code", T::Text}, {"Name", T::Text}}, {}},
    };
}

std::vector<TableDesc> ProjectTables() {
    std::vector<TableDesc> tables{
        ProjectFY(),
        {"Class",
         {{"Name", T::Text}, {"WorkID", T::Int16}, {"OCode", T::Int16}},
         {{"Class_Name", {"Name"}}, {"Class_Work", {"WorkID", "OCode"}}}},
        ProjectFL(),
        ProjectMark(),
        ProjectPatCoe(),
        {"FY_FLFileName",
         {{"WorkID", T::Int16},
          {"QFClass", T::Text},
          {"FL_FileName", T::Text},
          Opt("FY_FileName", T::Text),
          {"Coe", T::Text}},
         {{"FY_FLFileName_Work", {"WorkID", "QFClass"}}}},
        KeyInfo(),
    };
    for (auto& host : HostTables()) tables.push_back(std::move(host));
    return tables;
}

std::vector<TableDesc> RateStandardTables() {
    return {
        {"FY_FL",
         {{"ID", T::Counter}, {"Key", T::Text}, {"Name", T::Text}},
         {{"FY_FL_Key", {"Key"}}}},
        {"FY_FL_Value",
         {{"ID", T::Counter},
          {"FLID", T::Int32},
          {"Class", T::Text},
          {"Ruler", T::Text},
          {"Value", T::Text},
          {"More", T::Text}},
         {{"FY_FL_Value_FL", {"FLID", "Class"}}}},
        {"FL_List",
         {{"ID", T::Counter}, {"FLID", T::Int32}, {"ListText", T::Text}, {"OCode", T::Int16}},
         {{"FL_List_FL", {"FLID", "OCode"}}}},
        {"FY_FL_WithMark",
         {{"FLID", T::Int32}, {"WithMarkKey", T::Text}},
         {{"FY_FL_WithMark_FL", {"FLID"}}}},
        {"FY_Mark",
         {{"Key", T::Text},
          {"MarkKey", T::Text},
          {"ShortName", T::Text},
          {"WithItem", T::Memo},
          {"Value", T::Text}},
         {{"FY_Mark_Key", {"Key"}}, {"FY_Mark_MarkKey", {"MarkKey"}}}},
        {"PatCoe",
         {{"Class", T::Text}, {"Key", T::Text}, {"Coe", T::Text}},
         {{"PatCoe_Class", {"Class", "Key"}}}},
    };
}

std::vector<TableDesc> TemplateTables() {
    TableDesc fy = ProjectFY();
    fy.indexes.clear();
    return {
        fy, {"KeyInfo", {{"Key", T::Text}, {"Value", T::Memo}}, {}}, {"SM", {{"SM", T::Memo}}, {}}};
}

}  // namespace

std::vector<TableDesc> BuildTables(FileKind kind) {
    switch (kind) {
        case FileKind::Project:
            return ProjectTables();
        case FileKind::RateStandard:
            return RateStandardTables();
        case FileKind::RateFile:
            return {ProjectFL(), ProjectMark(), ProjectPatCoe(), KeyInfo()};
        case FileKind::Template:
            return TemplateTables();
        case FileKind::Config:
            return {KeyInfo()};
        case FileKind::Parameter:
            return {{"BaseLink",
                     {{"Name", T::Text}, {"LinkName", T::Text}},
                     {{"BaseLink_Name", {"Name"}}}}};
        case FileKind::RateTemplateIndex:
            return {
                {"Index", {{"ID", T::Counter}, {"Name", T::Text}, {"WithFileName", T::Text}}, {}}};
    }
    return {};
}

}  // namespace kwfy::db::detail
