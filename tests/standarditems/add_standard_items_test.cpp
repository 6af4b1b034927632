// AddStandarItems on a loaded table: the new rows, their codes, the ticked
// rows' formulas, what is stored and the amounts recalculated afterwards.
#include <gtest/gtest.h>

#include "editing/editing_fixture.h"
#include "templates/template_commands.h"

namespace kwfy::test {
namespace {

using V = std::vector<std::string>;
using Fields = std::vector<std::pair<std::string, std::string>>;

class AddStandardItemsTest : public EditingFixture {
protected:
    void SetUp() override {
        project.AddKey("EditKind", "公路");
        MakeConfigFile(dir.File("app/System/Config.mdb"),
                       {{"StandarFYItems_公路", "安全费,200|规费,300*2|无键项"}});
    }
    void AddTable(const V& keys = {"A", "B", "C", "D"}) {
        const V formulas{"100", "A", "50", "B+C"};
        for (size_t i = 0; i < keys.size(); ++i)
            AddFee(int(i + 1), keys[i], "", i < formulas.size() ? formulas[i] : "1",
                   i == 1 || i == 2 ? 2 : 1);
        Load();
    }
    // Runs the command with the current cell on row; the dialog gets fields.
    void Run(int row, const Fields& fields) {
        Grid().SetCurrentCell(row, Cols().name);
        if (!fields.empty()) ui.QueueDialog("frmFY_AddItems", fields);
        control.AddStandarItems();
    }
    V Rows() {
        V out;
        for (int r = 1; r <= core.fee.LastRow(); ++r)
            out.push_back(core.fee.key(r) + "|" + core.fee.formula(r));
        return out;
    }
};

TEST_F(AddStandardItemsTest, ItemsGetConsecutiveCodesAndTickedRowsTakeThemInOrder) {
    AddTable();
    Run(4, {{"lst", "安全费|规费"}, {"F.2", "+"}, {"F.3", "-"}});
    const V expected{"A|100", "B|A+B1+B2", "C|50-B1-B2", "B1|200", "B2|300*2", "D|B+C"};
    EXPECT_EQ(Rows(), expected) << "new rows above the row that was current";
    EXPECT_EQ(core.fee.name(4), "安全费");
    EXPECT_EQ(core.fee.name(5), "规费");
    EXPECT_EQ(Grid().RowOutlineLevel(4), 1) << "the level of the row below, as AddRow";
    EXPECT_EQ(Stored(), expected);
    EXPECT_EQ(Column(Cols().amount),
              (V{"100.00", "900.00", "-750.00", "200.00", "600.00", "150.00"}));
    EXPECT_GE(events.recalc, 1);
    EXPECT_EQ(Grid().RowData(2), 1);
    EXPECT_EQ(Grid().RowData(3), -1);
}

TEST_F(AddStandardItemsTest, CodesSkipTakenOnesAndFallBackToB100) {
    struct Case {
        V keys;
        V newCodes;
    } cases[] = {
        {{"A", "B1", "C", "b3"}, {"B2", "B4"}},
        {{}, {"B1", "B2"}},
    };
    V all;
    for (int n = 1; n <= 100; ++n) all.push_back("B" + std::to_string(n));
    for (const Case& c : {cases[0], cases[1], Case{all, {"B100", "B100"}}}) {
        project.Db().Execute("DELETE FROM FY");
        AddTable(c.keys);
        const int last = core.fee.LastRow();
        // An empty table has no current data row: the items are appended.
        Run(last == 0 ? 0 : 1, {{"lst", "安全费|规费"}});
        ASSERT_EQ(core.fee.LastRow(), last + 2) << c.keys.size();
        EXPECT_EQ((V{core.fee.key(1), core.fee.key(2)}), c.newCodes) << c.keys.size();
    }
}

TEST_F(AddStandardItemsTest, NothingChangesWithoutListOrChoice) {
    struct Case {
        const char* what;
        const char* editKind;  // no list is configured for "其他"
        Fields fields;         // none: the dialog is cancelled
        V log;
    } cases[] = {
        {"cancelled", "公路", {}, {"dialog frmFY_AddItems"}},
        {"cancel button",
         "公路",
         {{"lst", "安全费"}, {"button", "cmdCancel"}},
         {"dialog frmFY_AddItems"}},
        {"nothing selected", "公路", {{"F.1", "+"}}, {"dialog frmFY_AddItems"}},
        {"no list", "其他", {{"lst", "安全费"}}, {}},
    };
    AddTable();
    const V rows = Rows();
    for (const Case& c : cases) {
        project.Db().Execute("UPDATE KeyInfo SET WithCode=? WHERE Code='EditKind'",
                             {std::string(c.editKind)});
        const size_t logged = ui.Log().size();
        Run(2, c.fields);
        EXPECT_EQ(V(ui.Log().begin() + long(logged), ui.Log().end()), c.log) << c.what;
        EXPECT_EQ(Rows(), rows) << c.what;
        EXPECT_EQ(Stored(), rows) << c.what;
        EXPECT_EQ(events.recalc, 0) << c.what;
    }
    EXPECT_EQ(ui.PendingAnswers(), 1u) << "the dialog was never shown without a list";
}

}  // namespace
}  // namespace kwfy::test
