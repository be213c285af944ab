#pragma once

#include <cstdint>

#include "demo/pictures/Scene.h"
#include "demo/pictures/Studio.h"

namespace marvello::pictures {

/// Numbers between 0 and 1, the same for the same pixel and sample whatever thread asks.
class Samples {
  public:
    /// The `index`-th of `count` samples of a pixel.
    Samples(std::uint32_t pixel, int index, int count);

    int index() const { return index_; }
    double next();
    /// A pair that is spread evenly over the samples of the pixel.
    void pair(double& u, double& v);

  private:
    std::uint64_t state_;
    std::uint64_t pixel_;
    int index_;
    int count_;
    int dimension_ = 0;
};

/// Follows light through a scene in a studio: direct light of the soft boxes, one bounce of diffuse light,
/// mirrored light by microfacets (GGX; B. Walter et al., Microfacet models for refraction, EGSR 2007).
class Tracer {
  public:
    Tracer(const Scene& scene, const Studio& studio) : scene_(scene), studio_(studio) {}

    struct Sight {
        Vec3 light;
        Vec3 colour;  ///< of the paint, or the backdrop
        Vec3 normal;  ///< 0 where there is no machine
    };
    /// What the ray sees; `backdrop` is seen where there is no machine, the floor with its shadows included.
    Sight look(const Ray& ray, Vec3 backdrop, Samples& samples) const;

  private:
    /// A surface that the camera sees.
    Vec3 shade(const Scene::Hit& hit, Vec3 normal, Vec3 from, Samples& samples) const;
    /// A surface that another one sees: no further rays but one shadow.
    Vec3 shadeSeen(const Scene::Hit& hit, Vec3 from, Samples& samples) const;
    Vec3 direct(const Scene::Hit& hit, Vec3 normal, Samples& samples) const;
    Vec3 bounced(const Scene::Hit& hit, Vec3 normal, Samples& samples) const;
    Vec3 shine(const Scene::Hit& hit, Vec3 normal, Vec3 from, Samples& samples) const;
    double floorLight(Vec3 place, Samples& samples) const;
    Vec3 floorSeen(Vec3 place, Vec3 direction, Vec3 backdrop, Samples& samples) const;
    /// What comes along a ray that has left a surface.
    Vec3 arriving(const Ray& ray, bool mirror, Samples& samples) const;

    const Scene& scene_;
    const Studio& studio_;
};

}  // namespace marvello::pictures
