#include "platform/scripted_ui.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

using namespace kwfy;

namespace {

// "txtName" refuses empty values, Accept refuses "bad", "cmdBrow" leaves the
// dialog open and "cmdOK" closes it accepted.
class FakeDialog : public Dialog {
  public:
    std::map<std::string, std::string> fields{{"txtName", ""}, {"txtPath", ""}};
    bool cancelled = false;

    std::string Name() const override { return "frmFake"; }
    std::vector<std::string> FieldNames() const override { return {"txtName", "txtPath"}; }
    std::string Field(const std::string& n) const override { return fields.at(n); }
    bool SetField(const std::string& n, const std::string& v, Ui&) override {
        if (!fields.count(n) || (n == "txtName" && v.empty())) return false;
        fields[n] = v;
        return true;
    }
    bool Accept(Ui&) override { return fields["txtName"] != "bad"; }
    bool Press(const std::string& button, Ui&) override { return button == "cmdOK"; }
    void Cancel() override { cancelled = true; }
};

MessageRequest Box(MsgButtons buttons, int defaultButton = 0) {
    return {"text", "友情提示", buttons, MsgIcon::Question, defaultButton};
}

}  // namespace

TEST(ScriptedUi, MessagesAndFilesTakeQueuedAnswersThenDefaults) {
    std::vector<std::string> out;
    ScriptedUi ui([&](const std::string& line) { out.push_back(line); });
    ui.QueueAnswer(MsgAnswer::No);
    ui.QueueAnswer(MsgAnswer::Yes);  // does not fit an OK box
    EXPECT_EQ(ui.MessageBox(Box(MsgButtons::YesNo)), MsgAnswer::No);
    EXPECT_EQ(ui.MessageBox(Box(MsgButtons::OK)), MsgAnswer::OK);
    EXPECT_EQ(ui.MessageBox(Box(MsgButtons::YesNo, 1)), MsgAnswer::No);
    EXPECT_EQ(ui.MessageBox(Box(MsgButtons::YesNoCancel, 2)), MsgAnswer::Cancel);

    ui.QueueFile("C:/a.SFL");
    FileDialogRequest save{true, "另存为", "*.SFL", "费率文件(*.SFL)|*.SFL"};
    EXPECT_EQ(ui.FileDialog(save), "C:/a.SFL");
    EXPECT_EQ(ui.FileDialog(save), std::nullopt);
    EXPECT_EQ(ui.PendingAnswers(), 0u);
    ASSERT_EQ(out.size(), 6u);
    EXPECT_EQ(out[0], "message 友情提示 | text");
    EXPECT_EQ(out[4], "filedialog save 另存为 | 费率文件(*.SFL)|*.SFL | *.SFL");
    EXPECT_EQ(ui.Log(), out);
}

TEST(ScriptedUi, DialogFlows) {
    using Fields = std::vector<std::pair<std::string, std::string>>;
    struct Case {
        const char* what;
        Fields fields;
        bool accepted;
    };
    const Case cases[] = {
        {"fields then Accept", {{"txtName", "甲"}, {"txtPath", "p"}}, true},
        {"refused field", {{"txtName", ""}, {"txtPath", "p"}}, false},
        {"unknown field", {{"txtWho", "x"}}, false},
        {"Accept fails", {{"txtName", "bad"}}, false},
        {"closing button", {{"txtName", "甲"}, {"button", "cmdOK"}}, true},
        {"browse then fields", {{"button", "cmdBrow"}, {"txtPath", "q"}}, true},
        {"ends on an open button", {{"button", "cmdBrow"}}, false},
    };
    for (const Case& c : cases) {
        ScriptedUi ui;
        ui.QueueDialog("frmOther", {});
        ui.QueueDialog("frmFake", c.fields);
        FakeDialog d;
        EXPECT_EQ(ui.RunDialog(d), c.accepted) << c.what;
        EXPECT_EQ(d.cancelled, !c.accepted) << c.what;
        EXPECT_EQ(ui.Log().front(), "dialog frmFake");
        EXPECT_EQ(ui.PendingAnswers(), 1u) << "the other dialog's entry stays queued";
    }
    ScriptedUi ui;
    FakeDialog d;
    EXPECT_FALSE(ui.RunDialog(d)) << "nothing queued";
    EXPECT_TRUE(d.cancelled);
}
