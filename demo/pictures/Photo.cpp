#include "demo/pictures/Photo.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <thread>
#include <vector>

#include "demo/pictures/Denoise.h"
#include "demo/pictures/Studio.h"
#include "demo/pictures/Tracer.h"

namespace marvello::pictures {

namespace {

/// A long lens, so that a machine keeps its proportions.
constexpr double lens = 5.2;  // distance over the size of the machine

class Camera {
  public:
    Camera(const Scene& scene, const View& view, QSize size) : size_(size) {
        const double a = view.around * std::numbers::pi / 180, e = view.above * std::numbers::pi / 180;
        const Vec3 back{std::sin(a) * std::cos(e), std::sin(e), std::cos(a) * std::cos(e)};
        const Bounds& machine = scene.bounds();
        forward_ = -back;
        right_ = normalized(cross(forward_, {0, 1, 0}));
        up_ = cross(right_, forward_);
        place_ = machine.centre() + back * (lens * length(machine.high - machine.low));
        pixel_ = 1.0 / (lens * size.width());  // wide enough for any machine
        frame(scene, view.fill);
    }

    Ray through(double x, double y) const {
        const double u = middleX_ + (x - size_.width() / 2.0) * pixel_;
        const double v = middleY_ - (y - size_.height() / 2.0) * pixel_;
        return {place_, normalized(forward_ + right_ * u + up_ * v)};
    }

  private:
    /// Looks where the machine is and takes the middle and the scale from that.
    void frame(const Scene& scene, double fill) {
        double left = 1e9, right = -1e9, top = 1e9, bottom = -1e9;
        const double step = size_.width() / 290.0;
        for (double y = 0; y < size_.height(); y += step)
            for (double x = 0; x < size_.width(); x += step) {
                if (!scene.trace(through(x, y)).found) continue;
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
        middleX_ += ((left + right) / 2 - size_.width() / 2.0) * pixel_;
        // A little above the middle: the shadow belongs to the picture.
        middleY_ -= ((top + bottom) / 2 + 0.025 * (bottom - top) - size_.height() / 2.0) * pixel_;
        pixel_ *= std::max((right - left) / size_.width(), (bottom - top) / size_.height()) / fill;
    }

    QSize size_;
    Vec3 place_, forward_, right_, up_;
    double middleX_ = 0, middleY_ = 0, pixel_ = 0;
};

/// A seamless light paper: brightest behind the machine, a little darker to the edges and below.
Vec3 backdropAt(double x, double y) {
    const double away = (x - 0.5) * (x - 0.5) * 0.9 + (y - 0.40) * (y - 0.40) * 1.3;
    const double level = 0.95 - 0.36 * away - 0.03 * y;
    return Vec3{0.982, 0.995, 1.0} * level;
}

/// Linear light to the screen's, with a soft shoulder.
double developed(double light) {
    constexpr double knee = 0.82;
    if (light > knee) light = knee + (1 - knee) * (1 - std::exp(-(light - knee) / (1 - knee) * 0.62));
    light = std::max(light, 0.0);
    return light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

/// The mean of the samples of a pixel.
PixelSum sampled(const Tracer& tracer, const Camera& camera, QSize size, int x, int y, int samples) {
    const auto pixel = static_cast<std::uint32_t>(y * size.width() + x);
    const Vec3 backdrop = backdropAt((x + 0.5) / size.width(), (y + 0.5) / size.height());
    PixelSum sum;
    double squares = 0, brightness = 0;
    for (int i = 0; i < samples; ++i) {
        Samples random(pixel, i, samples);
        double u = 0, v = 0;
        random.pair(u, v);
        const auto [light, colour, normal] = tracer.look(camera.through(x + u, y + v), backdrop, random);
        // Single very bright reflections are held back: they would stay as specks.
        const Vec3 seen{std::min(light.x, 2.5), std::min(light.y, 2.5), std::min(light.z, 2.5)};
        const double level = 0.2126 * seen.x + 0.7152 * seen.y + 0.0722 * seen.z;
        brightness += level;
        squares += level * level;
        sum.light += seen * (1.0 / samples);
        sum.colour += colour * (1.0 / samples);
        sum.normal += normal * (1.0 / samples);
    }
    sum.variance = std::max(squares / samples - brightness * brightness / samples / samples, 0.0) / samples;
    return sum;
}

QImage printed(const std::vector<PixelSum>& pixels, QSize size) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const int pixel = y * size.width() + x;
            const Vec3 light = pixels[static_cast<std::size_t>(pixel)].light;
            Samples dither(static_cast<std::uint32_t>(pixel), -1, 1);
            const auto level = [&](double value) {
                const double noise = 0.5 * (dither.next() + dither.next() - 1);
                return static_cast<int>(std::clamp(developed(value) * 255 + 0.5 + noise, 0.0, 255.0));
            };
            const int red = level(light.x), green = level(light.y), blue = level(light.z);
            line[x] = qRgb(red, green, blue);
        }
    }
    return image;
}

}  // namespace

QImage photoOf(const Scene& scene, const View& view, QSize size, int samples) {
    const Studio studio(scene.bounds());
    const Tracer tracer(scene, studio);
    const Camera camera(scene, view, size);
    std::vector<PixelSum> pixels(static_cast<std::size_t>(size.width()) *
                                 static_cast<std::size_t>(size.height()));
    std::atomic<int> nextLine{0};
    const auto work = [&] {
        for (int y = nextLine++; y < size.height(); y = nextLine++)
            for (int x = 0; x < size.width(); ++x)
                pixels[static_cast<std::size_t>(y * size.width() + x)] =
                    sampled(tracer, camera, size, x, y, samples);
    };
    std::vector<std::thread> threads(std::max(std::thread::hardware_concurrency(), 1U));
    for (auto& thread : threads) thread = std::thread(work);
    for (auto& thread : threads) thread.join();
    denoise(pixels, size.width(), size.height());
    return printed(pixels, size);
}

}  // namespace marvello::pictures
