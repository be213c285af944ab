#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "engine/ShippedProfiles.h"
#include "engine/YearComparison.h"
#include "results/YearTexts.h"

namespace marvello {

/// What the form of a year asks for besides its plants, in metric units.
struct YearInputs {
    enum class Condensing : std::uint8_t { outdoorPlus, scaled, fixed };

    double designLoad = 100;  ///< kW
    EvaporatingRule evaporating{};
    Condensing condensing = Condensing::outdoorPlus;
    double difference = 12;       ///< K
    double minimum = 25;          ///< degrees Celsius
    double fixedCondensing = 40;  ///< degrees Celsius

    std::string profile;               ///< The name of a shipped one; empty for one of the user's.
    QString profileName;               ///< Of one of the user's; may be empty.
    LoadProfile load{};                ///< As it is in the table.
    std::optional<SeasonalRule> rule;  ///< That the profile follows.
    std::string ruleOf;                ///< The shipped profile that has it; empty without one.

    Staging staging = Staging::power;
    std::optional<Degradation::Form> degradation{};  ///< None for that of the rule.
    double coefficient = 0;                          ///< Of a form that is chosen.

    // 0 leaves a price or a charge out.
    double price = 0.2;
    QString currency;
    std::string region = "WORLD";  ///< Of the emissions of electricity; empty for a figure that was typed.
    double grid = 0;               ///< kg CO2e/kWh
    double charge = 0;             ///< kg
    double leakage = 10;           ///< Percent a year.
    double recovery = 90;          ///< Percent at the end.
    double years = 15;
    GwpBasis gwp = GwpBasis::ar4;

    /// That of the rule if none is chosen.
    Degradation usedDegradation() const;
    YearTerms terms() const;
};

/// The tables of the application folder that the inputs choose from.
struct YearTables {
    std::vector<ShippedProfile> profiles;
    std::vector<GridIntensity> grids;
    QString fault;  ///< Why they cannot be read; empty if they can.
};
YearTables yearTables();

/// Null for a name that there is not.
const ShippedProfile* profileOf(const YearTables& tables, const std::string& name);
const GridIntensity* gridOf(const YearTables& tables, const std::string& region);

/// Lets a profile follow no rule.
void dropRule(YearInputs& inputs);
/// Takes over a shipped profile with what it says of evaporating temperature.
void takeProfile(YearInputs& inputs, const ShippedProfile& profile);
/// Takes over the emissions of electricity somewhere.
void takeRegion(YearInputs& inputs, const GridIntensity& grid);

YearInputs firstYearInputs(const YearTables& tables);
/// What the last form was left with; the first inputs for what was not kept or is not sound.
YearInputs keptYearInputs(const YearTables& tables);
void keepYearInputs(const YearInputs& inputs);

/// How results of the inputs are shown.
YearStyle styleOf(const YearInputs& inputs, const YearTables& tables, UnitSystem units);

/// Returns what a profile is called in the user's language.
QString profileTitle(const YearInputs& inputs);
QString profileTitle(const ShippedProfile& profile);

}  // namespace marvello
