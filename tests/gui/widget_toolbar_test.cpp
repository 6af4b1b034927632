// The toolbar views: the bar and the popup show exactly the bands' visible
// tools, the host switches reach them, and what the user does there reaches
// the control.
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QtTest>

#include "gui/band_bar.h"
#include "gui/band_menu.h"
#include "gui/fee_grid_view.h"
#include "gui/toolbar_view.h"
#include "widget_fixture.h"

using namespace kwfy;
using namespace kwfy::test;

namespace {

// The keys of the tools the bar shows, in order, with a widget's type or an
// action's text: "Edit_Call=选择费用", "Edit_Kind:QComboBox".
QStringList Shown(gui::BandBar& bar, const Band& band) {
    QStringList out;
    for (const Tool& t : band.Tools()) {
        const QString key = QString::fromStdString(t.key);
        if (QAction* a = bar.ToolAction(t.key))
            out << key + "=" + a->text();
        else if (QWidget* w = bar.ToolWidget(t.key))
            out << key + ":" + w->metaObject()->className();
    }
    return out;
}

QStringList Expected(const Band& band) {
    QStringList out;
    for (const Tool& t : band.Tools()) {
        if (!t.visible || t.kind == ToolKind::Separator) continue;
        const QString key = QString::fromStdString(t.key);
        switch (t.kind) {
            case ToolKind::Button:
                out << key + "=" + QString::fromStdString(t.caption);
                break;
            case ToolKind::Label:
                out << key + ":QLabel";
                break;
            case ToolKind::Combo:
                out << key + ":QComboBox";
                break;
            case ToolKind::TextBox:
                out << key + ":QLineEdit";
                break;
            case ToolKind::Separator:
                break;
        }
    }
    return out;
}

QStringList MenuKeys(const QMenu& menu) {
    QStringList out;
    for (const QAction* a : menu.actions())
        out << (a->isSeparator() ? QString("-") : QString::fromStdString(gui::ToolKeyOf(a)));
    return out;
}

}  // namespace

class WidgetToolbarTest : public QObject {
    Q_OBJECT

private:
    // Right-clicks data row 1 and returns the popup's entries; when choose
    // is given that entry is chosen, otherwise the menu is closed.
    static QStringList RightClick(LoadedWidget& w, const QString& choose = {}) {
        QStringList keys;
        gui::FeeGridView& view = w.widget.FeeGrid();
        auto conn = QObject::connect(
            &w.widget.Toolbars(), &gui::ToolbarView::popupAboutToShow, [&](QMenu* menu) {
                keys = MenuKeys(*menu);
                QTimer::singleShot(50, menu, [menu, choose] {
                    if (QAction* a =
                            choose.isEmpty() ? nullptr : menu->findChild<QAction*>(choose)) {
                        menu->setActiveAction(a);
                        QTest::keyClick(menu, Qt::Key_Return);
                    } else {
                        menu->close();
                    }
                });
            });
        const QRect cell = view.visualRect(view.model()->index(0, 3));
        QTest::mouseClick(view.viewport(), Qt::RightButton, {}, cell.center());
        QObject::disconnect(conn);
        return keys;
    }

private slots:
    void mainBarShowsTheBandsVisibleTools() {
        LoadedWidget w;
        w.widget.LoadFY();
        gui::BandBar& bar = w.widget.MainBar();
        const Band& main = w.Core().toolbar.GetBand("Main");
        QCOMPARE(Shown(bar, main), Expected(main));
        QVERIFY(Shown(bar, main).contains("Edit_OpenFY=调用"));

        w.widget.SetHideCoeComboBox(true);
        w.widget.SetToolState_SaveFY(false);
        QCOMPARE(Shown(bar, main), Expected(main));
        QVERIFY(!bar.ToolWidget("Edit_Coe"));
        QVERIFY(!bar.ToolAction("Edit_SaveFY"));
        w.widget.SetToolState_SaveFY(true);
        QVERIFY(bar.ToolAction("Edit_SaveFY"));
        QVERIFY(w.errors.isEmpty());
    }

    void categoryBoxShowsTheCategoryAndFeeCoefficientTakesEnter() {
        LoadedWidget w;
        w.widget.LoadFY();
        auto* box = qobject_cast<QComboBox*>(w.widget.MainBar().ToolWidget("Edit_Kind"));
        QVERIFY(box);
        QCOMPARE(box->currentText().isEmpty() ? box->placeholderText() : box->currentText(),
                 QString(WidgetProject::kCategory));

        auto* coe = qobject_cast<QLineEdit*>(w.widget.MainBar().ToolWidget("Edit_Coe"));
        QVERIFY(coe);
        coe->setFocus();
        coe->selectAll();
        QTest::keyClicks(coe, "2");
        QCOMPARE(w.Core().toolbar.FindTool("Main", "Edit_Coe")->text, std::string("2"));
        QCOMPARE(QApplication::focusWidget(), coe);  // typing did not rebuild the bar
        QTest::keyClick(coe, Qt::Key_Return);
        QCOMPARE(w.Core().work.FYCoe, 2.0);
        QVERIFY(w.errors.isEmpty());
    }

    // Class tools show only in the class view of a project with classes;
    // the standard items entry only when the configuration offers them.
    void popupShowsTheVisibleToolsOfPop_data() {
        QTest::addColumn<bool>("withClasses");
        QTest::newRow("no classes") << false;
        QTest::newRow("classes") << true;
    }
    void popupShowsTheVisibleToolsOfPop() {
        QFETCH(bool, withClasses);
        LoadedWidget w(withClasses);
        w.widget.LoadFY();
        const QStringList keys = RightClick(w);
        QVERIFY(keys.contains("Pop_Add"));
        QVERIFY(keys.contains("Pop_Output"));
        QCOMPARE(keys.contains("Pop_AddCol"), withClasses);
        QCOMPARE(keys.contains("Pop_InputColValue"), withClasses);
        QVERIFY(!keys.contains("Pop_AddStandarItems"));
        QVERIFY(!keys.startsWith("-") && !keys.endsWith("-") && !keys.join(",").contains("-,-"));
        QCOMPARE(QString::fromStdString(gui::ToolKeyOf(nullptr)), QString());
        QVERIFY(w.errors.isEmpty());
    }

    void popupEntryRunsItsCommandAndMenuMatchesBand() {
        LoadedWidget w;
        w.widget.LoadFY();
        const int rows = w.Core().grid.Rows();
        RightClick(w, "Pop_Add");
        QCOMPARE(w.Core().grid.Rows(), rows + 1);

        w.widget.HideToolButton_MateFY();
        w.widget.SetToolState_SaveFY(false);
        auto menu = gui::BuildBandMenu(w.Core().toolbar.GetBand("Pop"), nullptr);
        const QStringList keys = MenuKeys(*menu);
        QVERIFY(!keys.contains("Pop_FillText"));
        QVERIFY(keys.contains("Pop_Output"));
        QVERIFY(keys.contains("Pop_Del"));
        QCOMPARE(menu->findChild<QAction*>("Pop_Output")->text(), QString("另存费用(&S)..."));
        QVERIFY(w.errors.isEmpty());
    }

    void floatingBandFollowsTheModelAndClosingHidesIt() {
        LoadedWidget w;
        ToolbarModel& bar = w.Core().toolbar;
        gui::FloatBandWindow& window = w.widget.Toolbars().FloatWindow();
        QVERIFY(!window.isVisible());
        bar.GetBand("FloatForm").SetVisible(true);
        bar.RecalcLayout();
        QVERIFY(window.isVisible());
        QCOMPARE(window.windowTitle(), QString("费率设置"));
        QVERIFY(window.Bar().ToolWidget("frmFloat"));
        window.close();
        QVERIFY(!bar.GetBand("FloatForm").Visible());
        QVERIFY(!window.isVisible());
    }
};

QTEST_MAIN(WidgetToolbarTest)
#include "widget_toolbar_test.moc"
