// Entry point: the Qt window, or the script runner with --script on the real window; built
// without Qt it is vorna-batch, which runs scripts on surfaces that draw nothing.
#include "app/script_runner.h"
#include "platform/native_path.h"
#include "platform/process.h"
#include "platform/text.h"

#ifdef VORNA_WITH_QT
#include "app/dispatch.h"
#include "app/program.h"
#include "app/startup.h"
#include "ui/qt/main_window.h"
#include "ui/qt/qt_script_host.h"
#include "ui/qt/qt_ui.h"

#include <QApplication>
#include <cstdlib>
#endif

#include <iostream>
#include <string>
#include <vector>

namespace {

// The suite passes one argument; like the command line of the original platform, every
// argument joined by blanks is the text the program reads.
std::string CommandLine(const std::vector<std::string> &arguments, std::size_t first) {
    std::string line;
    for (std::size_t i = first; i < arguments.size(); ++i) {
        if (i > first)
            line += ' ';
        line += arguments[i];
    }
    return vorna::Utf8ToCp1252(line);
}

#ifdef VORNA_WITH_QT

// Scripts run unattended: without a display the window is drawn off screen. On Windows a script
// never shows the window; off screen, Qt takes its fonts from the system's folder.
void UseOffscreenWithoutDisplay() {
#ifdef _WIN32
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!qEnvironmentVariableIsSet("QT_QPA_FONTDIR") && qEnvironmentVariableIsSet("WINDIR"))
        qputenv("QT_QPA_FONTDIR", qgetenv("WINDIR") + "\\Fonts");
#else
    if (!std::getenv("DISPLAY") && !std::getenv("WAYLAND_DISPLAY"))
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
#endif
}

int RunScriptInWindow(int argc, char **argv, const std::vector<std::string> &arguments) {
    UseOffscreenWithoutDisplay();
    QApplication app(argc, argv);
    vorna::qt::LoadItalianTranslations();
    vorna::qt::QtScriptHost host;
    return vorna::RunScript(vorna::PathFromUtf8(arguments[1]), CommandLine(arguments, 2), std::cout,
                            host);
}

int RunWindow(int argc, char **argv, const std::vector<std::string> &arguments) {
    const std::string commandLine = CommandLine(arguments, 0);
    QApplication app(argc, argv);
    vorna::qt::LoadItalianTranslations();
    // The program decides when it ends, with its own status.
    app.setQuitOnLastWindowClosed(false);
    vorna::qt::MainWindow window;
    vorna::qt::QtUi ui(&window);
    vorna::Program program(ui, window.Disegno(), window.Picture1());
    window.Attach(program, vorna::qt::MainWindow::InitialSize::FromForm);
    window.show();
    vorna::Dispatch(program, [&](vorna::Program &p) { vorna::RunStartUp(p, commandLine); });
    window.SyncFromForm();
    if (program.exitRequested)
        return program.exitStatus;
    int status = app.exec();
    return program.exitRequested ? program.exitStatus : status;
}

#endif

} // namespace

int main(int argc, char **argv) {
    const std::vector<std::string> arguments = vorna::ProgramArguments(argc, argv);
    const bool script = arguments.size() >= 2 && arguments[0] == "--script";
    vorna::UseBinaryStandardOutput();
#ifdef VORNA_WITH_QT
    return script ? RunScriptInWindow(argc, argv, arguments) : RunWindow(argc, argv, arguments);
#else
    if (script)
        return vorna::RunScript(vorna::PathFromUtf8(arguments[1]), CommandLine(arguments, 2),
                                std::cout);
    std::cerr << "usage: vorna-batch --script FILE \"|diroot=ROOT|\"\n";
    return 2;
#endif
}
