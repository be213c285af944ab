#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace marvello {

/// How the box of a field looks. Colours that are not set follow the look.
struct FieldFrame {
    static constexpr int halo = 3;  ///< room around the box for the focus

    bool isFocused = false;
    bool isHovered = false;
    bool isInvalid = false;
    bool isEnabled = true;
    QColor border{};
    QColor ground{};

    /// Paints the ground and the border of `box`, with the halo of the focus around it.
    void paint(QPainter& painter, const QRectF& box) const;
};

}  // namespace marvello
