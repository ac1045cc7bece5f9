// The full-capacity structure the benchmarks run on, generated once per run by make-large-model,
// the stroke font that writes its labels, and a suite root holding both.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace vorna::bench {

// A folder holding a STRUTTUR.STR made by make-large-model with these options.
inline std::filesystem::path MadeLargeModel(const std::string &name, const std::string &options) {
    auto dir = std::filesystem::temp_directory_path() / name;
    std::filesystem::create_directories(dir);
    std::string command =
        std::string(VORNA_LARGE_TOOL) + " " + options + " " + dir.string() + " >/dev/null";
    if (std::system(command.c_str()) != 0)
        std::abort();
    return dir;
}

// The folder holding the generated STRUTTUR.STR.
inline const std::filesystem::path &LargeModelFolder() {
    static const std::filesystem::path folder = MadeLargeModel("vorna-bench-model", "");
    return folder;
}

// The same structure with every coordinate rounded by up to half a millimetre, as a CAD export
// leaves it.
inline const std::filesystem::path &RoundedLargeModelFolder() {
    static const std::filesystem::path folder =
        MadeLargeModel("vorna-bench-rounded-model", "--rounding 0.5");
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
