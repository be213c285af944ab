#include "tools/surface/Surface.h"

#include <Eigen/QR>
#include <algorithm>
#include <charconv>
#include <cmath>

namespace marvello {
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

constexpr std::array<std::string_view, 10> cubicNames{"1",   "x",   "y",     "x^2",   "x y",
                                                      "y^2", "x^3", "x^2 y", "x y^2", "y^3"};
constexpr std::array<std::string_view, 10> biquadraticNames{"1",   "x",     "x^2",   "y",       "y^2",
                                                            "x y", "x^2 y", "x y^2", "x^2 y^2", ""};

/// Coordinates from -1 to 1, in which the terms of a surface are nearly independent of one another.
class Centred {
  public:
    Centred(const std::vector<Sample>& samples, double Sample::* coordinate) {
        const auto [least, most] = std::ranges::minmax(samples, {}, coordinate);
        middle_ = (least.*coordinate + most.*coordinate) / 2;
        if (most.*coordinate > least.*coordinate) half_ = (most.*coordinate - least.*coordinate) / 2;
    }
    double operator()(double value) const { return (value - middle_) / half_; }

  private:
    double middle_ = 0;
    double half_ = 1;
};

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

std::size_t termCount(SurfaceForm form) {
    return form == SurfaceForm::cubic ? 10 : form == SurfaceForm::biquadratic ? 9 : 4;
}

std::string_view termName(SurfaceForm form, std::size_t coefficient) {
    return (form == SurfaceForm::cubic ? cubicNames : biquadraticNames)[coefficient];
}

std::vector<std::size_t> undeterminedTerms(SurfaceForm form, const std::vector<Sample>& samples) {
    // Each term stands behind the terms that it is a multiple of, so that moving the origin changes no term
    // by more than a sum of earlier ones: the answer is that of the coordinates as they are.
    constexpr double tolerance = 1e-7;
    const Centred x(samples, &Sample::x);
    const Centred y(samples, &Sample::y);
    const auto rows = static_cast<Eigen::Index>(samples.size());
    std::vector<Eigen::VectorXd> independent;
    std::vector<std::size_t> missing;
    for (std::size_t term = 0; term < termCount(form); ++term) {
        Eigen::VectorXd column(rows);
        for (Eigen::Index row = 0; row < rows; ++row) {
            const Sample& sample = samples[static_cast<std::size_t>(row)];
            column(row) = terms(form, x(sample.x), y(sample.y))[term];
        }
        const double length = column.norm();
        for (const auto& earlier : independent) column -= earlier.dot(column) * earlier;
        if (column.norm() <= tolerance * std::max(length, 1.0)) {
            missing.push_back(term);
        } else {
            independent.push_back(column.normalized());
        }
    }
    return missing;
}

Coefficients fit(SurfaceForm form, const std::vector<Sample>& samples) {
    if (form == SurfaceForm::lineCubic) {
        const std::array<double, 4> found = solve<4>(samples, 4, [](const Sample& sample) {
            const double x = sample.x;
            return std::array<double, 4>{1, x, x * x, x * x * x};
        });
        return {found[0], found[1], 0, found[2], 0, 0, found[3], 0, 0, 0};
    }
    const std::vector<std::size_t> missing = undeterminedTerms(form, samples);
    std::vector<std::size_t> used;
    for (std::size_t term = 0; term < termCount(form); ++term)
        if (std::ranges::find(missing, term) == missing.end()) used.push_back(term);
    const std::array<double, 10> found = solve<10>(samples, used.size(), [&](const Sample& sample) {
        const std::array<double, 10> all = terms(form, sample.x, sample.y);
        std::array<double, 10> chosen{};
        for (std::size_t i = 0; i < used.size(); ++i) chosen[i] = all[used[i]];
        return chosen;
    });
    Coefficients coefficients{};
    for (std::size_t i = 0; i < used.size(); ++i) coefficients[used[i]] = found[i];
    return coefficients;
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

}  // namespace marvello
