#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/PreparedCatalogue.h"
#include "catalogue/clsProjectConditions.h"
#include "engine/Calculator.h"

namespace marvello {

/// A compressor as the catalogue names it.
struct CompressorName {
    std::string refrigerant{};
    std::string serie{};
    std::string model{};

    bool operator==(const CompressorName&) const = default;
};

/// What results rest on besides the inputs.
struct PromiseBasis {
    std::string program{};    ///< Version.
    std::string catalogue{};  ///< Digest of the file; empty for one that bears none.

    bool operator==(const PromiseBasis&) const = default;
};

/// A part of the catalogue that a compressor is calculated from.
enum class CataloguePart : std::uint8_t {
    model,
    capacitySurface,
    powerSurface,
    dischargeSurface,
    envelope,
    motor,
};

/// Their names in files.
inline constexpr std::array cataloguePartNames{
    std::pair{CataloguePart::model, "model"},        std::pair{CataloguePart::capacitySurface, "capacity"},
    std::pair{CataloguePart::powerSurface, "power"}, std::pair{CataloguePart::dischargeSurface, "discharge"},
    std::pair{CataloguePart::envelope, "envelope"},  std::pair{CataloguePart::motor, "motor"}};

inline constexpr std::array severityNames{std::pair{Severity::error, "error"},
                                          std::pair{Severity::attention, "attention"},
                                          std::pair{Severity::information, "information"}};

/// Returns the name of a value in files.
template <class Value, std::size_t count>
std::string nameIn(const std::array<std::pair<Value, const char*>, count>& names, Value value) {
    for (const auto& [each, name] : names)
        if (each == value) return name;
    return {};
}

/// A message that was given with a result.
struct PromisedMessage {
    Severity severity = Severity::information;
    std::string key{};  ///< Of the dictionary.

    bool operator==(const PromisedMessage&) const = default;
};

/// What a compressor came to.
struct PromisedResult {
    CompressorName compressor{};
    clsProjectConditions conditions{};
    std::map<std::string, double> values{};               ///< By the names of the variables.
    std::vector<PromisedMessage> messages{};              ///< In their order.
    std::map<CataloguePart, std::string> fingerprints{};  ///< Of the rows that it rests on.

    bool operator==(const PromisedResult&) const = default;
};

/// Results that somebody relies on, with what it takes to find out later why they are others.
struct Promise {
    std::string date{};  ///< Of the calculation, ISO 8601 with the offset from UTC.
    PromiseBasis basis{};
    std::vector<PromisedResult> results{};

    bool operator==(const Promise&) const = default;
};

/// Calculates a compressor and returns what there is to promise. Throws FluidLibraryError, and what
/// Calculator::calculate throws for rows that cannot be read.
PromisedResult promisedResult(Calculator& calculator, const PreparedCompressor& compressor,
                              const clsProjectConditions& conditions);

/// Why a result is another one than that which was promised.
enum class ChangeReason : std::uint8_t {
    row,       ///< Rows of the catalogue; Change::parts says which.
    property,  ///< Properties of the refrigerant.
    rule,      ///< The calculation or its rules: neither of the others explains it.
    missing    ///< The catalogue has no such compressor any more.
};

/// Their names in files.
inline constexpr std::array changeReasonNames{
    std::pair{ChangeReason::row, "row"}, std::pair{ChangeReason::property, "property"},
    std::pair{ChangeReason::rule, "rule"}, std::pair{ChangeReason::missing, "missing"}};

/// How a result differs from that which was promised.
struct Change {
    struct Value {
        std::string name{};                ///< Of the variable.
        std::optional<double> promised{};  ///< None for one that was not there.
        std::optional<double> today{};
    };
    std::vector<Value> values{};            ///< In the order of their names.
    std::vector<PromisedMessage> gained{};  ///< Messages of today alone.
    std::vector<PromisedMessage> lost{};    ///< Those that are not given any more.
    std::vector<ChangeReason> reasons{};    ///< All that hold, in the order of the enumeration.
    std::vector<CataloguePart> parts{};     ///< Whose rows changed.

    /// Rows may change without a result that does.
    bool isInResults() const { return !values.empty() || !gained.empty() || !lost.empty() || isMissing(); }
    bool isMissing() const { return reasons == std::vector{ChangeReason::missing}; }
};

/// A promised result, calculated again.
struct CheckedResult {
    std::optional<PromisedResult> today{};  ///< None for a compressor that the catalogue does not have.
    Change change{};

    /// True if it is as it was, and its rows too.
    bool isAsPromised() const { return change.reasons.empty(); }
};

/// Calculates promised results again, in their order. Values within `tolerance` of each other, relative to
/// the larger one or to 0.001, are equal: another machine may differ in the last bits. Throws
/// FluidLibraryError.
std::vector<CheckedResult> checkedResults(const Promise& promise, const PreparedCatalogue& catalogue,
                                          Calculator& calculator, double tolerance = 1e-9);

}  // namespace marvello
