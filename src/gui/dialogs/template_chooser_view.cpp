#include "gui/dialogs/template_chooser_view.h"

#include <map>

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStyle>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include "gui/dialogs/dialog_parts.h"

namespace kwfy::gui {
namespace {

using templates::ExplorerImage;

QStyle::StandardPixmap PixmapOf(ExplorerImage image) {
    switch (image) {
        case ExplorerImage::OpenFolder:
            return QStyle::SP_DirOpenIcon;
        case ExplorerImage::ClosedFolder:
            return QStyle::SP_DirClosedIcon;
        case ExplorerImage::File:
            break;
    }
    return QStyle::SP_FileIcon;
}

std::string KeyOf(const QTreeWidgetItem* item) {
    return FromQ(item->data(0, kFieldValueRole).toString());
}

}  // namespace

TemplateChooserView::TemplateChooserView(templates::FrmExplorer& dialog, Ui& ui, QWidget* parent)
    : DialogView(dialog, ui, parent), explorer_(dialog) {
    setWindowTitle(QStringLiteral("选择费用文件"));
    tree_ = MakeTree();
    auto* preview = new QPlainTextEdit(this);
    preview->setObjectName("txtPreview");
    preview->setReadOnly(true);

    auto* panes = new QSplitter(this);
    panes->addWidget(tree_);
    panes->addWidget(preview);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(panes);
    layout->addLayout(buttons);

    BindCurrentItem("tvwExplorer", tree_);
    BindShow(tree_, [this] { ShowNodes(); });
    BindShow(preview, [this, preview] {
        const QString text = ToQ(explorer_.Preview());
        if (preview->toPlainText() != text) preview->setPlainText(text);
    });
    BindAccept(AddButton(this, buttons, "cmdSure", kSureCaption));
    BindCancel(AddButton(this, buttons, "cmdCancel", kCancelCaption));
    BindPress("cmdUpdate", AddButton(this, buttons, "cmdUpdate", QStringLiteral("更新")));
    ShowFields();
}

QTreeWidget* TemplateChooserView::MakeTree() {
    auto* tree = new QTreeWidget(this);
    tree->setObjectName("tvwExplorer");
    tree->setHeaderHidden(true);
    tree->setSelectionMode(QAbstractItemView::SingleSelection);
    // The core dialog decides what a double click on a folder does.
    tree->setExpandsOnDoubleClick(false);
    std::map<std::string, QTreeWidgetItem*> items;
    for (const templates::ExplorerNode& node : explorer_.Nodes()) {
        const auto parent = items.find(node.parentKey);
        auto* item =
            parent == items.end() ? new QTreeWidgetItem(tree) : new QTreeWidgetItem(parent->second);
        item->setText(0, ToQ(node.text));
        item->setData(0, kFieldValueRole, ToQ(node.key));
        items[node.key] = item;
    }
    const auto expand = [this](QTreeWidgetItem* item, bool expanded) {
        if (!Showing()) Apply([&] { return explorer_.Expand(KeyOf(item), expanded); });
    };
    connect(tree, &QTreeWidget::itemExpanded, this,
            [expand](QTreeWidgetItem* item) { expand(item, true); });
    connect(tree, &QTreeWidget::itemCollapsed, this,
            [expand](QTreeWidgetItem* item) { expand(item, false); });
    connect(tree, &QTreeWidget::itemDoubleClicked, this, [this] { PressButton("dblclick"); });
    return tree;
}

void TemplateChooserView::ShowNodes() {
    for (QTreeWidgetItemIterator it(tree_); *it; ++it) {
        const templates::ExplorerNode* node = explorer_.FindNode(KeyOf(*it));
        if (!node) continue;
        (*it)->setIcon(0, style()->standardIcon(PixmapOf(templates::FrmExplorer::Image(*node))));
        if ((*it)->isExpanded() != node->expanded) (*it)->setExpanded(node->expanded);
    }
}

}  // namespace kwfy::gui
