// End-to-end runs: the real vorna binary on a fresh demo suite, driven by a script.
#pragma once

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

// A demo suite made by make-demo-suite in a temporary folder, for one test.
class DemoSuite {
public:
    DemoSuite() {
        std::string command =
            std::string(VORNA_DEMO_TOOL) + " " + dir_.path().string() + " >/dev/null";
        EXPECT_EQ(std::system(command.c_str()), 0);
    }
    const std::filesystem::path &root() const { return dir_.path(); }
    std::filesystem::path job() const { return dir_.path() / "lavori" / "demo01"; }
    void Write(const std::string &relative, const std::string &bytes) const {
        dir_.Write(relative, bytes);
    }

    // Runs vorna --script with the lines given, headless; standard output is captured. The
    // prefix goes before the program's name (another user's rights, say).
    RunResult Run(const std::string &script, const std::string &prefix = "") const {
        dir_.Write("test.script", script);
        std::string command = "QT_QPA_PLATFORM=offscreen " + prefix + std::string(VORNA_BINARY) +
                              " --script " + (dir_.path() / "test.script").string() +
                              " \"|diroot=" + dir_.path().string() + "|\" 2>/dev/null";
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
};

} // namespace vorna::test
