#include "demo/pictures/Denoise.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace marvello::pictures {

namespace {

double brightness(Vec3 c) { return 0.2126 * c.x + 0.7152 * c.y + 0.0722 * c.z; }

double apart(Vec3 a, Vec3 b) { return dot(a - b, a - b); }

/// How much `b` counts for `a`; `grain` is the variance around both.
double likeness(const PixelSum& a, const PixelSum& b, double grain) {
    const double step = brightness(a.light) - brightness(b.light);
    // Shadows on the floor are soft: nothing else is seen there.
    const bool isFloor = dot(a.normal, a.normal) < 1e-6;
    const double tolerance = isFloor ? 30.0 : 4.5;
    return std::exp(-apart(a.normal, b.normal) / 0.006 - apart(a.colour, b.colour) / 0.0006 -
                    step * step / (tolerance * grain + 2e-6));
}

}  // namespace

void denoise(std::vector<PixelSum>& pixels, int width, int height) {
    constexpr double kernel[]{0.375, 0.25, 0.0625};
    std::vector<PixelSum> next = pixels;
    const auto at = [width](int x, int y) { return static_cast<std::size_t>(y * width + x); };
    for (const int hole : {1, 2, 4, 8}) {
        // The variance itself is grainy: that of a neighbourhood is used.
        std::vector<double> grain(pixels.size());
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                double sum = 0, weights = 0;
                for (int j = std::max(y - 2, 0); j <= std::min(y + 2, height - 1); ++j)
                    for (int i = std::max(x - 2, 0); i <= std::min(x + 2, width - 1); ++i) {
                        sum += pixels[at(i, j)].variance;
                        weights += 1;
                    }
                grain[at(x, y)] = sum / weights;
            }
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const PixelSum& here = pixels[at(x, y)];
                Vec3 light;
                double variance = 0, weights = 0;
                for (int j = -2; j <= 2; ++j)
                    for (int i = -2; i <= 2; ++i) {
                        const int u = x + i * hole, v = y + j * hole;
                        if (u < 0 || v < 0 || u >= width || v >= height) continue;
                        const PixelSum& there = pixels[at(u, v)];
                        const double weight = kernel[std::abs(i)] * kernel[std::abs(j)] *
                                              likeness(here, there, grain[at(x, y)]);
                        light += there.light * weight;
                        variance += there.variance * weight * weight;
                        weights += weight;
                    }
                next[at(x, y)].light = light * (1 / weights);
                next[at(x, y)].variance = variance / (weights * weights);
            }
        pixels.swap(next);
        // Colours and normals are the same in both.
    }
}

}  // namespace marvello::pictures
