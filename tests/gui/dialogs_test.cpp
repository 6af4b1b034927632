// The dialog views driven through their widgets against the core dialogs on
// small fixture databases; each case checks what the core dialog ends with.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include "control/control_core.h"
#include "db/paths.h"
#include "feetable/frm_class.h"
#include "feetable/frm_col_value.h"
#include "gui/dialog_views.h"
#include "gui/dialogs/generic_dialog_view.h"
#include "kwfy/error.h"
#include "platform/scripted_ui.h"
#include "rates/frm_fl_model_index.h"
#include "rates/frm_fl_particular.h"
#include "rates/frm_fl_sel.h"
#include "rates/particular_coefficients.h"
#include "support/fixtures.h"
#include "support/temp_dir.h"
#include "widget_driving.h"

using namespace kwfy;
using namespace kwfy::test;
using Strings = std::vector<std::string>;

namespace {

const char kCategory[] = "建安费";

std::unique_ptr<QDialog> Show(Dialog& dialog, Ui& ui) {
    auto view = gui::MakeDialogView(dialog, ui, nullptr);
    view->show();
    return view;
}

QStringList Items(QComboBox* box) {
    QStringList items;
    for (int i = 0; i < box->count(); ++i) items << box->itemText(i);
    return items;
}

struct ProjectBed {
    TempDir dir;
    ProjectFixture project{dir.File("project.mdb")};
    ScriptedUi ui;
};

// A control core whose fee grid holds one data row with the given rate key,
// current, and a rate standard to resolve it in.
struct RatesBed : ProjectBed {
    explicit RatesBed(const std::string& rateKey) {
        core.ctx.WorkID = 1;
        core.ctx.WorkDBFullName = project.Path();
        core.work.RateStdPath = rateStd.Path();
        core.work.CurQFClass = kCategory;
        core.work.RateMode = 2;
        core.grid.SetCols(12);
        core.grid.SetRows(2);
        core.fee.setKey(1, "1");
        core.fee.setRateSpec(1, rateKey);
        project.AddFY({.qfClass = kCategory, .code = 1, .key = "1", .fl = rateKey});
        core.grid.SetCurrentCell(1, 2);
        dialog.WorkFileName(project.Path());
        dialog.SetFLFileName(rateStd.Path());
        dialog.WorkID(1);
        dialog.GetFLVar(rateKey);
        dialog.SetKWControl(core);
    }
    std::string PatCoe(const std::string& key, bool coe = false) {
        return coe ? rates::GetPatCoeCoe(project.Db(), 1, key)
                   : rates::GetPatCoeValue(project.Db(), 1, key);
    }

    RateStandardFixture rateStd{dir.File("std.RXFL")};
    ControlCore core{ui};
    rates::FrmFLParticular dialog;
};

// A dialog for the generic form: txtA refuses "#" and fails on "!", txtTwice
// follows txtA, cmbKind is a list, cmdBrow closes accepted.
class SampleDialog : public Dialog {
public:
    std::string Name() const override { return "frmSample"; }
    Strings FieldNames() const override { return {"txtA", "cmbKind", "txtTwice"}; }
    std::string Field(const std::string& n) const override {
        return n == "txtA" ? a : n == "cmbKind" ? kind : n == "txtTwice" ? a + a : "";
    }
    Strings FieldChoices(const std::string& n) const override {
        return n == "cmbKind" ? Strings{"x", "y"} : Strings{};
    }
    bool SetField(const std::string& n, const std::string& v, Ui&) override {
        if (v.find('!') != std::string::npos) throw Error("sample.mdb", "cannot write");
        if (n == "txtA" && v.find('#') == std::string::npos) return a = v, true;
        if (n == "cmbKind" && (v == "x" || v == "y")) return kind = v, true;
        return false;
    }
    bool Accept(Ui& ui) override {
        if (a.empty()) ui.MessageBox({"A不能为空！", "友情提示"});
        return accepted = !a.empty();
    }
    Strings ButtonNames() const override { return {"cmdBrow"}; }
    bool Press(const std::string& b, Ui&) override {
        return b == "cmdBrow" && (a = "browsed", true);
    }
    void Cancel() override { cancelled = true; }

    std::string a, kind = "x";
    bool accepted = false, cancelled = false;
};

}  // namespace

class DialogsTest : public QObject {
    Q_OBJECT

private slots:
    // One view through refusals to an accepted name, then Esc in a second one.
    void classNameRefusesEmptyAndUsedNamesThenAccepts() {
        ProjectBed bed;
        bed.project.AddClass("土建", 2, 1);  // another project's class
        feetable::FrmClass dialog;
        dialog.SetWorkFileName(bed.project.Path());
        auto view = Show(dialog, bed.ui);
        const struct {
            const char* typed;
            bool accepted;
            std::string message;
        } cases[] = {{"", false, "工程类别不能为空！"},
                     {"土建", false, "工程类别已经存在请重新命名！"},
                     {" 土建", true, ""}};  // taken as typed, not trimmed
        for (const auto& c : cases) {
            bed.ui = ScriptedUi();
            auto* name = Find<QLineEdit>(view.get(), "txtName");
            QTest::keyClick(name, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClick(name, Qt::Key_Backspace);
            Type(view.get(), "txtName", c.typed);
            Click(view.get(), "cmdSure");
            QCOMPARE(view->isVisible(), !c.accepted);
            QCOMPARE(dialog.UnloadState(), c.accepted ? 1 : 0);
            QCOMPARE(dialog.GetText(), c.accepted ? c.typed : "");
            QCOMPARE(bed.ui.Log(),
                     c.message.empty() ? Strings{} : Strings{"message 友情提示 | " + c.message});
        }
        QCOMPARE(view->result(), int(QDialog::Accepted));

        auto again = Show(dialog, bed.ui);
        QTest::keyClick(Find<QLineEdit>(again.get(), "txtName"), Qt::Key_Escape);
        QVERIFY(!again->isVisible());
        QCOMPARE(again->result(), int(QDialog::Rejected));
        QCOMPARE(dialog.UnloadState(), 0);
    }

    void classChoiceOffersTheProjectsClassesInOrder() {
        ProjectBed bed;
        bed.project.AddClass("安装", 1, 5);
        bed.project.AddClass("土建", 1, 2);
        bed.project.AddClass("桥梁", 2, 1);
        feetable::FrmColValue dialog;
        dialog.WorkFullName(bed.project.Path());
        dialog.WorkID(1);
        dialog.Load();
        auto view = Show(dialog, bed.ui);
        auto* list = Find<QComboBox>(view.get(), "cmbProjectClass");
        QCOMPARE(Items(list), QStringList({"土建", "安装"}));
        QCOMPARE(list->currentText(), "土建");
        list->setCurrentIndex(1);
        Click(view.get(), "cmdSure");
        QCOMPARE(view->result(), int(QDialog::Accepted));
        QCOMPARE(dialog.GetProjectClass(), "安装");
        Click(Show(dialog, bed.ui).get(), "cmdClose");
        QCOMPARE(dialog.GetProjectClass(), "");
    }

    void particularSubsidyStoresEveryChangeAndEnterMovesOn() {
        RatesBed bed(rates::kSubsidyRateKey);
        const int64_t id = bed.rateStd.AddRate(rates::kSubsidyRateKey);
        bed.rateStd.AddValue(id, "", "D=1", "1%");
        bed.rateStd.AddValue(id, "", "D=10", "10%");
        rates::SavePatCoe(bed.project.Db(), 1, "ZFSBT_Water", "0.70");
        bed.dialog.LoadData();
        auto view = Show(bed.dialog, bed.ui);
        QVERIFY(Find<QGroupBox>(view.get(), "Frame")->isVisible());
        QVERIFY(!Find<QGroupBox>(view.get(), "Frame_GDZY")->isVisible());
        QCOMPARE(Find<QLineEdit>(view.get(), "txtCoe3")->text(), "0.70");
        for (const auto& [edit, text] : {std::pair{"txtCoe0", "0.06"},
                                         {"txtCoe1", "0.09"},
                                         {"txtCoe2", "0.15"},
                                         {"txtName0", "10"},
                                         {"txtName1", "20"},
                                         {"txtName2", "5"},
                                         {"txtName3", "2"}})
            Type(view.get(), edit, text);
        QCOMPARE(Find<QLineEdit>(view.get(), "txtResult")->text(), "4.55");
        QCOMPARE(bed.PatCoe("ZFSBT_RL", true), "0.09");
        QCOMPARE(bed.core.fee.rate(1), "4.55%");
        Find<QLineEdit>(view.get(), "txtResult")->clear();
        Type(view.get(), "txtResult", "10");  // a typed distance replaces the computed one
        QCOMPARE(bed.core.fee.rate(1), "10%");

        QVERIFY(QTest::qWaitForWindowActive(view.get()));
        const char* order[] = {"txtCoe0", "txtCoe1", "txtCoe2", "txtCoe3", "txtResult"};
        for (int i = 0; i + 1 < 5; ++i) {
            QTest::keyClick(Find<QLineEdit>(view.get(), order[i]), Qt::Key_Return);
            QCOMPARE(QApplication::focusWidget(), Find<QLineEdit>(view.get(), order[i + 1]));
        }
        QVERIFY(view->isVisible());
    }

    void particularRegionAppliesTheCheckOnceARegionIsChosen() {
        RatesBed bed(rates::kRegionRateKey);
        const int64_t id = bed.rateStd.AddRate(rates::kRegionRateKey);
        bed.rateStd.AddValue(id, "", "R=一类地区", "3%");
        bed.rateStd.AddValue(id, "", "R=More", "0.5%");
        bed.rateStd.AddPatCoe(rates::kRegionRateKey, "More", "1");
        bed.dialog.LoadData();
        auto view = Show(bed.dialog, bed.ui);
        auto* region = Find<QComboBox>(view.get(), "Combo_GLF");
        auto* deduct = Find<QCheckBox>(view.get(), "chkGLF");
        QCOMPARE(region->currentIndex(), -1);
        deduct->setChecked(true);
        QCOMPARE(bed.core.fee.rate(1), "");  // no region chosen yet
        QCOMPARE(bed.PatCoe("GLF", true), "1");
        region->setCurrentIndex(0);
        QCOMPARE(bed.core.fee.rate(1), "2.5%");
        deduct->setChecked(false);
        QCOMPARE(bed.core.fee.rate(1), "3%");
    }

    void rateStandardListMarksEveryFileAndSelectsTheCurrentOne() {
        ProjectBed bed;
        db::MakeDirs(bed.dir.File("data/System"));
        for (const char* f : {"b.RXFL", "a.RXFL", "a.rxfl"})
            db::CreateFile(bed.dir.File(std::string("data/System/") + f),
                           db::FileKind::RateStandard);
        const struct {
            const char* current;
            int pick;  // row clicked, -1: none
            const char* chosen;
        } cases[] = {{"b.RXFL", 0, "a.RXFL"}, {"b.RXFL", -1, "b.RXFL"}, {"gone.RXFL", -1, ""}};
        for (const auto& c : cases) {
            rates::FrmFLSel dialog;
            dialog.DataPath(bed.dir.File("data"));
            dialog.SetFLShortName(c.current);
            dialog.Load();
            auto view = Show(dialog, bed.ui);
            auto* files = Find<QTableWidget>(view.get(), "grdFL");
            QCOMPARE(files->rowCount(), 2);
            QCOMPARE(files->item(1, 1)->text(), "1");
            // Taking the focus makes a row current; that chooses nothing.
            QVERIFY(QTest::qWaitForWindowActive(view.get()));
            files->setFocus(Qt::TabFocusReason);
            if (c.pick >= 0) files->setCurrentCell(c.pick, 1);
            Click(view.get(), "cmdSure");
            QVERIFY2(!view->isVisible(), c.current);  // nothing chosen closes as cmdCancel
            QCOMPARE(view->result() == QDialog::Accepted, *c.chosen != 0);
            QCOMPARE(dialog.GetShortName(), c.chosen);
        }
    }

    void rateTemplateIndexReturnsTheChosenRowsFile() {
        ProjectBed bed;
        db::MakeDirs(bed.dir.File("idx"));
        const std::string index = bed.dir.File("idx/index.mdb");
        {
            FileFixture f(index, db::FileKind::RateTemplateIndex);
            f.Insert("Index", {{"Name", "一级公路"}, {"WithFileName", "一级.SFL"}});
            f.Insert("Index", {{"Name", "二级公路"}, {"WithFileName", "二级.SFL"}});
        }
        rates::FrmFLModelIndex dialog;
        dialog.SetDBFullName(index);
        dialog.Load();
        auto view = Show(dialog, bed.ui);
        auto* rows = Find<QTableWidget>(view.get(), "grdIndex");
        QVERIFY(rows->item(0, 0)->isSelected());
        QCOMPARE(rows->item(1, 1)->text(), "二级公路");
        rows->setCurrentCell(1, 2);
        Click(view.get(), "cmdSure");
        QCOMPARE(view->result(), int(QDialog::Accepted));
        QCOMPARE(dialog.GetCallFile(), bed.dir.File("idx/二级.SFL"));

        // The generic form offers the same dialog's lists and its extra button.
        gui::GenericDialogView generic(dialog, bed.ui, nullptr);
        QCOMPARE(Items(Find<QComboBox>(&generic, "Name")), QStringList({"一级公路", "二级公路"}));
        Find<QPushButton>(&generic, "cmdBrow");
    }

    void genericFormSendsEveryChangeAndShowsWhatTheCoreKeeps() {
        SampleDialog dialog;
        ScriptedUi ui;
        auto view = Show(dialog, ui);
        Click(view.get(), "cmdSure");
        QVERIFY(view->isVisible());
        QCOMPARE(ui.Log(), Strings{"message 友情提示 | A不能为空！"});

        Type(view.get(), "txtA", "ab#c!");
        QCOMPARE(Find<QLineEdit>(view.get(), "txtA")->text(), "abc");  // "#" and "!" reverted
        QCOMPARE(Find<QLineEdit>(view.get(), "txtTwice")->text(), "abcabc");
        QCOMPARE(ui.Log().back(), "message 提示 | sample.mdb: cannot write");
        auto* kind = Find<QComboBox>(view.get(), "cmbKind");
        QCOMPARE(Items(kind), QStringList({"x", "y"}));
        kind->setCurrentIndex(1);
        QCOMPARE(dialog.kind, "y");
        Click(view.get(), "cmdSure");
        QVERIFY(dialog.accepted);
        QCOMPARE(view->result(), int(QDialog::Accepted));

        auto pressed = Show(dialog, ui);
        Click(pressed.get(), "cmdBrow");
        QCOMPARE(pressed->result(), int(QDialog::Accepted));
        QCOMPARE(dialog.a, "browsed");
        auto cancelled = Show(dialog, ui);
        Click(cancelled.get(), "cmdCancel");
        QVERIFY(dialog.cancelled);

        // A dialog that only borrows a dedicated view's name gets the form.
        struct : SampleDialog {
            std::string Name() const override { return "frmFL_Particular"; }
        } impostor;
        Find<QLineEdit>(Show(impostor, ui).get(), "txtA");
    }
};

QTEST_MAIN(DialogsTest)
#include "dialogs_test.moc"
