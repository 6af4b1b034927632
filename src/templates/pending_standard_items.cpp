// Placeholder definition until standard items land.
#include "kwfy/error.h"
#include "templates/template_commands.h"

namespace kwfy::templates {

void AddStandarItems(ControlCore&) {
    throw Error("standard items are not available in this build");
}

}  // namespace kwfy::templates
