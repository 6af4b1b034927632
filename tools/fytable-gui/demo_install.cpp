#include "demo_install.h"

#include "db/paths.h"
#include "fytable/demo_data.h"

#ifndef KWFY_DEMO_DATA_DIR
#define KWFY_DEMO_DATA_DIR "data/demo"
#endif

namespace fytable_gui {

QString DemoDataFolder() {
    return QString::fromUtf8(KWFY_DEMO_DATA_DIR);
}

DemoPaths InstallDemo(const QString& root) {
    const std::string dir = root.toStdString();
    for (const auto& file : fytable::demo::ReadDataFolder(DemoDataFolder().toStdString())) {
        if (kwfy::db::FileExists(kwfy::db::JoinPath(dir, file.target))) continue;
        fytable::demo::MakeDatabase(file, dir);
    }
    return DemoPaths{root, root + "/app/", root + "/data/", root + "/projects/项目A.db"};
}

}  // namespace fytable_gui
