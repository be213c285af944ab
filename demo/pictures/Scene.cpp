#include "demo/pictures/Scene.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace marvello::pictures {

namespace {

constexpr double far = 1e6;
/// A surface is reached this close to it.
constexpr double touch = 0.05;

Vec3 least(Vec3 a, Vec3 b) { return {std::min(a.x, b.x), std::min(a.y, b.y), std::min(a.z, b.z)}; }
Vec3 greatest(Vec3 a, Vec3 b) { return {std::max(a.x, b.x), std::max(a.y, b.y), std::max(a.z, b.z)}; }

}  // namespace

double Bounds::distance(Vec3 p) const { return length(greatest(greatest(low - p, p - high), {0, 0, 0})); }

Bounds Scene::around(const Frame& frame, const Bounds& bounds) {
    Bounds all{{far, far, far}, {-far, -far, -far}};
    for (int i = 0; i < 8; ++i) {
        const Vec3 p = frame.global({(i & 1) != 0 ? bounds.low.x : bounds.high.x,
                                     (i & 2) != 0 ? bounds.low.y : bounds.high.y,
                                     (i & 4) != 0 ? bounds.low.z : bounds.high.z});
        all = {least(all.low, p), greatest(all.high, p)};
    }
    return all;
}

void Scene::add(Paint paint, Bounds bounds, Distance distance) {
    bounds_ = {least(bounds_.low, bounds.low), greatest(bounds_.high, bounds.high)};
    parts_.push_back({std::move(paint), bounds, std::move(distance)});
}

void Scene::paintAll(const Paint& paint) {
    for (Part& part : parts_) part.paint = paint;
}

void Scene::finish() {
    const Vec3 size = bounds_.high - bounds_.low;
    side_ = std::max({size.x, size.y, size.z}) / 80;
    half_ = side_ * std::sqrt(3.0) / 2;
    bounds_.low = bounds_.low - Vec3{1, 1, 1} * side_;
    const double sizes[3]{size.x, size.y, size.z};
    for (std::size_t i = 0; i < 3; ++i) counts_[i] = static_cast<int>(sizes[i] / side_) + 3;
    bounds_.high = bounds_.low + Vec3{counts_[0] * side_, counts_[1] * side_, counts_[2] * side_};
    cells_.resize(static_cast<std::size_t>(counts_[0]) * static_cast<std::size_t>(counts_[1]) *
                  static_cast<std::size_t>(counts_[2]));
    std::size_t next = 0;
    for (int k = 0; k < counts_[2]; ++k)
        for (int j = 0; j < counts_[1]; ++j)
            for (int i = 0; i < counts_[0]; ++i)
                fill(cells_[next++], bounds_.low + Vec3{i + 0.5, j + 0.5, k + 0.5} * side_);
}

void Scene::fill(Cell& cell, Vec3 centre) {
    std::vector<double> distances(parts_.size());
    cell.clearance = far;
    for (std::size_t i = 0; i < parts_.size(); ++i) {
        distances[i] = parts_[i].bounds.distance(centre);
        if (distances[i] > cell.clearance + 2 * half_) continue;
        distances[i] = parts_[i].distance(centre);
        cell.clearance = std::min(cell.clearance, distances[i]);
    }
    cell.first = static_cast<std::uint32_t>(lists_.size());
    if (cell.clearance > 2 * half_) return;  // rays jump through
    for (std::size_t i = 0; i < parts_.size(); ++i)
        if (distances[i] <= cell.clearance + 2 * half_) lists_.push_back(static_cast<std::uint32_t>(i));
    cell.count = static_cast<std::uint32_t>(lists_.size()) - cell.first;
}

const Scene::Cell& Scene::cellAt(Vec3 p, Vec3& centre) const {
    const Vec3 q = (p - bounds_.low) * (1 / side_);
    const int i = std::clamp(static_cast<int>(q.x), 0, counts_[0] - 1);
    const int j = std::clamp(static_cast<int>(q.y), 0, counts_[1] - 1);
    const int k = std::clamp(static_cast<int>(q.z), 0, counts_[2] - 1);
    centre = bounds_.low + Vec3{i + 0.5, j + 0.5, k + 0.5} * side_;
    return cells_[(static_cast<std::size_t>(k) * static_cast<std::size_t>(counts_[1]) +
                   static_cast<std::size_t>(j)) *
                      static_cast<std::size_t>(counts_[0]) +
                  static_cast<std::size_t>(i)];
}

double Scene::distanceIn(const Cell& cell, Vec3 p, const Part*& nearest) const {
    double best = far;
    for (std::uint32_t i = 0; i < cell.count; ++i) {
        const Part& part = parts_[lists_[cell.first + i]];
        const double d = part.distance(p);
        if (d < best) {
            best = d;
            nearest = &part;
        }
    }
    return best;
}

double Scene::distanceAt(Vec3 p) const {
    Vec3 centre;
    const Cell& cell = cellAt(p, centre);
    const Part* ignored = nullptr;
    return cell.count == 0 ? cell.clearance - half_ : distanceIn(cell, p, ignored);
}

/// The part of the ray inside the bounds.
bool Scene::enter(const Ray& ray, double& from, double& to) const {
    const double origins[3]{ray.origin.x, ray.origin.y, ray.origin.z};
    const double steps[3]{ray.direction.x, ray.direction.y, ray.direction.z};
    const double lows[3]{bounds_.low.x, bounds_.low.y, bounds_.low.z};
    const double highs[3]{bounds_.high.x, bounds_.high.y, bounds_.high.z};
    for (std::size_t i = 0; i < 3; ++i) {
        const double step = std::abs(steps[i]) < 1e-12 ? 1e-12 : steps[i];
        const double a = (lows[i] - origins[i]) / step, b = (highs[i] - origins[i]) / step;
        from = std::max(from, std::min(a, b));
        to = std::min(to, std::max(a, b));
    }
    return from < to;
}

double Scene::march(const Ray& ray, double reach, const Part*& found) const {
    double t = 0, end = reach;
    if (!enter(ray, t, end)) return far;
    for (int step = 0; step < 400 && t < end; ++step) {
        const Vec3 p = ray.origin + ray.direction * t;
        Vec3 centre;
        const Cell& cell = cellAt(p, centre);
        if (cell.count == 0) {
            t += std::max(cell.clearance - length(p - centre), touch);
            continue;
        }
        const double d = distanceIn(cell, p, found);
        if (d < touch) return t;
        t += d;
    }
    return far;
}

Scene::Hit Scene::trace(const Ray& ray) const {
    Hit hit;
    const Part* part = nullptr;
    const double t = march(ray, far, part);
    if (t >= far) return hit;
    hit.found = true;
    hit.distance = t;
    hit.place = ray.origin + ray.direction * t;
    hit.paint = &part->paint;
    constexpr double e = 0.15;
    constexpr Vec3 corners[]{{1, -1, -1}, {-1, -1, 1}, {-1, 1, -1}, {1, 1, 1}};
    Vec3 slope;
    for (const Vec3& corner : corners) slope += corner * distanceAt(hit.place + corner * e);
    hit.normal = length(slope) > 1e-9 ? normalized(slope) : -ray.direction;
    return hit;
}

bool Scene::isBlocked(const Ray& ray, double reach) const {
    const Part* ignored = nullptr;
    return march(ray, reach, ignored) < far;
}

}  // namespace marvello::pictures
