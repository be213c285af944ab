#include "controls/Zoom.h"

#include <algorithm>
#include <cmath>

namespace marvello {

QRectF Zoom::placeIn(const QRectF& room) const {
    QRectF place(QPointF(), room.size() * factor_);
    place.moveCenter(room.center() + offset_);
    return place;
}

void Zoom::zoom(double steps, const QPointF& fixed, const QRectF& room) {
    constexpr double stepFactor = 1.25;
    const double before = factor_;
    factor_ = std::clamp(factor_ * std::pow(stepFactor, steps), 1.0, maxFactor);
    // The rounding of many small steps must not keep a picture from fitting.
    if (factor_ < 1.001) factor_ = 1;
    const QPointF centre = room.center();
    offset_ = fixed - centre + (offset_ - (fixed - centre)) * (factor_ / before);
    keepWithin(room);
}

void Zoom::moveBy(const QPointF& distance, const QRectF& room) {
    offset_ += distance;
    keepWithin(room);
}

void Zoom::keepWithin(const QRectF& room) {
    const double x = room.width() * (factor_ - 1) / 2;
    const double y = room.height() * (factor_ - 1) / 2;
    offset_ = {std::clamp(offset_.x(), -x, x), std::clamp(offset_.y(), -y, y)};
}

}  // namespace marvello
