// The full-capacity structure the benchmarks run on, generated once per run by make-large-model,
// the stroke font that writes its labels, and a suite root holding both.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace vorna::bench {

// The folder holding the generated STRUTTUR.STR.
inline const std::filesystem::path &LargeModelFolder() {
    static const std::filesystem::path folder = [] {
        auto dir = std::filesystem::temp_directory_path() / "vorna-bench-model";
        std::filesystem::create_directories(dir);
        std::string command = std::string(VORNA_LARGE_TOOL) + " " + dir.string() + " >/dev/null";
        if (std::system(command.c_str()) != 0)
            std::abort();
        return dir;
    }();
    return folder;
}

// A folder holding the stroke font font.001, built by make-font.
inline const std::filesystem::path &StrokeFontFolder() {
    static const std::filesystem::path folder = [] {
        auto dir = std::filesystem::temp_directory_path() / "vorna-bench-font";
        std::filesystem::create_directories(dir);
        std::string command =
            std::string(VORNA_FONT_TOOL) + " " + (dir / "font.001").string() + " >/dev/null";
        if (std::system(command.c_str()) != 0)
            std::abort();
        return dir;
    }();
    return folder;
}

// A whole suite root whose job is the full-capacity structure, with the stroke font.
inline const std::filesystem::path &LargeSuiteFolder() {
    static const std::filesystem::path folder = [] {
        auto dir = std::filesystem::temp_directory_path() / "vorna-bench-suite";
        std::filesystem::remove_all(dir);
        std::string command = std::string(VORNA_LARGE_TOOL) + " --suite " + dir.string() +
                              " --font " + (StrokeFontFolder() / "font.001").string() +
                              " >/dev/null";
        if (std::system(command.c_str()) != 0)
            std::abort();
        return dir;
    }();
    return folder;
}

} // namespace vorna::bench
