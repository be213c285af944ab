#pragma once

#include <string>
#include <vector>

#include "results/ResultTable.h"
#include "results/TechnicalData.h"

namespace marvello {

/// A line of the report's data table: a name on the left and a value on the right, or a heading.
struct ReportLine {
    std::string name;
    std::string value;
    bool isHeading = false;
};

/// Returns the value followed by its unit, if it has one: "2.00 °C".
std::string withUnit(const std::string& value, std::string_view unit);

/// The conditions of a calculation as its form shows them.
struct ReportConditions {
    struct Quantity {
        std::string value;
        std::string unit;
    };
    std::string refrigerant;
    Quantity evaporatingDew, evaporatingMid,
        evaporatingPressure;  ///< no mid value where the two are the same
    Quantity condensingDew, condensingMid, condensingPressure;
    std::string superheatType;
    Quantity superheat, subcooling;
    std::string motorSize;
    std::string capacityStep;
    Quantity inverterFrequency;  ///< no value at mains frequency
};

std::vector<ReportLine> conditionLines(const ReportConditions& conditions);

/// Returns the lines of the results: one for each column, but capacities in Btu are on the line of their
/// tons.
std::vector<ReportLine> resultLines(const ResultTable& table, const ResultRow& row);

/// Returns the lines of the technical data.
std::vector<ReportLine> technicalLines(const std::vector<TechnicalEntry>& entries);

}  // namespace marvello
