#pragma once

#include "demo/pictures/Design.h"
#include "demo/pictures/Photo.h"
#include "demo/pictures/Scene.h"

namespace marvello::pictures {

/// The compressor of a design as a scene, ready to be looked at.
Scene machineOf(const Design& design);
/// From where that compressor shows what it is.
View viewOf(const Design& design);

/// A plain model of it behind the maker's emblem, for a series without a picture.
Scene standInOf(const Design& design);

/// Adds the machine without what names its series.
void assemble(Scene& scene, const Design& design);

// The assemblies of a machine; each adds its solids.
namespace assemblies {
void motor(Scene& scene, const Design& design);
void bearingHousing(Scene& scene, const Design& design);
void mainFlange(Scene& scene, const Design& design);
void rotorHousing(Scene& scene, const Design& design);
void lyingSeparator(Scene& scene, const Design& design);
void uprightSeparator(Scene& scene, const Design& design);
void dischargeCover(Scene& scene, const Design& design);
void connections(Scene& scene, const Design& design);
void castFeet(Scene& scene, const Design& design);
void rails(Scene& scene, const Design& design);
void terminalBox(Scene& scene, const Design& design);
void converter(Scene& scene, const Design& design);
void marks(Scene& scene, const Design& design);
}  // namespace assemblies

}  // namespace marvello::pictures
