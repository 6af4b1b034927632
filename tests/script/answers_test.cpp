// The answer statements feed the Ui the control asks; these tests play the
// control's part through statements registered here.
#include <gtest/gtest.h>

#include <sstream>

#include "script/script_host.h"

namespace kwfy::script {
namespace {

using Lines = std::vector<std::string>;

const char* AnswerName(MsgAnswer a) {
    switch (a) {
        case MsgAnswer::OK:
            return "OK";
        case MsgAnswer::Cancel:
            return "Cancel";
        case MsgAnswer::Yes:
            return "Yes";
        case MsgAnswer::No:
            return "No";
    }
    return "?";
}

class TestDialog : public Dialog {
public:
    std::string Name() const override { return "frmTest"; }
    std::vector<std::string> FieldNames() const override { return {"txtName"}; }
    std::string Field(const std::string& name) const override {
        return name == "txtName" ? name_ : "";
    }
    bool SetField(const std::string& name, const std::string& value, Ui&) override {
        if (name != "txtName") return false;
        name_ = value;
        return true;
    }
    bool Accept(Ui&) override { return !name_.empty(); }

private:
    std::string name_;
};

class AnswersTest : public ::testing::Test {
protected:
    AnswersTest() : host([this](const std::string& l) { out.push_back(l); }) {
        auto& r = host.Statements();
        r.Add("ask", "", 0, 0, [](Call& c) {
            MessageRequest m{"确信要删除当前行吗！", "提示", MsgButtons::YesNo};
            m.defaultButton = 1;
            c.Print(std::string("= ") + AnswerName(c.Ui().MessageBox(m)));
        });
        r.Add("pick", "", 0, 0, [](Call& c) {
            FileDialogRequest f{true, "保存", "a.sfl", "费率文件|*.sfl"};
            auto path = c.Ui().FileDialog(f);
            c.Print("= " + (path ? *path : std::string("cancelled")));
        });
        r.Add("show", "", 0, 0, [](Call& c) {
            TestDialog d;
            bool ok = c.Ui().RunDialog(d);
            c.Print("= " + FormatBool(ok) + " " + d.Field("txtName"));
        });
    }
    Lines Run(const std::string& script) {
        out.clear();
        std::istringstream in(script);
        host.Run(in);
        return out;
    }

    Lines out;
    ScriptHost host;
};

// Queued answers, paths and dialog fields reaching the control are in the
// golden scripts; here the forms they cannot show.
TEST_F(AnswersTest, QueuesRunOutToTheDefaultAndCancelAndEqualSignsAreKept) {
    EXPECT_EQ(Run("answer Yes\nask\nask\nanswer-file cancel\npick\n"
                  "answer-dialog frmTest \"txtName=A = B\"\nshow\nshow"),
              (Lines{"message 提示 | 确信要删除当前行吗！", "= Yes",
                     "message 提示 | 确信要删除当前行吗！", "= No",
                     "filedialog save 保存 | 费率文件|*.sfl | a.sfl", "= cancelled",
                     "dialog frmTest", "= True A = B", "dialog frmTest", "= False "}));
}

TEST_F(AnswersTest, AMalformedAnswerQueuesNothing) {
    Lines lines = Run("answer Yes Maybe");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].rfind("error usage: answer", 0), 0u) << lines[0];
    EXPECT_EQ(host.Ui().PendingAnswers(), 0u);
    EXPECT_EQ(Run("answer-dialog frmTest txtName").size(), 1u);
    EXPECT_EQ(host.Ui().PendingAnswers(), 0u);
}

}  // namespace
}  // namespace kwfy::script
