// The script runner's host with the real window: never on screen, but laid out, drawn and
// photographed as the user would see it.
#pragma once

#include "app/script_runner.h"
#include "ui/qt/main_window.h"

namespace vorna::qt {

class QtScriptHost : public ScriptHost {
public:
    // The window's size in pixels before the form takes it over.
    explicit QtScriptHost(QSize pixels = QSize(1280, 800));

    vorna::Canvas &Disegno() override { return window_.Disegno(); }
    vorna::Canvas &Picture1() override { return window_.Picture1(); }
    void Attach(Program &program) override;
    void Sync(Program &program) override;
    bool Screenshot(Program &program, const std::filesystem::path &file) override;
    bool Screenshot(Dialog &dialog, const std::filesystem::path &file) override;

    MainWindow &Window() { return window_; }

private:
    MainWindow window_;
};

} // namespace vorna::qt
