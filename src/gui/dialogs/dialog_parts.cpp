#include "gui/dialogs/dialog_parts.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>

#include "gui/dialogs/dialog_view.h"

namespace kwfy::gui {

QPushButton* AddButton(QWidget* parent, QBoxLayout* row, const std::string& objectName,
                       const QString& caption) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(ToQ(objectName));
    row->addWidget(button);
    return button;
}

QTableWidget* MakeChoiceTable(QWidget* parent, const std::string& objectName,
                              const QStringList& headers) {
    auto* table = new QTableWidget(0, int(headers.size()), parent);
    table->setObjectName(ToQ(objectName));
    table->setHorizontalHeaderLabels(headers);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    return table;
}

void AddChoiceRow(QTableWidget* table, const std::string& value,
                  const std::vector<std::string>& cells) {
    const int row = table->rowCount();
    table->insertRow(row);
    for (int col = 0; col < table->columnCount(); ++col) {
        auto* item = new QTableWidgetItem(col < int(cells.size()) ? ToQ(cells[col]) : QString());
        if (col == 0) item->setData(kFieldValueRole, ToQ(value));
        table->setItem(row, col, item);
    }
}

}  // namespace kwfy::gui
