#include "kwfy/toolbar_model.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kwfy/error.h"

using namespace kwfy;
using Calls = std::vector<std::string>;

namespace {

struct Sink : ToolbarEventSink {
    Calls calls;
    void OnToolClick(const std::string& k) override { calls.push_back("click " + k); }
    void OnComboChange(const std::string& k) override { calls.push_back("combo " + k); }
    void OnToolKeyDown(const std::string& k, int) override { calls.push_back("key " + k); }
    void OnBandClose(const std::string& b) override { calls.push_back("close " + b); }
};

Tool Make(std::string key, ToolKind kind = ToolKind::Button) {
    Tool t;
    t.key = std::move(key);
    t.kind = kind;
    return t;
}

}  // namespace

TEST(ToolbarModel, UserActionsReachOnlyUsableTools) {
    ToolbarModel bar;
    Sink sink;
    bar.SetEventSink(&sink);
    bar.GetBand("Main").Add(Make("M"));
    bar.GetBand("Pop").Add(Make("P"));
    bar.GetBand("FloatForm").Add(Make("F"));
    bar.GetBand("Main").Add(Make("H")).visible = false;
    bar.GetBand("Main").Add(Make("D")).enabled = false;
    bar.GetBand("Main").DeleteAt(0);
    EXPECT_THROW(bar.GetBand("Main").DeleteAt(2), Error);

    EXPECT_TRUE(bar.UserClick("P")) << "popup tools work although the band is no bar";
    for (const char* k : {"M", "F", "H", "D", "missing"}) EXPECT_FALSE(bar.UserClick(k)) << k;
    bar.GetBand("FloatForm").SetVisible(true);
    EXPECT_TRUE(bar.UserClick("F"));
    bar.GetBand("Main").Add(Make("M"));
    bar.SetVisible(false);
    EXPECT_FALSE(bar.UserClick("M")) << "the whole toolbar is hidden";
    EXPECT_EQ(sink.calls, (Calls{"click P", "click F"}));
}

TEST(ToolbarModel, ComboTextAndKeyEvents) {
    ToolbarModel bar;
    Sink sink;
    bar.SetEventSink(&sink);
    Band& main = bar.GetBand("Main");
    main.Add(Make("Kind", ToolKind::Combo)).items = {"建安费", "设备费"};
    main.Add(Make("Coe", ToolKind::TextBox));

    EXPECT_FALSE(bar.UserChoose("Kind", "其他")) << "not an entry";
    EXPECT_FALSE(bar.UserChoose("Coe", "建安费")) << "not a combo";
    EXPECT_TRUE(bar.UserChoose("Kind", "设备费"));
    EXPECT_EQ(main.Find("Kind")->listIndex, 1);
    EXPECT_TRUE(bar.UserSetText("Coe", "1.05"));
    EXPECT_EQ(main.Find("Coe")->text, "1.05");
    EXPECT_TRUE(bar.UserKeyDown("Coe", 13));
    bar.UserCloseBand("Main");
    EXPECT_FALSE(bar.UserKeyDown("Coe", 13)) << "its band was closed";
    EXPECT_EQ(sink.calls, (Calls{"combo Kind", "key Coe", "close Main"}));
}
