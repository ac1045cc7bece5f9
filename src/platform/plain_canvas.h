// A Canvas that keeps its scale and size and draws nothing: the headless runner's surfaces.
#pragma once

#include "platform/canvas.h"

namespace vorna {

class PlainCanvas : public Canvas {
public:
    PlainCanvas(double widthTwips, double heightTwips) : width_(widthTwips), height_(heightTwips) {}
    void Clear() override {}
    void SetLineWidth(int) override {}
    void Line(double, double, double, double, const Pen &) override {}
    void Arc(double, double, double, const Pen &, double, double) override {}
    void FilledCircle(double, double, double, Rgb) override {}
    void SetScale(const ScaleRect &scale) override { scale_ = scale; }
    ScaleRect Scale() const override { return scale_; }
    double WidthTwips() const override { return width_; }
    double HeightTwips() const override { return height_; }
    double TwipsPerPixelX() const override { return 15; }
    double TwipsPerPixelY() const override { return 15; }
    void Refresh() override {}
    void Resize(double widthTwips, double heightTwips) {
        width_ = widthTwips;
        height_ = heightTwips;
    }

private:
    double width_;
    double height_;
    ScaleRect scale_;
};

} // namespace vorna
