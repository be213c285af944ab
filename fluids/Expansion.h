#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace marvello::fluids {

/// Several functions of one variable as polynomials of degree 9 on cells as narrow as they need to be.
class Expansion {
  public:
    static constexpr std::size_t coefficientCount = 10;
    static constexpr std::size_t maxFunctions = 24;

    /// The functions' values at a place; false where they have none.
    using Sample = std::function<bool(double place, std::span<double> values)>;

    struct Build {
        std::vector<double> borders;  ///< of the first cells, rising
        std::size_t functionCount = 1;
        double tolerance = 1e-12;  ///< largest error to accept, absolute
        double minWidth = 1e-3;    ///< a cell as narrow as this stays as it is
    };

    Expansion() = default;
    /// Fits the functions at the Chebyshev points of each cell, and splits it in three where another point
    /// shows an error above the tolerance and the parts have a smaller one. Throws PropertyError where
    /// samples are missing that no other cell makes needless.
    Expansion(const Build& build, const Sample& sample);

    double begin() const { return borders_.front(); }
    double end() const { return borders_.back(); }
    std::size_t cellCount() const { return borders_.size() - 1; }
    /// The largest error seen where the fit was tried out.
    double error() const { return error_; }

    struct Place {
        std::size_t cell = 0;
        double within = 0;  ///< -1 to 1
    };
    Place placeOf(double x) const;
    double at(std::size_t function, Place place) const;
    double at(std::size_t function, double x) const { return at(function, placeOf(x)); }
    /// All functions; `values` has room for them.
    void all(Place place, std::span<double> values) const;

    struct ValueAndSlope {
        double value = 0;
        double slope = 0;  ///< by x
    };
    ValueAndSlope withSlope(std::size_t function, double x) const;

    /// Where a function has a value between `low` and `high`, within which it rises or falls throughout; the
    /// nearer end where the value lies outside.
    double inverse(std::size_t function, double value, double low, double high) const;

    /// Where the slope of a function changes its sign between `low` and `high`; none where it does not.
    std::optional<double> extremum(std::size_t function, double low, double high) const;

  private:
    /// Part of a cell, with a function's values at its ends.
    struct Bracket {
        double low = 0;
        double high = 0;
        double atLow = 0;
        double atHigh = 0;
    };
    double split(const Build& build, const Sample& sample, double high, double parentError);
    double addCell(const Sample& sample, double high);
    void makeIndex();
    ValueAndSlope within(std::size_t function, Place place, std::size_t terms) const;
    double inverseWithin(std::size_t function, double value, std::size_t cell, Bracket bracket) const;

    std::size_t functionCount_ = 0;
    std::vector<double> borders_;
    std::vector<double> coefficients_;  ///< by cell, then power, then function
    std::vector<double> borderValues_;  ///< by function, then border
    /// The cell that holds the left end of each of many equal parts.
    std::vector<std::size_t> index_;
    double indexPerWidth_ = 0;
    double error_ = 0;
};

}  // namespace marvello::fluids
