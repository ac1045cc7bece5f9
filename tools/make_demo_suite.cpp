// make-demo-suite: writes a small suite root with one job, a braced three-storey steel building.
#include "demo_building.h"
#include "stroke_font_builder.h"
#include "suite_files.h"

#include <iostream>
#include <string>

namespace vorna::tools {
namespace {

int Main(int argc, char **argv) {
    std::optional<std::filesystem::path> font;
    std::optional<std::filesystem::path> root;
    double rounding = 0;
    bool usable = true;
    for (int i = 1; i < argc && usable; ++i) {
        const std::string arg = argv[i];
        if (arg == "--font" && i + 1 < argc)
            font = argv[++i];
        else if (arg == "--rounding" && i + 1 < argc)
            usable = ReadRounding(argv[++i], rounding);
        else if (!arg.empty() && arg[0] != '-' && !root)
            root = arg;
        else
            usable = false;
    }
    if (!usable || !root) {
        std::cerr << "usage: make-demo-suite [--font FILE] [--rounding MM] DIR\n"
                     "writes a suite root with the job demo01 into DIR; the stroke font is built\n"
                     "from the Hershey fonts unless --font gives a font.001 to copy; --rounding\n"
                     "moves every coordinate by up to MM millimetres, as a CAD export does\n";
        return 2;
    }
    Structure s = DemoBuilding();
    MoveCoordinates(s, rounding / 10); // the building is drawn in centimetres
    std::string problem = WriteSuite(*root, s, font);
    if (problem.empty() && !font)
        problem = WriteStrokeFont(AbsoluteFolder(*root) / "progra" / "font.001");
    if (!problem.empty()) {
        std::cerr << "make-demo-suite: " << problem << "\n";
        return 1;
    }
    std::cout << "demo suite written to " << AbsoluteFolder(*root).string() << " (job " << kJobName
              << ")\n";
    PrintSummary(std::cout, s, true);
    std::cout << "start it with: vorna \"|diroot=" << AbsoluteFolder(*root).string() << "|\"\n";
    return 0;
}

} // namespace
} // namespace vorna::tools

int main(int argc, char **argv) {
    return vorna::tools::Main(argc, argv);
}
