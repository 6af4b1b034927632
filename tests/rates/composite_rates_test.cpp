#include "rates/composite_rates.h"

#include "rates_fixture.h"

namespace kwfy::test {
namespace {

class CompositeRatesTest : public RatesFixture {};

TEST_F(CompositeRatesTest, EvaluatesOperandsFirstAndEndsLoops) {
    LayOut({"一类"}, {
                         {"A", "3%", ""},
                         {"T", "T*", "S*2-B"},  // S is evaluated first: 5 x 2 - 2
                         {"S", "S*", "A+[B]"},  // 3 + 2
                         {"B", "2%", ""},
                         {"P", "0.01", ""},
                         {"U", "U*", "P+1"},     // a plain rate counts x 100
                         {"L1", "L1*", "L2+A"},  // L1 -> L2 -> L1: the row in progress counts 0
                         {"L2", "L2*", "L1+1"},
                         {"Self", "Self*", "Self+A"},
                         {"Z", "Z*", "A-A"},
                     });
    core.grid.SetText(1, 5, "3%");
    core.grid.SetText(4, 5, "2%");
    core.grid.SetText(5, 5, "0.01");
    ASSERT_TRUE(rates::CalcStarRates(core, ""));
    EXPECT_EQ(Cell(2, 5), "8%");
    EXPECT_EQ(Cell(3, 5), "5%");
    EXPECT_EQ(Cell(6, 5), "2%");
    EXPECT_EQ(Cell(8, 5), "1%");   // L1 taken as 0 inside L2
    EXPECT_EQ(Cell(7, 5), "4%");   // L1 = L2 + A = 1 + 3
    EXPECT_EQ(Cell(9, 5), "...");  // names itself: left as a placeholder
    EXPECT_EQ(Cell(10, 5), "");

    rates::StoreStarRates(core, project.Db(), "");
    EXPECT_EQ(Stored("S*", "一类"), "5%");
    EXPECT_EQ(Stored("L1*", "一类"), "4%");
    EXPECT_EQ(Stored("Self*", "一类"), "<none>");
    EXPECT_EQ(Stored("A", "一类"), "<none>");  // not composite
}

TEST_F(CompositeRatesTest, NothingToDoWithoutCompositeKeys) {
    LayOut({"一类"}, {{"A", "3%", ""}});
    core.grid.SetText(1, 5, "3%");
    EXPECT_FALSE(rates::CalcStarRates(core, ""));
    EXPECT_EQ(Cell(1, 5), "3%");
}

}  // namespace
}  // namespace kwfy::test
