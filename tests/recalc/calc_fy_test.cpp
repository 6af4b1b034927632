#include <gtest/gtest.h>

#include "control/control_core.h"
#include "kwfy/error.h"
#include "kwfy/kw_fytable.h"
#include "support/fee_rows.h"
#include "support/price_fixture.h"

namespace kwfy {
namespace {

using test::Amounts;
using test::FeeRowSpec;
using Strings = std::vector<std::string>;

class CalcFYTest : public ::testing::Test {
protected:
    CalcFYTest() {
        table.SetWorkDBFullName(fx.ProjectPath());
        table.SetDataPath(fx.DataPath());
        table.SetWorkID(1);
        table.AddListener(&listener);
    }

    test::PriceFixture fx;
    test::RecordingUi ui;
    test::RecordingListener listener;
    KW_FYTable table{ui};
};

TEST_F(CalcFYTest, WritesRoundedAmountsAndRaisesTheTotal) {
    fx.AddFormula(1, "建安", "$A$+100");
    fx.AddItemPrice(1, "建安", "$A$", 50);
    fx.AddItemPrice(1, "建安", "$B$", 1000);  // $B$ is in no stored formula: it counts 0
    test::PlaceRows(table, {
                               {"F1", "$A$+100", "10%", "建安", "", "", "10%"},
                               {"F2", "F1*0", "", "建安"},
                               {"F3", "$B$+F1/3", "", "建安"},
                               {"F4", "F1+F3", "", "建安", "总合计"},
                           });
    table.CalcFY();
    EXPECT_EQ(Amounts(table), (Strings{"15.00", "", "5.00", "20.00"}));
    EXPECT_EQ(listener.recalcs, (std::vector<double>{20}));
    EXPECT_TRUE(ui.messages.empty());
    EXPECT_EQ(table.GetPriceByKey("F4"), 20);
    EXPECT_EQ(table.GetPriceByCalcKey("总合计"), 20);
}

TEST_F(CalcFYTest, PartialRangeCopiesItsLastAmountAbove) {
    test::PlaceRows(table, {
                               {"a", "", "", "建安", "", "", "", "old"},
                               {"b", "7", "", "建安"},
                               {"c", "0", "", "建安"},
                               {"d", "9", "", "建安", "", "", "", "kept"},
                           });
    table.CalcFY_One(2, 3);
    // Row 3 is 0: its own cell is empty, the copy above shows "0.00".
    EXPECT_EQ(Amounts(table), (Strings{"0.00", "7.00", "", "kept"}));
    EXPECT_EQ(listener.recalcs, (std::vector<double>{0}));  // no "总合计" row
}

TEST_F(CalcFYTest, SelfReferenceWarnsOnceAndCountsZero) {
    test::PlaceRows(table, {
                               {"A1", "A1", "", "建安"},
                               {"B", "B+1", "", "建安"},
                               {"C", "2", "", "建安", "总合计"},
                           });
    table.CalcFY();
    EXPECT_EQ(Amounts(table), (Strings{"", "", "2.00"}));
    ASSERT_EQ(ui.messages.size(), 1u);
    EXPECT_EQ(ui.messages[0].text, "计算公式“基数”异常，请修改“取费文件”！");
    EXPECT_EQ(ui.messages[0].title, "友情提示");
    EXPECT_EQ(ui.messages[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(ui.messages[0].buttons, MsgButtons::OK);
    EXPECT_EQ(listener.recalcs, (std::vector<double>{2}));
}

TEST_F(CalcFYTest, HeaderOnlyGridDoesNothing) {
    table.SetWorkDBFullName(fx.DataPath() + "/missing.mdb");  // never opened
    test::PlaceRows(table, {});
    table.CalcFY();
    table.CalcFY_One(1, 1);
    EXPECT_TRUE(listener.recalcs.empty());
}

TEST_F(CalcFYTest, RowRangesAreClampedOrRefused) {
    const std::vector<FeeRowSpec> rows = {
        {"a", "1", "", "建安", "", "", "", "x"},
        {"b", "2", "", "建安", "", "", "", "y"},
    };
    test::PlaceRows(table, rows);
    for (auto [start, end] : {std::pair{2, 1}, {5, 9}, {-3, 0}}) {
        EXPECT_THROW(table.CalcFY_One(int16_t(start), int16_t(end)), Error) << start << ".." << end;
        EXPECT_EQ(Amounts(table), (Strings{"x", "y"}));
    }
    table.CalcFY_One(-3, 999);
    EXPECT_EQ(Amounts(table), (Strings{"1.00", "2.00"}));
    EXPECT_EQ(listener.recalcs.size(), 1u);
}

TEST_F(CalcFYTest, MissingProjectDatabaseIsAnErrorBeforeAnyAmount) {
    table.SetWorkDBFullName(fx.DataPath() + "/missing.mdb");
    test::PlaceRows(table, {{"a", "1", "", "建安", "", "", "", "x"}});
    EXPECT_THROW(table.CalcFY(), Error);
    EXPECT_EQ(Amounts(table), (Strings{"x"}));
    EXPECT_TRUE(listener.recalcs.empty());
}

TEST_F(CalcFYTest, QFKindOneTakesTheDefaultCategoryAndEveryPrice) {
    fx.AddWorkStruct(1, "建安", 0);
    fx.AddFormula(1, "建安", "$A$");
    fx.AddItemPrice(1, "建安", "$A$", 1);
    fx.AddItemPrice(1, "其他", "$A$", 2);
    test::PlaceRows(table, {{"T", "$A$", "", "其他", "总合计"}});
    table.CalcFY();  // "其他" stores no formula naming $A$
    EXPECT_EQ(Amounts(table), (Strings{""}));
    table.SetQFKind(1);
    table.CalcFY();
    EXPECT_EQ(Amounts(table), (Strings{"3.00"}));
    EXPECT_EQ(listener.recalcs, (std::vector<double>{0, 3}));
}

TEST_F(CalcFYTest, ResolverSetByTheHostAndTheDefault) {
    fx.AddWorkStruct(8, "", 40);
    fx.AddFormula(1, "建安", "<[8]>+<Rc>");
    test::PlaceRows(table, {{"R", "<[8]>+<Rc>", "", "建安", "总合计"}});
    test::RecordingResolver resolver;
    resolver.answers = {{"<[8]>", 1}, {"$JC_R_S_Q$", 0.5}};
    table.SetPriceKeyResolver(&resolver);
    table.CalcFY();
    EXPECT_EQ(Amounts(table), (Strings{"1.50"}));
    EXPECT_EQ(resolver.calls.size(), 2u);
    table.SetPriceKeyResolver(nullptr);
    table.CalcFY();
    EXPECT_EQ(Amounts(table), (Strings{"40.00"}));
    EXPECT_EQ(resolver.calls.size(), 2u);
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
    test::PlaceRows(table, {
                               {"a", "0", "", "建安", "总合计"},
                               {"b", "7.004", "", "建安", "综合合价"},
                           });
    table.CalcFY();
    EXPECT_EQ(index.Text(1, 1), "7.00");
    EXPECT_EQ(index.Text(2, 1), "12.00");
    EXPECT_EQ(listener.recalcs, (std::vector<double>{12}));
}

TEST_F(CalcFYTest, PriceQueriesReadTheFirstMatchingRow) {
    test::PlaceRows(table, {
                               {"A", "", "", "", "K1", "", "", "12.5元"},
                               {"A", "", "", "", "K1", "", "", "99"},
                               {"B", "", "", "", "K2", "", "", ""},
                               {"c", "", "", "", "", "", "", "-3.25"},
                           });
    EXPECT_EQ(table.GetPriceByKey("A"), 12.5);
    EXPECT_EQ(table.GetPriceByKey("B"), 0);
    EXPECT_EQ(table.GetPriceByKey("c"), -3.25);
    EXPECT_EQ(table.GetPriceByKey("C"), 0);  // codes compare exactly
    EXPECT_EQ(table.GetPriceByKey("none"), 0);
    EXPECT_EQ(table.GetPriceByCalcKey("K1"), 12.5);
    EXPECT_EQ(table.GetPriceByCalcKey("K2"), 0.0);
    EXPECT_EQ(table.GetPriceByCalcKey("none"), std::nullopt);
    EXPECT_EQ(table.GetPriceByCalcKey(""), -3.25);  // the first row without a calculation key
}

}  // namespace
}  // namespace kwfy
