// The facts of the refrigerants: their sources, blends against their components, temperatures against the
// property library.

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "data/Arithmetic.h"
#include "data/Constants.h"
#include "data/Numbers.h"
#include "thermo/RefpropLibrary.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Rows.h"

namespace marvello {

namespace {

/// A fact of a blend that follows from those of its components by mass.
struct WeightedFact {
    std::string_view column;
    double highest;    ///< of any refrigerant
    double tolerance;  ///< what rounding of the published figure explains
};
// A GWP is published as a whole number, an ozone depletion potential with two or three decimals.
constexpr std::array<WeightedFact, 4> weightedFacts{
    {{"fGwpAr4", 30000, 0.5}, {"fGwpAr5", 30000, 0.5}, {"fGwpAr6", 30000, 0.5}, {"fOdp", 20, 0.005}}};

/// Of the decimal fractions in a sum.
constexpr double rounding = 1e-6;

struct Component {
    std::string file;  ///< of the fluid, as the content has it
    double massFraction = 0;
};

class FactCheck {
  public:
    FactCheck(const Content& content, Faults& faults) : content_(content), faults_(faults) {
        forEachRow(content, "tRefrigeranti", faults,
                   [&](const Row& row) { refrigerants_.insert(row.key("fRefrigeranteId")); });
        forEachRow(content, "tFluidi", faults, [&](const Row& row) {
            blends_[row.key("fRefrigeranteId")].push_back({row.text("fFluido"), row.real("fPFluido")});
        });
        forEachRow(content, "tSources", faults,
                   [&](const Row& row) { sources_.insert(row.key("fSourceId")); });
        forEachRow(content, "tRefrigerantFacts", faults, [&](const Row& row) {
            const auto& components = componentsOf(row);
            if (components.size() == 1) pure_.emplace(lowered(components.front().file), &row.record);
        });
    }

    void run() {
        forEachRow(content_, "tRefrigerantFacts", faults_, [this](const Row& row) {
            if (!refrigerants_.contains(row.key("fRefrigeranteId")))
                row.fault("fRefrigeranteId: there is no refrigerant \"" + row.text("fRefrigeranteId") +
                          "\"; add it to tRefrigeranti or correct the name");
            checkSafetyClass(row);
            checkSource(row, "fSafetyClass", !row.optionalText("fSafetyClass").empty());
            for (const WeightedFact& fact : weightedFacts) checkWeighted(row, fact);
        });
        checkCompleteness();
        checkTemperatures();
    }

  private:
    const std::vector<Component>& componentsOf(const Row& row) { return blends_[row.key("fRefrigeranteId")]; }

    static void checkSafetyClass(const Row& row) {
        constexpr std::array<std::string_view, 8> classes{"A1", "A2L", "A2", "A3", "B1", "B2L", "B2", "B3"};
        const std::string found = row.optionalText("fSafetyClass");
        if (!found.empty() && std::ranges::find(classes, found) == classes.end())
            row.fault("fSafetyClass: \"" + found +
                      "\" is no safety class; enter A1, A2L, A2, A3, B1, B2L, B2 or B3, or leave it empty");
    }

    void checkSource(const Row& row, const std::string& column, bool hasValue) const {
        const std::string source = row.optionalText(column + "Source");
        if (source.empty() == hasValue)
            row.fault(column + (hasValue
                                    ? ": the value has no source; enter it, or remove the value"
                                    : ": there is a source and no value; remove it, or enter the value"));
        else if (hasValue && !sources_.contains(lowered(source)))
            row.fault(column + "Source: there is no source \"" + source +
                      "\"; add it to tSources or correct the name");
    }

    void checkWeighted(const Row& row, const WeightedFact& fact) {
        const std::string column(fact.column);
        const auto value = row.optionalReal(column);
        checkSource(row, column, value.has_value());
        if (!value) return;
        if (*value < 0 || *value > fact.highest)
            row.fault(column + ": " + storedText(*value) + " is outside 0 to " + storedText(fact.highest));
        if (componentsOf(row).size() < 2) return;
        const auto weighted = weightedByMass(row, column);
        if (!weighted)
            row.warn(column + ": not compared with the components, of which one has no value");
        else if (std::abs(*value - *weighted) > fact.tolerance + rounding)
            row.fault(column + ": " + storedText(*value) + " is not what the components give by mass, " +
                      storedText(roundedToPlaces(*weighted, 4)) +
                      "; correct it, their values or the mass fractions in tFluidi");
    }

    std::optional<double> weightedByMass(const Row& row, std::string_view column) {
        double sum = 0;
        for (const auto& [file, massFraction] : componentsOf(row)) {
            const auto pure = pure_.find(lowered(file));
            if (pure == pure_.end()) return std::nullopt;
            const auto value = row.table.optionalReal(*pure->second, column);
            if (!value) return std::nullopt;
            sum += massFraction * *value;
        }
        return sum;
    }

    /// A catalogue that has facts has those of each refrigerant that a compressor runs on.
    void checkCompleteness() {
        std::set<std::string> missing;
        forEachRow(content_, "tCompressors", faults_,
                   [&](const Row& row) { missing.insert(row.key("fRefrigerantID")); });
        const TableContent& facts = content_.table("tRefrigerantFacts");
        if (facts.records.empty()) return;
        for (const auto& record : facts.records)
            missing.erase(lowered(facts.text(record, "fRefrigeranteId")));
        forEachRow(content_, "tRefrigeranti", faults_, [&](const Row& row) {
            if (missing.contains(row.key("fRefrigeranteId")))
                row.warn("the refrigerant has no row in tRefrigerantFacts; its facts show as \"-\"");
        });
    }

    /// Warnings: with another property library than that of the program blends boil a little elsewhere.
    void checkTemperatures() {
        try {
            forEachRow(content_, "tRefrigerantFacts", faults_, [this](const Row& row) {
                if (!componentsOf(row).empty()) compareWithLibrary(row);
            });
        } catch (const FluidLibraryError& failure) {
            faults_.warn("tRefrigerantFacts",
                         std::string("the temperatures are not compared with the property library: ") +
                             failure.what());
        }
    }

    void compareWithLibrary(const Row& row) {
        std::vector<std::string> files;
        std::vector<double> massFractions;
        for (const auto& [file, massFraction] : componentsOf(row)) {
            files.push_back(file);
            massFractions.push_back(massFraction);
        }
        RefpropSession library(refpropFunctions());
        if (const RefpropAnswer answer = library.setUp(files, massFractions); answer.code > 0) {
            row.warn("the temperatures are not compared with the property library: " + answer.sentence());
            return;
        }
        compareBoiling(row, library);
        compareCritical(row, library);
    }

    static void compareBoiling(const Row& row, RefpropSession& library) {
        constexpr double atmosphere = standardAtmosphere * 1000;  // kPa
        constexpr double tolerance = 0.01;                        // K: the values have two decimals
        const RefpropState bubble = library.saturationAtP(atmosphere, 1);
        const RefpropState dew = library.saturationAtP(atmosphere, 2);
        const bool boils = bubble.answer.code <= 0 && dew.answer.code <= 0;
        const auto compare = [&](const std::string& column, double calculated) {
            const auto value = row.optionalReal(column);
            if (!value || (boils && std::abs(*value - calculated) <= tolerance)) return;
            row.warn(column + ": " + storedText(*value) +
                     " is not what the property library has at 101.325 kPa, " +
                     (boils ? storedText(roundedToPlaces(calculated, 2)) : "which is no liquid") +
                     "; correct it");
        };
        compare("fBoilingPoint", bubble.t - zeroCelsius);
        compare("fGlide", dew.t - bubble.t);
    }

    static void compareCritical(const Row& row, RefpropSession& library) {
        constexpr double tolerance = 0.02;  // K
        const auto value = row.optionalReal("fCriticalTemperature");
        if (!value) return;
        const auto isSaturated = [&](double t) {
            return library.saturationAtT(t + zeroCelsius, 1).answer.code <= 0 &&
                   library.saturationAtT(t + zeroCelsius, 2).answer.code <= 0;
        };
        if (!isSaturated(*value - tolerance) || isSaturated(*value + tolerance))
            row.warn("fCriticalTemperature: " + storedText(*value) +
                     " is not that of the property library; \"marvello-fluids table\" prints it");
    }

    const Content& content_;
    Faults& faults_;
    std::set<std::string> refrigerants_;
    std::set<std::string> sources_;
    std::map<std::string, std::vector<Component>> blends_;
    std::map<std::string, const Record*> pure_;  ///< Facts of the refrigerants of one component, by its file.
};

}  // namespace

void checkRefrigerantFacts(const Content& content, Faults& faults) { FactCheck(content, faults).run(); }

}  // namespace marvello
