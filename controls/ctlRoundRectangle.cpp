#include "controls/ctlRoundRectangle.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include "controls/Look.h"

namespace marvello {

namespace {

QColor orElse(const QColor& colour, const QColor& otherwise) { return colour.isValid() ? colour : otherwise; }

}  // namespace

ctlRoundRectangle::ctlRoundRectangle(QWidget* parent) : QWidget(parent) {
    connect(this, &ctlRoundRectangle::appearanceChanged, this, qOverload<>(&QWidget::update));
}

QImage ctlRoundRectangle::Image() const {
    QImage image(size() * devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) return image;
    image.setDevicePixelRatio(devicePixelRatioF());
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paint(painter);
    return image;
}

void ctlRoundRectangle::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint(painter);
}

void ctlRoundRectangle::paint(QPainter& painter) const {
    const Look& look = Look::current();
    // A corner is given by the size of its ellipse.
    const double radius = cornerSize_ / 2.0;
    QPainterPath region;
    region.addRoundedRect(QRectF(rect()).adjusted(0, 0, 1, 1), radius, radius);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.save();
    painter.setClipPath(region);
    painter.fillRect(rect(), orElse(rectInteriorColor_, look.surface));
    if (gradient_) paintGradient(painter);
    painter.restore();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(orElse(rectBorderColor_, look.line));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

void ctlRoundRectangle::paintGradient(QPainter& painter) const {
    const Look& look = Look::current();
    const double extent = gradientSizeMode_ == 1 ? height() * gradientSizeValue_ / 100.0 : gradientSizeValue_;
    const bool isLeft = gradientPosition_ == 1;
    const QRectF part = isLeft ? QRectF(0, 0, extent, height()) : QRectF(0, 0, width(), extent);
    QLinearGradient fill(part.topLeft(), gradientFillRect_ == 1 ? part.bottomLeft() : part.topRight());
    fill.setColorAt(0, orElse(gradientColorStart_, look.surface));
    fill.setColorAt(1, orElse(gradientColorStop_, look.surfaceAlt));
    painter.fillRect(part, fill);
    painter.setPen(orElse(rectBorderColor_, look.line));
    painter.drawLine(isLeft ? QLineF(extent + 0.5, 0, extent + 0.5, height())
                            : QLineF(0, extent + 0.5, width(), extent + 0.5));
}

}  // namespace marvello
