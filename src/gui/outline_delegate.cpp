#include "gui/outline_delegate.h"

#include <QApplication>
#include <QPainter>
#include <algorithm>

#include "gui/fee_grid_model.h"
#include "gui/grid_pictures.h"

namespace kwfy::gui {

namespace {

constexpr int kIndent = 14;  // pixels per outline level below the first
constexpr int kBox = 9;

int Level(const QModelIndex& index) {
    return index.data(FeeGridModel::OutlineLevelRole).toInt();
}

void DrawToggle(QPainter& p, const QRect& box, bool collapsed) {
    p.save();
    p.setPen(QColor(120, 120, 120));
    p.setBrush(Qt::white);
    p.drawRect(box.adjusted(0, 0, -1, -1));
    p.setPen(Qt::black);
    const QPoint c = box.center();
    p.drawLine(c.x() - 2, c.y(), c.x() + 2, c.y());
    if (collapsed) p.drawLine(c.x(), c.y() - 2, c.x(), c.y() + 2);
    p.restore();
}

}  // namespace

// Levels count from 1 in stored tables; level 0 and 1 sit at the left edge.
QRect OutlineDelegate::ToggleRect(const QRect& cell, int level) {
    const int left = cell.left() + 3 + std::max(level - 1, 0) * kIndent;
    return QRect(left, cell.center().y() - kBox / 2, kBox, kBox);
}

void OutlineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    QStyleOptionViewItem opt(option);
    initStyleOption(&opt, index);
    const QWidget* widget = opt.widget;
    QStyle* style = widget ? widget->style() : QApplication::style();

    const int picture = index.data(FeeGridModel::PictureRole).toInt();
    const bool outline = index.column() == outlineCol_;
    if (!outline && !picture) {
        style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, widget);
        return;
    }
    // Background, selection and focus first, then the tree, picture and text.
    const QString text = opt.text;
    opt.text.clear();
    style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, widget);

    QRect textRect = opt.rect;
    if (outline) {
        const QRect box = ToggleRect(opt.rect, Level(index));
        if (index.data(FeeGridModel::HasChildrenRole).toBool())
            DrawToggle(*painter, box, index.data(FeeGridModel::CollapsedRole).toBool());
        textRect.setLeft(box.right() + 4);
    }
    if (picture) {
        const QPixmap pm = GridPicture(picture);
        const QRect at = QStyle::alignedRect(opt.direction, Qt::AlignCenter, pm.size(), opt.rect);
        painter->drawPixmap(at, pm);
    }
    if (!text.isEmpty()) {
        const QPalette::ColorRole role =
            opt.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text;
        painter->save();
        painter->setPen(opt.palette.color(role));
        painter->drawText(textRect.adjusted(2, 0, -2, 0), int(opt.displayAlignment),
                          opt.fontMetrics.elidedText(text, Qt::ElideRight, textRect.width() - 4));
        painter->restore();
    }
}

void OutlineDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                           const QModelIndex& index) const {
    QStyledItemDelegate::updateEditorGeometry(editor, option, index);
    if (index.column() != outlineCol_) return;
    QRect r = editor->geometry();
    r.setLeft(ToggleRect(option.rect, Level(index)).right() + 2);
    editor->setGeometry(r);
}

}  // namespace kwfy::gui
