// fytable-gui: the desktop host of the fee table widget.
//
//   fytable-gui [DATABASE] [--app DIR] [--data DIR] [--demo DIR] [--screenshot FILE]
//
// Without a database it opens the demo installation (made on first use).
// --screenshot loads the first fee category, writes the window to FILE as
// PNG and exits: status 0 when the file was written.
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QMessageBox>
#include <QStandardPaths>
#include <QTimer>
#include <iostream>

#include "demo_install.h"
#include "main_window.h"

namespace {

QString AsFolder(QString path) {
    if (!path.isEmpty() && !path.endsWith('/') && !path.endsWith('\\')) path += '/';
    return path;
}

int TakeScreenshot(fytable_gui::MainWindow& window, const QString& file) {
    window.LoadFirstCategory();
    QApplication::processEvents();
    QDir().mkpath(QFileInfo(file).absolutePath());
    const bool saved = window.grab().save(file, "PNG");
    std::cerr << (saved ? "screenshot written to " : "could not write ") << file.toStdString()
              << "\n";
    return saved ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("fytable-gui");

    QCommandLineParser parser;
    parser.setApplicationDescription("Fee table desktop host");
    parser.addHelpOption();
    parser.addPositionalArgument("database", "project database to open (default: the demo)");
    QCommandLineOption appOpt("app", "application folder (holds System/Config.mdb)", "DIR");
    QCommandLineOption dataOpt("data", "data folder (System/ParaFL.mdb, rate standards)", "DIR");
    QCommandLineOption demoOpt("demo", "folder of the demo installation", "DIR");
    QCommandLineOption shotOpt("screenshot", "load, write the window to FILE (PNG), exit", "FILE");
    parser.addOptions({appOpt, dataOpt, demoOpt, shotOpt});
    parser.process(app);

    QString database, appPath, dataPath;
    if (!parser.positionalArguments().isEmpty()) {
        database = parser.positionalArguments().first();
        std::tie(appPath, dataPath) = fytable_gui::FoldersFor(database);
    } else {
        QString root = parser.value(demoOpt);
        if (root.isEmpty())
            root = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + "/demo";
        try {
            const auto demo = fytable_gui::InstallDemo(root);
            database = demo.project;
            appPath = demo.app;
            dataPath = demo.data;
        } catch (const std::exception& e) {
            std::cerr << "fytable-gui: the demo cannot be made in " << root.toStdString() << ": "
                      << e.what() << "\n";
            return 1;
        }
    }
    if (parser.isSet(appOpt)) appPath = AsFolder(parser.value(appOpt));
    if (parser.isSet(dataOpt)) dataPath = AsFolder(parser.value(dataOpt));

    fytable_gui::MainWindow window;
    const bool opened = window.OpenDatabase(database, appPath, dataPath);
    window.show();
    if (parser.isSet(shotOpt)) return opened ? TakeScreenshot(window, parser.value(shotOpt)) : 1;
    if (opened) QTimer::singleShot(0, &window, &fytable_gui::MainWindow::LoadFirstCategory);
    return app.exec();
}
