#include "rates/rate_catalogue.h"

#include "rates_fixture.h"

namespace kwfy::test {
namespace {

using rates::GetField;
using rates::GetFieldCount;

TEST(GetFieldTest, CutsOutsideApostrophes) {
    struct Case {
        std::string text;
        char delimiter;
        int n;
        std::string field;
    } cases[] = {
        {"A=100", '=', 2, "100"},
        {"A=100&B=3", '=', 2, "100&B"},
        {"A=100&B=3", '&', 2, "B=3"},
        {"a='x,y',b", ',', 1, "a='x,y'"},
        {"a='x,y',b", ',', 2, "b"},
        {"a,b,", ',', 3, ""},
        {"a,,b", ',', 3, "b"},
        {"'open,end", ',', 1, "'open,end"},
        {"", ',', 1, ""},
        {"a", ',', 0, ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(GetField(c.text, c.delimiter, c.n), c.field) << c.text << " #" << c.n;
    EXPECT_EQ(GetFieldCount("a='x,y',b", ','), 2);
    EXPECT_EQ(GetFieldCount("a,b,", ','), 2);
    EXPECT_EQ(GetFieldCount("", ','), 0);
}

class CatalogueTest : public RatesFixture {
protected:
    db::Database& Std() { return rateStd.Db(); }
};

TEST_F(CatalogueTest, RulerListKeepsRowsOfTheSelectorAndRowsWithout) {
    const int64_t id = rateStd.AddRate("FL_A");
    rateStd.AddValue(id, "c", "A=100", "3%");
    rateStd.AddValue(id, "c", "A=200&L=3", "2.5%");
    rateStd.AddValue(id, "c", "A=300&L=4", "2%");
    rateStd.AddValue(id, "c", "A=More", "0.1%");
    const std::vector<std::pair<int16_t, std::vector<std::string>>> cases = {
        {0, {"", "100", "More"}}, {3, {"", "100", "200", "More"}}, {4, {"", "100", "300", "More"}}};
    for (const auto& [selector, expected] : cases) {
        std::vector<std::string> list;
        ASSERT_TRUE(rates::GetRulerList(Std(), int(id), "c", selector, list));
        EXPECT_EQ(list, expected) << selector;
    }
    std::vector<std::string> untouched = {"", "x"};
    EXPECT_FALSE(rates::GetRulerList(Std(), int(id), "other", 0, untouched));
    EXPECT_EQ(untouched.size(), 2u);

    EXPECT_EQ(rates::GetRulerValue(Std(), int(id), " 200 ", "c", 3), "2.5");
    EXPECT_EQ(rates::GetRulerValue(Std(), int(id), "200", "c", 0), "");
    EXPECT_EQ(rates::GetRulerValue(Std(), int(id), "200", "c", 4), "");
    EXPECT_EQ(rates::GetRulerValue(Std(), int(id), "More", "c", 4), "0.1");
    EXPECT_EQ(rates::GetRulerValue(Std(), int(id), "100", "c", 0), "3");

    rateStd.AddValue(id, "bad", "A=1&L=x", "1%");
    std::vector<std::string> list;
    EXPECT_THROW(rates::GetRulerList(Std(), int(id), "bad", 0, list), Error);
}

TEST_F(CatalogueTest, ListIdsAndCatalogueIds) {
    const int64_t id = rateStd.AddRate("FL_B");
    const int64_t choice = rateStd.AddListItem(id, "汽车", 1);
    EXPECT_EQ(rates::GetRowFLID(Std(), "FL_B"), id);
    EXPECT_EQ(rates::GetRowFLID(Std(), "FL_missing"), 0);
    EXPECT_EQ(rates::GetFLListID(Std(), int(id), "汽车"), choice);
    EXPECT_EQ(rates::GetFLListID(Std(), int(id), "船"), std::nullopt);
    Std().Execute("DROP TABLE FL_List");
    EXPECT_EQ(rates::GetFLListID(Std(), int(id), "汽车"), std::nullopt);
}

TEST_F(CatalogueTest, MarkRateNeedsEveryClauseOfTheSameProjectAndCategory) {
    const int64_t id = rateStd.AddRate("FL_M");
    rateStd.AddValue(id, "", "Region=一类地区,Zone=2", "5%");
    rateStd.AddValue(id, "", "Region=一类地区", "4%");
    rateStd.AddValue(id, "", "Region=一类地区", "3%");
    rateStd.AddValue(id, "", "", "9%");
    auto mark = [&] { return rates::GetFLByMark(project.Db(), 1, Std(), "FL_M", kCategory, ""); };
    EXPECT_EQ(mark(), "");
    project.AddMark(1, "其他", "Region", "一类地区");     // other category
    project.AddMark(2, kCategory, "Region", "一类地区");  // other project
    EXPECT_EQ(mark(), "");
    project.AddMark(1, kCategory, "Region", "一类地区");
    EXPECT_EQ(mark(), "4%");  // first matching row; the two-clause row lacks Zone
    project.AddMark(1, kCategory, "Zone", "2");
    EXPECT_EQ(mark(), "5%");
    EXPECT_EQ(rates::GetFLByMark(project.Db(), 1, Std(), "FL_none", kCategory, ""), "");
}

TEST_F(CatalogueTest, ProjectRatesAreAddedThenEditedAndNeverPlaceholders) {
    const std::string cls = "O'Brien 类";  // a quote must not break the statements
    EXPECT_FALSE(rates::GetProjectFL(project.Db(), 1, "FL_X", cls, kCategory).found);
    rates::SaveProjectFL(project.Db(), 1, "FL_X", cls, "...", kCategory);
    EXPECT_EQ(Stored("FL_X", cls), "<none>");
    rates::SaveProjectFL(project.Db(), 1, "FL_X", cls, "2%", kCategory);
    rates::SaveProjectFL(project.Db(), 1, "FL_X", cls, "3%", kCategory);
    rates::SaveProjectFL(project.Db(), 1, "FL_X", cls, "...", kCategory);
    const auto rate = rates::GetProjectFL(project.Db(), 1, "FL_X", cls, kCategory);
    EXPECT_TRUE(rate.found);
    EXPECT_EQ(rate.text, "3%");
    EXPECT_EQ(project.Db().Query("SELECT * FROM FY_FL").RecordCount(), 1);
    EXPECT_FALSE(rates::GetProjectFL(project.Db(), 1, "FL_X", cls, "其他").found);
}

TEST_F(CatalogueTest, RateStandardFileName) {
    EXPECT_EQ(rates::GetFLFileName(project.Db(), 1, kCategory), rates::kDefaultRateStd);
    Insert(project.Db(), "FY_FLFileName",
           {{"WorkID", int64_t(1)}, {"QFClass", kCategory}, {"FL_FileName", "公路.RXFL"}});
    EXPECT_EQ(rates::GetFLFileName(project.Db(), 1, kCategory), "公路.RXFL");
    EXPECT_EQ(rates::RateStdPathFor("/data/", "公路.RXFL"), "/data/System/公路.RXFL");
}

}  // namespace
}  // namespace kwfy::test
