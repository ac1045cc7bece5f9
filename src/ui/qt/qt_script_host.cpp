// The script runner's host with the real window, kept off the screen.
#include "ui/qt/qt_script_host.h"

#include "platform/text_file.h"
#include "ui/qt/dialog_window.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QPixmap>

namespace vorna::qt {

QtScriptHost::QtScriptHost(QSize pixels) {
    window_.setAttribute(Qt::WA_DontShowOnScreen);
    window_.KeepStatusRowWhole(false);
    window_.resize(pixels);
    window_.show();
}

void QtScriptHost::Attach(Program &program) {
    window_.Attach(program, MainWindow::InitialSize::FromWindow);
}

void QtScriptHost::Sync(Program &) {
    window_.SyncFromForm();
    // Resizes and repaints of a window reach it as events.
    QCoreApplication::processEvents();
}

namespace {

bool SavePng(QWidget &widget, const std::filesystem::path &file) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!widget.grab().save(&buffer, "PNG"))
        return false;
    return WriteFileAtomic(file, std::string_view(png.constData(), png.size()));
}

} // namespace

bool QtScriptHost::Screenshot(Program &, const std::filesystem::path &file) {
    return SavePng(window_, file);
}

// The dialog as the window would show it over the main window.
bool QtScriptHost::Screenshot(Dialog &dialog, const std::filesystem::path &file) {
    DialogWindow shown(dialog, &window_);
    shown.setAttribute(Qt::WA_DontShowOnScreen);
    shown.show();
    QCoreApplication::processEvents();
    return SavePng(shown, file);
}

} // namespace vorna::qt
