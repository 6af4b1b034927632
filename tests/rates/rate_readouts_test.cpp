#include "rates/rate_readouts.h"

#include "rates_fixture.h"

namespace kwfy::test {
namespace {

class ReadoutsTest : public RatesFixture {};

TEST_F(ReadoutsTest, FirstRowOfAKeyAndAllRatesAtOnce) {
    LayOut({}, {{"A", "", ""}, {"a", "", ""}, {"A", "", ""}});
    const char* rates[] = {"1%", "2%", "3%"};
    const char* amounts[] = {"10.50", "", "7x"};
    for (int r = 1; r <= 3; ++r) {
        core.fee.setRate(r, rates[r - 1]);
        core.fee.setAmount(r, amounts[r - 1]);
    }
    core.fee.setCalcKey(3, "总合计");
    EXPECT_EQ(rates::GetFLByKey(core, "A"), "1%");
    EXPECT_EQ(rates::GetFLByKey(core, "a"), "2%");  // exact, case included
    EXPECT_EQ(rates::GetFLByKey(core, "B"), "");
    EXPECT_EQ(rates::GetFLByCalcKey(core, "总合计"), "3%");

    std::vector<std::string> keys = {"stale"};
    std::vector<double> prices;
    rates::GetFLKeyArray(core, keys, prices);
    EXPECT_EQ(keys, (std::vector<std::string>{"", "1%", "2%", "3%"}));
    EXPECT_EQ(prices, (std::vector<double>{0, 10.5, 0, 7}));
}

}  // namespace
}  // namespace kwfy::test
