// The widget's signals, its error handling, and the Qt user-interface
// services: message boxes answer as the control expects, filters convert.
#include <QSignalSpy>
#include <QtTest>

#include "gui/band_bar.h"
#include "gui/qt_ui.h"
#include "widget_fixture.h"

using namespace kwfy;
using namespace kwfy::test;

class WidgetEventsTest : public QObject {
    Q_OBJECT

private slots:
    void loadRaisesReCalcThenChangeQFClass() {
        LoadedWidget w;
        QStringList order;
        QObject::connect(&w.widget, &gui::FeeTableWidget::ReCalc,
                         [&](double sum) { order << QString("ReCalc %1").arg(sum, 0, 'f', 2); });
        QObject::connect(&w.widget, &gui::FeeTableWidget::ChangeQFClass,
                         [&](const QString& qf) { order << "ChangeQFClass " + qf; });
        w.widget.LoadFY();
        QCOMPARE(order, QStringList({"ReCalc 1100.00", "ChangeQFClass 建安费"}));
        QCOMPARE(w.widget.GetRows(), 3);
        QCOMPARE(w.widget.GetPriceByKey("B"), 100.0);
    }

    // A host answering AfterEdit with CalcFY sees the new total at once.
    void callFlToolRaisesCallFlThenAfterEdit() {
        LoadedWidget w;
        w.widget.LoadFY();
        QStringList order;
        QObject::connect(&w.widget, &gui::FeeTableWidget::CallFL, [&] { order << "CallFL"; });
        QObject::connect(&w.widget, &gui::FeeTableWidget::AfterEdit, [&] {
            order << "AfterEdit";
            w.widget.CalcFY();
        });
        QSignalSpy recalc(&w.widget, &gui::FeeTableWidget::ReCalc);
        w.widget.MainBar().ToolAction("Edit_CallFL")->trigger();
        QCOMPARE(order, QStringList({"CallFL", "AfterEdit"}));
        QCOMPARE(recalc.count(), 1);
        QCOMPARE(recalc.first().first().toDouble(), 1100.0);
    }

    void failuresAreReportedNotThrown() {
        LoadedWidget w;
        w.widget.LoadFY();
        QCOMPARE(w.widget.GetCellText(99, 0), QString());
        w.widget.SetCellText(0, 99, "x");
        QCOMPARE(w.errors.size(), 2);
        w.widget.SetWorkDBFullName(QString::fromStdString("/no/such/folder/x.mdb"));
        w.widget.LoadFY();
        QCOMPARE(w.errors.size(), 3);
        QVERIFY(w.errors.last().contains("x.mdb"));
        QVERIFY(w.widget.Run([] {}));
    }

    // Enter takes the default button, as the control's own answer for a
    // box nobody looks at (DefaultAnswer) says.
    void messageBoxDefaultButtonMatchesTheControlsDefault_data() {
        QTest::addColumn<int>("buttons");
        QTest::addColumn<int>("defaultButton");
        QTest::newRow("ok") << int(MsgButtons::OK) << 0;
        QTest::newRow("yes/no") << int(MsgButtons::YesNo) << 0;
        QTest::newRow("yes/no, no") << int(MsgButtons::YesNo) << 1;
        QTest::newRow("ok/cancel, cancel") << int(MsgButtons::OKCancel) << 1;
        QTest::newRow("yes/no/cancel, cancel") << int(MsgButtons::YesNoCancel) << 2;
    }
    void messageBoxDefaultButtonMatchesTheControlsDefault() {
        QFETCH(int, buttons);
        QFETCH(int, defaultButton);
        gui::QtUi ui;
        MessageRequest request{"正文", "友情提示", MsgButtons(buttons), MsgIcon::Question,
                               defaultButton};
        SeenBox seen;
        AnswerNextBox(QMessageBox::NoButton, &seen);
        QCOMPARE(int(ui.MessageBox(request)), int(DefaultAnswer(request)));
        QCOMPARE(seen.title, QString("友情提示"));
        QCOMPARE(seen.text, QString("正文"));
    }

    void busyCursorNestsAndDialogsWithoutViewAreRefused() {
        gui::QtUi ui;
        {
            BusyCursor outer(ui);
            BusyCursor inner(ui);
            QCOMPARE(ui.BusyDepth(), 2);
            QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        }
        QCOMPARE(ui.BusyDepth(), 0);
        QVERIFY(!QApplication::overrideCursor());
        ui.SetBusy(false);  // unmatched: ignored
        QCOMPARE(ui.BusyDepth(), 0);
    }

    void fileFilterBecomesQtForm_data() {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("expected");
        QTest::newRow("one") << "费用文件(*.RXFY)|*.RXFY"
                             << "费用文件(*.RXFY)";
        QTest::newRow("two") << "费率文件|*.SFL|所有文件|*.*"
                             << "费率文件 (*.SFL);;所有文件 (*.*)";
        QTest::newRow("patterns") << "数据库|*.mdb;*.db"
                                  << "数据库 (*.mdb *.db)";
        QTest::newRow("unpaired") << "孤立"
                                  << "";
    }
    void fileFilterBecomesQtForm() {
        QFETCH(QString, filter);
        QFETCH(QString, expected);
        QCOMPARE(gui::ToQtFilter(filter.toStdString()), expected);
    }
};

QTEST_MAIN(WidgetEventsTest)
#include "widget_events_test.moc"
