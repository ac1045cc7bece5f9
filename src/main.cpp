// Entry point: the Qt window, or the script runner with --script (on the real window when the
// program is built with Qt, headless otherwise).
#include "app/script_runner.h"
#include "platform/text.h"

#ifdef VORNA_WITH_QT
#include "app/program.h"
#include "app/startup.h"
#include "ui/qt/main_window.h"
#include "ui/qt/qt_script_host.h"
#include "ui/qt/qt_ui.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <cstdlib>
#endif

#include <iostream>
#include <string>

namespace {

// The suite passes one argument; like the command line of the original platform, every
// argument joined by blanks is the text the program reads.
std::string CommandLine(int argc, char **argv, int first) {
    std::string line;
    for (int i = first; i < argc; ++i) {
        if (i > first)
            line += ' ';
        line += argv[i];
    }
    return vorna::Utf8ToCp1252(line);
}

#ifdef VORNA_WITH_QT

// Scripts run unattended: without a display the window is drawn off screen.
void UseOffscreenWithoutDisplay() {
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY"))
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
}

int RunScriptInWindow(int argc, char **argv) {
    const std::string script = argv[2], commandLine = CommandLine(argc, argv, 3);
    UseOffscreenWithoutDisplay();
    QApplication app(argc, argv);
    vorna::qt::QtScriptHost host;
    return vorna::RunScript(script, commandLine, std::cout, host);
}

int RunWindow(int argc, char **argv) {
    const std::string commandLine = CommandLine(argc, argv, 1);
    QApplication app(argc, argv);
    // The standard dialogs' buttons speak the user's language, as the system's own would.
    QTranslator translator;
    if (translator.load(QLocale(), "qtbase", "_",
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&translator);
    // The program decides when it ends, with its own status.
    app.setQuitOnLastWindowClosed(false);
    vorna::qt::MainWindow window;
    vorna::qt::QtUi ui(&window);
    vorna::Program program(ui, window.Disegno(), window.Picture1());
    window.Attach(program, vorna::qt::MainWindow::InitialSize::FromForm);
    window.show();
    vorna::RunStartUp(program, commandLine);
    window.SyncFromForm();
    if (program.exitRequested)
        return program.exitStatus;
    int status = app.exec();
    return program.exitRequested ? program.exitStatus : status;
}

#endif

} // namespace

int main(int argc, char **argv) {
    const bool script = argc >= 3 && std::string(argv[1]) == "--script";
#ifdef VORNA_WITH_QT
    return script ? RunScriptInWindow(argc, argv) : RunWindow(argc, argv);
#else
    if (script)
        return vorna::RunScript(argv[2], CommandLine(argc, argv, 3), std::cout);
    std::cerr << "usage: vorna --script FILE \"|diroot=ROOT|\"\n";
    return 2;
#endif
}
