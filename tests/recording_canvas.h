// A Canvas that records every call in order, with its colour, width and coordinates.
#pragma once

#include "platform/canvas.h"

#include <string>
#include <vector>

namespace vorna::test {

struct CanvasCall {
    enum Kind { Clear, Width, Line, Arc, FilledCircle, SetScale, Refresh } kind;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0; // Line ends; Arc/FilledCircle centre in x1, y1
    double radius = 0;
    Rgb colour = 0;
    int width = 0;
};

class RecordingCanvas : public Canvas {
public:
    RecordingCanvas(double widthTwips = 15000, double heightTwips = 15000)
        : widthTwips_(widthTwips), heightTwips_(heightTwips) {}

    void Clear() override { calls.push_back({CanvasCall::Clear}); }
    void SetLineWidth(int pixels) override {
        CanvasCall c{CanvasCall::Width};
        c.width = pixels;
        calls.push_back(c);
    }
    void Line(double x1, double y1, double x2, double y2, const Pen &pen) override {
        calls.push_back({CanvasCall::Line, x1, y1, x2, y2, 0, pen.rgb});
    }
    void Arc(double x, double y, double radius, const Pen &pen, double, double) override {
        calls.push_back({CanvasCall::Arc, x, y, 0, 0, radius, pen.rgb});
    }
    void FilledCircle(double x, double y, double radius, Rgb colour) override {
        calls.push_back({CanvasCall::FilledCircle, x, y, 0, 0, radius, colour});
    }
    void SetScale(const ScaleRect &scale) override {
        scale_ = scale;
        calls.push_back({CanvasCall::SetScale, scale.left, scale.top, scale.width, scale.height});
    }
    ScaleRect Scale() const override { return scale_; }
    double WidthTwips() const override { return widthTwips_; }
    double HeightTwips() const override { return heightTwips_; }
    double TwipsPerPixelX() const override { return 15; }
    double TwipsPerPixelY() const override { return 15; }
    void Refresh() override { calls.push_back({CanvasCall::Refresh}); }

    // The calls of one kind, in order.
    std::vector<CanvasCall> Of(CanvasCall::Kind kind) const {
        std::vector<CanvasCall> out;
        for (const CanvasCall &c : calls)
            if (c.kind == kind)
                out.push_back(c);
        return out;
    }
    // One letter per call ("C" clear, "W" width, "L" line, "A" arc, "S" scale, "R" refresh):
    // the order of a drawing at a glance.
    std::string Sequence() const {
        static const char kLetters[] = "CWLAFSR";
        std::string s;
        for (const CanvasCall &c : calls)
            s += kLetters[c.kind];
        return s;
    }

    std::vector<CanvasCall> calls;

private:
    double widthTwips_, heightTwips_;
    ScaleRect scale_{0, 100, 100, -100};
};

} // namespace vorna::test
