// Draws the fee grid's cells: the outline tree (indent and a +/- box) in the
// grid's outline column and the cell pictures centred; everything else as a
// plain item. The editor of an outline cell opens beside the tree.
#pragma once

#include <QStyledItemDelegate>

namespace kwfy::gui {

class OutlineDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit OutlineDelegate(QObject* parent = nullptr) : QStyledItemDelegate(parent) {}

    // The column the tree is drawn in (the grid's OutlineCol()).
    void SetOutlineColumn(int col) { outlineCol_ = col; }
    int OutlineColumn() const { return outlineCol_; }

    // The +/- box of a cell of the outline column, in view coordinates.
    static QRect ToggleRect(const QRect& cell, int level);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

private:
    int outlineCol_ = -1;
};

}  // namespace kwfy::gui
