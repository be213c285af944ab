#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace marvello {

/// The evaporating temperature of a plant over a year: fixed, or by a table over the outdoor temperature.
struct EvaporatingRule {
    struct Point {
        double outdoor = 0;      ///< degrees Celsius
        double evaporating = 0;  ///< Dew, degrees Celsius.
        bool operator==(const Point&) const = default;
    };
    /// Of rising outdoor temperature; one alone for a fixed evaporating temperature.
    std::vector<Point> points{};

    /// Linear between two points and constant outside of them. Needs a point.
    double at(double outdoor) const;

    bool operator==(const EvaporatingRule&) const = default;
};

/// Reads a temperature such as "-10", or outdoor temperatures with their evaporating ones such as
/// "-10:-8;30:-12" in any order. Throws std::invalid_argument with a sentence that quotes what cannot be
/// read.
EvaporatingRule evaporatingRuleOf(std::string_view text);

/// Returns the text that reads back as the rule.
std::string textOf(const EvaporatingRule& rule);

}  // namespace marvello
