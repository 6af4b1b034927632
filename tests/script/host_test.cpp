#include "script/script_host.h"

#include <gtest/gtest.h>

#include <sstream>

#include "control/control_core.h"
#include "kwfy/error.h"
#include "script/bind.h"

namespace kwfy::script {
namespace {

using Lines = std::vector<std::string>;

class ScriptHostTest : public ::testing::Test {
protected:
    ScriptHostTest() : host([this](const std::string& l) { out.push_back(l); }) {}

    Lines Run(const std::string& script) {
        out.clear();
        std::istringstream in(script);
        host.Run(in);
        return out;
    }
    void AddOp(std::string name, size_t min, size_t max, std::function<void(Call&)> run) {
        host.Statements().Add(std::move(name), "", min, max, std::move(run));
    }

    Lines out;
    ScriptHost host;
};

TEST_F(ScriptHostTest, FailingStatementsPrintErrorsAndTheScriptGoesOn) {
    AddOp("fail", 0, 0, [](Call&) { throw Error("proj.mdb", "no such table FY"); });
    AddOp("crash", 0, 0, [](Call&) { throw std::out_of_range("index 9"); });
    Lines lines =
        Run("# comment\n"
            "\n"
            "   \t\n"
            "Nonsense 1 2\n"
            "fail\n"
            "crash\n"
            "echo \"unterminated\n"
            "echo still \"running here\"\r\n");
    EXPECT_EQ(lines,
              (Lines{"error unknown statement Nonsense", "error proj.mdb: no such table FY",
                     "error index 9", "error unterminated quoted token", "still running here"}));
    EXPECT_EQ(host.Failures(), 4);
}

// The usage errors of every kind of argument are in the golden script
// script_language.
TEST_F(ScriptHostTest, BoundOperationsConvertArgumentsAndApplyDefaults) {
    bind_detail::Add<std::string, int16_t, const std::string&, bool>(
        host.Statements(), "probe",
        [](KW_FYTable&, int16_t n, const std::string& s, bool b) {
            return std::to_string(n) + "|" + s + "|" + FormatBool(b);
        },
        Defaults(true));
    struct Case {
        const char* statement;
        const char* output;
    } cases[] = {
        {"probe -3 \"a b\"", "= -3|a b|True"},
        {"probe 7 x false", "= 7|x|False"},
        {"probe 1 x True extra",
         "error usage: probe INT16 TEXT [True|False] (expects 2 to 3 argument(s), got 4)"},
    };
    for (const auto& c : cases) EXPECT_EQ(Run(c.statement), Lines{c.output}) << c.statement;
}

TEST_F(ScriptHostTest, RegisteringANameTwiceIsRefused) {
    EXPECT_THROW(AddOp("echo", 0, 0, [](Call&) {}), std::logic_error);
    EXPECT_THROW(AddOp("bad", 2, 1, [](Call&) {}), std::logic_error);
}

TEST_F(ScriptHostTest, ArrayResultsPrintOneLinePerElement) {
    AddOp("arrays", 0, 0, [](Call& c) {
        c.ResultArray(std::vector<double>{0, 2.5});
        c.ResultPairs(std::vector<std::string>{"", "a b", "K1"}, std::vector<double>{0, 0.05, 3});
    });
    EXPECT_EQ(Run("arrays"),
              (Lines{"= [0] 0", "= [1] 2.5", "= [0] \"\" 0", "= [1] \"a b\" 0.05", "= [2] K1 3"}));
}

// The host's event printer and handlers see what the control raises.
TEST_F(ScriptHostTest, EventsPrintAndRunTheirHandlers) {
    AddOp("raise", 0, 0, [](Call& c) {
        ControlCore& core = c.Control().Core();
        core.events.AfterEdit();
        double sum = 1234.56;
        core.events.ReCalc(sum);
        std::string cls = "建安费";
        core.events.ChangeQFClass(cls);
    });
    EXPECT_EQ(Run("on AfterEdit echo calc now\non ReCalc ShowBar\nraise"),
              (Lines{"event AfterEdit", "calc now", "event ReCalc 1234.56", "= True",
                     "event ChangeQFClass 建安费"}));
    EXPECT_EQ(Run("on AfterEdit\non ReCalc\nraise"),
              (Lines{"event AfterEdit", "event ReCalc 1234.56", "event ChangeQFClass 建安费"}));
    EXPECT_EQ(Run("on Loaded echo x"),
              Lines{"error usage: on EVENT [STATEMENT ...] (unknown event Loaded)"});
}

TEST_F(ScriptHostTest, SelfTriggeringHandlersStopAtAFixedDepth) {
    AddOp("edited", 0, 0, [](Call& c) { c.Control().Core().events.AfterEdit(); });
    int before = host.Failures();
    Lines lines = Run("on AfterEdit edited\nedited\necho after");
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.back(), "after");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "event AfterEdit"), 9);
    EXPECT_EQ(host.Failures(), before + 1);
}

}  // namespace
}  // namespace kwfy::script
