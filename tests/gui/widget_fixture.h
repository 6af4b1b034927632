// A FeeTableWidget over a small fresh project, and helpers that answer the
// modal message boxes the control opens while a test drives it.
#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <memory>

#include "control/control_core.h"
#include "db/keyinfo.h"
#include "db/paths.h"
#include "gui/fee_table_widget.h"
#include "rates/rate_catalogue.h"
#include "support/fixtures.h"
#include "support/temp_dir.h"

namespace kwfy::test {

// Category "建安费": A = 1000; B = A at 10%; T (总合计) = A + B.
// With classes the project's Class table holds one class, so the control
// works per project class.
class WidgetProject {
public:
    static constexpr const char* kCategory = "建安费";

    explicit WidgetProject(bool withClasses = false) : project_(dir_.File("work.mdb")) {
        db::MakeDirs(dir_.File("data/System"));
        db::MakeDirs(dir_.File("app/System"));
        RateStandardFixture(dir_.File("data/System/") + rates::kDefaultRateStd).Close();
        MakeConfigFile(db::ConfigDBPath(dir_.File("app/")), {});
        AddFee(1, "A", "", "1000", 1);
        AddFee(2, "B", "10%", "A", 2);
        project_.AddFY({.qfClass = kCategory,
                        .code = 3,
                        .level = 1,
                        .key = "T",
                        .name = "合计",
                        .wffs = "A+B",
                        .calcKey = "总合计"});
        if (withClasses) project_.AddClass("一类", 1, 1);
        project_.Close();
    }

    void Attach(gui::FeeTableWidget& w) const {
        w.SetAppPath(QString::fromStdString(dir_.File("app/")));
        w.SetDataPath(QString::fromStdString(dir_.File("data/")));
        w.SetWorkDBFullName(QString::fromStdString(project_.Path()));
        w.SetWorkID(1);
        w.SetQFClass(kCategory);
    }

private:
    void AddFee(int code, std::string key, std::string fl, std::string wffs, int level) {
        project_.AddFY({.qfClass = kCategory,
                        .code = code,
                        .level = level,
                        .key = std::move(key),
                        .name = "费用" + std::to_string(code),
                        .fl = std::move(fl),
                        .wffs = std::move(wffs)});
    }

    TempDir dir_;
    ProjectFixture project_;
};

// A shown widget over a WidgetProject; failures are collected, not boxed.
struct LoadedWidget {
    explicit LoadedWidget(bool withClasses = false) : project(withClasses) {
        widget.SetErrorReporter([this](const QString& e) { errors << e; });
        widget.resize(900, 500);
        project.Attach(widget);
        widget.show();
        widget.activateWindow();
        if (!QTest::qWaitForWindowActive(&widget)) qWarning("the widget did not become active");
    }
    ControlCore& Core() { return widget.Control().Core(); }

    WidgetProject project;
    gui::FeeTableWidget widget;
    QStringList errors;
};

// What a message box showed.
struct SeenBox {
    bool seen = false;
    QString title, text;
};

// Answers the next modal message box with a button (NoButton: presses
// Enter, the default button) as soon as it is open; gives up after 3 s.
inline void AnswerNextBox(QMessageBox::StandardButton button, SeenBox* seen = nullptr) {
    auto* timer = new QTimer;
    auto waited = std::make_shared<int>(0);
    QObject::connect(timer, &QTimer::timeout, [=] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box && ++*waited < 300) return;
        timer->stop();
        timer->deleteLater();
        if (!box) return;
        if (seen) *seen = {true, box->windowTitle(), box->text()};
        if (button == QMessageBox::NoButton)
            QTest::keyClick(box, Qt::Key_Return);
        else
            box->button(button)->click();
    });
    timer->start(10);
}

}  // namespace kwfy::test
