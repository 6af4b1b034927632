// The template chooser and the standard-item dialogs run through QtUi as the
// control runs them, driven through their widgets; each case checks what the
// core dialog ends with.
#include <functional>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include "db/paths.h"
#include "gui/qt_ui.h"
#include "support/fixtures.h"
#include "support/temp_dir.h"
#include "templates/frm_explorer.h"
#include "templates/frm_fy_add_items.h"
#include "templates/frm_fy_add_items_user.h"
#include "widget_driving.h"

using namespace kwfy;
using namespace kwfy::test;

namespace {

// Runs `drive` on the modal dialog in front as soon as the dialog about to be
// run waits for the user. Whatever it leaves open is then cancelled, so that a
// failed check cannot leave the test waiting.
void Later(std::function<void(QDialog*)> drive) {
    QTimer::singleShot(0, [drive] {
        auto* modal = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        QVERIFY2(modal, "no modal dialog");
        drive(modal);
        if (modal->isVisible()) modal->reject();
    });
}

QTreeWidgetItem* Node(QTreeWidget* tree, const char* text) {
    const auto found = tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
    if (found.size() != 1) qFatal("no single node %s", text);
    return found.front();
}

// A double click is a click followed by the double-click event, which an
// item view only honours on the item the click pressed.
void ClickNode(QTreeWidget* tree, const char* text, bool twice = false) {
    const QPoint at = tree->visualItemRect(Node(tree, text)).center();
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, at);
    if (twice) QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, at);
}

}  // namespace

class TemplateDialogsTest : public QObject {
    Q_OBJECT

private slots:
    void chooserLeavesEveryDecisionToTheCoreAndClosesOnAFile() {
        TempDir dir;
        const std::string library = dir.File("data/费用文件/");
        db::MakeDirs(library + "a");
        db::MakeDirs(library + "C");
        TemplateFixture(library + "B.RXFY").AddSM("乙模板");
        TemplateFixture(library + "a/x.RXFY").AddSM("子目录");
        templates::FrmExplorer explorer;
        explorer.SetDataPath(dir.File("data") + "/");
        explorer.InitExplorer();
        gui::QtUi ui;

        bool driven = false;
        Later([&](QDialog* view) {
            auto* tree = Find<QTreeWidget>(view, "tvwExplorer");
            auto* preview = Find<QPlainTextEdit>(view, "txtPreview");
            QVERIFY(tree->topLevelItem(0)->isExpanded() && !Node(tree, "a")->isExpanded());

            // A file previews; a folder clears the preview and cannot be confirmed.
            ClickNode(tree, "B");
            QCOMPARE(preview->toPlainText(), "乙模板");
            ClickNode(tree, "C");
            QCOMPARE(preview->toPlainText(), "");
            Click(view, "cmdSure");
            QVERIFY(view->isVisible());

            // Opening a folder is recorded; a double click on a folder is the
            // core's toggle, and the tree follows it.
            Node(tree, "a")->setExpanded(true);
            QVERIFY(explorer.FindNode("A3")->expanded);
            for (const bool expanded : {false, true}) {
                ClickNode(tree, "a", true);
                QCOMPARE(Node(tree, "a")->isExpanded(), expanded);
                QCOMPARE(explorer.FindNode("A3")->expanded, expanded);
            }
            ClickNode(tree, "x", true);
            QVERIFY(!view->isVisible());
            driven = true;
        });
        QVERIFY(ui.RunDialog(explorer));
        QVERIFY(driven);
        QCOMPARE(explorer.GetUnloadState(), 0);
        QCOMPARE(explorer.GetNodeFullPath(), library + "a/x.RXFY");
    }

    void standardItemsCollectTheChoiceWithTheUsersOwnItem() {
        TempDir dir;
        ProjectFixture project(dir.File("work.mdb"));
        project.AddWorkStruct(5, "", "", "变更", "一号变更", 1);
        templates::FrmFYAddItems dialog;
        dialog.SetWorkDBFullName(project.Path());
        dialog.SetStandarItems("安全费,200|规费,300");
        dialog.Load();
        dialog.AddFYItems(1, "建安费", 0);
        dialog.AddFYItems(2, "直接费", 1);
        dialog.AddFYItems(4, "间接费", 1);
        gui::QtUi ui;

        bool driven = false;
        Later([&](QDialog* view) {
            auto* list = Find<QListWidget>(view, "lst");
            auto* grid = Find<QTableWidget>(view, "F");
            QCOMPARE(list->item(2)->text(), "一号变更");
            QCOMPARE(grid->item(2, 0)->text(), "4");

            // Clicks toggle list entries; an operator alone takes no row.
            for (int row : {1, 2, 1})
                QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                                  list->visualItemRect(list->item(row)).center());
            const auto setOperator = [grid](int row, int index) {
                qobject_cast<QComboBox*>(grid->cellWidget(row, 3))->setCurrentIndex(index);
            };
            grid->item(1, 1)->setCheckState(Qt::Checked);
            setOperator(2, 1);
            grid->item(2, 1)->setCheckState(Qt::Checked);
            setOperator(0, 1);

            // The user's own item, defined in front of this dialog: Enter moves
            // on from the name and confirms from the amount. A cancelled
            // definition adds nothing.
            Later([&](QDialog* user) {
                QCOMPARE(user->parentWidget(), view);
                Type(user, "txtName", "试验费");
                QTest::keyClick(Find<QLineEdit>(user, "txtName"), Qt::Key_Return);
                QCOMPARE(user->focusWidget(), Find<QLineEdit>(user, "txtPrice"));
                Type(user, "txtPrice", "1500");
                QTest::keyClick(Find<QLineEdit>(user, "txtPrice"), Qt::Key_Return);
            });
            Click(view, "cmdDefine");
            Later([](QDialog* user) {
                Type(user, "txtName", "作废");
                Click(user, "cmdCancel");
            });
            Click(view, "cmdDefine");
            QCOMPARE(list->count(), 4);
            QVERIFY(list->item(3)->isSelected());
            Click(view, "cmdSure");
            driven = true;
        });
        QVERIFY(ui.RunDialog(dialog));
        QVERIFY(driven);
        QCOMPARE(dialog.GetAddCount(), 2);
        QCOMPARE(dialog.GetAddName(1) + "=" + dialog.GetAddBaseKey(1), "一号变更=<[5]>");
        QCOMPARE(dialog.GetAddName(2) + "=" + dialog.GetAddBaseKey(2), "试验费=1500");
        QCOMPARE(dialog.GetWithRowList(), "2,4");
        QCOMPARE(dialog.GetWithOperate(), "+,-");
    }
};

QTEST_MAIN(TemplateDialogsTest)
#include "template_dialogs_test.moc"
