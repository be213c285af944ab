#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace marvello {

/// What intermittent running costs, by the capacity ratio: the needed capacity over that of the running
/// machine.
struct Degradation {
    enum class Form : std::uint8_t {
        none,
        condensingUnit,  ///< 1 - C (1 - ratio); EN 13215, C = 0.25 unless declared.
        /// ratio / (C ratio + 1 - C), and none where the machine has at most 3 % more than is needed;
        /// EN 14825, C = 0.9 unless declared.
        chiller
    };
    Form form = Form::none;
    double coefficient = 0;

    /// Returns the factor on the COP of the running machine. `ratio` is from above 0 to 1.
    double factor(double ratio) const {
        switch (form) {
            case Form::condensingUnit:
                return 1 - coefficient * (1 - ratio);
            case Form::chiller:
                return ratio * 1.03 >= 1 ? 1 : ratio / (coefficient * ratio + 1 - coefficient);
            case Form::none:
                break;
        }
        return 1;
    }

    bool operator==(const Degradation&) const = default;
};

/// Returns a form with the coefficient that counts unless another one is declared.
constexpr Degradation usualDegradation(Degradation::Form form) {
    switch (form) {
        case Degradation::Form::condensingUnit:
            return {form, 0.25};
        case Degradation::Form::chiller:
            return {form, 0.9};
        case Degradation::Form::none:
            break;
    }
    return {};
}

/// Reads "none", "condensing-unit" or "chiller", in any case of letters; the last two may have a coefficient
/// from 0 to 1, as "condensing-unit:0.25". Throws std::invalid_argument with a sentence that quotes what
/// cannot be read.
Degradation degradationOf(std::string_view text);

/// Returns the text that reads back as the degradation.
std::string textOf(const Degradation& degradation);

}  // namespace marvello
