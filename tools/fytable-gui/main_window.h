// The desktop host: a project tree, one FeeTableWidget, an event log and a
// status bar with the table's total. It plays the host's part: sets the
// context on a selection, loads, recalculates on AfterEdit and saves when
// asked (or, after asking, when closing or switching tables).
#pragma once

#include <QMainWindow>

#include "project_tree.h"

class QLabel;
class QPlainTextEdit;

namespace kwfy::gui {
class FeeTableWidget;
}

namespace fytable_gui {

class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow();

    // Opens a project database with its application and data folders
    // (folders end with "/"). Shows an error box and returns false when the
    // database cannot be read.
    bool OpenDatabase(const QString& database, const QString& appPath, const QString& dataPath);
    // Selects the first fee category of the tree and loads it.
    void LoadFirstCategory();
    kwfy::gui::FeeTableWidget& Table() { return *table_; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildMenus();
    void ConnectEvents();
    void Choose(const TableChoice& choice);
    void OpenFromMenu();
    void Save();
    // Asks whether to save a changed table: false when the user cancels.
    bool SaveIfWanted();
    void Log(const QString& line);

    kwfy::gui::FeeTableWidget* table_;
    ProjectTree* tree_;
    QPlainTextEdit* log_;
    QLabel* total_;
    QString database_;
    TableChoice current_;
    bool loaded_ = false;
    bool dirty_ = false;
};

// The application and data folders that belong to a project database: the
// demo layout (ROOT/projects/x.db beside ROOT/app and ROOT/data) when it is
// found, otherwise the database's own folder for both.
std::pair<QString, QString> FoldersFor(const QString& database);

}  // namespace fytable_gui
