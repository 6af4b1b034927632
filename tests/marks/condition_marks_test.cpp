#include "rates/condition_marks.h"

#include <gtest/gtest.h>

#include "classes/class_fixture.h"
#include "feetable/class_columns.h"

namespace kwfy::test {
namespace {

using namespace kwfy::rates;

// Rate standard: FL_JJF depends on DQ; FL_GLF on DQ and DX (DX is not
// defined); FL_QT has particular coefficients. FL_JJF is 5% in 一类地区 and 0
// in 二类地区 for any class, 4% and 7 for the classes 土建 and 安装.
class ConditionMarksTest : public ClassFixture {
protected:
    RateStandardFixture rateStd{dir.File("std.RXFL")};

    void SetUp() override {
        ClassFixture::SetUp();
        core.ctx.AppPath = "/opt/app";
        core.work.RateStdPath = rateStd.Path();
        const int64_t jjf = rateStd.AddRate("FL_JJF"), glf = rateStd.AddRate("FL_GLF");
        rateStd.AddRate("FL_QT");
        rateStd.AddWithMark(jjf, "DQ");
        rateStd.AddWithMark(glf, "DQ");
        rateStd.AddWithMark(glf, "DX");
        rateStd.AddMark("DQ", "", "地区类别", "一类地区|二类地区|三类地区（山区）");
        rateStd.AddValue(jjf, "", "DQ=一类地区", "5%");
        rateStd.AddValue(jjf, "", "DQ=二类地区", "0");
        rateStd.AddValue(jjf, "土建", "DQ=一类地区", "4%");
        rateStd.AddValue(jjf, "安装", "DQ=一类地区", "7");
        rateStd.AddPatCoe("FL_QT", "GLF", "1");
    }

    // Stored FY rows of the category, one per rate text; returns their IDs.
    std::vector<int64_t> StoreRows(const std::vector<std::string>& rates) {
        std::vector<int64_t> ids;
        for (const auto& fl : rates) ids.push_back(project.AddFY({.qfClass = "建安费", .fl = fl}));
        return ids;
    }

    void StoreChoice(const std::string& value) { project.AddMark(1, "建安费", "DQ", value); }

    // "mark=value" of every stored choice of the project and category.
    std::vector<std::string> StoredChoices() {
        std::vector<std::string> out;
        auto rs = Db().Query("SELECT * FROM FY_Mark WHERE WorkID=1 AND QFClass='建安费'");
        for (; !rs.Eof(); rs.MoveNext()) out.push_back(rs.Text("MarkKey") + "=" + rs.Text("Value"));
        return out;
    }

    std::vector<std::string> ToolKeys(const std::string& band) {
        std::vector<std::string> out;
        for (const auto& t : core.toolbar.GetBand(band).Tools()) out.push_back(t.key);
        return out;
    }
};

TEST_F(ConditionMarksTest, RatesSharingAMarkGetOneBox) {
    StoreRows({"FL_JJF", "FL_GLF", "3%", ""});
    BuildMarkTools(core, "建安费");

    EXPECT_EQ(core.work.MarkKeys, (std::vector<std::string>{"DQ", "DX"}));
    const auto keys = ToolKeys("Main");
    ASSERT_EQ(keys.size(), 13u);  // DX is not defined: no tools
    EXPECT_EQ(keys[10], "Edit_FLFile");
    EXPECT_EQ(keys[12], "A1");
    const Band& main = core.toolbar.GetBand("Main");
    EXPECT_EQ(main.At(11).kind, ToolKind::Label);
    EXPECT_EQ(main.At(11).caption, "地区类别");
    const Tool& box = main.At(12);
    EXPECT_EQ(box.kind, ToolKind::Combo);
    EXPECT_EQ(box.width, 2600);
    EXPECT_EQ(box.items, (std::vector<std::string>{"一类地区", "二类地区", "三类地区（山区）"}));
    EXPECT_EQ(StoredChoices(), (std::vector<std::string>{"DQ=一类地区"}));

    ASSERT_TRUE(core.toolbar.UserChoose("A1", "二类地区"));  // through the control's sink
    EXPECT_EQ(StoredChoices(), (std::vector<std::string>{"DQ=二类地区"}));
    EXPECT_EQ(events.afterEdit, 1);
}

TEST_F(ConditionMarksTest, StoredChoiceIsSelectedElseFirstValueReplacesIt) {
    struct Case {
        const char* stored;
        const char* shown;
    } cases[] = {{"二类地区", "二类地区"}, {"五类地区", "一类地区"}};
    for (const auto& c : cases) {
        Db().Execute("DELETE FROM FY_Mark");
        StoreChoice(c.stored);
        StoreRows({"FL_JJF"});
        BuildMarkTools(core, "建安费");
        const Tool* box = core.toolbar.FindTool("Main", "A1");
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->items.at(size_t(box->listIndex)), c.shown);
        EXPECT_EQ(StoredChoices(), (std::vector<std::string>{std::string("DQ=") + c.shown}));
    }
}

TEST_F(ConditionMarksTest, NoMarksLeaveTheNineStandardTools) {
    Tool stale;
    stale.key = "A1";
    core.toolbar.GetBand("Main").Add(stale);
    StoreRows({"3%", "FL_UNKNOWN"});
    BuildMarkTools(core, "建安费");
    EXPECT_EQ(ToolKeys("Main").back(), "Edit_FLFile");  // nine tools and two separators
    EXPECT_TRUE(core.work.MarkKeys.empty());
    EXPECT_EQ(core.grid.Cols(), 12);  // the grid was laid out afresh
}

TEST_F(ConditionMarksTest, RefreshAppliesCoefficientToMarkRatesOnly) {
    StoreChoice("一类地区");
    core.work.RateMode = 1;
    core.work.FYCoe = 1.2;
    AddRows({"FL_JJF"});
    AddRows({"3%"}, "3%");
    AddRows({"2"}, "2");
    AddRows({"FL_GLF"}, "9%");
    RefreshMarkRates(core);
    EXPECT_EQ(core.fee.rate(1), "6%");
    EXPECT_EQ(core.fee.rate(2), "3%");
    EXPECT_EQ(core.fee.rate(3), "2");
    EXPECT_EQ(core.fee.rate(4), "");  // no value applies

    Db().Execute("UPDATE FY_Mark SET Value='二类地区'");
    RefreshMarkRates(core);
    EXPECT_EQ(core.fee.rate(1), "");  // a value of 0 shows empty
}

TEST_F(ConditionMarksTest, RefreshInClassViewFillsFocusRowsClassCells) {
    StoreChoice("一类地区");
    project.AddClass("土建", 1, 1);
    project.AddClass("安装", 1, 2);
    feetable::LoadClassCols(core);
    core.work.RateMode = 2;
    core.work.FYCoe = 1.2;
    AddRows({"FL_JJF", "FL_JJF"});
    core.grid.SetCurrentCell(2, 2);
    RefreshMarkRates(core);
    const int first = core.fee.Columns().classFirst;
    EXPECT_EQ(core.grid.Text(2, first), "4.8%");
    EXPECT_EQ(core.grid.Text(2, first + 1), "8.4%");
    EXPECT_EQ(core.grid.Text(1, first), "");  // other rows follow at the next load
}

TEST_F(ConditionMarksTest, ChoiceOnFloatingBandFollowsToMainAndIsStored) {
    auto ids = StoreRows({"FL_JJF", "FL_GLF", "FL_QT"});
    core.work.RateMode = 1;
    BuildMarkTools(core, "建安费");
    AddRows({"FL_JJF"});
    ShowMarkPanel(core, ids[1]);
    EXPECT_EQ(ToolKeys("FloatForm"), (std::vector<std::string>{"LA1", "A1"}));

    Tool* floating = &core.toolbar.GetBand("FloatForm").At(1);
    EXPECT_EQ(floating->width, 1900);  // widest value: 8 wide characters
    floating->listIndex = 1;
    OnMarkBoxChanged(core, "A1");
    EXPECT_EQ(core.toolbar.FindTool("Main", "A1")->listIndex, 1);
    EXPECT_EQ(StoredChoices(), (std::vector<std::string>{"DQ=二类地区"}));
    EXPECT_EQ(events.afterEdit, 1);
    EXPECT_EQ(ui.FocusRequests(), 1);
    EXPECT_EQ(core.fee.rate(1), "");  // 二类地区 gives 0

    core.work.Busy = true;
    OnMarkBoxChanged(core, "A1");
    EXPECT_EQ(events.afterEdit, 1);
}

// What follows a mark change beyond the refreshed rates: the grid holds row
// A (FL_JJF, amount base 1000) and the composite row C (rate of A); the
// choice goes from 二类地区 (rate 0) to 一类地区.
class MarkChangeTest : public ConditionMarksTest {
protected:
    void SetUp() override {
        ConditionMarksTest::SetUp();
        StoreChoice("二类地区");
        StoreRows({"FL_JJF", "C*"});
        BuildMarkTools(core, "建安费");
        core.ctx.NodeID = 0;
        AddFeeRow("A", "FL_JJF", "1000");
        AddFeeRow("C", "C*", "A");
    }

    void AddFeeRow(const std::string& key, const std::string& spec, const std::string& formula) {
        core.grid.AddRow();
        const int r = core.grid.Rows() - 1;
        core.fee.setKey(r, key);
        core.fee.setRateSpec(r, spec);
        core.fee.setFormula(r, formula);
        core.fee.setCategory(r, "建安费");
    }

    void ChooseFirstRegion() {
        Tool* box = core.toolbar.FindTool("Main", "A1");
        ASSERT_NE(box, nullptr);
        box->listIndex = 1;  // 二类地区, as stored
        core.grid.SetCurrentCell(1, core.fee.Columns().key);
        ASSERT_TRUE(core.toolbar.UserChoose("A1", "一类地区"));
        EXPECT_EQ(events.afterEdit, 1);
    }

    // "FL|Class|Value" of the stored project rates, sorted.
    std::vector<std::string> StoredRates() {
        std::vector<std::string> out;
        auto rs = Db().Query(
            "SELECT * FROM FY_FL WHERE WorkID=1 AND QFClass='建安费' ORDER BY FL, Class");
        for (; !rs.Eof(); rs.MoveNext())
            out.push_back(rs.Text("FL") + "|" + rs.Text("Class") + "|" + rs.Text("Value"));
        return out;
    }
};

TEST_F(MarkChangeTest, WithoutClassesTheTableIsRecalculatedAndSaved) {
    core.work.RateMode = 1;
    ChooseFirstRegion();
    EXPECT_EQ(core.fee.rate(1), "5%");
    EXPECT_EQ(core.fee.amount(1), "50.00");
    EXPECT_EQ(StoredRates(), (std::vector<std::string>{"C*||", "FL_JJF||5%"}));
    auto codes =
        Db().Query("SELECT Code FROM FY WHERE WorkID=1 AND QFClass='建安费' ORDER BY Code");
    EXPECT_EQ(codes.RecordCount(), 2);
}

TEST_F(MarkChangeTest, WithClassesTheFocusRowAndCompositeRatesAreStored) {
    struct Case {
        int32_t node;  // 0: class view
        std::vector<std::string> cells, stored;
        const char* amount;  // of row A: calculated only for a node
    } cases[] = {
        {0, {"4%", "7%"}, {"C*|土建|4%", "C*|安装|7%", "FL_JJF|土建|4%", "FL_JJF|安装|7%"}, ""},
        {5, {"4%"}, {"C*|土建|4%", "FL_JJF|土建|4%"}, "40.00"},
    };
    project.AddItem({.id = 5, .flClass = "土建"});
    project.AddClass("土建", 1, 1);
    project.AddClass("安装", 1, 2);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.node);
        Db().Execute("DELETE FROM FY_FL");
        Db().Execute("UPDATE FY_Mark SET Value='二类地区'");
        events.afterEdit = 0;
        core.ctx.NodeID = c.node;
        core.work.RateMode = 2;
        if (c.node == 0) feetable::LoadClassCols(core);
        ChooseFirstRegion();

        std::vector<std::string> rowA, rowC;
        const auto& cols = core.fee.Columns();
        for (int col : c.node == 0 ? std::vector<int>{cols.classFirst, cols.classLast}
                                   : std::vector<int>{cols.rate}) {
            rowA.push_back(core.grid.Text(1, col));
            rowC.push_back(core.grid.Text(2, col));
        }
        EXPECT_EQ(rowA, c.cells);
        EXPECT_EQ(rowC, c.cells);  // the composite rate follows A
        EXPECT_EQ(StoredRates(), c.stored);
        EXPECT_EQ(core.fee.amount(1), c.amount);
    }
}

TEST_F(ConditionMarksTest, PanelOfRowWithParticularCoefficientsIsOneButton) {
    auto ids = StoreRows({"FL_QT"});
    ShowMarkPanel(core, ids[0]);
    const Band& band = core.toolbar.GetBand("FloatForm");
    ASSERT_EQ(band.Count(), 1);
    EXPECT_EQ(band.At(0).key, "tPatFLVar");
    EXPECT_EQ(band.At(0).picture, "/opt/app/Ico/RedBall.bmp");
}

TEST(MarkTextWidthTest, CountsCodePoints) {
    struct Case {
        const char* text;
        int width;
    } cases[] = {{"", 0}, {"abc", 3}, {"一类地区", 8}, {"A一b", 4}, {"é", 1}, {"\xff", 2}};
    for (const auto& c : cases) EXPECT_EQ(GetTextWidth(c.text), c.width) << c.text;
    EXPECT_EQ(GetToolWidth(0), 1200);
    EXPECT_EQ(GetToolWidth(9), 1200);
    EXPECT_EQ(GetToolWidth(10), 1300);
}

TEST(MarkBoxKeyTest, OnlyANumberedBoxIsAMarkBox) {
    for (const char* key : {"A", "A0", "Ax", "A1x", "Edit_Kind"}) EXPECT_EQ(MarkBoxNumber(key), 0);
    EXPECT_EQ(MarkBoxNumber(MarkBoxKey(12)), 12);
}

}  // namespace
}  // namespace kwfy::test
