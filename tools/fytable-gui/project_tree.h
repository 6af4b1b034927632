// The side tree of the desktop host: the projects of a project database
// (WorkStruct rows), under each its stored fee categories and its node tree
// (Items), each entry naming the context a fee table is loaded with.
#pragma once

#include <QString>
#include <QTreeWidget>

namespace fytable_gui {

// The context properties the host sets before LoadFY.
struct TableChoice {
    int workId = 0;
    int nodeId = 0;
    int fyNodeId = 0;
    int qfKind = 0;
    QString qfClass;
    QString tableClass;
    bool operator==(const TableChoice&) const = default;
};

class ProjectTree : public QTreeWidget {
    Q_OBJECT

public:
    explicit ProjectTree(QWidget* parent = nullptr);

    // Reads the database afresh. Throws kwfy::Error when it cannot be read.
    void Load(const QString& database);
    // The first fee category entry; nullptr when there is none.
    QTreeWidgetItem* FirstCategory() const;
    static bool HasChoice(const QTreeWidgetItem* item);
    static TableChoice ChoiceOf(const QTreeWidgetItem* item);

signals:
    void chosen(const fytable_gui::TableChoice& choice);
};

}  // namespace fytable_gui
