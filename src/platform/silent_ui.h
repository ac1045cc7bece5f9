// A Ui that answers every message with OK and shows nothing: for benchmarks and fuzzing.
#pragma once

#include "platform/dialog.h"
#include "platform/ui.h"

namespace vorna {

class SilentUi : public Ui {
public:
    MsgAnswer MessageBox(std::string_view, std::string_view, MsgIcon, MsgButtons) override {
        return MsgAnswer::Ok;
    }
    std::optional<SaveDialogResult> SaveFile(const SaveDialogRequest &) override { return {}; }
    std::optional<std::uint32_t> ChooseColour(std::uint32_t) override { return {}; }
    void RunDialog(Dialog &dialog) override { dialog.Escape(); }
    void SetBusy(bool) override {}
    void RequestExit(int) override {}
    void PopUpMenu(std::string_view) override {}
};

} // namespace vorna
