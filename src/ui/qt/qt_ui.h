// The Ui of the window: Qt message boxes, file and colour dialogs, the busy pointer and the end
// of the event loop.
#pragma once

#include "platform/ui.h"

#include <QString>

class QWidget;

namespace vorna::qt {

class QtUi : public Ui {
public:
    explicit QtUi(QWidget *parent) : parent_(parent) {}
    ~QtUi() override;

    MsgAnswer MessageBox(std::string_view text, std::string_view title, MsgIcon icon,
                         MsgButtons buttons) override;
    std::optional<SaveDialogResult> SaveFile(const SaveDialogRequest &request) override;
    std::optional<std::uint32_t> ChooseColour(std::uint32_t initial) override;
    void RunDialog(Dialog &dialog) override;
    void SetBusy(bool busy) override;
    // The loop ends once the running command has returned to it.
    void RequestExit(int status) override;
    // The window's menu of that name, at the pointer.
    void PopUpMenu(std::string_view menu) override;

private:
    // Runs show, which opens a dialog, with the busy pointer off.
    template <typename Show> auto WithoutBusy(Show show);

    QWidget *parent_;
    bool busy_ = false;
};

// Qt's own dialogs (file, colour, message-box buttons) in Italian, as the rest of the program
// speaks: a translation built into the program first, else the system's. False when neither is
// found.
bool LoadItalianTranslations();

// Windows-1252 bytes as a QString, and back.
QString ToQString(std::string_view cp1252);
std::string FromQString(const QString &text);
// "Disegno|*.dis|DXF|*.dxf" in Qt's filter syntax, one entry per pair.
QStringList SaveFilters(std::string_view filter);

} // namespace vorna::qt
