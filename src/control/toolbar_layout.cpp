#include "control/toolbar_layout.h"

#include <string>

namespace kwfy {

namespace {

Tool Button(std::string key, std::string caption, std::string tip = {}) {
    Tool t;
    t.key = std::move(key);
    t.caption = std::move(caption);
    t.tip = std::move(tip);
    return t;
}

Tool Separator() {
    Tool t;
    t.kind = ToolKind::Separator;
    return t;
}

// The class tools appear only when the popup opens over a table with project
// classes; until then they are hidden.
Tool ClassTool(std::string key, std::string caption) {
    Tool t = Button(std::move(key), std::move(caption));
    t.visible = false;
    return t;
}

Tool OfKind(ToolKind kind, std::string key, std::string caption, std::string tip = {}) {
    Tool t = Button(std::move(key), std::move(caption), std::move(tip));
    t.kind = kind;
    return t;
}

void FillMain(Band& b) {
    b.Add(Button("Edit_Call", "选择费用", "打开其他取费文件"));
    b.Add(OfKind(ToolKind::Combo, "Edit_Kind", "专业类别："));
    b.Add(
        OfKind(ToolKind::TextBox, "Edit_Coe", "系数：", "输入\"调整系数\"按 \"回车键\" 进行调整"));
    b.Add(Separator());
    b.Add(Button("Edit_OpenFY", "调用", "调用其他费用文件"));
    b.Add(Button("Edit_SaveFY", "另存", "费用文件另存"));
    b.Add(Button("Edit_CallFL", "导入", "从其他工程中导入费率"));
    b.Add(Button("Edit_OpenFL", "费率模板", "导入费率模板"));
    b.Add(Button("Edit_SaveFL", "费率另存", "费率另存为..."));
    b.Add(Separator());
    b.Add(Button("Edit_FLFile", "", "选择费率标准"));
}

void FillPop(Band& b) {
    b.Add(Button("Pop_AddStandarItems", "添加标准费用项"));
    b.Add(Button("Pop_Add", "添项"));
    b.Add(Button("Pop_Del", "删项"));
    b.Add(Separator());
    b.Add(Button("Pop_CallOtherFY", "选择取费文件..."));
    b.Add(Button("Pop_CallDefaultFY", "重新装载默认费用"));
    b.Add(Separator());
    b.Add(Button("Pop_Output", "另存费用(&S)..."));
    b.Add(Button("Pop_Input", "导入费用(&O)..."));
    b.Add(Separator());
    b.Add(Button("Edit_SaveFL", "当前费率另存...", "费率另存为..."));
    b.Add(Button("Edit_OpenFL", "导入另存的费率文件..."));
    b.Add(Separator());
    b.Add(ClassTool("Pop_AddCol", "追加类别"));
    b.Add(ClassTool("Pop_InsertCol", "插入类别"));
    b.Add(ClassTool("Pop_DelCol", "删除类别"));
    b.Add(ClassTool("Pop_InputColValue", "导入某列数据..."));
    b.Add(Separator());
    b.Add(Button("Pop_FillText", "填充文本"));
    b.Add(Button("Pop_ClearText", "清空文本"));
    b.Add(Separator());
    b.Add(Button("Edit_FLFile", "选择其他费率标准...", "选择费率文件"));
}

}  // namespace

void BuildToolbarBands(ToolbarModel& toolbar) {
    Band& main = toolbar.GetBand("Main");
    main.Clear();
    FillMain(main);
    main.SetVisible(true);

    Band& pop = toolbar.GetBand("Pop");
    pop.Clear();
    FillPop(pop);

    // The rate-setting code replaces this placeholder with the current row's
    // condition-mark boxes.
    Band& floating = toolbar.GetBand("FloatForm");
    floating.Clear();
    floating.Add(OfKind(ToolKind::Label, "frmFloat", "活动窗体"));
    toolbar.RecalcLayout();
}

}  // namespace kwfy
