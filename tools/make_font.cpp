// make-font: writes the stroke font "font.001" built from a Hershey .jhf font.
#include "stroke_font_builder.h"

#include <iostream>

int main(int argc, char **argv) {
    if (argc < 2 || argc > 3 || argv[1][0] == '-') {
        std::cerr << "usage: make-font OUT [FONT.jhf]\n"
                     "writes the stroke font OUT (font.001) from FONT.jhf, by default "
                  << vorna::tools::kHersheyFont << "\n";
        return 2;
    }
    const std::string problem = argc == 3 ? vorna::tools::WriteStrokeFont(argv[1], argv[2])
                                          : vorna::tools::WriteStrokeFont(argv[1]);
    if (!problem.empty()) {
        std::cerr << "make-font: " << problem << "\n";
        return 1;
    }
    return 0;
}
