// Shared by the suite generators: structure checks and text, catalogues, options and folders.
#include "suite_files.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <map>
#include <random>
#include <system_error>
#include <unordered_map>

namespace vorna::tools {
namespace fs = std::filesystem;

namespace {

std::string Num(double v) {
    std::array<char, 64> buffer{};
    auto r =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), v, std::chars_format::fixed);
    return std::string(buffer.data(), r.ptr);
}

std::string Num(int v) {
    return std::to_string(v);
}

// Right-aligned columns, as the suite lays out its numbers; at least one blank before each.
template <typename... T> std::string Columns(int width, T... values) {
    std::string line;
    for (const std::string &text : {Num(values)...}) {
        line.append(static_cast<std::size_t>(std::max(1, width - static_cast<int>(text.size()))),
                    ' ');
        line += text;
    }
    return line;
}

// Every text file of the suite: single-byte text, CR LF after each line.
class TextLines {
public:
    void Line(std::string_view text) {
        bytes_ += text;
        bytes_ += "\r\n";
    }
    const std::string &Bytes() const { return bytes_; }

private:
    std::string bytes_;
};

struct SectionData {
    const char *name;
    std::array<double, 13> values; // kind, A, Iy, Iz, It, Wy, Wz, h, b, tw, tf, r, kg/m
};

// Rolled steel profiles in cm; the "P_" prefix is how the suite marks its own library entries.
constexpr std::array<SectionData, kSectionCardCount> kSections = {{
    {"P_HEA200", {1, 53.8, 3692, 1336, 20.98, 388.6, 133.6, 19, 20, 0.65, 1, 1.8, 42.3}},
    {"P_IPE300", {1, 53.8, 8356, 603.8, 20.12, 557.1, 80.5, 30, 15, 0.71, 1.07, 1.5, 42.2}},
    {"HEB240", {1, 106, 11260, 3923, 102.7, 938.3, 326.9, 24, 24, 1, 1.7, 2.1, 83.2}},
    {"L80x8", {2, 12.3, 72.3, 72.3, 2.6, 12.6, 12.6, 8, 8, 0.8, 0.8, 1, 9.66}},
    {"P_UPN160", {3, 24, 925, 85.3, 7.39, 116, 18.3, 16, 6.5, 0.75, 1.05, 1.05, 18.8}},
    {"P_IPE240", {1, 39.1, 3892, 283.6, 12.88, 324.3, 47.3, 24, 12, 0.62, 0.98, 1.5, 30.7}},
}};

// Plate thicknesses in cm; the sheet is thinner than the display option's default minimum of 1.
constexpr std::array<double, kThicknessCardCount> kThicknesses = {20, 0.5, 12};

std::string SectionCatalogueText() {
    TextLines t;
    t.Line(Num(kSectionCardCount));
    for (int k = 0; k < kSectionCardCount; ++k) {
        std::string card = Num(k + 1) + ",\"" + kSections[k].name + "\"";
        for (double v : kSections[k].values)
            card.append(",").append(Num(v));
        t.Line(card);
    }
    return t.Bytes();
}

std::string ThicknessCatalogueText() {
    TextLines t;
    t.Line(Num(kThicknessCardCount));
    for (int k = 0; k < kThicknessCardCount; ++k) // card, material, plate kind, thickness, flag
        t.Line(Num(k + 1) + ",1,0," + Num(kThicknesses[k]) + ",0");
    return t.Bytes();
}

std::string DisplayOptionsText() {
    // Lines 5, 10 and 23..26 have no use and are left empty.
    const std::array<const char *, 30> values = {
        "1", "1", "1", "4", "",  "1", "5",     "0",        "0",     "",
        "5", "5", "1", "5", "1", "1", "1",     "1",        "1",     "1",
        "1", "1", "",  "",  "",  "",  "65280", "16776960", "65535", "16711680"};
    TextLines t;
    for (const char *v : values)
        t.Line(v);
    return t.Bytes();
}

std::string InternalOptionsText() {
    TextLines t;
    t.Line("15|PC1|Dimensione della trappola");
    t.Line("25|PC2|Lunghezza degli assi");
    t.Line("7|PC3|Dimensione delle lettere degli assi");
    t.Line("15|PC4|Margine degli assi");
    t.Line("1|PC5|Colore degli assi");
    return t.Bytes();
}

std::string ConnectionInputText() {
    TextLines t;
    t.Line("Giunto trave-colonna flangiato - qualit\xE0 S275"); // a Windows-1252 letter on purpose
    t.Line("2");
    t.Line("3");
    t.Line("CO  Colonna");
    t.Line("TR  Trave principale");
    t.Line("DI  Diagonale di controvento");
    return t.Bytes();
}

bool FitsShort(int v) {
    return v >= -32768 && v <= 32767;
}

} // namespace

void AddTrailingSections(Structure &s) {
    s.skipped[0] = {"   1  Pesi propri e permanenti portati",
                    "   2  Sovraccarichi variabili - categoria B uffici"};
    s.skipped[1] = {"   1  0 0 0 0 0 0  Nodo libero", "   2  1 1 1 1 1 1  Incastro"};
    s.skipped[2] = {"   1  S275  2100000  807692  0.3  7.85E-06",
                    "   2  Unit\xE0 di misura: cm, daN"};
    s.lastSection = {{"   1  Combinazione SLU fondamentale", "   1.3  1.5"}};
}

std::string CheckStructure(const Structure &s) {
    auto at = [](const char *what, std::size_t i) {
        return std::string(what) + " " + std::to_string(i + 1) + ": ";
    };
    if (s.versionLine.find("release") == std::string::npos)
        return "the version line lacks \"release\"";
    if (s.points.size() > kPointCapacity || s.nodes.size() > kNodeCapacity ||
        s.bars.size() > kBarCapacity || s.shells.size() > kShellCapacity)
        return "more elements than the reader's tables hold";
    const int pointCount = static_cast<int>(s.points.size());
    std::vector<bool> hasNode(s.points.size(), false);
    for (std::size_t i = 0; i < s.nodes.size(); ++i) {
        const Node &n = s.nodes[i];
        if (n.point < 0 || n.point >= pointCount)
            return at("node", i) + "point out of range";
        if (n.type < 0 || n.type > 3 || n.name < 0 || n.name > kMaxName || n.constraint < 0 ||
            !FitsShort(n.colour) || !FitsShort(n.constraint))
            return at("node", i) + "field out of range";
        hasNode[n.point] = true;
    }
    for (std::size_t i = 0; i < s.bars.size(); ++i) {
        const Bar &b = s.bars[i];
        for (int p : {b.pointI, b.pointJ}) {
            if (p < 0 || p >= pointCount)
                return at("bar", i) + "end out of range";
            if (!hasNode[p])
                return at("bar", i) + "end without a node";
        }
        if (b.section < 0 || b.section >= kSectionCardCount)
            return at("bar", i) + "no such section card";
        for (int v : {b.lineType, b.colour, b.name, b.release, b.orientation})
            if (v < 0 || !FitsShort(v))
                return at("bar", i) + "field out of range";
    }
    for (std::size_t i = 0; i < s.shells.size(); ++i) {
        const Shell &sh = s.shells[i];
        const int corners = sh.vertices[3] == -1 ? 3 : 4;
        for (int c = 0; c < corners; ++c) {
            const int p = sh.vertices[c];
            if (p < 0 || p >= pointCount)
                return at("shell", i) + "corner out of range";
            if (!hasNode[p])
                return at("shell", i) + "corner without a node";
        }
        if (sh.thickness < 0 || sh.thickness >= kThicknessCardCount)
            return at("shell", i) + "no such thickness card";
        if (sh.name < 0 || !FitsShort(sh.name) || sh.colour < 0 || !FitsShort(sh.colour))
            return at("shell", i) + "field out of range";
    }
    // Names are how the user finds elements, so the live ones must not repeat.
    std::map<int, int> nodeNames, barNames;
    for (const Node &n : s.nodes)
        if (n.colour < 10 && n.name >= 1 && ++nodeNames[n.name] > 1)
            return "node name " + Num(n.name) + " repeated";
    for (const Bar &b : s.bars)
        if (b.colour < 10 && b.name >= 1 && ++barNames[b.name] > 1)
            return "bar name " + Num(b.name) + " repeated";
    for (const auto &section : s.skipped)
        for (const std::string &line : section)
            if (line.find_first_of("\r\n") != std::string::npos)
                return "a skipped line holds a line break";
    return {};
}

bool ReadRounding(const std::string &text, double &millimetres) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), millimetres);
    return error == std::errc() && end == text.data() + text.size() && millimetres >= 0 &&
           millimetres <= 1000;
}

void MoveCoordinates(Structure &s, double amount) {
    if (amount <= 0)
        return;
    std::mt19937 rng(20261125);
    std::uniform_real_distribution<double> draw(-amount, amount);
    for (Point &p : s.points)
        for (double *x : {&p.x, &p.y, &p.z})
            *x = std::round((*x + draw(rng)) * 1000) / 1000;
}

std::string StructureText(const Structure &s) {
    TextLines t;
    t.Line(s.versionLine);
    t.Line(Num(static_cast<int>(s.points.size())));
    for (const Point &p : s.points)
        t.Line(Columns(10, p.x, p.y, p.z));
    t.Line(Num(static_cast<int>(s.nodes.size())));
    for (const Node &n : s.nodes) {
        t.Line(Columns(6, n.point) + Columns(4, n.type, n.colour));
        t.Line(Columns(6, n.name) + Columns(4, n.constraint));
    }
    t.Line(Num(static_cast<int>(s.bars.size())));
    for (const Bar &b : s.bars) {
        t.Line(Columns(6, b.pointI, b.pointJ) + Columns(4, b.lineType, b.colour));
        // The two trailing fields are the suite's own and are written as 0.
        t.Line(Columns(6, b.name) + Columns(4, b.section, b.release, b.orientation, 0, 0));
    }
    t.Line(Num(static_cast<int>(s.shells.size())));
    for (const Shell &sh : s.shells) {
        t.Line(Columns(6, sh.vertices[0], sh.vertices[1], sh.vertices[2], sh.vertices[3]));
        t.Line(Columns(4, 0) + Columns(6, sh.name) + Columns(4, sh.thickness, 0, sh.colour));
    }
    for (const auto &section : s.skipped) {
        t.Line(Num(static_cast<int>(section.size())));
        for (const std::string &line : section)
            t.Line(line);
    }
    t.Line(Num(static_cast<int>(s.lastSection.size())));
    for (const auto &record : s.lastSection) {
        t.Line(record[0]);
        t.Line(record[1]);
    }
    return t.Bytes();
}

std::string WriteBytes(const fs::path &file, std::string_view bytes) {
    std::error_code ec;
    if (file.has_parent_path())
        fs::create_directories(file.parent_path(), ec);
    if (ec)
        return "cannot create " + file.parent_path().string() + ": " + ec.message();
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out)
        return "cannot write " + file.string();
    return {};
}

std::string WriteStructureFile(const fs::path &file, const Structure &s) {
    if (std::string problem = CheckStructure(s); !problem.empty())
        return "structure not written: " + problem;
    return WriteBytes(file, StructureText(s));
}

std::string InstallStrokeFont(const fs::path &programsFolder,
                              const std::optional<fs::path> &fontSource) {
    std::error_code ec;
    fs::create_directories(programsFolder, ec);
    if (ec)
        return "cannot create " + programsFolder.string() + ": " + ec.message();
    if (!fontSource)
        return {};
    fs::copy_file(*fontSource, programsFolder / "font.001", fs::copy_options::overwrite_existing,
                  ec);
    if (ec)
        return "cannot copy the font " + fontSource->string() + ": " + ec.message();
    return {};
}

fs::path AbsoluteFolder(const fs::path &folder) {
    fs::path absolute = fs::absolute(folder).lexically_normal();
    return absolute.has_filename() ? absolute : absolute.parent_path();
}

std::string WriteSuite(const fs::path &root, const Structure &s,
                       const std::optional<fs::path> &fontSource) {
    const fs::path absolute = AbsoluteFolder(root);
    // The program splits dirlav at commas and lower-cases it as Windows-1252 text.
    const std::string jobs = absolute.generic_string() + "/lavori/";
    for (unsigned char c : jobs)
        if (c < 0x20 || c >= 0x7F || c == ',' || c == '"')
            return "the suite folder's path must be plain ASCII without commas or quotes: " + jobs;
    if (absolute.generic_string().size() < 3)
        return "the suite folder must not be the file system's root";

    TextLines dirlav, lavoro;
    dirlav.Line(jobs);
    lavoro.Line(kJobName);
    const fs::path job = absolute / "lavori" / kJobName;
    const std::pair<fs::path, std::string> files[] = {
        {absolute / "impostazioni" / "dirlav", dirlav.Bytes()},
        {absolute / "impostazioni" / "lavoro", lavoro.Bytes()},
        {absolute / "custom" / "VorNOpzi.txt", DisplayOptionsText()},
        {absolute / "custom" / "VorOpInt.txt", InternalOptionsText()},
        {job / "sezioni_", SectionCatalogueText()},
        {job / "spessori", ThicknessCatalogueText()},
        {job / "VornaNIn.txt", ConnectionInputText()},
    };
    if (std::string problem = WriteStructureFile(job / "STRUTTUR.STR", s); !problem.empty())
        return problem;
    for (const auto &[file, bytes] : files)
        if (std::string problem = WriteBytes(file, bytes); !problem.empty())
            return problem;
    return InstallStrokeFont(absolute / "progra", fontSource);
}

std::string RangeText(const std::vector<int> &names) {
    std::string text;
    for (std::size_t i = 0; i < names.size();) {
        std::size_t j = i;
        while (j + 1 < names.size() && names[j + 1] == names[j] + 1)
            ++j;
        if (!text.empty())
            text += ',';
        text += Num(names[i]);
        if (j > i)
            text.append("-").append(Num(names[j]));
        i = j + 1;
    }
    return text;
}

JointGroups FindJointGroups(const Structure &s) {
    using Key = std::array<long long, 3>;
    auto quantise = [](double x, double y, double z) {
        return Key{std::llround(x * 1e4), std::llround(y * 1e4), std::llround(z * 1e4)};
    };
    struct KeyHash {
        std::size_t operator()(const Key &k) const {
            return std::hash<long long>()(k[0] * 73856093LL ^ k[1] * 19349663LL ^
                                          k[2] * 83492791LL);
        }
    };
    // Bars meet a node where one of their ends lies on its point, whatever the bar's name.
    std::unordered_map<Key, std::vector<Key>, KeyHash> directionsAt;
    for (const Bar &b : s.bars) {
        const Point &i = s.points[b.pointI], &j = s.points[b.pointJ];
        const double dx = j.x - i.x, dy = j.y - i.y, dz = j.z - i.z;
        const double length = std::sqrt(dx * dx + dy * dy + dz * dz);
        if (length <= 1e-4)
            continue;
        directionsAt[quantise(i.x, i.y, i.z)].push_back(
            quantise(dx / length, dy / length, dz / length));
        directionsAt[quantise(j.x, j.y, j.z)].push_back(
            quantise(-dx / length, -dy / length, -dz / length));
    }
    std::map<std::vector<Key>, std::vector<int>> byDirections;
    for (const Node &n : s.nodes) {
        if (n.colour >= 10 || n.name < 1)
            continue;
        const Point &p = s.points[n.point];
        auto found = directionsAt.find(quantise(p.x, p.y, p.z));
        if (found == directionsAt.end())
            continue;
        std::vector<Key> directions = found->second;
        std::sort(directions.begin(), directions.end());
        byDirections[directions].push_back(n.name);
    }
    JointGroups groups;
    for (const auto &[directions, names] : byDirections) {
        if (names.size() >= 2)
            groups.identical.push_back(names);
        std::vector<Key> mirror = directions;
        for (Key &d : mirror)
            d = Key{-d[0], -d[1], d[2]};
        std::sort(mirror.begin(), mirror.end());
        // Each pair once: from the group whose directions sort first.
        if (directions < mirror) {
            auto other = byDirections.find(mirror);
            if (other != byDirections.end()) {
                if (names < other->second)
                    groups.mirrored.emplace_back(names, other->second);
                else
                    groups.mirrored.emplace_back(other->second, names);
            }
        }
    }
    std::sort(groups.identical.begin(), groups.identical.end());
    std::sort(groups.mirrored.begin(), groups.mirrored.end());
    return groups;
}

void PrintSummary(std::ostream &out, const Structure &s, bool listJoints) {
    auto liveCount = [](const auto &table) {
        return std::count_if(table.begin(), table.end(),
                             [](const auto &e) { return e.colour < 10 && e.name >= 1; });
    };
    const auto thin = std::count_if(s.shells.begin(), s.shells.end(),
                                    [](const Shell &sh) { return kThicknesses[sh.thickness] < 1; });
    const auto triangles = std::count_if(s.shells.begin(), s.shells.end(),
                                         [](const Shell &sh) { return sh.vertices[3] == -1; });
    out << "points " << s.points.size() << ", nodes " << s.nodes.size() << " ("
        << liveCount(s.nodes) << " live), bars " << s.bars.size() << " (" << liveCount(s.bars)
        << " live), shells " << s.shells.size() << " (" << liveCount(s.shells) << " live, "
        << triangles << " triangles, " << thin << " thinner than 1 cm)\n";
    out << "catalogues: " << kSectionCardCount << " sections, " << kThicknessCardCount
        << " thicknesses\n";
    const JointGroups groups = FindJointGroups(s);
    std::size_t largest = 0;
    for (const auto &g : groups.identical)
        largest = std::max(largest, g.size());
    out << "identical joints: " << groups.identical.size() << " groups (largest " << largest
        << " nodes); mirrored pairs of groups: " << groups.mirrored.size() << "\n";
    if (!listJoints)
        return;
    for (const auto &g : groups.identical)
        out << "  identical: " << RangeText(g) << "\n";
    for (const auto &[a, b] : groups.mirrored)
        out << "  mirrored: " << RangeText(a) << "  <->  " << RangeText(b) << "\n";
}

} // namespace vorna::tools
