#include "tools/catalogue/ChangeReasons.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

#include "catalogue/FirstConditions.h"
#include "data/Numbers.h"
#include "data/Texts.h"

namespace marvello {

namespace {

constexpr int capacityType = 0;
constexpr int powerType = 1;
constexpr int dischargeType = 3;

// The columns of tCompressors that a calculation reads with or without economizer alone.
constexpr std::array<std::string_view, 6> onlyWithEconomizer{
    "fKForo", "fKPerdita", "fSez", "fValue1", "fOilCoolingLimitEco", "fLimitEconomizedID"};
constexpr std::array<std::string_view, 2> onlyWithoutEconomizer{"fOilCoolingLimit", "fLimitID"};

std::string joined(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts) text += lowered(part) + '\n';
    return text;
}

/// A number as a row has it, in one way of writing.
std::string numberText(const std::string& field) {
    const auto number = storedNumber(field);
    return number ? storedText(*number) : field;
}

/// Of a discharge surface the program takes whichever is first, so that each row of the name counts.
std::string surfaceKey(const std::string& id, const std::string& type, const std::string& field) {
    return joined({"tPolynomials", id, type, type == std::to_string(dischargeType) ? "" : field});
}

/// What a calculation finds the row with; empty for a row that none reads.
std::string lookupOf(const RowChange& change) {
    const auto field = [&](const char* column) { return change.in->field(*change.row, column); };
    const auto number = [&](const char* column) { return numberText(field(column)); };
    const std::string table = lowered(change.table);
    if (table == "tcompressors")
        return joined({"tCompressors", field("fRefrigerantID"), field("fSerieID"), field("fModelID")});
    if (table == "tpolynomials") return surfaceKey(field("fPolynomialID"), number("fType"), number("fField"));
    if (table == "tmotors") return joined({"tMotors", number("fMotorID"), number("fhz")});
    if (table == "tlimits") return joined({"tLimits", field("fLimitID")});
    if (table == "tfluidi" || table == "trefrigeranti")
        return joined({"tRefrigeranti", field("fRefrigeranteId")});
    return {};
}

/// The fields of the surfaces that the first conditions choose from.
std::vector<double> fieldsAtFirst(const PreparedCompressor& compressor) {
    constexpr double onlyField = 100;
    if (compressor.hasInvert && compressor.traits->rows != SurfaceRows::volumeRatio) return {onlyField};
    if (compressor.hasInvert) {
        std::vector<double> fields;
        for (const auto& rows : {compressor.capacityRows, compressor.powerRows})
            for (const SurfaceRow& row : rows) fields.push_back(row.field);
        return fields;
    }
    const bool isOpen = compressor.traits->drive == Drive::open;
    return {static_cast<double>(isOpen ? firstConditions.MotorRPM : firstConditions.StepCapacity)};
}

std::vector<std::string> lookupsOf(const PreparedCompressor& compressor, bool economized) {
    const bool isSmall = compressor.hasFullSmallMotor && compressor.isMotorSmallDefault;
    const MotorRow* const motor = isSmall ? compressor.motorSmall : compressor.motorFull;
    std::vector<std::string> lookups{
        joined({"tCompressors", compressor.Refrigerant, compressor.Serie, compressor.Model}),
        surfaceKey(compressor.polynomialShName, std::to_string(dischargeType), ""),
        joined({"tLimits", economized ? compressor.limitEconomizedName : compressor.limitName}),
        joined({"tRefrigeranti", compressor.Refrigerant})};
    if (motor) lookups.push_back(joined({"tMotors", std::to_string(motor->ID), "50"}));
    for (const double field : fieldsAtFirst(compressor)) {
        lookups.push_back(
            surfaceKey(compressor.polynomialQ0Name, std::to_string(capacityType), storedText(field)));
        lookups.push_back(
            surfaceKey(compressor.polynomialPtaName, std::to_string(powerType), storedText(field)));
    }
    return lookups;
}

}  // namespace

bool isReadByCalculations(const RowChange& change) { return !lookupOf(change).empty(); }

ChangeReasons::ChangeReasons(const CatalogueDiff& diff) : diff_(diff) {
    for (std::size_t i = 0; i < diff.rows.size(); ++i)
        if (const std::string lookup = lookupOf(diff.rows[i]); !lookup.empty()) rows_.emplace(lookup, i);
}

/// Of a compressor's own row, whether one of the changed columns counts with or without economizer.
bool ChangeReasons::isRead(std::size_t row, bool economized) const {
    const RowChange& change = diff_.rows[row];
    if (change.kind != ChangeKind::changed || !equalIgnoringCase(change.table, "tCompressors")) return true;
    const std::span<const std::string_view> others =
        economized ? std::span<const std::string_view>(onlyWithoutEconomizer) : onlyWithEconomizer;
    return !std::ranges::all_of(change.columns, [&](const ColumnChange& changed) {
        return std::ranges::any_of(
            others, [&](std::string_view column) { return equalIgnoringCase(column, changed.column); });
    });
}

std::vector<std::size_t> ChangeReasons::of(const PreparedCompressor& compressor, bool economized) const {
    std::vector<std::size_t> found;
    for (const std::string& lookup : lookupsOf(compressor, economized)) {
        const auto [first, last] = rows_.equal_range(lookup);
        for (auto row = first; row != last; ++row)
            if (isRead(row->second, economized)) found.push_back(row->second);
    }
    std::ranges::sort(found);
    const auto [first, last] = std::ranges::unique(found);
    found.erase(first, last);
    return found;
}

}  // namespace marvello
