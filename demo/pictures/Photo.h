#pragma once

#include <QImage>

#include "demo/pictures/Scene.h"

namespace marvello::pictures {

/// Where a photo is taken from: degrees from straight ahead towards the discharge end, and above the floor.
struct View {
    double around = 33;
    double above = 17;
    double fill = 0.86;  ///< share of the picture that the machine takes, in the direction that is tighter
};

/// Takes a photo of a scene in a studio on all cores; the same each time. `samples` rays look through each
/// pixel.
QImage photoOf(const Scene& scene, const View& view, QSize size, int samples);

}  // namespace marvello::pictures
