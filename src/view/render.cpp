// The rendering traversal: axis triad, shells, bars, nodes and labels, with the highlights of
// the base node, the base bars and the analogous nodes. One traversal serves the screen and the
// export into the drawing buffers.
#include "view/render.h"

#include "platform/number_text.h"
#include "platform/portable_math.h"
#include "platform/tolerance.h"
#include "projection/visibility.h"
#include "view/primitives.h"
#include "view/stroke_font.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>

namespace vorna {
namespace {

constexpr double kSqrt2 = 1.4142135623730951;

int PixelWidth(double option) {
    return static_cast<int>(std::clamp(RoundHalfEven(option), 1.0, 1000.0));
}

Rgb OptionColour(double option) {
    return static_cast<Rgb>(std::clamp(RoundHalfEven(option), 0.0, 16777215.0));
}

int OptionCode(double option) {
    return static_cast<int>(std::clamp(RoundHalfEven(option), -32768.0, 32767.0));
}

void AppendInt(std::string &text, long long value) {
    char digits[24];
    auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    text.append(digits, end);
}

std::string_view Trimmed(std::string_view s) {
    const auto first = s.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return s.substr(first, s.find_last_not_of(" \t") - first + 1);
}

void AppendPart(std::string &text, std::string_view prefix, long long value) {
    if (!text.empty())
        text += ' ';
    text += prefix;
    AppendInt(text, value);
}

// The base bars in ascending order, walked along with the bar loop: an O(1) membership test
// for bars visited in ascending order.
class BaseBarCursor {
public:
    explicit BaseBarCursor(std::span<const std::int16_t> bars) : sorted_(bars.begin(), bars.end()) {
        std::sort(sorted_.begin(), sorted_.end());
    }
    bool Holds(int bar) {
        while (next_ < sorted_.size() && sorted_[next_] < bar)
            ++next_;
        return next_ < sorted_.size() && sorted_[next_] == bar;
    }

private:
    std::vector<std::int16_t> sorted_;
    std::size_t next_ = 0;
};

// The canvas with the line width set only when it changes.
class Painter {
public:
    explicit Painter(Canvas &canvas) : canvas_(canvas) {}

    Canvas &Target() { return canvas_; }
    void Width(int pixels) {
        if (pixels != width_) {
            canvas_.SetLineWidth(pixels);
            width_ = pixels;
        }
    }

private:
    Canvas &canvas_;
    int width_ = -1;
};

void DrawAxisTriad(const DrawInput &in, Painter &p) {
    const Canvas &m = p.Target();
    const double axisLength = PixelsToUnits(m, in.internal(opt::kAxisLength));
    const double letter = PixelsToUnits(m, in.internal(opt::kAxisLetterSize));
    const double margin = PixelsToUnits(m, in.internal(opt::kAxisMargin));
    const int colour = OptionCode(in.internal(opt::kAxisColour));
    const ScaleRect s = m.Scale();
    double ox = s.left + margin, oy = s.top + s.height + margin;

    // Move the origin so that no axis, letter included, leaves the corner.
    double shiftX = 0, shiftY = 0;
    for (std::size_t k = 0; k < 3; ++k) {
        const double ax = in.view.axisImage[2 * k], ay = in.view.axisImage[2 * k + 1];
        const double len = Hypot(ax, ay);
        if (len < kTolerance)
            continue;
        const double reach = axisLength * len + 1.2 * kSqrt2 * letter;
        shiftX = std::min(shiftX, ax * reach / len);
        shiftY = std::min(shiftY, ay * reach / len);
    }
    ox -= shiftX;
    oy -= shiftY;

    static constexpr std::array<const char *, 3> kNames = {"X", "Y", "Z"};
    for (std::size_t k = 0; k < 3; ++k) {
        const double ax = in.view.axisImage[2 * k], ay = in.view.axisImage[2 * k + 1];
        const double len = Hypot(ax, ay);
        DrawLine(p.Target(), ox, oy, ox + axisLength * ax, oy + axisLength * ay, PenOfCode(colour));
        // The letter's box is centred on its point, just beyond the tip.
        double cx = ox, cy = oy + 1.1 * kSqrt2 * letter;
        if (len >= kTolerance) {
            const double d = axisLength * len + 0.7 * kSqrt2 * letter;
            cx = ox + d * ax / len;
            cy = oy + d * ay / len;
        }
        DrawText(in.font, kNames[k], cx - letter / 2, cy - letter / 2, 0, letter, letter, 1,
                 p.Target());
    }
}

void DrawShells(const DrawInput &in, Painter &p) {
    const StructureModel &model = in.model;
    const bool hideThin = in.display(opt::kHideThinShells) == 1;
    const double minThickness = in.display(opt::kMinShellThickness);
    const int width = PixelWidth(in.display(opt::kWidthNormal));
    for (int i = 0; i < model.shellCount; ++i) {
        const Shell &s = model.shells[i];
        if (!IsLive(s) || !in.view.shellShown[i])
            continue;
        if (hideThin && !(ThicknessOf(model, s.thicknessCard) > minThickness))
            continue;
        p.Width(width);
        const Pen pen = PenOfCode(s.colour);
        const int corners = s.vertices[3] < 0 ? 3 : 4;
        for (int k = 0; k < corners; ++k) {
            const int a = s.vertices[k], b = s.vertices[(k + 1) % corners];
            DrawLine(p.Target(), ProjectedXOf(in.view, a), ProjectedYOf(in.view, a),
                     ProjectedXOf(in.view, b), ProjectedYOf(in.view, b), pen);
        }
    }
}

void DrawBars(const DrawInput &in, Painter &p) {
    const StructureModel &model = in.model;
    const int normal = PixelWidth(in.display(opt::kWidthNormal));
    const int selected = PixelWidth(in.display(opt::kWidthSelected));
    const Rgb baseColour = OptionColour(in.display(opt::kBaseBarColour));
    const Rgb analogousColour = OptionColour(in.display(opt::kAnalogousBarColour));
    BaseBarCursor baseBars(in.highlights.baseBars);
    for (int i = 0; i < model.barCount; ++i) {
        const Bar &b = model.bars[i];
        if (!IsLive(b) || !in.view.barShown[i])
            continue;
        // A highlight changes what the screen shows; the element keeps its own colour code.
        Pen pen = PenOfCode(b.colour);
        if (baseBars.Holds(i)) {
            p.Width(selected);
            pen.rgb = baseColour;
        } else if (in.highlights.listed.Bar(i)) {
            p.Width(selected);
            pen.rgb = analogousColour;
        } else {
            p.Width(normal);
        }
        DrawLine(p.Target(), ProjectedXOf(in.view, b.pointI), ProjectedYOf(in.view, b.pointI),
                 ProjectedXOf(in.view, b.pointJ), ProjectedYOf(in.view, b.pointJ), pen);
    }
}

// A node's circle: its pen, and whether it is drawn with the width of selected elements.
Pen NodePen(const DrawInput &in, int node, bool &selected) {
    Pen pen = PenOfCode(in.model.nodes[node].colour);
    const bool analogousHighlighted = in.display(opt::kColourAnalogous) == 1;
    selected = true;
    if (node == in.highlights.baseNode) {
        pen.rgb = OptionColour(in.display(opt::kBaseNodeColour));
    } else if (!in.highlights.listed.Node(node)) {
        selected = false;
        if (!analogousHighlighted)
            pen.rgb = OptionColour(in.display(opt::kHighlightColour));
    } else if (analogousHighlighted) {
        pen.rgb = OptionColour(in.display(opt::kHighlightColour));
    }
    return pen;
}

Rgb NodeFill(const DrawInput &in, int node) {
    return static_cast<std::size_t>(node) < in.nodeFills.size() ? in.nodeFills[node] : 0;
}

void DrawNodes(const DrawInput &in, Painter &p) {
    const StructureModel &model = in.model;
    const double radius = PixelsToUnits(p.Target(), in.display(opt::kNodeRadius));
    const int normal = PixelWidth(in.display(opt::kWidthNormal));
    const int wide = PixelWidth(in.display(opt::kWidthSelected));
    for (int i = 0; i < model.nodeCount; ++i) {
        const Node &n = model.nodes[i];
        if (!IsLive(n) || !in.view.nodeShown[i])
            continue;
        bool selected = false;
        const Pen pen = NodePen(in, i, selected);
        p.Width(selected ? wide : normal);
        const double x = ProjectedXOf(in.view, n.pointIndex),
                     y = ProjectedYOf(in.view, n.pointIndex);
        if (const Rgb fill = NodeFill(in, i))
            p.Target().FilledCircle(x, y, radius, fill);
        DrawArc(p.Target(), x, y, 2 * radius, pen);
    }
}

// Over the picture: the joint's bars at twice the selected width, then a ring a few pixels
// around its node's circle in the colour the window rings a found node with.
void DrawLookedAt(const DrawInput &in, Painter &p) {
    const LookedAtJoint *joint = in.highlights.lookedAt;
    const StructureModel &model = in.model;
    if (joint == nullptr || joint->node < 0 || joint->node >= model.nodeCount)
        return;
    p.Width(2 * PixelWidth(in.display(opt::kWidthSelected)));
    for (const ColouredBar &bar : joint->bars) {
        if (bar.bar < 0 || bar.bar >= model.barCount)
            continue;
        const Bar &b = model.bars[bar.bar];
        DrawLine(p.Target(), ProjectedXOf(in.view, b.pointI), ProjectedYOf(in.view, b.pointI),
                 ProjectedXOf(in.view, b.pointJ), ProjectedYOf(in.view, b.pointJ), Pen{bar.colour});
    }
    constexpr Rgb kRing = PackRgb(255, 200, 0);
    constexpr double kRingGap = 8; // pixels
    const int point = model.nodes[joint->node].pointIndex;
    p.Width(2);
    DrawArc(p.Target(), ProjectedXOf(in.view, point), ProjectedYOf(in.view, point),
            2 * PixelsToUnits(p.Target(), in.display(opt::kNodeRadius) + kRingGap), Pen{kRing});
}

struct LabelStyle {
    double width, height, distance;
    int colour;
};

// The most characters a number part takes: a blank, its letter and a 16-bit number (+1). With
// it a label's reach is known before its text is made: on screen most labels of a large model
// cannot be seen, and are not made at all.
constexpr std::size_t kNumberPartChars = 8;

void DrawNodeLabels(const DrawInput &in, const LabelStyle &style, Painter &p) {
    const StructureModel &model = in.model;
    const bool name = in.display(opt::kNodeLabelName) == 1;
    const bool constraint = in.display(opt::kNodeLabelConstraint) == 1;
    const std::size_t most = (name ? kNumberPartChars : 0) + (constraint ? kNumberPartChars : 0);
    // The text starts left of and below the node, by the distance and its own size.
    const double spread = 2 * std::abs(style.distance) +
                          static_cast<double>(most) * std::abs(style.width) +
                          std::abs(style.height);
    std::string text;
    for (int i = 0; i < model.nodeCount; ++i) {
        const Node &n = model.nodes[i];
        if (!IsLive(n) || !in.view.nodeShown[i])
            continue;
        if (!TextMayShow(in.font, p.Target(), most, ProjectedXOf(in.view, n.pointIndex),
                         ProjectedYOf(in.view, n.pointIndex), spread, style.width, style.height))
            continue;
        text.clear();
        if (name)
            AppendPart(text, "N", n.name);
        if (constraint)
            AppendPart(text, "V", n.constraintCard + 1);
        if (text.empty())
            continue;
        const double chars = static_cast<double>(text.size());
        const double x = ProjectedXOf(in.view, n.pointIndex) - style.distance - chars * style.width;
        const double y = ProjectedYOf(in.view, n.pointIndex) - style.height - style.distance;
        DrawText(in.font, text, x, y, 0, style.width, style.height, style.colour, p.Target());
    }
}

void DrawBarLabels(const DrawInput &in, const LabelStyle &style, Painter &p) {
    const StructureModel &model = in.model;
    const bool name = in.display(opt::kBarLabelName) == 1;
    const bool section = in.display(opt::kBarLabelSection) == 1;
    const bool sectionCard = in.display(opt::kBarLabelSectionCard) == 1;
    const bool orientation = in.display(opt::kBarLabelOrientation) == 1;
    const bool release = in.display(opt::kBarLabelRelease) == 1;
    const double pi = 4 * Atan(1.0);
    std::size_t longestSection = 0;
    if (section)
        for (const std::string &s : model.sectionNames)
            longestSection = std::max(longestSection, s.size());
    const std::size_t most =
        (name ? kNumberPartChars : 0) + (section ? 1 + longestSection : 0) +
        kNumberPartChars * ((sectionCard ? 1 : 0) + (orientation ? 1 : 0) + (release ? 1 : 0));
    // The text starts within half its length and its offset of the bar's middle.
    const double spread = static_cast<double>(most) * std::abs(style.width) / 2 +
                          std::abs(style.distance) + std::abs(style.height) / 2;
    std::string text;
    for (int i = 0; i < model.barCount; ++i) {
        const Bar &b = model.bars[i];
        if (!IsLive(b) || !in.view.barShown[i])
            continue;
        if (!TextMayShow(in.font, p.Target(), most,
                         (ProjectedXOf(in.view, b.pointI) + ProjectedXOf(in.view, b.pointJ)) / 2,
                         (ProjectedYOf(in.view, b.pointI) + ProjectedYOf(in.view, b.pointJ)) / 2,
                         spread, style.width, style.height))
            continue;
        text.clear();
        if (name)
            AppendPart(text, "A", b.name);
        if (section) {
            const std::string_view sectionName = Trimmed(SectionNameOf(model, b.sectionCard));
            if (!sectionName.empty()) {
                if (!text.empty())
                    text += ' ';
                text += sectionName;
            }
        }
        if (sectionCard)
            AppendPart(text, "S", b.sectionCard + 1);
        if (orientation)
            AppendPart(text, "O", b.orientationCard + 1);
        if (release)
            AppendPart(text, "C", b.releaseCard + 1);
        if (text.empty())
            continue;
        const double x1 = ProjectedXOf(in.view, b.pointI), y1 = ProjectedYOf(in.view, b.pointI);
        const double x2 = ProjectedXOf(in.view, b.pointJ), y2 = ProjectedYOf(in.view, b.pointJ);
        const double along = static_cast<double>(text.size()) * style.width / 2;
        const double off = style.distance + style.height / 2;
        const double mx = (x1 + x2) / 2, my = (y1 + y2) / 2;
        // The text reads left to right along the bar: the angle lies in (-90, 90] degrees.
        double degrees = 90;
        if (std::abs(x1 - x2) > kTolerance) {
            degrees = Atan(std::abs((y1 - y2) / (x1 - x2))) * 180 / pi;
            if ((x1 - x2) * (y1 - y2) < 0)
                degrees = -degrees;
        }
        const double theta = degrees * pi / 180;
        const double x = mx - along * Cos(theta) - off * Sin(theta);
        const double y = my - along * Sin(theta) + off * Cos(theta);
        DrawText(in.font, text, x, y, static_cast<int>(std::floor(degrees)), style.width,
                 style.height, style.colour, p.Target());
    }
}

void Traverse(const DrawInput &in, Painter &p) {
    if (in.showAxes) {
        p.Width(1);
        DrawAxisTriad(in, p);
    }
    DrawShells(in, p);
    DrawBars(in, p);
    DrawNodes(in, p);
    DrawLookedAt(in, p);
    p.Target().Refresh();
    p.Width(1);
    const LabelStyle style{in.display(opt::kTextWidth), in.display(opt::kTextHeight),
                           in.display(opt::kTextDistance),
                           OptionCode(in.display(opt::kTextColour))};
    if (in.display(opt::kNodeLabels) == 1)
        DrawNodeLabels(in, style, p);
    if (in.display(opt::kBarLabels) == 1)
        DrawBarLabels(in, style, p);
}

} // namespace

void DrawStructure(const DrawInput &in, Canvas &surface) {
    surface.Clear();
    Painter painter(surface);
    Traverse(in, painter);
}

void ExportDrawing(const DrawInput &in, const Canvas &surface, DrawBuffers &buffers) {
    BufferCanvas canvas(surface, buffers, true);
    Painter painter(canvas);
    // The drawing keeps every element's own colour code: no joint-type fills, no joint looked at.
    DrawInput own = in;
    own.nodeFills = {};
    own.highlights.lookedAt = nullptr;
    Traverse(own, painter);
}

Rgb NodeDrawnColour(const DrawInput &in, int node) {
    if (const Rgb fill = NodeFill(in, node))
        return fill;
    bool selected = false;
    return NodePen(in, node, selected).rgb;
}

} // namespace vorna
