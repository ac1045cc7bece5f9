// The structure model: fixed-capacity tables of points, nodes, bars and shells in file order,
// and the section and thickness catalogues.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace vorna {

constexpr int kPointCapacity = 20001;
constexpr int kNodeCapacity = 20001;
constexpr int kBarCapacity = 20001;
constexpr int kShellCapacity = 16001;
constexpr int kSectionNameCapacity = 100;
constexpr int kThicknessCapacity = 16001;
constexpr int kMaxSectionCards = 99;
constexpr int kMaxThicknessCards = 100;

// Colour codes 1..9 are the suite's colours; 108 stands for every colour or point type.
constexpr std::int16_t kAllCodes = 108;

struct Point {
    double x = 0;
    double y = 0;
    double z = 0;
};

struct Node {
    std::int16_t pointIndex = 0;
    std::int16_t pointType = 0;
    std::int16_t colour = 0;
    std::int16_t name = 0;
    std::int16_t constraintCard = 0; // 0-based: card k is stored as k - 1
};

struct Bar {
    std::int16_t pointI = 0;
    std::int16_t pointJ = 0;
    std::int16_t lineType = 0;
    std::int16_t colour = 0;
    std::int16_t name = 0;
    std::int16_t sectionCard = 0; // 0-based index into sectionNames
    std::int16_t releaseCard = 0;
    std::int16_t orientationCard = 0;
};

struct Shell {
    std::array<std::int16_t, 4> vertices{}; // a negative fourth vertex marks a triangle
    std::int16_t name = 0;
    std::int16_t thicknessCard = 0; // 0-based index into thicknessValues
    std::int16_t colour = 0;
};

// Tables are allocated once at full capacity; the counts say how many leading entries are valid.
struct StructureModel {
    std::int16_t pointCount = 0;
    std::int16_t nodeCount = 0;
    std::int16_t barCount = 0;
    std::int16_t shellCount = 0;
    std::vector<Point> points = std::vector<Point>(kPointCapacity);
    std::vector<Node> nodes = std::vector<Node>(kNodeCapacity);
    std::vector<Bar> bars = std::vector<Bar>(kBarCapacity);
    std::vector<Shell> shells = std::vector<Shell>(kShellCapacity);

    std::vector<std::string> sectionNames = std::vector<std::string>(kSectionNameCapacity);
    std::vector<double> thicknessValues = std::vector<double>(kThicknessCapacity);
    std::int16_t thicknessCardCount = 0;
};

// Live elements are drawn and selected; the others keep their place so indices match the file.
inline bool IsLive(std::int16_t colour, std::int16_t name) {
    return colour < 10 && name >= 1;
}
inline bool IsLive(const Node &n) {
    return IsLive(n.colour, n.name);
}
inline bool IsLive(const Bar &b) {
    return IsLive(b.colour, b.name);
}
inline bool IsLive(const Shell &s) {
    return IsLive(s.colour, s.name);
}

// A point index that the file gave but that lies outside the point table reads as the origin,
// so that no part follows it out of bounds.
inline const Point &PointAt(const StructureModel &model, int index) {
    static const Point origin{};
    return index >= 0 && index < model.pointCount ? model.points[index] : origin;
}

// The section name of a card, empty when the card has no catalogue entry.
inline const std::string &SectionNameOf(const StructureModel &model, int card) {
    static const std::string none;
    return card >= 0 && card < kSectionNameCapacity ? model.sectionNames[card] : none;
}

// The plate thickness of a card, 0 when the card was not read.
inline double ThicknessOf(const StructureModel &model, int card) {
    return card >= 0 && card < model.thicknessCardCount ? model.thicknessValues[card] : 0.0;
}

} // namespace vorna
