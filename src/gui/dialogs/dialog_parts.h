// Widgets the dialog views share: buttons with the system's captions and
// tables whose rows stand for the entries of a list field.
#pragma once

#include <string>
#include <vector>

#include <QString>

class QBoxLayout;
class QPushButton;
class QTableWidget;
class QWidget;

namespace kwfy::gui {

inline const QString kSureCaption = QStringLiteral("确定");
inline const QString kCancelCaption = QStringLiteral("取消");
inline const QString kCloseCaption = QStringLiteral("关闭");
inline const QString kBrowseCaption = QStringLiteral("浏览...");

// A push button named after its control, added to the end of a row of buttons.
QPushButton* AddButton(QWidget* parent, QBoxLayout* row, const std::string& objectName,
                       const QString& caption);

// A read-only table that selects whole rows, one at a time, with the given
// column captions; bind it with DialogView::BindCurrentItem.
QTableWidget* MakeChoiceTable(QWidget* parent, const std::string& objectName,
                              const QStringList& headers);

// Appends a row standing for the field value `value`, showing `cells` (at most
// one per column).
void AddChoiceRow(QTableWidget* table, const std::string& value,
                  const std::vector<std::string>& cells);

}  // namespace kwfy::gui
