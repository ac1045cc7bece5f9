// Shared by the suite generators: the structure to write, the suite's text files and its folders.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace vorna::tools {

// The tables of the program that reads these files hold no more than this.
inline constexpr int kPointCapacity = 20001;
inline constexpr int kNodeCapacity = 20001;
inline constexpr int kBarCapacity = 20001;
inline constexpr int kShellCapacity = 16001;
inline constexpr int kMaxName = 32000;

// Colour codes of the suite.
inline constexpr int kWhite = 1, kBlue = 2, kRed = 3, kGreen = 4, kYellow = 5, kDarkGreen = 6,
                     kMagenta = 7, kLightBlue = 8, kOrange = 9;

// Card indices (0-based, as STRUTTUR.STR stores them) into the catalogues written by WriteSuite.
enum SectionCard { kHEA200, kIPE300, kHEB240, kL80x8, kUPN160, kIPE240, kSectionCardCount };
enum ThicknessCard { kSlab20, kSheet05, kSlab12, kThicknessCardCount };

struct Point {
    double x = 0, y = 0, z = 0;
};

struct Node {
    int point = 0, type = 0, colour = 0, name = 0, constraint = 0;
};

struct Bar {
    int pointI = 0, pointJ = 0, lineType = 0, colour = 0;
    int name = 0, section = 0, release = 0, orientation = 0;
};

struct Shell {
    std::array<int, 4> vertices{}; // fourth vertex -1: a triangle
    int name = 0, thickness = 0, colour = 0;
};

struct Structure {
    std::string versionLine = "Telaris release 4.0";
    std::vector<Point> points;
    std::vector<Node> nodes;
    std::vector<Bar> bars;
    std::vector<Shell> shells;
    // The sections the reader skips by count: three of single lines, then one of two-line records.
    std::array<std::vector<std::string>, 3> skipped;
    std::vector<std::array<std::string, 2>> lastSection;
};

// The sections after the shells, with the filler both generators write.
void AddTrailingSections(Structure &s);

// Every coordinate moved by a draw from -amount to +amount, as a CAD export's rounding leaves a
// model: the same draws on every run, the moved values kept to a thousandth of a unit.
void MoveCoordinates(Structure &s, double amount);
// The millimetres of --rounding: a number from 0 to 1000; false for anything else.
bool ReadRounding(const std::string &text, double &millimetres);

// Empty when the structure fits the reader's tables and field ranges, every index points at an
// existing point or card, and every bar end and shell corner has a node on it.
std::string CheckStructure(const Structure &s);

// The file's bytes: Windows-1252 text, CR LF after every line.
std::string StructureText(const Structure &s);

// Writes bytes to a file, creating its folder. Returns an error text, empty on success.
std::string WriteBytes(const std::filesystem::path &file, std::string_view bytes);

// Checks the structure and writes it. Returns an error text, empty on success.
std::string WriteStructureFile(const std::filesystem::path &file, const Structure &s);

// Copies a stroke font into the programs folder as font.001; without a source nothing is copied
// and the program starts without labels. Returns an error text, empty on success.
std::string InstallStrokeFont(const std::filesystem::path &programsFolder,
                              const std::optional<std::filesystem::path> &fontSource);

// A complete suite root: settings files, options, the job folder "demo01" with the structure, the
// catalogues and the connection input, and the programs folder. Returns an error text.
std::string WriteSuite(const std::filesystem::path &root, const Structure &s,
                       const std::optional<std::filesystem::path> &fontSource);

inline constexpr std::string_view kJobName = "demo01";

// The folder as an absolute path without a trailing separator, as dirlav and the command line
// name it.
std::filesystem::path AbsoluteFolder(const std::filesystem::path &folder);

// Names as runs, "3-5,9", in the order given.
std::string RangeText(const std::vector<int> &names);

// Live nodes grouped by the directions of the bars at them: identical joints share every
// direction; a mirrored pair of groups has directions (x, y, z) and (-x, -y, z).
struct JointGroups {
    std::vector<std::vector<int>> identical;                             // groups of 2 or more
    std::vector<std::pair<std::vector<int>, std::vector<int>>> mirrored; // each pair once
};
JointGroups FindJointGroups(const Structure &s);

// Counts of every table, live elements and thin shells; joint groups listed when listJoints.
void PrintSummary(std::ostream &out, const Structure &s, bool listJoints);

} // namespace vorna::tools
