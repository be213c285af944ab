#pragma once

#include <QPointF>
#include <QRectF>

namespace marvello {

/// How far a picture is drawn larger than its room, and which part of it is seen. Lengths are logical pixels
/// of the widget; a picture that fits has the factor 1.
class Zoom {
  public:
    static constexpr double maxFactor = 16;

    double factor() const { return factor_; }
    bool isFitted() const { return factor_ == 1; }

    /// Where the picture is drawn that would fill `room` if it fitted.
    QRectF placeIn(const QRectF& room) const;
    /// Makes the picture larger by `steps`, negative ones smaller; what is at `fixed` stays there.
    void zoom(double steps, const QPointF& fixed, const QRectF& room);
    /// Moves the picture, as far as it still covers `room`.
    void moveBy(const QPointF& distance, const QRectF& room);
    void fit() { *this = Zoom(); }

  private:
    void keepWithin(const QRectF& room);

    double factor_ = 1;
    QPointF offset_;  // of the centre of the picture from that of the room
};

}  // namespace marvello
