// Everything that waits for the user or leaves the process, as the core sees it.
#pragma once

#include "platform/user_message.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vorna {

class Dialog;

enum class MsgButtons { Ok, OkCancel };
enum class MsgAnswer { Ok, Cancel };

// Mouse pointer shapes, by the codes the program uses.
enum class Pointer { Default = 0, Cross = 2, Busy = 11 };

struct SaveDialogRequest {
    std::string initialFolder; // Windows-1252 folder name as the program builds it
    std::string filter;        // "Description|*.ext|Description|*.ext"
    std::string title;
    std::string fileName;
};

struct SaveDialogResult {
    std::string fileName; // Windows-1252
    int filterIndex = 1;  // 1-based, as the dialog reports it
};

// Texts cross this interface as Windows-1252 bytes; each front end converts for display.
class Ui {
public:
    virtual ~Ui() = default;
    virtual MsgAnswer MessageBox(std::string_view text, std::string_view title, MsgIcon icon,
                                 MsgButtons buttons) = 0;
    // Nothing when the user cancels.
    virtual std::optional<SaveDialogResult> SaveFile(const SaveDialogRequest &request) = 0;
    // Nothing when the user cancels; colours packed red + 256 green + 65536 blue.
    virtual std::optional<std::uint32_t> ChooseColour(std::uint32_t initial) = 0;
    // Shows a modal dialog and forwards the user's actions to it until it is closed.
    virtual void RunDialog(Dialog &dialog) = 0;
    virtual void SetBusy(bool busy) = 0;
    // Ends the program once control returns to the front end; the core never calls exit().
    virtual void RequestExit(int status) = 0;
    // Opens the menu of that name at the mouse pointer (a right click on the drawing).
    virtual void PopUpMenu(std::string_view menu) = 0;
};

} // namespace vorna
