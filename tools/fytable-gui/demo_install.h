// The demo installation for the desktop host: the same data files and
// builder the command-line host's "demo" command uses.
#pragma once

#include <QString>

namespace fytable_gui {

// Where the demo lives: its folder, the application and data folders, and
// the first project's database.
struct DemoPaths {
    QString root, app, data, project;
};

// Makes every missing database of the demo data under root and returns the
// paths. Throws kwfy::Error when the data cannot be read or written.
DemoPaths InstallDemo(const QString& root);

// The folder the demo data files are read from.
QString DemoDataFolder();

}  // namespace fytable_gui
