// BandBar: one band of the toolbar model shown as a QToolBar.
//
// Buttons become actions, labels QLabels, combo tools QComboBoxes and text
// tools QLineEdits (each with its caption as a label in front); hidden tools
// are left out. What the user does goes back to the model as UserClick,
// UserChoose, UserSetText and UserKeyDown (Enter = 13). Sync() follows the
// model: when the visible tools are the same it updates them in place (so a
// box keeps the focus while the user types), otherwise it rebuilds the bar;
// widgets are deleted later, never inside their own signal.
#pragma once

#include <QToolBar>
#include <string>
#include <vector>

#include "gui/user_action.h"
#include "kwfy/toolbar_model.h"

namespace kwfy::gui {

class BandBar : public QToolBar {
    Q_OBJECT

public:
    // The model must outlive the bar.
    BandBar(ToolbarModel& toolbar, std::string band, ActionRunner runner,
            QWidget* parent = nullptr);

    const std::string& BandKey() const { return band_; }
    void Sync();
    // The widget or action shown for a tool key; nullptr when not shown.
    QWidget* ToolWidget(const std::string& key) const;
    QAction* ToolAction(const std::string& key) const;

private:
    struct Shown {
        std::string key;
        ToolKind kind;
        QAction* action = nullptr;  // buttons
        QWidget* widget = nullptr;  // labels, combos, text boxes
    };

    void Rebuild(const Band& band);
    void Update(const Tool& tool, Shown& shown);
    Shown AddTool(const Tool& tool);
    void AddCaption(const Tool& tool);  // the label in front of a box
    static std::vector<std::pair<std::string, ToolKind>> Structure(const Band& band);

    ToolbarModel& toolbar_;
    std::string band_;
    ActionRunner runner_;
    std::vector<Shown> shown_;
    std::vector<std::pair<std::string, ToolKind>> structure_;
};

}  // namespace kwfy::gui
