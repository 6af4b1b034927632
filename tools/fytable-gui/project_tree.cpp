#include "project_tree.h"

#include <QHeaderView>
#include <map>

#include "db/database.h"

namespace fytable_gui {

namespace {

using kwfy::db::Database;

constexpr int kChoiceRole = Qt::UserRole + 1;

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

QTreeWidgetItem* AddEntry(QTreeWidgetItem* parent, const QString& label,
                          const TableChoice& choice) {
    auto* item = new QTreeWidgetItem(parent, {label});
    item->setData(0, kChoiceRole, QVariant::fromValue(choice));
    return item;
}

struct Project {
    int workId;
    QString name, defaultCategory;
};

// Change orders are WorkStruct rows too; they are not projects of their own.
// A database without WorkStruct rows still lists the projects its fee rows
// name.
std::vector<Project> ReadProjects(Database& db) {
    std::vector<Project> out;
    if (db.TableExists("WorkStruct")) {
        auto rs =
            db.Query("SELECT * FROM WorkStruct WHERE Kind IS NULL OR Kind<>? ORDER BY OCode, ID",
                     {std::string("变更")});
        for (; !rs.Eof(); rs.MoveNext())
            out.push_back({int(rs["ID"].Int()), Q(rs.Text("Name")), Q(rs.Text("DefaultQFClass"))});
    }
    if (out.empty() && db.TableExists("FY")) {
        auto rs = db.Query("SELECT DISTINCT WorkID FROM FY ORDER BY WorkID");
        for (; !rs.Eof(); rs.MoveNext()) out.push_back({int(rs["WorkID"].Int()), {}, {}});
    }
    return out;
}

void AddCategories(Database& db, QTreeWidgetItem* project, int workId) {
    auto* group = new QTreeWidgetItem(project, {"取费类别"});
    auto rs = db.Query(
        "SELECT QFClass, NodeID FROM FY WHERE WorkID=? GROUP BY QFClass, NodeID "
        "ORDER BY NodeID, MIN(ID)",
        {int64_t(workId)});
    for (; !rs.Eof(); rs.MoveNext()) {
        TableChoice c;
        c.workId = workId;
        c.fyNodeId = int(rs["NodeID"].Int());
        c.qfClass = Q(rs.Text("QFClass"));
        const QString label =
            c.fyNodeId ? QString("%1 (节点 %2)").arg(c.qfClass).arg(c.fyNodeId) : c.qfClass;
        AddEntry(group, label, c);
    }
}

// Items form a tree through ParentID; rows come in OCode order, so a parent
// is always met before its children.
void AddNodes(Database& db, QTreeWidgetItem* project, int workId, const QString& fallback) {
    if (!db.TableExists("Items")) return;
    auto* group = new QTreeWidgetItem(project, {"项目节点"});
    std::map<int64_t, QTreeWidgetItem*> byId;
    auto rs = db.Query("SELECT * FROM Items WHERE WorkID=? ORDER BY OCode, ID", {int64_t(workId)});
    for (; !rs.Eof(); rs.MoveNext()) {
        const int64_t id = rs["ID"].Int();
        TableChoice c;
        c.workId = workId;
        c.nodeId = int(id);
        c.qfClass = Q(rs.Text("QFClass"));
        if (c.qfClass.isEmpty()) c.qfClass = fallback;
        QString label = Q(rs.Text("ProjectKind"));
        if (label.isEmpty()) label = QString("节点 %1").arg(id);
        if (!rs.Text("QFClass").empty()) label += " [" + Q(rs.Text("QFClass")) + "]";
        auto parent = byId.find(rs["ParentID"].Int());
        byId[id] = AddEntry(parent == byId.end() ? group : parent->second, label, c);
    }
}

}  // namespace

ProjectTree::ProjectTree(QWidget* parent) : QTreeWidget(parent) {
    setHeaderLabels({"工程"});
    header()->hide();
    connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (HasChoice(item)) emit chosen(ChoiceOf(item));
    });
}

void ProjectTree::Load(const QString& database) {
    const QSignalBlocker block(this);
    clear();
    Database db = Database::OpenReadOnly(database.toStdString());
    for (const Project& p : ReadProjects(db)) {
        const QString name = p.name.isEmpty() ? QString("工程 %1").arg(p.workId) : p.name;
        auto* project = new QTreeWidgetItem(this, {name});
        QString fallback = p.defaultCategory;
        if (db.TableExists("FY")) AddCategories(db, project, p.workId);
        if (fallback.isEmpty() && project->childCount() && project->child(0)->childCount())
            fallback = ChoiceOf(project->child(0)->child(0)).qfClass;
        AddNodes(db, project, p.workId, fallback);
    }
    expandToDepth(1);
}

QTreeWidgetItem* ProjectTree::FirstCategory() const {
    for (QTreeWidgetItemIterator it(const_cast<ProjectTree*>(this)); *it; ++it)
        if (HasChoice(*it)) return *it;
    return nullptr;
}

bool ProjectTree::HasChoice(const QTreeWidgetItem* item) {
    return item && item->data(0, kChoiceRole).isValid();
}

TableChoice ProjectTree::ChoiceOf(const QTreeWidgetItem* item) {
    return item ? item->data(0, kChoiceRole).value<TableChoice>() : TableChoice{};
}

}  // namespace fytable_gui
