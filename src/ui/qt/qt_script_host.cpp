// The script runner's host with the real window, kept off the screen.
#include "ui/qt/qt_script_host.h"

#include "platform/text_file.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QPixmap>

namespace vorna::qt {

QtScriptHost::QtScriptHost(QSize pixels) {
    window_.setAttribute(Qt::WA_DontShowOnScreen);
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

bool QtScriptHost::Screenshot(Program &, const std::filesystem::path &file) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!window_.grab().save(&buffer, "PNG"))
        return false;
    return WriteFileAtomic(file, std::string_view(png.constData(), png.size()));
}

} // namespace vorna::qt
