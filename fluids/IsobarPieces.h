#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "fluids/IsobarTable.h"
#include "fluids/Surface.h"

// What the table of isobars is made of. "Within" is the place in the cell of pressures, -1 to 1.

namespace marvello::fluids {

inline constexpr std::size_t endPowers = 20;
inline constexpr std::size_t endFunctions = 8;
inline constexpr std::size_t piecePowers = 8;

/// The ends over the place in a cell, in the order of IsobarEnds.
struct IsobarTable::Ends {
    bool isUsable = false;
    bool isSharp = false;
    std::array<std::array<double, endFunctions>, endPowers> coefficients{};

    IsobarEnds at(double within) const {
        std::array<double, endFunctions> even{};
        std::array<double, endFunctions> odd{};
        const double square = within * within;
        for (std::size_t power = endPowers; power > 0; power -= 2) {
            for (std::size_t f = 0; f < endFunctions; ++f) {
                even[f] = even[f] * square + coefficients[power - 2][f];
                odd[f] = odd[f] * square + coefficients[power - 1][f];
            }
        }
        for (std::size_t f = 0; f < endFunctions; ++f) even[f] += within * odd[f];
        return {even[0], even[1], even[2], even[3], even[4], even[5], even[6], even[7]};
    }

    /// One of the functions, for several pressures at once.
    [[gnu::always_inline]] void at(std::size_t function, const Lanes& within, Lanes& sum) const {
        const Lanes square = within * within;
        Lanes odd{};
        sum = Lanes{};
        for (std::size_t power = endPowers; power > 0; power -= 2) {
            sum = sum * square + coefficients[power - 2][function];
            odd = odd * square + coefficients[power - 1][function];
        }
        sum += within * odd;
    }
};

/// States of one phase on a stretch.
struct IsobarTable::OnePhasePiece {
    /// The place on the stretch from the value of a property.
    struct ByValue {
        Polynomial<piecePowers> near, far;  ///< values at both ends of the stretch
        Surface<piecePowers> place;         ///< over the value from near to far, as -1 to 1, and within

        /// Makes them from the values over the place.
        void invert(const Surface<piecePowers>& values);
    };
    bool isUsable = false;
    ByValue enthalpy, entropy;
    Surface<piecePowers> density;  ///< over the place on the stretch and within

    const ByValue& by(Property property) const { return property == Property::enthalpy ? enthalpy : entropy; }
};

/// Two phases of a blend, over the vapour's share, as -1 to 1, and within.
struct IsobarTable::TwoPhasePiece {
    bool isUsable = false;
    Surface<piecePowers> enthalpy, entropy, logTemperature, logLiquid, logVapour;
    std::vector<Surface<piecePowers>> logK;

    const Surface<piecePowers>& of(Property property) const {
        return property == Property::enthalpy ? enthalpy : entropy;
    }
};

/// The pieces of a range of pressures.
struct IsobarTable::Cell {
    double low = 0;  ///< ln p
    double high = 0;
    Lazy<Ends> ends;
    std::array<Lazy<OnePhasePiece>, stretches.size()> pieces;
    Lazy<TwoPhasePiece> twoPhases;

    double withinOf(double logPressure) const { return (2 * logPressure - low - high) / (high - low); }
    double pressureAt(double within) const { return std::exp((low + high + within * (high - low)) / 2); }
};

}  // namespace marvello::fluids
