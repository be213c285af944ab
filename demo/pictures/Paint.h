#pragma once

#include <memory>
#include <vector>

#include "demo/pictures/Vector.h"

namespace marvello::pictures {

/// A printed or cast mark on the plane x, y of `frame`, its lower left corner at the origin. Texels have
/// colour and cover; rows run from above.
struct Decal {
    Frame frame;
    double width = 0;   ///< mm
    double height = 0;  ///< mm
    double reach = 0;   ///< mm before and behind the plane
    int columns = 0;
    int rows = 0;
    std::vector<Vec3> colours;
    std::vector<double> covers;

    /// The cover at `p`, with the colour there, smooth between texels; 0 off the mark.
    double at(Vec3 p, Vec3& colour) const;
};

/// What a surface is made of.
struct Paint {
    Vec3 colour;             ///< linear; of metal that of the reflection
    double roughness = 0.4;  ///< of the shine, 0 polished to 1
    double metal = 0;        ///< 0 or 1
    double peel = 0;         ///< slope of the texture of paint on castings
    double shine = 0.04;     ///< reflection of what is not metal, seen straight on
    std::vector<std::shared_ptr<const Decal>> decals;

    Paint with(std::shared_ptr<const Decal> decal) const;
};

/// A linear colour from one of the screen, 0xRRGGBB.
Vec3 screenColour(unsigned rgb);

/// `n` as the texture of `paint` leans it at `p`.
Vec3 textured(const Paint& paint, Vec3 p, Vec3 n);

namespace paints {
extern const Paint body;      ///< the maker's petrol grey on castings
extern const Paint sheet;     ///< the same on sheet metal, lighter
extern const Paint machined;  ///< faced flanges
extern const Paint bolt;
extern const Paint steel;  ///< ground shafts
extern const Paint copper;
extern const Paint brass;
extern const Paint black;  ///< plastic and rubber
extern const Paint glass;  ///< sight glass with oil behind
extern const Paint ring;   ///< bright frame of a glass
extern const Paint aluminium;
extern const Paint plate;
extern const Paint display;
extern const Paint clay;  ///< of models
extern const Paint emblem;
Paint accent(unsigned rgb);
}  // namespace paints

}  // namespace marvello::pictures
