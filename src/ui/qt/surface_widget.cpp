// A drawing surface on screen: the cached picture, the overlays, and mouse and wheel events.
#include "ui/qt/surface_widget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

namespace vorna::qt {

namespace {

constexpr int kNotch = 120; // eighths of a degree per wheel notch

} // namespace

SurfaceWidget::SurfaceWidget(QColor background, QWidget *parent)
    : QWidget(parent), canvas_(QSize(1, 1), background, this) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::ClickFocus);
    canvas_.SetDpi(logicalDpiX(), logicalDpiY());
}

void SurfaceWidget::SetOverlays(const Overlays &overlays) {
    if (overlays == overlays_)
        return;
    overlays_ = overlays;
    update();
}

void SurfaceWidget::paintEvent(QPaintEvent *) {
    // Moved to a screen of another scale: the picture takes its pixels (the old one stretched
    // until the next redraw).
    if (devicePixelRatioF() != canvas_.DeviceRatio())
        canvas_.Resize(size(), devicePixelRatioF());
    QPainter p(this);
    p.drawImage(0, 0, canvas_.Image());
    // Overlays live above the picture, so moving them never repaints the model. A hairline stays
    // one device pixel at any screen scale, like the picture's.
    QPen hairline(Qt::white, 1);
    hairline.setCosmetic(true);
    p.setPen(hairline);
    p.setBrush(Qt::NoBrush);
    if (overlays_.band)
        p.drawRect(*overlays_.band);
    if (overlays_.moveLine)
        p.drawLine(*overlays_.moveLine);
    p.setRenderHint(QPainter::Antialiasing);
    if (overlays_.hover)
        p.drawEllipse(overlays_.hover->centre, overlays_.hover->radius, overlays_.hover->radius);
    if (overlays_.marker) {
        p.setPen(QPen(QColor(255, 200, 0), 2));
        p.drawEllipse(overlays_.marker->centre, overlays_.marker->radius, overlays_.marker->radius);
    }
}

void SurfaceWidget::resizeEvent(QResizeEvent *) {
    canvas_.SetDpi(logicalDpiX(), logicalDpiY());
    canvas_.Resize(size(), devicePixelRatioF());
}

void SurfaceWidget::mousePressEvent(QMouseEvent *event) {
    emit Pressed(event);
}
void SurfaceWidget::mouseMoveEvent(QMouseEvent *event) {
    emit Moved(event);
}
void SurfaceWidget::mouseReleaseEvent(QMouseEvent *event) {
    emit Released(event);
}
void SurfaceWidget::mouseDoubleClickEvent(QMouseEvent *event) {
    emit DoubleClicked(event);
}

void SurfaceWidget::wheelEvent(QWheelEvent *event) {
    wheelAngle_ += event->angleDelta().y();
    int steps = wheelAngle_ / kNotch;
    wheelAngle_ -= steps * kNotch;
    if (steps != 0)
        emit Wheeled(steps, event->position(), event->modifiers());
    event->accept();
}

void SurfaceWidget::keyPressEvent(QKeyEvent *event) {
    emit KeyPressed(event);
}

} // namespace vorna::qt
