#include "main_window.h"

#include <QCloseEvent>
#include <QDateTime>
#include <QDir>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QStatusBar>

#include "gui/fee_table_widget.h"

namespace fytable_gui {

using kwfy::gui::FeeTableWidget;

std::pair<QString, QString> FoldersFor(const QString& database) {
    const QDir folder = QFileInfo(database).absoluteDir();
    const QString root = QDir::cleanPath(folder.absoluteFilePath(".."));
    if (QFileInfo::exists(root + "/app/System") && QFileInfo::exists(root + "/data/System"))
        return {root + "/app/", root + "/data/"};
    return {folder.absolutePath() + "/", folder.absolutePath() + "/"};
}

MainWindow::MainWindow()
    : table_(new FeeTableWidget),
      tree_(new ProjectTree),
      log_(new QPlainTextEdit),
      total_(new QLabel) {
    setWindowTitle("费用表");
    auto* split = new QSplitter;
    split->addWidget(tree_);
    split->addWidget(table_);
    split->setStretchFactor(1, 1);
    split->setSizes({220, 900});
    setCentralWidget(split);

    log_->setReadOnly(true);
    log_->setMaximumBlockCount(500);
    auto* dock = new QDockWidget("事件", this);
    dock->setObjectName("EventLog");
    dock->setWidget(log_);
    dock->setFeatures(QDockWidget::NoDockWidgetFeatures);
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    resizeDocks({dock}, {110}, Qt::Vertical);
    statusBar()->addPermanentWidget(total_);

    BuildMenus();
    ConnectEvents();
    connect(tree_, &ProjectTree::chosen, this, &MainWindow::Choose);
    resize(1200, 720);
}

void MainWindow::BuildMenus() {
    QMenu* file = menuBar()->addMenu("文件(&F)");
    file->addAction("打开项目数据库(&O)...", QKeySequence::Open, this, &MainWindow::OpenFromMenu);
    file->addAction("保存费用表(&S)", QKeySequence::Save, this, &MainWindow::Save);
    file->addSeparator();
    file->addAction("退出(&X)", QKeySequence::Quit, this, &QWidget::close);
    QMenu* table = menuBar()->addMenu("费用表(&T)");
    table->addAction("重新计算", QKeySequence(Qt::Key_F9), table_, &FeeTableWidget::CalcFY);
    table->addAction("重新装载", QKeySequence::Refresh, table_, &FeeTableWidget::LoadFY);
}

// The host's answers to the control's events: a changed table is
// recalculated at once, and the total goes to the status bar.
void MainWindow::ConnectEvents() {
    connect(table_, &FeeTableWidget::AfterEdit, this, [this] {
        dirty_ = true;
        Log("AfterEdit");
        table_->CalcFY();
    });
    connect(table_, &FeeTableWidget::ReCalc, this, [this](double sum) {
        total_->setText(QString("合计：%1").arg(sum, 0, 'f', 2));
        Log(QString("ReCalc %1").arg(sum, 0, 'f', 2));
    });
    connect(table_, &FeeTableWidget::ChangeQFClass, this, [this](const QString& qf) {
        current_.qfClass = qf;
        Log("ChangeQFClass " + qf);
    });
    connect(table_, &FeeTableWidget::CallFL, this, [this] { Log("CallFL"); });
    connect(table_, &FeeTableWidget::EditClass, this, [this] { Log("EditClass"); });
}

void MainWindow::Log(const QString& line) {
    log_->appendPlainText(QTime::currentTime().toString("HH:mm:ss ") + line);
}

bool MainWindow::OpenDatabase(const QString& database, const QString& appPath,
                              const QString& dataPath) {
    if (!SaveIfWanted()) return false;
    try {
        tree_->Load(database);
    } catch (const std::exception& e) {
        QMessageBox::critical(this, "错误", QString::fromUtf8(e.what()));
        return false;
    }
    database_ = database;
    loaded_ = false;
    table_->SetAppPath(appPath);
    table_->SetDataPath(dataPath);
    table_->SetWorkDBFullName(database);
    setWindowTitle("费用表 - " + QFileInfo(database).fileName());
    Log("打开 " + database);
    return true;
}

void MainWindow::LoadFirstCategory() {
    if (QTreeWidgetItem* item = tree_->FirstCategory()) tree_->setCurrentItem(item);
}

void MainWindow::Choose(const TableChoice& choice) {
    if (loaded_ && choice == current_) return;
    if (!SaveIfWanted()) {
        // Cancelled: the tree goes back to the table still shown.
        const QSignalBlocker block(tree_);
        for (QTreeWidgetItemIterator it(tree_); *it; ++it)
            if (ProjectTree::HasChoice(*it) && ProjectTree::ChoiceOf(*it) == current_)
                tree_->setCurrentItem(*it);
        return;
    }
    current_ = choice;
    table_->SetWorkID(choice.workId);
    table_->SetQFClass(choice.qfClass);
    table_->SetQFKind(choice.qfKind);
    table_->SetNodeID(choice.nodeId);
    table_->SetFYNodeID(choice.fyNodeId);
    table_->SetTableClass(choice.tableClass);
    Log(QString("LoadFY 工程 %1, 节点 %2, %3")
            .arg(choice.workId)
            .arg(choice.nodeId)
            .arg(choice.qfClass));
    total_->clear();
    table_->LoadFY();
    loaded_ = true;
    dirty_ = false;
}

void MainWindow::OpenFromMenu() {
    const QString path =
        QFileDialog::getOpenFileName(this, "打开项目数据库", QFileInfo(database_).absolutePath(),
                                     "项目数据库 (*.db *.mdb);;所有文件 (*)");
    if (path.isEmpty()) return;
    const auto [app, data] = FoldersFor(path);
    if (OpenDatabase(path, app, data)) LoadFirstCategory();
}

void MainWindow::Save() {
    if (!loaded_) return;
    if (table_->Run([&] { table_->Control().SaveFY(); })) {
        dirty_ = false;
        Log("SaveFY " + current_.qfClass);
        statusBar()->showMessage("已保存", 3000);
    }
}

bool MainWindow::SaveIfWanted() {
    if (!loaded_ || !dirty_) return true;
    const auto answer = QMessageBox::question(
        this, "提示", "费用表 [" + current_.qfClass + "] 已修改，是否保存？",
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
    if (answer == QMessageBox::Cancel) return false;
    if (answer == QMessageBox::Yes) {
        Save();
        return !dirty_;
    }
    dirty_ = false;
    return true;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (SaveIfWanted())
        event->accept();
    else
        event->ignore();
}

}  // namespace fytable_gui
