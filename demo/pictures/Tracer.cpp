#include "demo/pictures/Tracer.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace marvello::pictures {

namespace {

constexpr double pi = std::numbers::pi;
/// Rays leave a surface from this far above it.
constexpr double offset = 0.2;

std::uint64_t scrambled(std::uint64_t x) {
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ULL;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBULL;
    return x ^ (x >> 31);
}

double unit(std::uint64_t x) { return static_cast<double>(x >> 11) * 0x1p-53; }

Vec3 aroundNormal(Vec3 n, double u, double v) {
    Vec3 a, b;
    basisOf(n, a, b);
    const double r = std::sqrt(u), angle = 2 * pi * v;
    return normalized(a * (r * std::cos(angle)) + b * (r * std::sin(angle)) +
                      n * std::sqrt(std::max(1 - u, 0.0)));
}

Vec3 fresnel(Vec3 straight, double cosine) {
    const double k = std::pow(1 - std::clamp(cosine, 0.0, 1.0), 5);
    return straight + (Vec3{1, 1, 1} - straight) * k;
}

Vec3 coloured(const Paint& paint, Vec3 place, double& metal) {
    Vec3 colour = paint.colour;
    metal = paint.metal;
    for (const auto& decal : paint.decals) {
        Vec3 mark;
        const double cover = decal->at(place, mark);
        if (cover <= 0) continue;
        colour = mix(colour, mark, cover);
        metal *= 1 - cover;
    }
    return colour;
}

}  // namespace

Samples::Samples(std::uint32_t pixel, int index, int count)
    : state_(scrambled(pixel * 0x9E3779B97F4A7C15ULL + static_cast<std::uint64_t>(index) + 1)),
      pixel_(scrambled(pixel + 0x51ED270B27B4F3CFULL)),
      index_(index),
      count_(count) {}

double Samples::next() {
    state_ += 0x9E3779B97F4A7C15ULL;
    return unit(scrambled(state_));
}

void Samples::pair(double& u, double& v) {
    // A rank-1 lattice by the plastic number, shifted for each pixel and use; the first number is in strata.
    const std::uint64_t shift =
        scrambled(pixel_ + static_cast<std::uint64_t>(++dimension_) * 0xD1342543DE82EF95ULL);
    const double i = index_ + (dimension_ % 2 == 0 ? 0.0 : static_cast<double>(shift >> 60));
    const auto wrapped = [](double x) { return x - std::floor(x); };
    u = wrapped(unit(shift) + i * 0.7548776662466927 + next() / count_);
    v = wrapped(unit(scrambled(shift)) + i * 0.5698402909980532);
}

Vec3 Tracer::arriving(const Ray& ray, bool mirror, Samples& samples) const {
    const Scene::Hit hit = scene_.trace(ray);
    if (hit.found) return shadeSeen(hit, -ray.direction, samples);
    if (ray.direction.y < -1e-4 && ray.origin.y > 0) {
        // The floor near the machine lies in its shade.
        const Vec3 place = ray.origin + ray.direction * (-ray.origin.y / ray.direction.y);
        const double size = length(scene_.bounds().high - scene_.bounds().low);
        const double away = scene_.bounds().distance(place) / (0.12 * size);
        return Studio::floor() * std::min(0.35 + 0.65 * away, 1.0);
    }
    return mirror ? studio_.mirrored(ray) : Studio::room(ray.direction);
}

Vec3 Tracer::direct(const Scene::Hit& hit, Vec3 normal, Samples& samples) const {
    const auto& boxes = studio_.boxes();
    const SoftBox& box = boxes[static_cast<std::size_t>(samples.index()) % boxes.size()];
    double u = 0, v = 0;
    samples.pair(u, v);
    const Vec3 place = box.centre + box.right * (2 * u - 1) + box.up * (2 * v - 1);
    const Vec3 way = place - hit.place;
    const double reach = length(way);
    const Vec3 direction = way * (1 / reach);
    const double here = dot(direction, normal), there = -dot(direction, box.normal);
    if (here <= 0 || there <= 0) return {};
    if (scene_.isBlocked({hit.place + hit.normal * offset, direction}, reach)) return {};
    const double irradiance = box.radiance * here * there * box.area() / (reach * reach);
    return Vec3{1, 1, 1} * (irradiance * static_cast<double>(boxes.size()) / pi);
}

Vec3 Tracer::bounced(const Scene::Hit& hit, Vec3 normal, Samples& samples) const {
    double u = 0, v = 0;
    samples.pair(u, v);
    const Vec3 direction = aroundNormal(normal, u, v);
    return arriving({hit.place + hit.normal * offset, direction}, false, samples);
}

Vec3 Tracer::shine(const Scene::Hit& hit, Vec3 normal, Vec3 from, Samples& samples) const {
    const double a = hit.paint->roughness * hit.paint->roughness;
    double u = 0, v = 0;
    samples.pair(u, v);
    const double cosine = std::sqrt((1 - u) / (1 + (a * a - 1) * u));
    const double sine = std::sqrt(std::max(1 - cosine * cosine, 0.0));
    Vec3 x, y;
    basisOf(normal, x, y);
    const Vec3 half = x * (sine * std::cos(2 * pi * v)) + y * (sine * std::sin(2 * pi * v)) + normal * cosine;
    const double towards = dot(from, half);
    const Vec3 out = half * (2 * towards) - from;
    const double nOut = dot(normal, out), nFrom = std::max(dot(normal, from), 0.05);
    if (towards <= 0 || nOut <= 0 || dot(out, hit.normal) <= 0) return {};
    const auto masking = [a](double c) { return 2 * c / (c + std::sqrt(a * a + (1 - a * a) * c * c)); };
    const double weight = masking(nFrom) * masking(nOut) * towards / (nFrom * cosine);
    double metal = 0;
    const Vec3 colour = coloured(*hit.paint, hit.place, metal);
    const double plain = hit.paint->shine;
    const Vec3 f = fresnel(mix(Vec3{plain, plain, plain}, colour, metal), towards);
    return f * std::min(weight, 3.0) * arriving({hit.place + hit.normal * offset, out}, true, samples);
}

Vec3 Tracer::shadeSeen(const Scene::Hit& hit, Vec3 from, Samples& samples) const {
    double metal = 0;
    const Vec3 colour = coloured(*hit.paint, hit.place, metal);
    const Vec3 around = Studio::room(hit.normal) * 0.6;
    const Vec3 mirror = hit.normal * (2 * dot(hit.normal, from)) - from;
    return colour * (1 - metal) * (direct(hit, hit.normal, samples) + around) +
           mix(Vec3{1, 1, 1} * hit.paint->shine, colour, metal) * Studio::room(mirror) * 0.8;
}

Vec3 Tracer::shade(const Scene::Hit& hit, Vec3 normal, Vec3 from, Samples& samples) const {
    double metal = 0;
    const Vec3 colour = coloured(*hit.paint, hit.place, metal);
    Vec3 light;
    if (metal < 1) {
        const Vec3 through = Vec3{1, 1, 1} - fresnel(Vec3{1, 1, 1} * hit.paint->shine, dot(normal, from));
        light =
            colour * through * (1 - metal) * (direct(hit, normal, samples) + bounced(hit, normal, samples));
    }
    return light + shine(hit, normal, from, samples);
}

/// The share of the floor's light that reaches `place`, by one of its sources, chosen by its share: without
/// machine it is 1 exactly, and the floor is the backdrop without a grain.
double Tracer::floorLight(Vec3 place, Samples& samples) const {
    double u = 0, v = 0, choice = 0, other = 0;
    samples.pair(u, v);
    samples.pair(choice, other);
    std::size_t box = 0;
    while (box < studio_.boxes().size() && choice >= Studio::floorShares[box])
        choice -= Studio::floorShares[box++];
    if (box < studio_.boxes().size()) {
        const SoftBox& lamp = studio_.boxes()[box];
        const Vec3 way = lamp.centre + lamp.right * (2 * u - 1) + lamp.up * (2 * v - 1) - place;
        return scene_.isBlocked({place, normalized(way)}, length(way)) ? 0 : 1;
    }
    return scene_.isBlocked({place, aroundNormal({0, 1, 0}, u, v)}, 1e5) ? 0.12 : 1;
}

Vec3 Tracer::floorSeen(Vec3 place, Vec3 direction, Vec3 backdrop, Samples& samples) const {
    const Vec3 lifted = place + Vec3{0, offset, 0};
    constexpr int tests = 8;
    double light = 0;
    for (int i = 0; i < tests; ++i) light += floorLight(lifted, samples) / tests;
    const Vec3 seen = backdrop * std::pow(light, 1.4);
    const Vec3 rough{0.04 * (samples.next() - 0.5), 0, 0.04 * (samples.next() - 0.5)};
    const Ray mirror{lifted, normalized(Vec3{direction.x, -direction.y, direction.z} + rough)};
    const Scene::Hit hit = scene_.trace(mirror);
    if (!hit.found) return seen;
    const double depth = 0.18 * length(scene_.bounds().high - scene_.bounds().low);
    return mix(seen, shadeSeen(hit, -mirror.direction, samples), 0.22 * std::exp(-hit.distance / depth));
}

Tracer::Sight Tracer::look(const Ray& ray, Vec3 backdrop, Samples& samples) const {
    const Scene::Hit hit = scene_.trace(ray);
    if (hit.found) {
        double metal = 0;
        const Vec3 normal = textured(*hit.paint, hit.place, hit.normal);
        return {shade(hit, normal, -ray.direction, samples), coloured(*hit.paint, hit.place, metal), normal};
    }
    if (ray.direction.y > -1e-4) return {backdrop, backdrop, {}};
    const Vec3 place = ray.origin + ray.direction * (-ray.origin.y / ray.direction.y);
    return {floorSeen(place, ray.direction, backdrop, samples), backdrop, {}};
}

}  // namespace marvello::pictures
