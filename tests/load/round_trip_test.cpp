// Saving the grid and loading it back, in every rate layout; what a save
// replaces, keeps and refuses.
#include <gtest/gtest.h>

#include "feetable/save_fy.h"
#include "kwfy/error.h"
#include "load_fixture.h"

namespace kwfy::test {
namespace {

struct Layout {
    const char* name;
    std::vector<std::string> classes;  // project classes (RateMode 2 when any)
    int32_t nodeId;
    bool withLevel;
};

class RoundTripTest : public LoadFixture, public ::testing::WithParamInterface<Layout> {
protected:
    RoundTripTest() : LoadFixture(db::SchemaOptions{GetParam().withLevel, true}) {}

    void SetUp() override {
        const Layout& layout = GetParam();
        for (size_t i = 0; i < layout.classes.size(); ++i)
            project.AddClass(layout.classes[i], 1, int(i + 1));
        project.AddItem({.id = 5, .qfClass = kCategory, .flClass = "甲"});
        project.AddPrice(5, "$ZJF$", 1000);
        control.SetNodeID(layout.nodeId);
        control.SetFYNodeID(layout.nodeId);
        // Stored out of order: the load sorts by Code.
        AddRow(3, "C", "利润", "2", "A", "利润", 2);
        AddRow(1, "A", "直接费", "", "$ZJF$", "直接费", 1);
        AddRow(4, "D", "合计", "", "A+B+C", "总合计", 1);
        AddRow(2, "B", "其他费", "3%", "A", "", 2);
    }

    void AddRow(int code, std::string key, std::string name, std::string fl, std::string wffs,
                std::string calcKey, int level) {
        project.AddFY({.qfClass = kCategory,
                       .nodeId = GetParam().nodeId,
                       .code = code,
                       .level = level,
                       .key = key,
                       .name = name,
                       .fl = fl,
                       .wffs = wffs,
                       .calcKey = calcKey});
    }

    // Every fee row with its class cells and outline node flag.
    std::vector<std::string> Snapshot() {
        std::vector<std::string> out;
        const FeeColumns& cols = Fee().Columns();
        for (int r = 1; r <= Fee().LastRow(); ++r) {
            std::string row = GridRow(r) + (Grid().IsOutlineNode(r) ? "|node" : "|flat");
            for (int c = cols.classFirst; Fee().HasClassCols() && c <= cols.classLast; ++c)
                row += "|" + Fee().caption(c) + "=" + Grid().Text(r, c);
            out.push_back(row);
        }
        return out;
    }
};

TEST_P(RoundTripTest, EditedRowsComeBackAsSaved) {
    control.LoadFY();
    ASSERT_EQ(Column(Fee().Columns().key), (std::vector<std::string>{"A", "B", "C", "D"}));
    EXPECT_EQ(Column(0), (std::vector<std::string>{"1", "2", "3", "4"}));

    Fee().setName(2, "其他工程费");
    Fee().setExplanation(2, "按直接费计");
    if (Fee().HasClassCols())
        Grid().SetText(2, Fee().Columns().classFirst, "4%");
    else
        Fee().setRate(2, "5%");
    const std::vector<std::string> edited = Snapshot();

    control.SaveFY();
    std::vector<std::string> ids = Column(Fee().Columns().id);
    control.LoadFY();

    EXPECT_EQ(Snapshot(), edited);
    EXPECT_EQ(Column(Fee().Columns().id), ids) << "the grid kept the new record numbers";
    for (int r = 1; r <= Fee().LastRow(); ++r)
        EXPECT_EQ(Grid().IsOutlineNode(r), GetParam().withLevel);
    auto rs = Db().Query("SELECT Code, NodeID FROM FY ORDER BY ID");
    for (int code = 1; !rs.Eof(); rs.MoveNext(), ++code) {
        EXPECT_EQ(rs["Code"].Int(), code);
        EXPECT_EQ(rs["NodeID"].Int(), GetParam().nodeId);
    }
}

INSTANTIATE_TEST_SUITE_P(Layouts, RoundTripTest,
                         ::testing::Values(Layout{"NodeWithoutClasses", {}, 5, true},
                                           Layout{"NodeWithoutClassesNoLevel", {}, 5, false},
                                           Layout{"ProjectWithoutClasses", {}, 0, true},
                                           Layout{"NodeWithClasses", {"甲", "乙"}, 5, true},
                                           Layout{"ClassView", {"甲", "0费率"}, 0, true},
                                           Layout{"ClassViewNoLevel", {"甲", "乙"}, 0, false}),
                         [](const auto& info) { return std::string(info.param.name); });

class SaveTest : public LoadFixture {
protected:
    void SetUp() override {
        control.SetNodeID(5);
        control.SetFYNodeID(5);
        project.AddItem({.id = 5, .qfClass = kCategory});
    }
    int64_t Add(const std::string& category, int64_t node, int code, const std::string& key,
                const std::string& calcKey = {}, int workId = 1) {
        return project.AddFY({.workId = workId,
                              .qfClass = category,
                              .nodeId = node,
                              .code = code,
                              .key = key,
                              .calcKey = calcKey});
    }
};

// Pairing the stored keys by count would give the second row the first
// row's key.
TEST_F(SaveTest, SavingLaterRowsKeepsEachRowsOwnCalcKey) {
    Add(kCategory, 5, 1, "A", "直接费");
    Add(kCategory, 5, 2, "B", "间接费");
    Add(kCategory, 5, 3, "C", "总合计");
    control.LoadFY();

    control.SaveFY_One(2, 3, kCategory);

    auto rs = Db().Query("SELECT Key, CalcKey, Code FROM FY ORDER BY Code");
    std::vector<std::string> stored;
    for (; !rs.Eof(); rs.MoveNext())
        stored.push_back(rs.Text("Code") + rs.Text("Key") + "=" + rs.Text("CalcKey"));
    EXPECT_EQ(stored, (std::vector<std::string>{"1B=间接费", "2C=总合计"}));
    EXPECT_EQ(Fee().calcKey(3), "总合计");
}

TEST_F(SaveTest, ReplacesTheCategoryOfEveryNodeAndNothingElse) {
    Add(kCategory, 5, 1, "A");
    Add(kCategory, 7, 1, "OtherNode");
    const int64_t otherCategory = Add("设备费", 5, 1, "OtherCategory");
    const int64_t otherProject = Add(kCategory, 5, 1, "OtherProject", "", 2);
    control.LoadFY();

    control.SaveFY();

    auto rs = Db().Query("SELECT ID, Key, NodeID FROM FY ORDER BY Key");
    std::vector<std::string> stored;
    for (; !rs.Eof(); rs.MoveNext()) stored.push_back(rs.Text("Key") + "@" + rs.Text("NodeID"));
    EXPECT_EQ(stored, (std::vector<std::string>{"A@5", "OtherCategory@5", "OtherProject@5"}));
    EXPECT_EQ(Db().Query("SELECT * FROM FY WHERE ID=?", {otherCategory}).RecordCount(), 1);
    EXPECT_EQ(Db().Query("SELECT * FROM FY WHERE ID=?", {otherProject}).RecordCount(), 1);
}

TEST_F(SaveTest, AnEmptyGridDeletesTheCategoryWithoutError) {
    Add(kCategory, 7, 1, "OnlyOnAnotherNode");
    control.LoadFY();
    ASSERT_EQ(Fee().DataRowCount(), 0);
    EXPECT_EQ(events.changed, (std::vector<std::string>{kCategory}));

    EXPECT_NO_THROW(control.SaveFY());
    EXPECT_TRUE(StoredRows().empty());
}

TEST_F(SaveTest, AFailedSaveChangesNeitherTheDatabaseNorTheGrid) {
    Add(kCategory, 5, 1, "A", "直接费");
    Add(kCategory, 5, 2, "B");
    Add(kCategory, 5, 3, "C", "总合计");
    control.LoadFY();
    Db().Execute(
        "CREATE TRIGGER refuse BEFORE INSERT ON FY WHEN NEW.Key='boom' "
        "BEGIN SELECT RAISE(ABORT, 'refused'); END");
    const auto rowsBefore = StoredRows();
    const auto ratesBefore = StoredRates();
    const auto idsBefore = Column(Fee().Columns().id);

    Fee().setRate(1, "7%");  // a rate stored before the failing row
    Fee().setKey(3, "boom");
    EXPECT_THROW(control.SaveFY(), Error);

    EXPECT_EQ(StoredRows(), rowsBefore);
    EXPECT_EQ(StoredRates(), ratesBefore);
    EXPECT_EQ(Column(Fee().Columns().id), idsBefore);
}

TEST_F(SaveTest, ResaveKeepsEachRowsCategoryAndStoresNoRates) {
    Add(kCategory, 5, 1, "A");
    Add(kCategory, 5, 2, "B");
    control.LoadFY();
    Fee().setCategory(2, "设备费");
    Fee().setRate(1, "9%");

    feetable::ResaveFYRows(core);

    auto rs = Db().Query("SELECT Key, QFClass, Code FROM FY ORDER BY Code");
    std::vector<std::string> stored;
    for (; !rs.Eof(); rs.MoveNext()) stored.push_back(rs.Text("Key") + ":" + rs.Text("QFClass"));
    EXPECT_EQ(stored, (std::vector<std::string>{"A:建安费", "B:设备费"}));
    EXPECT_TRUE(StoredRates().empty());
}

}  // namespace
}  // namespace kwfy::test
