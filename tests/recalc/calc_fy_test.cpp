#include <gtest/gtest.h>

#include <array>

#include "control/control_core.h"
#include "kwfy/error.h"
#include "kwfy/kw_fytable.h"
#include "platform/scripted_ui.h"
#include "support/fixtures.h"
#include "support/temp_dir.h"

namespace kwfy {
namespace {

using Strings = std::vector<std::string>;

// code, formula, rate (also the stored rate entry), category, calculation key, amount
using RowSpec = std::array<std::string, 6>;

struct IconUi : ScriptedUi {
    std::vector<MessageRequest> shown;
    MsgAnswer MessageBox(const MessageRequest& request) override {
        shown.push_back(request);
        return ScriptedUi::MessageBox(request);
    }
};

struct Totals : FYTableListener {
    std::vector<double> sums;
    void ReCalc(double& p_SumPrice) override { sums.push_back(p_SumPrice); }
};

struct FixedResolver : DefaultPriceKeyResolver {
    int calls = 0;
    double AggregateValue(const std::string&, int16_t, const std::string&) override {
        return ++calls, 1;
    }
    double PriceDifference(const std::string&, const std::string&, int16_t, int32_t,
                           const std::string&, const std::string&) override {
        return ++calls, 0.5;
    }
};

class CalcFYTest : public ::testing::Test {
protected:
    CalcFYTest() {
        table.SetWorkDBFullName(project.Path());
        table.SetDataPath(dir.Path());
        table.SetWorkID(1);
        table.AddListener(&totals);
    }

    void Place(const std::vector<RowSpec>& rows) {
        FeeGrid& fee = table.Core().fee;
        fee.Grid().SetRows(1);
        fee.Grid().SetRows(int(rows.size()) + 1);
        for (int row = 1; const auto& r : rows) {
            fee.setKey(row, r[0]);
            fee.setFormula(row, r[1]);
            fee.setRate(row, r[2]);
            fee.setRateSpec(row, r[2]);
            fee.setCategory(row, r[3]);
            fee.setCalcKey(row, r[4]);
            fee.setAmount(row++, r[5]);
        }
    }
    Strings Amounts() {
        Strings amounts;
        for (int row = 1; row <= table.Core().fee.LastRow(); ++row)
            amounts.push_back(table.Core().fee.amount(row));
        return amounts;
    }

    test::TempDir dir;
    test::ProjectFixture project{dir.File("project.mdb")};
    IconUi ui;
    Totals totals;
    KW_FYTable table{ui};
};

TEST_F(CalcFYTest, WritesRoundedAmountsAndRaisesTheTotal) {
    project.AddFY({.qfClass = "建安", .wffs = "$A$+100"});
    project.AddPrice(project.AddItem({.qfClass = "建安"}), "$A$", 50);
    // $B$ is named by no stored formula: it counts 0.
    project.AddPrice(project.AddItem({.qfClass = "建安"}), "$B$", 1000);
    Place({{"F1", "$A$+100", "10%", "建安", "", ""},
           {"F2", "F1*0", "", "建安", "", "old"},
           {"F3", "$B$+F1/3", "", "建安", "", ""},
           {"F4", "F1+F3", "", "建安", "总合计", ""}});
    table.CalcFY();
    EXPECT_EQ(Amounts(), (Strings{"15.00", "", "5.00", "20.00"}));
    EXPECT_EQ(totals.sums, (std::vector<double>{20}));
    EXPECT_TRUE(ui.shown.empty());
    EXPECT_EQ(table.GetPriceByKey("F4"), 20);
    EXPECT_EQ(table.GetPriceByCalcKey("总合计"), 20);
}

TEST_F(CalcFYTest, PartialRangeCopiesItsLastAmountAbove) {
    Place({{"a", "", "", "建安", "", "old"},
           {"b", "7", "", "建安", "", ""},
           {"c", "0", "", "建安", "", ""},
           {"d", "9", "", "建安", "", "kept"}});
    table.CalcFY_One(2, 3);
    // Row 3 is 0: its own cell is empty, the copy above shows "0.00".
    EXPECT_EQ(Amounts(), (Strings{"0.00", "7.00", "", "kept"}));
    EXPECT_EQ(totals.sums, (std::vector<double>{0}));  // no "总合计" row
}

TEST_F(CalcFYTest, SelfReferenceWarnsOnceAndCountsZero) {
    Place({{"A1", "A1", "", "建安", "", ""},
           {"B", "B+1", "", "建安", "", ""},
           {"C", "2", "", "建安", "总合计", ""}});
    table.CalcFY();
    EXPECT_EQ(Amounts(), (Strings{"", "", "2.00"}));
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_EQ(ui.Log()[0], "message 友情提示 | 计算公式“基数”异常，请修改“取费文件”！");
    EXPECT_EQ(ui.shown[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(ui.shown[0].buttons, MsgButtons::OK);
    EXPECT_EQ(totals.sums, (std::vector<double>{2}));
}

TEST_F(CalcFYTest, BadRangesAndMissingDataChangeNothing) {
    Place({});
    table.SetWorkDBFullName(dir.File("missing.mdb"));
    table.CalcFY();  // a header-only grid never opens the database
    table.CalcFY_One(1, 1);
    EXPECT_TRUE(totals.sums.empty());

    Place({{"a", "1", "", "建安", "", "x"}, {"b", "2", "", "建安", "", "y"}});
    EXPECT_THROW(table.CalcFY(), Error);
    table.SetWorkDBFullName(project.Path());
    for (auto [start, end] : {std::pair{2, 1}, {5, 9}, {-3, 0}})
        EXPECT_THROW(table.CalcFY_One(int16_t(start), int16_t(end)), Error) << start << ".." << end;
    EXPECT_EQ(Amounts(), (Strings{"x", "y"}));
    EXPECT_TRUE(totals.sums.empty());
    table.CalcFY_One(-3, 999);  // clamped to the data rows
    EXPECT_EQ(Amounts(), (Strings{"1.00", "2.00"}));
}

TEST_F(CalcFYTest, QFKindOneTakesTheDefaultCategoryAndEveryPrice) {
    project.AddWorkStruct(1, "建安");
    project.AddFY({.qfClass = "建安", .wffs = "$A$"});
    project.AddPrice(project.AddItem({.qfClass = "建安"}), "$A$", 1);
    project.AddPrice(project.AddItem({.qfClass = "其他"}), "$A$", 2);
    Place({{"T", "$A$", "", "其他", "总合计", ""}});
    table.CalcFY();  // "其他" stores no formula naming $A$
    table.SetQFKind(1);
    table.CalcFY();
    EXPECT_EQ(totals.sums, (std::vector<double>{0, 3}));
}

TEST_F(CalcFYTest, ResolverSetByTheHostAndTheDefault) {
    project.Insert("WorkStruct", {{"ID", int64_t{8}}, {"TotalPrice", 40.0}});
    project.AddFY({.qfClass = "建安", .wffs = "<[8]>+<Rc>"});
    Place({{"R", "<[8]>+<Rc>", "", "建安", "总合计", ""}});
    FixedResolver resolver;
    table.SetPriceKeyResolver(&resolver);
    table.CalcFY();
    table.SetPriceKeyResolver(nullptr);
    table.CalcFY();
    EXPECT_EQ(totals.sums, (std::vector<double>{1.5, 40}));
    EXPECT_EQ(resolver.calls, 2);
}

TEST_F(CalcFYTest, IndexGridCollectsCategoryTotals) {
    GridModel& index = table.Core().indexGrid;
    index.SetCols(4);
    index.SetRows(3);
    index.SetText(0, 1, "5.00");
    index.SetText(1, 1, "99.00");
    index.SetCurrentCell(1, 0);
    index.SetVisible(true);
    // "总合计" is 0, so the category's total is "综合合价".
    Place({{"a", "0", "", "建安", "总合计", ""}, {"b", "7.004", "", "建安", "综合合价", ""}});
    table.CalcFY();
    EXPECT_EQ(index.Text(1, 1), "7.00");
    EXPECT_EQ(index.Text(2, 1), "12.00");
    EXPECT_EQ(totals.sums, (std::vector<double>{12}));
}

TEST_F(CalcFYTest, PriceQueriesReadTheFirstMatchingRow) {
    Place({{"A", "", "", "", "K1", "12.5元"},
           {"A", "", "", "", "K1", "99"},
           {"B", "", "", "", "K2", ""},
           {"c", "", "", "", "", "-3.25"}});
    EXPECT_EQ(table.GetPriceByKey("A"), 12.5);
    EXPECT_EQ(table.GetPriceByKey("B"), 0);
    EXPECT_EQ(table.GetPriceByKey("c"), -3.25);
    EXPECT_EQ(table.GetPriceByKey("C"), 0);  // codes compare exactly
    EXPECT_EQ(table.GetPriceByCalcKey("K1"), 12.5);
    EXPECT_EQ(table.GetPriceByCalcKey("K2"), 0.0);
    EXPECT_EQ(table.GetPriceByCalcKey("none"), std::nullopt);
}

}  // namespace
}  // namespace kwfy
