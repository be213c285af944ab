#include "tools/generate/Surface.h"

#include <Eigen/QR>
#include <algorithm>
#include <charconv>
#include <cmath>

namespace marvello::generate {
namespace {

std::array<double, 10> terms(SurfaceForm form, double x, double y) {
    if (form == SurfaceForm::cubic) {
        return {1, x, y, x * x, x * y, y * y, x * x * x, y * x * x, x * y * y, y * y * y};
    }
    if (form == SurfaceForm::biquadratic) {
        return {1, x, x * x, y, y * y, x * y, x * x * y, x * y * y, x * x * y * y, 0};
    }
    return {1, x, 0, x * x, 0, 0, x * x * x, 0, 0, 0};
}

double rounded(double value) {
    std::array<char, 40> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific, 7);
    double result = 0;
    std::from_chars(text.data(), end.ptr, result);
    return result;
}

/// Solves for the `count` coefficients of the terms that `termsOf` gives, each sample with weight 1/scale.
template <std::size_t Size, class Terms>
std::array<double, Size> solve(const std::vector<Sample>& samples, std::size_t count, Terms termsOf) {
    const auto rows = static_cast<Eigen::Index>(samples.size());
    const auto columns = static_cast<Eigen::Index>(count);
    Eigen::MatrixXd matrix(rows, columns);
    Eigen::VectorXd wanted(rows);
    for (Eigen::Index row = 0; row < rows; ++row) {
        const Sample& sample = samples[static_cast<std::size_t>(row)];
        const std::array<double, Size> values = termsOf(sample);
        wanted(row) = sample.value / sample.scale;
        for (Eigen::Index column = 0; column < columns; ++column) {
            matrix(row, column) = values[static_cast<std::size_t>(column)] / sample.scale;
        }
    }
    // Columns of unit length: cubes of temperatures and the constant differ by five orders of magnitude.
    const Eigen::VectorXd lengths = matrix.colwise().norm();
    matrix.array().rowwise() /= lengths.transpose().array();
    const Eigen::VectorXd solution = matrix.colPivHouseholderQr().solve(wanted).array() / lengths.array();
    std::array<double, Size> found{};
    for (std::size_t i = 0; i < count; ++i) found[i] = rounded(solution(static_cast<Eigen::Index>(i)));
    return found;
}

}  // namespace

double evaluate(SurfaceForm form, const Coefficients& coefficients, double x, double y) {
    const std::array<double, 10> values = terms(form, x, y);
    double sum = 0;
    for (std::size_t i = 0; i < values.size(); ++i) sum += coefficients[i] * values[i];
    return sum;
}

Coefficients fit(SurfaceForm form, const std::vector<Sample>& samples) {
    if (form == SurfaceForm::lineCubic) {
        const std::array<double, 4> found = solve<4>(samples, 4, [](const Sample& sample) {
            const double x = sample.x;
            return std::array<double, 4>{1, x, x * x, x * x * x};
        });
        return {found[0], found[1], 0, found[2], 0, 0, found[3], 0, 0, 0};
    }
    return solve<10>(samples, form == SurfaceForm::cubic ? 10 : 9,
                     [form](const Sample& sample) { return terms(form, sample.x, sample.y); });
}

FitError errorOf(SurfaceForm form, const Coefficients& coefficients, const std::vector<Sample>& samples) {
    FitError found;
    double squares = 0;
    for (const Sample& sample : samples) {
        const double error = (evaluate(form, coefficients, sample.x, sample.y) - sample.value) / sample.scale;
        squares += error * error;
        found.largest = std::max(found.largest, std::abs(error));
    }
    found.rms = std::sqrt(squares / static_cast<double>(samples.size()));
    return found;
}

std::array<double, 5> fitQuartic(const std::vector<Sample>& samples) {
    return solve<5>(samples, 5, [](const Sample& sample) {
        const double x = sample.x;
        return std::array<double, 5>{1, x, x * x, x * x * x, x * x * x * x};
    });
}

std::array<double, 3> fitQuadratic(const std::vector<Sample>& samples) {
    return solve<3>(samples, 3, [](const Sample& sample) {
        return std::array<double, 3>{1, sample.x, sample.x * sample.x};
    });
}

}  // namespace marvello::generate
