// Shared test fakes: a Ui that records messages and answers from a queue, temporary folders and
// commands run through the shell.
#pragma once

#include "platform/dialog.h"
#include "platform/ui.h"

#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <unistd.h>
#include <vector>

namespace vorna::test {

struct RecordedMessage {
    std::string text;
    std::string title;
    MsgIcon icon;
};

class RecordingUi : public Ui {
public:
    MsgAnswer MessageBox(std::string_view text, std::string_view title, MsgIcon icon,
                         MsgButtons buttons) override {
        messages.push_back({std::string(text), std::string(title), icon});
        if (buttons == MsgButtons::Ok || answers.empty())
            return MsgAnswer::Ok;
        MsgAnswer a = answers.front();
        answers.pop_front();
        return a;
    }
    std::optional<SaveDialogResult> SaveFile(const SaveDialogRequest &) override {
        if (saveChoices.empty())
            return std::nullopt;
        auto c = saveChoices.front();
        saveChoices.pop_front();
        return c;
    }
    std::optional<std::uint32_t> ChooseColour(std::uint32_t) override {
        if (colours.empty())
            return std::nullopt;
        auto c = colours.front();
        colours.pop_front();
        return c;
    }
    // Each dialog runs the next queued user, who acts on it; none left means Esc.
    void RunDialog(Dialog &dialog) override {
        dialogsShown.emplace_back(dialog.Name());
        if (dialogUsers.empty()) {
            dialog.Escape();
            return;
        }
        auto user = std::move(dialogUsers.front());
        dialogUsers.pop_front();
        user(dialog);
    }
    void SetBusy(bool on) override { busy = on; }
    void RequestExit(int status) override { exitStatus = status; }
    void PopUpMenu(std::string_view menu) override { popUps.emplace_back(menu); }

    std::vector<RecordedMessage> messages;
    std::deque<MsgAnswer> answers;
    std::deque<std::optional<SaveDialogResult>> saveChoices;
    std::deque<std::optional<std::uint32_t>> colours;
    std::deque<std::function<void(Dialog &)>> dialogUsers;
    std::vector<std::string> dialogsShown;
    std::vector<std::string> popUps;
    bool busy = false;
    int exitStatus = -1;
};

// Writes bytes to a file, creating its folders.
inline void WriteBytes(const std::filesystem::path &p, const std::string &bytes) {
    std::filesystem::create_directories(p.parent_path());
    std::ofstream(p, std::ios::binary) << bytes;
}

// A fresh folder under the system's temporary folder, removed when the test ends.
class TempDir {
public:
    TempDir() {
        static int counter = 0;
        path_ = std::filesystem::temp_directory_path() /
                ("vorna-test-" + std::to_string(::getpid()) + "-" + std::to_string(counter++));
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~TempDir() { std::filesystem::remove_all(path_); }
    const std::filesystem::path &path() const { return path_; }
    // Writes bytes to a file below the folder, creating its folders.
    void Write(const std::string &relative, const std::string &bytes) const {
        WriteBytes(path_ / relative, bytes);
    }

private:
    std::filesystem::path path_;
};

// Runs a command line through the system's shell and returns its status. cmd.exe drops the
// first and the last quote of a line that starts with one: the line gets one more pair there.
inline int RunCommand(const std::string &command) {
#ifdef _WIN32
    return std::system(('"' + command + '"').c_str());
#else
    return std::system(command.c_str());
#endif
}

inline std::string ReadBytes(const std::filesystem::path &p) {
    std::ifstream in(p, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

#ifdef VORNA_TEST_DATA
// A file kept beside the tests (tests/data), by its path below that folder.
inline std::string KeptBytes(const std::string &relative) {
    return ReadBytes(std::filesystem::path(VORNA_TEST_DATA) / relative);
}
#endif

#ifdef VORNA_DEMO_TOOL
// Makes the demo suite in the folder root; 0 when the tool succeeded.
inline int MakeDemoSuite(const std::filesystem::path &root, const std::string &options = "") {
    return RunCommand("\"" VORNA_DEMO_TOOL "\" " + options + " \"" + root.string() +
                      "\" >/dev/null");
}
#endif

} // namespace vorna::test
