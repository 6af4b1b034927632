#include "gui/user_action.h"

#include <QtGlobal>
#include <exception>

namespace kwfy::gui {

ActionRunner WarningRunner() {
    return [](const std::function<void()>& action) {
        try {
            action();
            return true;
        } catch (const std::exception& e) {
            qWarning("%s", e.what());
        } catch (...) {
            qWarning("unknown failure in a user action");
        }
        return false;
    };
}

}  // namespace kwfy::gui
