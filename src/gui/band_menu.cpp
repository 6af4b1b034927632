#include "gui/band_menu.h"

#include "gui/twips.h"

namespace kwfy::gui {

std::unique_ptr<QMenu> BuildBandMenu(const Band& band, QWidget* parent) {
    auto menu = std::make_unique<QMenu>(parent);
    menu->setObjectName(Q(band.Key()));
    menu->setToolTipsVisible(true);
    bool separatorDue = false;
    for (const Tool& t : band.Tools()) {
        if (t.kind == ToolKind::Separator) {
            separatorDue = !menu->actions().isEmpty();
            continue;
        }
        if (!t.visible) continue;
        if (separatorDue) menu->addSeparator();
        separatorDue = false;
        QAction* a = menu->addAction(Q(t.caption));
        a->setData(Q(t.key));
        a->setObjectName(Q(t.key));
        a->setEnabled(t.enabled);
        if (!t.tip.empty()) a->setToolTip(Q(t.tip));
    }
    return menu;
}

std::string ToolKeyOf(const QAction* action) {
    return action ? S(action->data().toString()) : std::string();
}

}  // namespace kwfy::gui
