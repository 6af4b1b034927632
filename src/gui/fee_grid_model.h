// FeeGridModel: a Qt table model over a kwfy::GridModel.
//
// It holds no cell data: every call reads the grid, and the grid's observer
// notifications become the model's signals. The grid's fixed rows are not
// rows of the Qt model: the first fixed row supplies the horizontal header.
// Qt row r is grid row r + FixedRows(); Qt column c is grid column c.
// An edit (setData) goes through GridModel::UserEdit, so the grid's owner
// sees it as a person typing into the cell.
#pragma once

#include <QAbstractTableModel>

#include "gui/user_action.h"
#include "kwfy/grid_model.h"

namespace kwfy::gui {

class FeeGridModel : public QAbstractTableModel, private GridObserver {
    Q_OBJECT

public:
    // Extra roles a view uses to draw the outline tree.
    enum Role {
        OutlineLevelRole = Qt::UserRole + 1,  // int
        HasChildrenRole,                      // bool: the next row sits deeper
        CollapsedRole,                        // bool
        PictureRole,                          // int picture id, 0 none
    };

    // The grid must outlive the model.
    FeeGridModel(GridModel& grid, ActionRunner runner, QObject* parent = nullptr);
    ~FeeGridModel() override;

    GridModel& Grid() { return grid_; }
    const GridModel& Grid() const { return grid_; }
    int GridRow(int qtRow) const { return qtRow + grid_.FixedRows(); }
    int QtRow(int gridRow) const { return gridRow - grid_.FixedRows(); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

signals:
    // Column widths or row heights, hidden rows or columns may have changed.
    void shapeChanged();
    // A row's cells all changed at once, as a new row height does.
    void rowChanged(int qtRow);
    void currentCellChanged();
    void outlineChanged();
    void appearanceChanged();

private:
    void GridReset() override;
    void CellsChanged(int row0, int col0, int row1, int col1) override;
    void RowsInserted(int at, int count) override;
    void RowsRemoved(int at, int count) override;
    void ColumnsChanged() override;
    void CurrentCellChanged() override { emit currentCellChanged(); }
    void OutlineChanged() override;
    void AppearanceChanged() override { emit appearanceChanged(); }

    void Reset();
    bool HasChildren(int gridRow) const;

    GridModel& grid_;
    ActionRunner runner_;
    // The shape the attached views were last told of (at the last reset).
    int rows_ = 0;
    int cols_ = 0;
};

// Qt alignment flags of a grid alignment (General: left, vertically centred).
Qt::Alignment ToQtAlignment(Align align);

}  // namespace kwfy::gui
