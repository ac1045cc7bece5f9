// The Ui of the window: Qt message boxes, file and colour dialogs, busy pointer, end of loop.
#include "ui/qt/qt_ui.h"

#include "platform/native_path.h"
#include "platform/text.h"
#include "ui/qt/dialog_window.h"
#include "ui/qt/qt_canvas.h"

#include <QApplication>
#include <QColorDialog>
#include <QCursor>
#include <QFileDialog>
#include <QLibraryInfo>
#include <QMenu>
#include <QMessageBox>
#include <QMetaObject>
#include <QTranslator>

namespace vorna::qt {

QString ToQString(std::string_view cp1252) {
    return QString::fromStdString(Cp1252ToUtf8(cp1252));
}

std::string FromQString(const QString &text) {
    return Utf8ToCp1252(text.toStdString());
}

bool LoadItalianTranslations() {
    auto *translator = new QTranslator(qApp);
    if (translator->load("qtbase_it", ":/translations") ||
        translator->load("qtbase_it", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(translator);
        return true;
    }
    delete translator;
    return false;
}

QStringList SaveFilters(std::string_view filter) {
    QStringList parts = ToQString(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString description = parts[i].trimmed();
        QString patterns = parts[i + 1].split(';', Qt::SkipEmptyParts).join(' ').trimmed();
        // Qt reads the patterns from the last parentheses; a description may already show them.
        if (description.endsWith(')') && description.contains('('))
            filters << description;
        else
            filters << description + " (" + patterns + ")";
    }
    return filters;
}

QtUi::~QtUi() {
    SetBusy(false);
}

// A dialog waits for the user, which the busy pointer would hide: it comes back once the dialog
// has closed.
template <typename Show> auto QtUi::WithoutBusy(Show show) {
    struct Restore {
        QtUi &ui;
        bool busy;
        ~Restore() { ui.SetBusy(busy); }
    } restore{*this, busy_};
    SetBusy(false);
    return show();
}

MsgAnswer QtUi::MessageBox(std::string_view text, std::string_view title, MsgIcon icon,
                           MsgButtons buttons) {
    QMessageBox::Icon shown = QMessageBox::NoIcon;
    if (icon == MsgIcon::Critical)
        shown = QMessageBox::Critical;
    else if (icon == MsgIcon::Exclamation)
        shown = QMessageBox::Warning;
    else if (icon == MsgIcon::Information)
        shown = QMessageBox::Information;
    QMessageBox box(shown, ToQString(title), ToQString(text),
                    buttons == MsgButtons::OkCancel ? QMessageBox::Ok | QMessageBox::Cancel
                                                    : QMessageBox::Ok,
                    parent_);
    box.setEscapeButton(buttons == MsgButtons::OkCancel ? QMessageBox::Cancel : QMessageBox::Ok);
    const int answer = WithoutBusy([&] { return box.exec(); });
    return answer == QMessageBox::Cancel ? MsgAnswer::Cancel : MsgAnswer::Ok;
}

std::optional<SaveDialogResult> QtUi::SaveFile(const SaveDialogRequest &request) {
    QStringList filters = SaveFilters(request.filter);
    QString start = ToQString(request.fileName);
    if (!request.initialFolder.empty()) {
        QString folder = QString::fromStdString(NativePath(request.initialFolder).string());
        start = start.isEmpty() ? folder : folder + '/' + start;
    }
    QString chosenFilter = filters.isEmpty() ? QString() : filters.front();
    const QString name = WithoutBusy([&] {
        return QFileDialog::getSaveFileName(parent_, ToQString(request.title), start,
                                            filters.join(";;"), &chosenFilter);
    });
    if (name.isEmpty())
        return std::nullopt;
    qsizetype index = filters.indexOf(chosenFilter);
    return SaveDialogResult{FromQString(name), index < 0 ? 1 : static_cast<int>(index) + 1};
}

std::optional<std::uint32_t> QtUi::ChooseColour(std::uint32_t initial) {
    const QColor chosen =
        WithoutBusy([&] { return QColorDialog::getColor(ColourOf(initial), parent_); });
    if (!chosen.isValid())
        return std::nullopt;
    return PackRgb(chosen.red(), chosen.green(), chosen.blue());
}

void QtUi::RunDialog(Dialog &dialog) {
    DialogWindow window(dialog, parent_);
    WithoutBusy([&] { window.exec(); });
}

void QtUi::SetBusy(bool busy) {
    if (busy == busy_)
        return;
    busy_ = busy;
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void QtUi::PopUpMenu(std::string_view menu) {
    if (!parent_)
        return;
    for (QMenu *m : parent_->findChildren<QMenu *>())
        if (m->objectName() == ToQString(menu)) {
            m->popup(QCursor::pos());
            return;
        }
}

void QtUi::RequestExit(int status) {
    QMetaObject::invokeMethod(
        qApp, [status] { QCoreApplication::exit(status); }, Qt::QueuedConnection);
}

} // namespace vorna::qt
