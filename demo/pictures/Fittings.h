#pragma once

#include "demo/pictures/Scene.h"

// What stands on castings. Each has its foot at the origin of `frame` and points along its y axis; lengths in
// mm.
namespace marvello::pictures::fittings {

/// Hexagon bolts in a circle, heads on the plane y = 0; `size` is the thread's diameter.
void boltCircle(Scene& scene, const Frame& frame, double radius, int count, double size, double first = 0);
/// A single bolt with a washer.
void bolt(Scene& scene, const Frame& frame, double size);
/// A neck with a faced round flange on top; `height` with flange.
void flangedNeck(Scene& scene, const Frame& frame, double radius, double height);
/// A short copper pipe brazed into a collar.
void copperPipe(Scene& scene, const Frame& frame, double radius, double height);
/// A flanged service valve whose outlet points along the x axis; `height` is that of its cap.
void serviceValve(Scene& scene, const Frame& frame, double radius, double height);
/// A glass in a bolted ring.
void sightGlass(Scene& scene, const Frame& frame, double radius);
/// A coil on its valve.
void solenoid(Scene& scene, const Frame& frame, double size);
/// A black cable gland.
void gland(Scene& scene, const Frame& frame, double size);

}  // namespace marvello::pictures::fittings
