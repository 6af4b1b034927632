// The fee grid's Qt model and view: shape changes told to Qt correctly,
// block selection and outline following the grid, typing reaching the
// control, and the formula lock prompt.
#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

#include "gui/fee_grid_view.h"
#include "gui/outline_delegate.h"
#include "widget_fixture.h"

using namespace kwfy;
using namespace kwfy::test;

class WidgetGridTest : public QObject {
    Q_OBJECT

private:
    static QModelIndex IndexOf(gui::FeeGridView& view, int gridRow, int col) {
        return view.Model().index(view.Model().QtRow(gridRow), col);
    }
    // Opens the editor on a cell, replaces its text and presses Enter.
    static void TypeInto(gui::FeeGridView& view, int gridRow, int col, const QString& text) {
        const QModelIndex idx = IndexOf(view, gridRow, col);
        view.setCurrentIndex(idx);
        view.edit(idx);
        auto* editor = qobject_cast<QLineEdit*>(view.indexWidget(idx));
        QVERIFY2(editor, "no editor opened");
        editor->selectAll();
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        // The delegate commits on the next turn of the event loop.
        QTRY_VERIFY2(!view.indexWidget(idx), "the editor stayed open");
    }

private slots:
    // The tester checks that every notification matches the data.
    void modelFollowsGridShapeChanges() {
        GridModel grid;
        grid.SetCols(4);
        grid.SetRows(3);
        gui::FeeGridModel model(grid, gui::WarningRunner());
        QAbstractItemModelTester tester(&model,
                                        QAbstractItemModelTester::FailureReportingMode::QtTest);
        QSignalSpy reset(&model, &QAbstractItemModel::modelReset);

        grid.InsertRow(1);
        grid.AddRow();
        grid.SetText(2, 1, "x");
        QCOMPARE(model.rowCount(), 4);
        QCOMPARE(model.index(1, 1).data().toString(), QString("x"));
        grid.RemoveRow(3);
        grid.SetRows(0);  // drops the header row too: a reset
        QCOMPARE(model.rowCount(), 0);
        grid.SetRows(5);
        grid.SetCols(6);
        QCOMPARE(model.rowCount(), 4);
        QCOMPARE(model.columnCount(), 6);
        grid.BeginUpdate();
        for (int r = 1; r < 5; ++r) grid.SetText(r, 0, std::to_string(r));
        grid.EndUpdate();
        QVERIFY(reset.count() >= 5);
        QCOMPARE(model.index(3, 0).data().toString(), QString("4"));
    }

    void layoutHeaderAndHiddenColumnsFollowTheControl() {
        LoadedWidget w;
        w.widget.LoadFY();
        gui::FeeGridView& view = w.widget.FeeGrid();
        const FeeColumns& cols = w.Core().fee.Columns();
        QCOMPARE(view.model()->headerData(cols.name, Qt::Horizontal).toString(), QString("名称"));
        QCOMPARE(view.model()->rowCount(), 3);
        QVERIFY(!view.isColumnHidden(cols.amount));
        QVERIFY(view.isColumnHidden(cols.id));
        w.widget.HideCol_Wffs();
        QVERIFY(view.isColumnHidden(cols.wffs));
        QVERIFY(w.errors.isEmpty());
    }

    // Qt's current index is the moving end of the block; the grid keeps
    // the anchor as its current cell.
    void blockSelectionMapsBothWays() {
        LoadedWidget w;
        w.widget.LoadFY();
        gui::FeeGridView& view = w.widget.FeeGrid();
        GridModel& g = w.Core().grid;
        g.SetSelection(1, 2, 2, 4);
        QCOMPARE(view.currentIndex(), IndexOf(view, 2, 4));
        QCOMPARE(view.selectionModel()->selectedIndexes().size(), 6);

        view.setFocus();
        view.setCurrentIndex(IndexOf(view, 1, 3));
        QCOMPARE(g.Row(), 1);
        QCOMPARE(g.Col(), 3);
        QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(&view, Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(QList<int>({g.Row(), g.Col(), g.RowSel(), g.ColSel()}), QList<int>({1, 3, 2, 4}));
    }

    void outlineBoxCollapsesAndExpandsChildren() {
        LoadedWidget w;
        w.widget.LoadFY();
        gui::FeeGridView& view = w.widget.FeeGrid();
        const int nameCol = w.Core().grid.OutlineCol();
        const QModelIndex parent = IndexOf(view, 1, nameCol);
        const QPoint box = gui::OutlineDelegate::ToggleRect(view.visualRect(parent), 1).center();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, box);
        QVERIFY(w.Core().grid.IsCollapsed(1));
        QVERIFY(view.isRowHidden(view.Model().QtRow(2)));
        QVERIFY(!view.isRowHidden(view.Model().QtRow(3)));
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, box);
        QVERIFY(!view.isRowHidden(view.Model().QtRow(2)));
    }

    void typedRateRecalculatesAndRaisesAfterEdit() {
        LoadedWidget w;
        w.widget.LoadFY();
        QSignalSpy afterEdit(&w.widget, &gui::FeeTableWidget::AfterEdit);
        const FeeColumns& cols = w.Core().fee.Columns();
        QCOMPARE(w.Core().fee.amount(2), std::string("100.00"));
        TypeInto(w.widget.FeeGrid(), 2, cols.rate, "20");
        QCOMPARE(w.Core().fee.rate(2), std::string("20%"));
        QCOMPARE(w.errors, QStringList());
        QCOMPARE(w.Core().fee.amount(2), std::string("200.00"));
        QCOMPARE(w.Core().fee.amount(3), std::string("1200.00"));
        QCOMPARE(afterEdit.count(), 1);
        QVERIFY(w.errors.isEmpty());
    }

    void formulaLockPromptDecidesWhetherTheCellOpens_data() {
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("unlocked");
        QTest::newRow("yes") << int(QMessageBox::Yes) << true;
        QTest::newRow("no") << int(QMessageBox::No) << false;
    }
    void formulaLockPromptDecidesWhetherTheCellOpens() {
        QFETCH(int, answer);
        QFETCH(bool, unlocked);
        LoadedWidget w;
        w.widget.LoadFY();
        gui::FeeGridView& view = w.widget.FeeGrid();
        const int wffs = w.Core().fee.Columns().wffs;
        const QModelIndex cell = IndexOf(view, 1, wffs);
        view.setCurrentIndex(cell);
        QVERIFY(!(view.model()->flags(cell) & Qt::ItemIsEditable));

        SeenBox seen;
        AnswerNextBox(QMessageBox::StandardButton(answer), &seen);
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(cell).center());
        QVERIFY(seen.seen);
        QCOMPARE(seen.title, QString("提示"));
        QCOMPARE(seen.text, QString("为防止误修改，计算式列默认是锁定的，是否取消锁定？"));
        QCOMPARE(w.Core().work.FormulaLocked, !unlocked);
        QTest::qWait(20);
        QCOMPARE(view.indexWidget(cell) != nullptr, unlocked);  // the editor opened
    }

    void enterInLockedFormulaAsksAndOpensTheCell() {
        LoadedWidget w;
        w.widget.LoadFY();
        gui::FeeGridView& view = w.widget.FeeGrid();
        const QModelIndex cell = IndexOf(view, 2, w.Core().fee.Columns().wffs);
        view.setFocus();
        view.setCurrentIndex(cell);
        SeenBox seen;
        AnswerNextBox(QMessageBox::Yes, &seen);
        QTest::keyClick(&view, Qt::Key_Return);
        QVERIFY(seen.seen);
        QTRY_VERIFY(view.indexWidget(cell));
        auto* editor = qobject_cast<QLineEdit*>(view.indexWidget(cell));
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClicks(editor, "A*2");
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(w.Core().fee.formula(2), std::string("A*2"));
        QCOMPARE(w.Core().fee.amount(2), std::string("200.00"));
    }

    void keysReachTheGridWithWindowsCodes_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("code");
        QTest::newRow("enter") << int(Qt::Key_Enter) << 13;
        QTest::newRow("F2") << int(Qt::Key_F2) << 113;
        QTest::newRow("delete") << int(Qt::Key_Delete) << 46;
        QTest::newRow("A") << int(Qt::Key_A) << 65;
        QTest::newRow("7") << int(Qt::Key_7) << 55;
        QTest::newRow("none") << int(Qt::Key_Meta) << 0;
    }
    void keysReachTheGridWithWindowsCodes() {
        QFETCH(int, key);
        QFETCH(int, code);
        QCOMPARE(gui::FeeGridView::WindowsKeyCode(key), code);
        QCOMPARE(gui::FeeGridView::ShiftMask(Qt::ShiftModifier | Qt::AltModifier), 5);
    }
};

QTEST_MAIN(WidgetGridTest)
#include "widget_grid_test.moc"
