// Saving the grid and loading it back in every rate layout; what a save
// replaces, keeps and refuses.
#include <gtest/gtest.h>

#include "feetable/save_fy.h"
#include "kwfy/error.h"
#include "load_fixture.h"

namespace kwfy::test {
namespace {

using V = std::vector<std::string>;

struct Layout {
    const char* name;
    V classes;  // project classes: RateMode 2 when any
    int32_t node;
    bool withLevel;
};

class RoundTripTest : public LoadFixture, public ::testing::WithParamInterface<Layout> {
protected:
    RoundTripTest() : LoadFixture(db::SchemaOptions{GetParam().withLevel, true}) {}

    void SetUp() override {
        for (size_t i = 0; i < GetParam().classes.size(); ++i)
            project.AddClass(GetParam().classes[i], 1, int(i + 1));
        project.AddItem({.id = 5, .qfClass = kCategory, .flClass = "甲"});
        project.AddPrice(5, "$ZJF$", 1000);
        control.SetNodeID(GetParam().node);
        control.SetFYNodeID(GetParam().node);
        // Stored out of order: the load sorts by Code.
        for (const FYRow& row :
             {FYRow{.code = 3, .level = 2, .key = "C", .fl = "2", .wffs = "A"},
              FYRow{.code = 1, .key = "A", .wffs = "$ZJF$", .calcKey = "直接费"},
              FYRow{.code = 4, .key = "D", .wffs = "A+B+C", .calcKey = "总合计"},
              FYRow{.code = 2, .level = 2, .key = "B", .fl = "3%", .wffs = "A"}}) {
            FYRow stored = row;
            stored.qfClass = kCategory;
            stored.nodeId = GetParam().node;
            stored.name = "费" + row.key;
            project.AddFY(stored);
        }
    }

    // Every field of every row, with the class cells and the outline.
    V Snapshot() {
        V out;
        const FeeColumns& cols = Fee().Columns();
        for (int r = 1; r <= Fee().LastRow(); ++r) {
            std::string row = Fee().key(r) + "|" + Fee().name(r) + "|" + Fee().rateSpec(r) + "|" +
                              Fee().rate(r) + "|" + Fee().explanation(r) + "|" + Fee().formula(r) +
                              "|" + Fee().calcKey(r) + "|" +
                              std::to_string(Grid().RowOutlineLevel(r)) +
                              (Grid().IsOutlineNode(r) ? "|node" : "|flat");
            for (int c = cols.classFirst; Fee().HasClassCols() && c <= cols.classLast; ++c)
                row += "|" + Fee().caption(c) + "=" + Grid().Text(r, c);
            out.push_back(row);
        }
        return out;
    }
};

TEST_P(RoundTripTest, EditedRowsComeBackAsSaved) {
    control.LoadFY();
    ASSERT_EQ(Column(Fee().Columns().key), (V{"A", "B", "C", "D"}));
    EXPECT_EQ(Column(0), (V{"1", "2", "3", "4"}));
    EXPECT_EQ(Grid().IsOutlineNode(1), GetParam().withLevel);

    Fee().setName(2, "其他工程费");
    Fee().setExplanation(2, "按直接费计");
    Grid().SetText(2, Fee().HasClassCols() ? Fee().Columns().classFirst : Fee().Columns().rate,
                   "4%");
    const V edited = Snapshot();
    control.SaveFY();
    const V ids = Column(Fee().Columns().id);
    control.LoadFY();

    EXPECT_EQ(Snapshot(), edited);
    EXPECT_EQ(Column(Fee().Columns().id), ids) << "the saved rows' new IDs";
    const std::string node = std::to_string(GetParam().node);
    EXPECT_EQ(Rows("SELECT Code, NodeID FROM FY ORDER BY ID"),
              (V{"1|" + node, "2|" + node, "3|" + node, "4|" + node}));
}

INSTANTIATE_TEST_SUITE_P(Layouts, RoundTripTest,
                         ::testing::Values(Layout{"Node", {}, 5, true},
                                           Layout{"NodeNoLevel", {}, 5, false},
                                           Layout{"Project", {}, 0, true},
                                           Layout{"NodeWithClasses", {"甲", "乙"}, 5, true},
                                           Layout{"ClassView", {"甲", "0费率"}, 0, true},
                                           Layout{"ClassViewNoLevel", {"甲", "乙"}, 0, false}),
                         [](const auto& info) { return std::string(info.param.name); });

class SaveTest : public LoadFixture {
protected:
    void SetUp() override {
        control.SetNodeID(5);
        control.SetFYNodeID(5);
    }
    void Add(const std::string& category, int64_t node, int code, const std::string& key,
             const std::string& calcKey = {}, int workId = 1) {
        project.AddFY({.workId = workId,
                       .qfClass = category,
                       .nodeId = node,
                       .code = code,
                       .key = key,
                       .calcKey = calcKey});
    }
};

// Pairing the stored keys by count would give row 2 the key of row 1.
TEST_F(SaveTest, SavingLaterRowsKeepsEachRowsOwnCalcKey) {
    Add(kCategory, 5, 1, "A", "直接费");
    Add(kCategory, 5, 2, "B", "间接费");
    Add(kCategory, 5, 3, "C", "总合计");
    control.LoadFY();
    control.SaveFY_One(2, 3, kCategory);
    EXPECT_EQ(Rows("SELECT Code, Key, CalcKey FROM FY ORDER BY Code"),
              (V{"1|B|间接费", "2|C|总合计"}));
}

TEST_F(SaveTest, ReplacesTheCategoryOfEveryNodeAndNothingElse) {
    Add(kCategory, 7, 1, "OtherNode");
    Add("设备费", 5, 1, "OtherCategory");
    Add(kCategory, 5, 1, "OtherProject", "", 2);
    control.LoadFY();  // node 5 of the category has no rows
    EXPECT_EQ(events.changed, (V{kCategory}));

    EXPECT_NO_THROW(control.SaveFY());
    EXPECT_EQ(Rows("SELECT Key FROM FY ORDER BY Key"), (V{"OtherCategory", "OtherProject"}));

    Add(kCategory, 5, 1, "A");
    control.LoadFY();
    control.SaveFY();
    EXPECT_EQ(Rows("SELECT Key, NodeID FROM FY ORDER BY Key"),
              (V{"A|5", "OtherCategory|5", "OtherProject|5"}));
}

TEST_F(SaveTest, AFailedSaveChangesNeitherTheDatabaseNorTheGrid) {
    Add(kCategory, 5, 1, "A", "直接费");
    Add(kCategory, 5, 2, "B");
    control.LoadFY();
    Db().Execute(
        "CREATE TRIGGER refuse BEFORE INSERT ON FY WHEN NEW.Key='boom' "
        "BEGIN SELECT RAISE(ABORT, 'refused'); END");
    const V rows = Rows("SELECT * FROM FY"), rates = Rows("SELECT * FROM FY_FL");
    const V ids = Column(Fee().Columns().id);

    Fee().setRate(1, "7%");  // stored before the failing row
    Fee().setKey(2, "boom");
    EXPECT_THROW(control.SaveFY(), Error);
    EXPECT_EQ(Rows("SELECT * FROM FY"), rows);
    EXPECT_EQ(Rows("SELECT * FROM FY_FL"), rates);
    EXPECT_EQ(Column(Fee().Columns().id), ids);
}

TEST_F(SaveTest, ResaveKeepsEachRowsCategoryAndStoresNoRates) {
    Add(kCategory, 5, 1, "A");
    Add(kCategory, 5, 2, "B");
    control.LoadFY();
    Fee().setCategory(2, "设备费");
    Fee().setRate(1, "9%");
    feetable::ResaveFYRows(core);
    EXPECT_EQ(Rows("SELECT Key, QFClass FROM FY ORDER BY Code"), (V{"A|建安费", "B|设备费"}));
    EXPECT_EQ(Rows("SELECT * FROM FY_FL"), V{});
}

}  // namespace
}  // namespace kwfy::test
