#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace marvello {

/// How the condensing temperature of a plant follows the outdoor temperature and the load. Without a
/// difference it is fixed at the minimum.
struct CondensingRule {
    /// At full load, condensing dew minus outdoor temperature, K; none for a fixed condensing temperature.
    std::optional<double> difference{};
    /// The control goes no lower; degrees Celsius, dew. Of a fixed condensing temperature that itself.
    std::optional<double> minimum{};
    bool isScaled = false;  ///< The difference shrinks with the load.

    /// Returns the condensing dew temperature, degrees Celsius: the outdoor temperature and the difference,
    /// times the load if it is scaled, and at least the minimum. `load` is the share of the design load.
    /// Needs a difference or a minimum.
    double at(double outdoor, double load) const;

    bool operator==(const CondensingRule&) const = default;
};

/// Reads "outdoor+12", "outdoor+12,min 25", "outdoor+12,scaled,min 25" or a fixed temperature such as "40",
/// in any case of letters and with blanks anywhere between. Throws std::invalid_argument with a sentence that
/// quotes what cannot be read.
CondensingRule condensingRuleOf(std::string_view text);

/// Returns the text that reads back as the rule.
std::string textOf(const CondensingRule& rule);

}  // namespace marvello
