#include "rates/particular_coefficients.h"

#include "rates/frm_fl_particular.h"
#include "rates_fixture.h"

namespace kwfy::test {
namespace {

using rates::FrmFLParticular;

TEST(ComputeZFSBTTest, ProductsAreRoundedToCentsBeforeTheSum) {
    EXPECT_EQ(rates::ComputeZFSBT({"0.06", "0.09", "0.15", "0.70"}, {"10", "20", "5", "2"}),
              "4.55");
    EXPECT_EQ(rates::ComputeZFSBT({"0.333", "0.333", "", "x"}, {"1", "1", "5", "2"}), "0.66");
    EXPECT_EQ(rates::ComputeZFSBT({"", "", "", ""}, {"", "", "", ""}), "0");
}

class ParticularTest : public RatesFixture {
protected:
    void AddRegionRate(const std::string& cls) {
        const int64_t id = rateStd.AddRate(rates::kRegionRateKey);
        rateStd.AddValue(id, cls, "R=一类地区", "3%");
        rateStd.AddValue(id, cls, "R=二类地区", "0.5%");
        rateStd.AddValue(id, cls, "R=三类地区", "1.0025%");
        rateStd.AddValue(id, cls, "R=More", "0.5%");
        rateStd.AddPatCoe(rates::kRegionRateKey, "More", "1");
    }
    FrmFLParticular OpenDialog(const std::string& key) {
        FrmFLParticular dialog;
        dialog.WorkFileName(project.Path());
        dialog.SetFLFileName(rateStd.Path());
        dialog.WorkID(1);
        dialog.GetFLVar(key);
        dialog.SetKWControl(core);
        dialog.LoadData();
        return dialog;
    }
    std::string PatCoe(const std::string& key, bool coe = false) {
        return coe ? rates::GetPatCoeCoe(project.Db(), 1, key)
                   : rates::GetPatCoeValue(project.Db(), 1, key);
    }
};

TEST_F(ParticularTest, RegionRateLessMoreTimesCoefficient) {
    AddRegionRate("c");
    LayOut({}, {{"1", rates::kRegionRateKey, ""}});
    rates::RateFiles files(core);
    struct Case {
        std::string region;
        int16_t withMore;
        double coe;
        std::string cell;
    } cases[] = {{"一类地区", 1, 1, "2.5%"},    {"一类地区", 0, 1, "3%"},
                 {"一类地区", 1, 1.5, "3.75%"}, {"二类地区", 1, 1, ""},
                 {"三类地区", 0, 1, "1.002%"},  {"四类地区", 0, 1, ""}};
    for (const auto& c : cases) {
        core.grid.SetText(1, 4, "old");
        rates::GetGLFRate(core, files, c.region, "c", c.withMore, 4, 1, c.coe);
        EXPECT_EQ(Cell(1, 4), c.cell) << c.region << c.withMore;
    }
    core.grid.SetText(1, 4, "old");
    rates::GetGLFRate(core, files, "", "c", 0, 4, 1, 1);
    EXPECT_EQ(Cell(1, 4), "old");
}

TEST_F(ParticularTest, CoefficientByClassReappliesMarksAndStoredQuantities) {
    AddRegionRate("一类");
    const int64_t mark = rateStd.AddRate("FL_M");
    rateStd.AddValue(mark, "一类", "Region=一类地区", "5%");
    rateStd.AddValue(mark, "二类", "Region=一类地区", "2");
    project.AddMark(1, kCategory, "Region", "一类地区");
    rates::SavePatCoeValue(project.Db(), 1, "GLF", "一类地区");
    rates::SavePatCoe(project.Db(), 1, "GLF", "1");
    Insert(project.Db(), "FY_FLFileName", {{"WorkID", int64_t(1)}, {"QFClass", kCategory}});
    LayOut({"一类", "二类"},
           {{"1", "FL_M", ""}, {"2", rates::kRegionRateKey, ""}, {"3", "3*", "1"}, {"4", "", ""}});
    core.grid.SetText(3, 5, "keep");

    rates::ApplyFeeCoefficient(core, "1.2");
    EXPECT_DOUBLE_EQ(core.work.FYCoe, 1.2);
    EXPECT_EQ(Cell(1, 5), "6%");
    EXPECT_EQ(Cell(1, 6), "2.4");
    EXPECT_EQ(Cell(2, 5), "3%");  // (3% - 0.5%) x 1.2
    EXPECT_EQ(Cell(3, 5), "keep");
    EXPECT_EQ(Stored("FL_M", "一类"), "6%");
    EXPECT_EQ(Stored(rates::kRegionRateKey, "一类"), "3%");
    EXPECT_EQ(project.Db().Query("SELECT Coe FROM FY_FLFileName").Text("Coe"), "1.2");

    rates::ApplyFeeCoefficient(core, "0");
    EXPECT_DOUBLE_EQ(core.work.FYCoe, 1);
    EXPECT_EQ(Cell(1, 5), "5%");
}

TEST_F(ParticularTest, CoefficientWithOneRateColumnFollowsMarksWithoutStoring) {
    const int64_t mark = rateStd.AddRate("FL_M");
    rateStd.AddValue(mark, "", "Region=二类地区", "4%");
    rateStd.AddValue(mark, "", "Region=一类地区", "5%");
    project.AddMark(1, kCategory, "Region", "一类地区");
    LayOut({}, {{"1", "FL_M", ""}});
    rates::RateFiles files(core);
    rates::ApplyFYCoe(core, files, 1, 0.5);
    EXPECT_EQ(core.fee.rate(1), "2.5%");
    EXPECT_EQ(project.Db().Query("SELECT * FROM FY_FL").RecordCount(), 0);
}

TEST_F(ParticularTest, SubsidyDialogStoresInputsAndRatesTheCurrentRow) {
    const int64_t id = rateStd.AddRate(rates::kSubsidyRateKey);
    rateStd.AddValue(id, "", "D=1", "1%");
    rateStd.AddValue(id, "", "D=10", "10%");
    LayOut({}, {{"1", rates::kSubsidyRateKey, ""}});
    rates::SavePatCoe(project.Db(), 1, "ZFSBT_Water", "0.70");
    FrmFLParticular dialog = OpenDialog(rates::kSubsidyRateKey);
    EXPECT_EQ(dialog.ShownSection(), FrmFLParticular::Section::Subsidy);
    EXPECT_EQ(dialog.Field("txtCoe3"), "0.70");
    EXPECT_FALSE(dialog.SetField("txtDistance", "5", ui));

    const std::pair<std::string, std::string> inputs[] = {
        {"txtCoe0", "0.06"}, {"txtCoe1", "0.09"}, {"txtCoe2", "0.15"}, {"txtName0", "10"},
        {"txtName1", "20"},  {"txtName2", "5"},   {"txtName3", "2"}};
    for (const auto& [field, value] : inputs) ASSERT_TRUE(dialog.SetField(field, value, ui));
    EXPECT_EQ(dialog.Field("txtResult"), "4.55");
    EXPECT_EQ(PatCoe("ZFSBT_Result"), "4.55");
    EXPECT_EQ(PatCoe("ZFSBT_RL", true), "0.09");
    EXPECT_EQ(PatCoe("ZFSBT_SC"), "5");
    EXPECT_EQ(core.fee.rate(1), "4.55%");
    EXPECT_EQ(Stored(rates::kSubsidyRateKey, ""), "4.55%");
    EXPECT_GT(events.afterEdit, 0);
}

TEST_F(ParticularTest, TransferDialogReadsTheTableOfTheChosenKind) {
    const int64_t id = rateStd.AddRate(rates::kTransferRateKey);
    const int64_t ship = rateStd.AddListItem(id, "船", 2);
    const int64_t car = rateStd.AddListItem(id, "汽车", 1);
    rateStd.AddValue(id, "", "K=100&L=" + std::to_string(car), "2%");
    rateStd.AddValue(id, "", "K=100&L=" + std::to_string(ship), "1%");
    LayOut({}, {{"1", rates::kTransferRateKey, ""}});
    FrmFLParticular dialog = OpenDialog(rates::kTransferRateKey);
    EXPECT_EQ(dialog.Entries("Combo_GDZY"), (std::vector<std::string>{"汽车", "船"}));
    EXPECT_EQ(dialog.Field("Combo_GDZY"), "汽车");
    EXPECT_FALSE(dialog.SetField("Combo_GDZY", "马车", ui));
    ASSERT_TRUE(dialog.SetField("txtDistance", "50", ui));
    EXPECT_EQ(core.fee.rate(1), "1%");
    ASSERT_TRUE(dialog.SetField("Combo_GDZY", "船", ui));
    EXPECT_EQ(core.fee.rate(1), "0.5%");
    EXPECT_EQ(PatCoe("GDZY_List"), "船");
    EXPECT_EQ(PatCoe("GDZY_Result"), "50");
}

TEST_F(ParticularTest, RegionDialogAppliesTheCheckOnlyAfterARegionWasChosen) {
    AddRegionRate("");
    LayOut({}, {{"1", rates::kRegionRateKey, ""}});
    FrmFLParticular dialog = OpenDialog(rates::kRegionRateKey);
    EXPECT_EQ(dialog.FieldNames(), (std::vector<std::string>{"Combo_GLF", "chkGLF"}));
    ASSERT_TRUE(dialog.SetField("chkGLF", "1", ui));
    EXPECT_EQ(core.fee.rate(1), "");
    EXPECT_EQ(PatCoe("GLF", true), "1");
    ASSERT_TRUE(dialog.SetField("Combo_GLF", "一类地区", ui));
    EXPECT_EQ(core.fee.rate(1), "2.5%");
    ASSERT_TRUE(dialog.SetField("chkGLF", "0", ui));
    EXPECT_EQ(core.fee.rate(1), "3%");
    EXPECT_FALSE(dialog.SetField("chkGLF", "2", ui));

    FrmFLParticular other = OpenDialog("FL_OTHER");
    EXPECT_EQ(other.ShownSection(), FrmFLParticular::Section::None);
    EXPECT_TRUE(other.FieldNames().empty());
}

}  // namespace
}  // namespace kwfy::test
