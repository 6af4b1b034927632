#include "rates/interpolation.h"

#include "rates_fixture.h"

namespace kwfy::test {
namespace {

class InterpolationTest : public RatesFixture {
protected:
    std::string Interpolate(const std::string& quantity, const std::string& list = "") {
        rates::RateFiles files(core);
        core.grid.SetText(1, 4, "unchanged");
        rates::AnalyzOnePatFL(core, files, quantity, "c", 4, 1, list, core.work.FYCoe);
        return Cell(1, 4);
    }
};

TEST_F(InterpolationTest, WorkedTableInsideAtBelowAndAbove) {
    AddWorkedRate("FL_T", "c");
    LayOut({}, {{"1", "FL_T", ""}});
    const std::pair<std::string, std::string> cases[] = {
        {"300", "2.5%"},                     // between 100 and 500
        {"1000", "1.5%"},                    // exact ruler
        {"1000.0", "1.5%"},                  // the same rate along the line
        {"1300", "2.1%"},                    // 1.5 + 300 x 0.2 / 100
        {"1001", "1.502%"}, {"50", "1.5%"},  // 3 x 50 / 100
        {"0", ""},          {"123.4567", "2.941%"},
    };
    for (const auto& [quantity, cell] : cases) EXPECT_EQ(Interpolate(quantity), cell) << quantity;
    core.work.FYCoe = 2;
    EXPECT_EQ(Interpolate("300"), "5%");
}

TEST_F(InterpolationTest, MoreWithoutDivisorAndOnlyMoreRows) {
    const int64_t id = rateStd.AddRate("FL_M");
    rateStd.AddValue(id, "c", "X=0", "1%");
    rateStd.AddValue(id, "c", "X=More", "0.5%");
    LayOut({}, {{"1", "FL_M", ""}});
    EXPECT_EQ(Interpolate("4"), "3%");  // no PatCoe row: one increment per unit
    EXPECT_EQ(Interpolate("0"), "1%");  // written as the ruler: its own rate
    EXPECT_EQ(Interpolate("0.0"), "");  // below the table: 1 x 0 / 1
}

TEST_F(InterpolationTest, ListChoiceSelectsItsTable) {
    const int64_t id = rateStd.AddRate("FL_L");
    const int64_t car = rateStd.AddListItem(id, "汽车", 1);
    const int64_t ship = rateStd.AddListItem(id, "船", 2);
    for (auto [sel, near, far] : {std::tuple{car, "4%", "2%"}, std::tuple{ship, "1%", "0.5%"}}) {
        const std::string tail = "&L=" + std::to_string(sel);
        rateStd.AddValue(id, "c", "X=10" + tail, near);
        rateStd.AddValue(id, "c", "X=20" + tail, far);
    }
    LayOut({}, {{"1", "FL_L", ""}});
    EXPECT_EQ(Interpolate("15", "汽车"), "3%");
    EXPECT_EQ(Interpolate("15", "船"), "0.75%");
    EXPECT_EQ(Interpolate("5", "船"), "0.5%");
    EXPECT_EQ(Interpolate("15", ""), "");  // no list choice: no threshold of this table applies
    EXPECT_EQ(Interpolate("15", "马车"), "");
}

TEST_F(InterpolationTest, EveryClassColumnGetsItsOwnRateAndIsStored) {
    const int64_t id = AddWorkedRate("FL_T", "一类");
    rateStd.AddValue(id, "二类", "X=100", "6%");
    LayOut({"一类", "二类", "三类"}, {{"1", "FL_T", ""}});
    core.grid.SetText(1, 7, "9%");  // 三类 has no table: kept
    rates::AnalyzInterPolating(core, "50", "ignored", 0, "");
    EXPECT_EQ(Cell(1, 5), "1.5%");
    EXPECT_EQ(Cell(1, 6), "3%");
    EXPECT_EQ(Cell(1, 7), "9%");
    EXPECT_EQ(Stored("FL_T", "一类"), "1.5%");
    EXPECT_EQ(Stored("FL_T", "二类"), "3%");
    EXPECT_EQ(Stored("FL_T", "三类"), "9%");
    EXPECT_EQ(events.afterEdit, 1);
}

TEST_F(InterpolationTest, WithANodeOnlyTheRateColumnChanges) {
    AddWorkedRate("FL_T", "桥梁");
    LayOut({}, {{"1", "FL_T", ""}});
    core.ctx.NodeID = 7;
    rates::AnalyzInterPolating(core, "300", "桥梁", 1, "");
    EXPECT_EQ(core.fee.rate(1), "2.5%");
    EXPECT_EQ(Stored("FL_T", "桥梁"), "2.5%");
}

TEST_F(InterpolationTest, MissingRateStandardLeavesTheDatabaseAsItWas) {
    LayOut({"一类"}, {{"1", "FL_T", ""}});
    core.work.RateStdPath = dir.File("missing.RXFL");
    EXPECT_THROW(rates::AnalyzInterPolating(core, "300", "", 1, ""), Error);
    EXPECT_EQ(project.Db().Query("SELECT * FROM FY_FL").RecordCount(), 0);
    EXPECT_EQ(events.afterEdit, 0);
}

}  // namespace
}  // namespace kwfy::test
