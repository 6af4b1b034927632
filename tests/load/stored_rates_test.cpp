// The one-read answers for project rates must be those of the database.
#include <gtest/gtest.h>

#include "feetable/stored_rates.h"
#include "kwfy/error.h"
#include "load_fixture.h"

namespace kwfy::test {
namespace {

class StoredRatesTest : public LoadFixture {
protected:
    void Refuse(const char* what) {
        Db().Execute(std::string("CREATE TRIGGER refuse_") + what + " BEFORE " + what +
                     " ON FY_FL BEGIN SELECT RAISE(ABORT, 'refused'); END");
    }
};

TEST_F(StoredRatesTest, AnswersAsTheDatabaseDoes) {
    project.AddFL(1, kCategory, "k", "甲", "5%");
    project.AddFL(1, kCategory, "D", "甲", "1%");
    project.AddFL(1, kCategory, "D", "甲", "2%");
    project.AddFL(2, kCategory, "X", "甲", "7%");
    project.AddFL(1, "设备费", "Y", "甲", "8%");
    feetable::StoredRates stored(Db(), 1, kCategory);

    for (const char* key : {"K", "k", "D", "X", "Y", "none"}) {
        const auto expected = rates::GetProjectFL(Db(), 1, key, "甲", kCategory);
        const auto got = stored.Get(key, "甲");
        EXPECT_EQ(got.found, expected.found) << key;
        EXPECT_EQ(got.text, expected.text) << key;
    }

    stored.Save("D", "甲", "3%");  // the database decides which duplicate changes
    EXPECT_EQ(stored.Get("D", "甲").text, rates::GetProjectFL(Db(), 1, "D", "甲", kCategory).text);
    stored.Save("new", "乙", "4%");
    EXPECT_EQ(stored.Get("NEW", "乙").text, "4%");
    stored.Save("new", "乙", "...");
    EXPECT_EQ(rates::GetProjectFL(Db(), 1, "new", "乙", kCategory).text, "4%");
}

TEST_F(StoredRatesTest, WritesOnlyWhatChanges) {
    project.AddFL(1, kCategory, "K", "甲", "5%");
    feetable::StoredRates stored(Db(), 1, kCategory);
    Refuse("UPDATE");
    Refuse("INSERT");

    EXPECT_NO_THROW(stored.Save("K", "甲", "5%"));
    EXPECT_THROW(stored.Save("K", "甲", "6%"), Error);
    EXPECT_THROW(stored.Save("k", "甲", "5%"), Error) << "the key's spelling is rewritten";
    EXPECT_THROW(stored.Save("L", "甲", ""), Error);
}

}  // namespace
}  // namespace kwfy::test
