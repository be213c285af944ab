#include "results/TechnicalData.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <regex>
#include <string_view>

#include "data/DictionaryTexts.h"
#include "data/ParameterSets.h"
#include "data/Texts.h"
#include "results/RefrigerantTexts.h"
#include "results/ResultTable.h"
#include "thermo/UnitFamilies.h"

namespace marvello {

namespace {

std::string motorSize(const clsCompressor& compressor) {
    const bool isSmall = compressor.Motor.MotorType == MotorChoice::small;
    const std::string size =
        dictionaryText(isSmall ? "frmselection.cmbmotorsize.item0" : "frmselection.cmbmotorsize.item1");
    if (!compressor.Motor.isStandard) return size;
    const std::string standard = dictionaryText("technicaldata.motor.standard");
    return compressor.hasFullSmallMotor ? standard + " (" + size + ")" : standard;
}

std::string startMode(int mode) {
    if (mode == 1) return dictionaryText("technicaldata.start.stardelta");
    return mode == 2 ? dictionaryText("technicaldata.start.partwinding") : "-";
}

std::string supply(const clsMotor& motor) {
    return std::to_string(motor.Voltage) + '/' + std::to_string(motor.Phase) + '/' + std::to_string(motor.Hz);
}

/// Replaces a token in any case of letters; without a value, together with the white space and the word after
/// it.
void replaceToken(std::string& text, std::string_view token, const std::string& value) {
    constexpr const char* blanks = " \t\r\n";
    const std::string wanted = lowered(token);
    for (auto at = lowered(text).find(wanted); at != std::string::npos; at = lowered(text).find(wanted, at)) {
        auto end = at + token.size();
        const auto word = text.find_first_not_of(blanks, end);
        if (value.empty() && word != std::string::npos && word > end)
            end = std::min(text.find_first_of(blanks, word), text.size());
        text.replace(at, end - at, value);
        at += value.size();
    }
}

/// A unit of the technical data and what takes its place, with their names in the unit families.
struct TechnicalUnit {
    std::string_view metric;
    std::string_view imperial;
    std::string_view family;
    std::string_view from;
    std::string_view to;
    double perTime = 1;  ///< minutes in an hour
};
constexpr std::array<TechnicalUnit, 3> technicalUnits{{{"m\u00B3/h", "cfm", "V", "M^3", "FT^3", 60},
                                                       {"kg", "lb", "M", "KG", "LB"},
                                                       {"l", "gal", "V", "LITER", "GAL"}}};

double inImperial(double value, const TechnicalUnit& unit) {
    const double base = convertInFamily(value, unit.family, unit.from, 0, UnitPass::toBase);
    return convertInFamily(base, unit.family, unit.to, 0, UnitPass::fromBase) / unit.perTime;
}

std::string inThreeDigits(double value, const NumberMarks& marks) {
    const int whole = value > 0 ? static_cast<int>(std::floor(std::log10(value))) + 1 : 1;
    const std::string decimals(static_cast<std::size_t>(std::clamp(3 - whole, 0, 2)), '#');
    return formatNumber(value, decimals.empty() ? "#0" : "#0." + decimals, marks);
}

/// The value in the parameter set of a model: "caption|value;caption|value".
std::string catalogueText(const clsCompressor& compressor) {
    try {
        for (const auto& [object, property, value] : readParameterSet("catalog", nameOf(compressor), "eng"))
            if (equalIgnoringCase(object, "picTecnic") && equalIgnoringCase(property, "Tag")) return value;
    } catch (const DatabaseError&) {
        return {};  // a set that cannot be read says no more than a missing one
    }
    return {};
}

}  // namespace

std::vector<TechnicalEntry> technicalData(const clsCompressor& compressor, UnitSystem units,
                                          const NumberMarks& marks) {
    std::vector<TechnicalEntry> entries;
    for (const std::string& piece : splitText(catalogueText(compressor), ';')) {
        if (piece.empty()) continue;
        const auto bar = std::min(piece.find('|'), piece.size());
        std::string value = trimmed(std::string_view(piece).substr(std::min(bar + 1, piece.size())));
        if (value.find('@') != std::string::npos) value = trimmed(MotorDescription(value, compressor, marks));
        if (units == UnitSystem::imperial) value = technicalInImperial(value, marks);
        entries.push_back({trimmed(std::string_view(piece).substr(0, bar)), std::move(value)});
    }
    if (const RefrigerantFacts facts = factsOf(compressor.Refrigerant); facts != RefrigerantFacts()) {
        entries.push_back({dictionaryText("report.refrigerant.caption"), compressor.Refrigerant, true});
        std::ranges::move(factEntries(facts, units, marks), std::back_inserter(entries));
    }
    return entries;
}

std::string MotorDescription(std::string text, const clsCompressor& compressor, const NumberMarks& marks) {
    const clsMotor& motor = compressor.Motor;
    // A calculation that stopped early has not all of them.
    const auto shown = [&](var variable, std::string_view pattern) {
        const clsVariables& variables = compressor.Variables;
        return variables.isSet(variable) ? formatNumber(variables[variable], pattern, marks) : std::string();
    };
    replaceToken(text, "@cps.motorsize", motorSize(compressor));
    replaceToken(text, "@Motor.VoltageDescription", supply(motor));
    replaceToken(text, "@Motor.NominalPower", motor.NominalPower);
    replaceToken(text, "@cps.startmode", startMode(compressor.StartMode));
    replaceToken(text, "@Motor.Lra1", shown(var::Lra1, "#0"));
    replaceToken(text, "@Motor.Lra2", shown(var::Lra2, "#0"));
    replaceToken(text, "@Cps.Fla", shown(var::Fla, "#"));
    if (compressor.hasInvert) replaceToken(text, "@cps.VI", compressor.VI);
    return text;
}

std::string technicalInImperial(std::string_view value, const NumberMarks& marks) {
    // A number and its unit, between white space and brackets.
    static const std::regex quantity("(^|[\\s(/])([0-9]+(?:\\.[0-9]+)?)\\s(m\u00B3/h|kg|l)(?=$|[\\s,;.)])");
    std::string rest(value);
    std::string result;
    for (std::smatch match; std::regex_search(rest, match, quantity); rest = match.suffix()) {
        const auto* const unit = std::ranges::find(technicalUnits, match.str(3), &TechnicalUnit::metric);
        const double converted = inImperial(storedNumber(match.str(2)).value_or(0), *unit);
        result += match.prefix().str() + match.str(1) + inThreeDigits(converted, marks) + ' ';
        result += unit->imperial;
    }
    return result + rest;
}

}  // namespace marvello
