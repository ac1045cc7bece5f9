// End-to-end runs: a vorna program on a fresh demo suite, driven by a script.
//
// The program under test is the one built beside the tests (`vorna --script`, or vorna-batch
// without the window), unless the environment names another:
//   VORNA_E2E_PROGRAM  a vorna or vorna-batch, for Linux or for Windows (a name ending in ".exe");
//   VORNA_E2E_WRAPPER  the command that runs it, such as "wine";
//   VORNA_E2E_WINDOW   "1" when that program is a vorna with the window (vorna.exe).
// A Windows program runs under Wine, which shows this machine's "/" as drive Z:; it gets its
// folders and files as "Z:\..." names, as the suite on Windows gives them. Tests that need the
// window (pictures of it) ask ProgramHasWindow().
#pragma once

#include "platform/native_path.h"
#include "platform/text.h"
#include "test_support.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <sys/wait.h>

namespace vorna::test {

struct RunResult {
    int status = -1;
    std::string output;
};

// The text between single quotes for the shell.
inline std::string ShellQuoted(const std::string &text) {
    std::string quoted = "'";
    for (char c : text)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

struct ProgramUnderTest {
    std::string command; // the wrapper and the program, quoted for the shell
    bool window = false;
    bool windowsNames = false;
};

inline const ProgramUnderTest &Program() {
    static const ProgramUnderTest program = [] {
        ProgramUnderTest p;
        const char *named = std::getenv("VORNA_E2E_PROGRAM");
        if (named == nullptr || *named == '\0') {
            p.command = ShellQuoted(VORNA_BINARY);
            p.window = VORNA_BINARY_HAS_WINDOW != 0;
            return p;
        }
        const std::string name = named;
        const char *wrapper = std::getenv("VORNA_E2E_WRAPPER");
        p.command = (wrapper != nullptr && *wrapper != '\0' ? std::string(wrapper) + " " : "") +
                    ShellQuoted(name);
        p.windowsNames = name.ends_with(".exe");
        const char *window = std::getenv("VORNA_E2E_WINDOW");
        p.window = window != nullptr && std::string(window) == "1";
        return p;
    }();
    return program;
}

inline bool ProgramHasWindow() {
    return Program().window;
}

// A file or folder of this machine as the program under test names it.
inline std::string NameForProgram(const std::filesystem::path &path) {
    if (!Program().windowsNames)
        return path.string();
    std::string name = "Z:" + path.string();
    for (char &c : name)
        c = c == '/' ? '\\' : c;
    return name;
}

// A demo suite made by make-demo-suite in a temporary folder, for one test; folder is the
// suite's own folder name (UTF-8), options the tool's (such as "--rounding 0.5").
class DemoSuite {
public:
    explicit DemoSuite(const std::string &folder = "suite", const std::string &options = "")
        : root_(dir_.path() / PathFromUtf8(folder)) {
        // The tool takes plain ASCII paths: the suite is made, then given its name.
        const std::filesystem::path made = dir_.path() / "made";
        EXPECT_EQ(MakeDemoSuite(made, options), 0);
        std::error_code ec;
        std::filesystem::rename(made, root_, ec);
        EXPECT_FALSE(ec) << ec.message();
        Write("impostazioni/dirlav", Utf8ToCp1252(NameForProgram(root_ / "lavori" / "")) + "\r\n");
    }
    const std::filesystem::path &root() const { return root_; }
    std::filesystem::path job() const { return root_ / "lavori" / "demo01"; }
    // The root folder as the program gets it on its command line.
    std::string rootName() const { return NameForProgram(root()); }
    // Writes bytes to a file below the root.
    void Write(const std::string &relative, const std::string &bytes) const {
        WriteBytes(root_ / relative, bytes);
    }

    // Runs the program with the script's lines, headless; standard output is captured.
    RunResult Run(const std::string &script) const { return Run(script, rootName()); }
    RunResult Run(const std::string &script, const std::string &root) const {
        return RunWithPrefix(script, root, "");
    }
    // The same with a command before the program's name (another user's rights, say).
    RunResult RunWithPrefix(const std::string &script, const std::string &root,
                            const std::string &prefix) const {
        dir_.Write("test.script", script);
        std::string command = "QT_QPA_PLATFORM=offscreen " + prefix + Program().command +
                              " --script " +
                              ShellQuoted(NameForProgram(dir_.path() / "test.script")) + " " +
                              ShellQuoted("|diroot=" + root + "|") + " 2>/dev/null";
        RunResult result;
        std::unique_ptr<FILE, int (*)(FILE *)> pipe(popen(command.c_str(), "r"), pclose);
        std::array<char, 4096> buffer;
        std::size_t n;
        while ((n = fread(buffer.data(), 1, buffer.size(), pipe.get())) > 0)
            result.output.append(buffer.data(), n);
        int raw = pclose(pipe.release());
        result.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
        return result;
    }

private:
    TempDir dir_;
    std::filesystem::path root_;
};

} // namespace vorna::test
