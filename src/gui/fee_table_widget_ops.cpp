// FeeTableWidget's public operations: each forwards to the control through
// Run, so a failure shows the error box instead of leaving the slot.
#include "gui/fee_table_widget.h"
#include "gui/twips.h"

namespace kwfy::gui {

void FeeTableWidget::SetWorkID(int v) {
    Run([&] { control_->SetWorkID(int16_t(v)); });
}
void FeeTableWidget::SetWorkDBFullName(const QString& v) {
    Run([&] { control_->SetWorkDBFullName(S(v)); });
}
void FeeTableWidget::SetQFClass(const QString& v) {
    Run([&] { control_->SetQFClass(S(v)); });
}
void FeeTableWidget::SetQFKind(int v) {
    Run([&] { control_->SetQFKind(int16_t(v)); });
}
void FeeTableWidget::SetNodeID(int v) {
    Run([&] { control_->SetNodeID(v); });
}
void FeeTableWidget::SetFYNodeID(int v) {
    Run([&] { control_->SetFYNodeID(v); });
}
void FeeTableWidget::SetTableClass(const QString& v) {
    Run([&] { control_->SetTableClass(S(v)); });
}
void FeeTableWidget::SetAppPath(const QString& v) {
    Run([&] { control_->SetAppPath(S(v)); });
}
void FeeTableWidget::SetDataPath(const QString& v) {
    Run([&] { control_->SetDataPath(S(v)); });
}
void FeeTableWidget::SetAppClass(int v) {
    Run([&] { control_->SetAppClass(int16_t(v)); });
}

void FeeTableWidget::SetShowBorder(bool v) {
    Run([&] { control_->ShowBorder(v); });
}
void FeeTableWidget::SetShowBar(bool v) {
    Run([&] { control_->ShowBar(v); });
}
void FeeTableWidget::SetHideCoeComboBox(bool v) {
    Run([&] { control_->HideCoeComboBox(v); });
}

void FeeTableWidget::SetCellText(int r, int c, const QString& v) {
    Run([&] { control_->SetCellText(int16_t(r), int16_t(c), S(v)); });
}
void FeeTableWidget::HideCol_End() {
    Run([&] { control_->HideCol_End(); });
}
void FeeTableWidget::HideCol_Wffs() {
    Run([&] { control_->HideCol_Wffs(); });
}
void FeeTableWidget::Resize() {
    Run([&] { control_->Resize(); });
}

void FeeTableWidget::LoadFY() {
    Run([&] { control_->LoadFY(); });
}
void FeeTableWidget::SaveFY() {
    Run([&] { control_->SaveFY(); });
}
void FeeTableWidget::SaveFY_One(int first, int last, const QString& qf) {
    Run([&] { control_->SaveFY_One(int16_t(first), int16_t(last), S(qf)); });
}
void FeeTableWidget::CalcFY() {
    Run([&] { control_->CalcFY(); });
}
void FeeTableWidget::CalcFY_One(int first, int last) {
    Run([&] { control_->CalcFY_One(int16_t(first), int16_t(last)); });
}

void FeeTableWidget::ClearRows() {
    Run([&] { control_->ClearRows(); });
}
void FeeTableWidget::FillSelText() {
    Run([&] { control_->FillSelText(); });
}
void FeeTableWidget::ClearSelText() {
    Run([&] { control_->ClearSelText(); });
}
void FeeTableWidget::AddRow() {
    Run([&] { control_->AddRow(); });
}
void FeeTableWidget::DelRow() {
    Run([&] { control_->DelRow(); });
}
void FeeTableWidget::AddItemCol() {
    Run([&] { control_->AddItemCol(); });
}
void FeeTableWidget::InsertItemCol() {
    Run([&] { control_->InsertItemCol(); });
}
void FeeTableWidget::DeleteItemCol() {
    Run([&] { control_->DeleteItemCol(); });
}

void FeeTableWidget::CallOtherFL(const QString& file, int workId) {
    Run([&] { control_->CallOtherFL(S(file), int16_t(workId)); });
}
void FeeTableWidget::InputFLData() {
    Run([&] { control_->InputFLData(); });
}
void FeeTableWidget::OutputFLData() {
    Run([&] { control_->OutputFLData(); });
}
void FeeTableWidget::ShowSelFLDialog() {
    Run([&] { control_->ShowSelFLDialog(); });
}
void FeeTableWidget::CallOtherFY() {
    Run([&] { control_->CallOtherFY(); });
}
void FeeTableWidget::CallOtherFY_ByFileName(const QString& file, const QString& qf) {
    Run([&] { control_->CallOtherFY_ByFileName(S(file), S(qf)); });
}
void FeeTableWidget::OutputLayout() {
    Run([&] { control_->OutputLayout(); });
}
void FeeTableWidget::InputLayout() {
    Run([&] { control_->InputLayout(); });
}
void FeeTableWidget::AddStandarItems() {
    Run([&] { control_->AddStandarItems(); });
}
void FeeTableWidget::CallDefaultFY() {
    Run([&] { control_->CallDefaultFY(); });
}

void FeeTableWidget::HideToolButton_MateFY() {
    Run([&] { control_->HideToolButton_MateFY(); });
}
void FeeTableWidget::SetToolState_CallFL(bool s) {
    Run([&] { control_->SetToolState_CallFL(s); });
}
void FeeTableWidget::SetToolState_OpenFL(bool s) {
    Run([&] { control_->SetToolState_OpenFL(s); });
}
void FeeTableWidget::SetToolState_SaveFL(bool s) {
    Run([&] { control_->SetToolState_SaveFL(s); });
}
void FeeTableWidget::SetToolState_OpenFY(bool s) {
    Run([&] { control_->SetToolState_OpenFY(s); });
}
void FeeTableWidget::SetToolState_SaveFY(bool s) {
    Run([&] { control_->SetToolState_SaveFY(s); });
}

int FeeTableWidget::GetCols() {
    int n = -1;
    Run([&] { n = control_->GetCols(); });
    return n;
}
int FeeTableWidget::GetRows() {
    int n = -1;
    Run([&] { n = control_->GetRows(); });
    return n;
}
QString FeeTableWidget::GetCellText(int r, int c) {
    QString text;
    Run([&] { text = Q(control_->GetCellText(int16_t(r), int16_t(c))); });
    return text;
}
int FeeTableWidget::GetOneRowLevel(int r) {
    int level = 0;
    Run([&] { level = control_->GetOneRowLevel(r); });
    return level;
}
double FeeTableWidget::GetPriceByKey(const QString& key) {
    double v = 0;
    Run([&] { v = control_->GetPriceByKey(S(key)); });
    return v;
}
QString FeeTableWidget::GetFLByKey(const QString& key) {
    QString v;
    Run([&] { v = Q(control_->GetFLByKey(S(key))); });
    return v;
}
QString FeeTableWidget::GetFLByCalcKey(const QString& key) {
    QString v;
    Run([&] { v = Q(control_->GetFLByCalcKey(S(key))); });
    return v;
}

}  // namespace kwfy::gui
