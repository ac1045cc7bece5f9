// A drawing surface on screen: shows its QtCanvas's cached picture with the rubber-band
// overlays on top, and reports mouse and wheel events in pixels.
#pragma once

#include "ui/qt/qt_canvas.h"

#include <QMouseEvent>
#include <QWidget>

#include <optional>

namespace vorna::qt {

// A ring around a node: centre and radius, pixels.
struct Ring {
    QPointF centre;
    double radius = 0;
    bool operator==(const Ring &) const = default;
};

// The rubber band, the move line and the rings around the hovered and the found node, in
// pixels of the surface.
struct Overlays {
    std::optional<QRectF> band;
    std::optional<QLineF> moveLine;
    std::optional<Ring> hover;
    std::optional<Ring> marker;
    bool operator==(const Overlays &) const = default;
};

class SurfaceWidget : public QWidget {
    Q_OBJECT
public:
    SurfaceWidget(QColor background, QWidget *parent);

    QtCanvas &Canvas() { return canvas_; }
    void SetOverlays(const Overlays &overlays);
    const Overlays &ShownOverlays() const { return overlays_; }

signals:
    void Pressed(QMouseEvent *event);
    void Moved(QMouseEvent *event);
    void Released(QMouseEvent *event);
    void DoubleClicked(QMouseEvent *event);
    void Wheeled(int steps, QPointF at, Qt::KeyboardModifiers modifiers);
    void KeyPressed(QKeyEvent *event);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QtCanvas canvas_;
    Overlays overlays_;
    int wheelAngle_ = 0; // eighths of a degree not yet turned into whole notches
};

} // namespace vorna::qt
