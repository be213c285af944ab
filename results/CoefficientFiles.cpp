#include "results/CoefficientFiles.h"

#include <array>
#include <cmath>
#include <nlohmann/json.hpp>
#include <vector>

#include "catalogue/SeriesTraits.h"
#include "data/Csv.h"
#include "data/Numbers.h"
#include "results/FigureTexts.h"
#include "thermo/UnitSystem.h"

namespace marvello {

namespace {

using Json = nlohmann::ordered_json;

constexpr double wattsPerKilowatt = 1000;
constexpr double btuPerKilowattHour = 3412.14163312794;  // of the International Table
constexpr double poundsPerKilogram = 2.20462262184878;
constexpr double fahrenheitPerKelvin = 1.8;
constexpr double zeroCelsiusInFahrenheit = 32;

constexpr std::string_view polynomial =
    "X = c1 + c2 S + c3 D + c4 S^2 + c5 S D + c6 D^2 + c7 S^3 + c8 D S^2 + c9 S D^2 + c10 D^3";

/// To the 15 digits that a double has, so that a term of the catalogue keeps its own.
double inDecimals(double value) { return shownValue(value, ""); }

/// Takes the metric values of a calculation to the units of a file.
class Units {
  public:
    explicit Units(CoefficientUnits units) : isIp_(units == CoefficientUnits::ip) {}

    double factorOf(Figure figure) const {
        if (figure == Figure::capacity && isIp_) return btuPerKilowattHour;
        if (figure == Figure::massFlow && isIp_) return poundsPerKilogram;
        return figure == Figure::capacity || figure == Figure::power ? wattsPerKilowatt : 1;
    }
    std::string_view nameOf(Figure figure) const {
        if (figure == Figure::capacity) return isIp_ ? "Btu/h" : "W";
        if (figure == Figure::massFlow) return isIp_ ? "lbm/h" : "kg/h";
        return figure == Figure::current ? "A" : "W";
    }
    double temperature(double celsius) const {
        return convertedTemperature(celsius, UnitSystem::metric, system());
    }
    double difference(double kelvin) const {
        return convertedDifference(kelvin, UnitSystem::metric, system());
    }
    std::string_view temperatureName() const { return isIp_ ? "degF" : "degC"; }
    std::string_view differenceName() const { return isIp_ ? "degF" : "K"; }
    std::string_view name() const { return isIp_ ? "ip" : "si"; }

    CubicTerms termsOf(const RatedQuantity& quantity) const {
        CubicTerms terms = quantity.terms;
        if (isIp_) {
            const double kelvin = 1 / fahrenheitPerKelvin;
            const double zero = -zeroCelsiusInFahrenheit / fahrenheitPerKelvin;
            terms = substituted(terms, kelvin, zero, kelvin, zero);
        }
        for (double& term : terms) term = inDecimals(term * factorOf(quantity.figure));
        return terms;
    }

  private:
    UnitSystem system() const { return isIp_ ? UnitSystem::imperial : UnitSystem::metric; }

    bool isIp_;
};

std::string modelOf(const RatedCoefficients& rated) {
    return rated.compressor->Serie + '-' + rated.compressor->Model;
}

bool isOpenDrive(const RatedCoefficients& rated) { return rated.compressor->traits->drive == Drive::open; }

/// Hz, of the mains or of the inverter.
double frequencyOf(const RatedCoefficients& rated) {
    return rated.compressor->hasInvert ? static_cast<double>(rated.conditions.InverterFrequency)
                                       : rated.conditions.MotorHz;
}

std::string temperatureText(double value) { return formatNumber(value, "#0.##"); }

/// One fact of the conditions for each line: name, value, unit.
struct Condition {
    std::string name;
    Json value;
    std::string_view unit;

    std::string text() const {
        const std::string written =
            value.is_number() ? temperatureText(value.get<double>()) : value.get<std::string>();
        return name + ": " + written + (unit.empty() ? "" : " ") + std::string(unit);
    }
};

void addEconomizer(std::vector<Condition>& list, const clsProjectConditions& c, const Units& units) {
    if (c.EcoCalculateMode == EconomizerMode::approach)
        list.push_back({"economizerApproach", units.difference(c.Eco), units.differenceName()});
    else if (c.EcoCalculateMode == EconomizerMode::capacity)
        list.push_back({"economizerCapacity", c.Eco, "kW"});
}

std::vector<Condition> conditionsOf(const RatedCoefficients& rated, const Units& units) {
    const clsProjectConditions& c = rated.conditions;
    std::vector<Condition> list{{"rating", std::string(nameOf(rated.rating)), ""}};
    if (c.SuperHeatType == SuperheatKind::difference)
        list.push_back({"superheat", units.difference(c.SuperHeat), units.differenceName()});
    else
        list.push_back({"suctionGasTemperature", units.temperature(c.SuperHeat), units.temperatureName()});
    list.push_back({"subcooling", units.difference(c.SubCooling), units.differenceName()});
    if (isOpenDrive(rated)) {
        list.push_back({"speed", c.MotorRPM, "1/min"});
    } else {
        list.push_back({"frequency", frequencyOf(rated), "Hz"});
        list.push_back({"voltage", c.MotorVoltage, "V"});
    }
    list.push_back({"step", c.StepCapacity, "%"});
    addEconomizer(list, c, units);
    return list;
}

/// What holds of all files of coefficients, a sentence each.
std::vector<std::string> remarksOf(const RatedCoefficients& rated) {
    std::vector<std::string> remarks{
        "Holds at these conditions and inside the application limit alone; do not extrapolate.",
        "Errors are those of the polynomials against " + std::to_string(rated.points) +
            " calculated points inside the limit."};
    if (rated.conditions.EcoCalculateMode != EconomizerMode::none)
        remarks.emplace_back(
            "Capacity, power and current are totals with the economizer; the mass flow is that of the "
            "evaporator.");
    return remarks;
}

/// The corners of the application limit in the units of the file.
std::vector<std::array<double, 2>> limitOf(const RatedCoefficients& rated, const Units& units) {
    std::vector<std::array<double, 2>> corners;
    const Envelope* const envelope = rated.compressor->envelopeFor(rated.conditions.EcoCalculateMode);
    for (const clsPoint& point : envelope->limits.GetLimitType(limitType::application)->Points)
        corners.push_back({units.temperature(point.x), units.temperature(point.Y)});
    return corners;
}

std::string rangeText(double low, double high, const Units& units) {
    return temperatureText(units.temperature(low)) + " to " + temperatureText(units.temperature(high)) + ' ' +
           std::string(units.temperatureName());
}

/// The lines in front of the numbers of a file.
std::vector<std::string> headOf(const RatedCoefficients& rated, CoefficientForm form, const Units& units) {
    std::vector<std::string> lines{
        "Compressor " + modelOf(rated) + ", refrigerant " + rated.compressor->Refrigerant +
            ": polynomials in the form of " + std::string(titleOf(form)),
        "S: evaporating, D: condensing dew temperature, " + std::string(units.temperatureName())};
    for (const Condition& condition : conditionsOf(rated, units)) lines.push_back(condition.text());
    lines.push_back("S: " + rangeText(rated.range.tedLow, rated.range.tedHigh, units) +
                    ", D: " + rangeText(rated.range.tcdLow, rated.range.tcdHigh, units));
    std::string corners;
    std::string last;
    for (const auto& [s, d] : limitOf(rated, units)) {
        const std::string corner = temperatureText(s) + '/' + temperatureText(d);
        if (corner != last) corners += (corners.empty() ? "" : ", ") + corner;
        last = corner;
    }
    lines.push_back("Application limit S/D: " + corners);
    for (const std::string& remark : remarksOf(rated)) lines.push_back(remark);
    return lines;
}

Json rangeOf(double low, double high, const Units& units) {
    return {units.temperature(low), units.temperature(high)};
}

/// The value of a figure at a point in the units of the file; null for none.
Json valueOf(const RatedPoint& point, Figure figure, const Units& units) {
    const auto value = marvello::valueOf(point.performance, figure);
    return value ? Json(*value * units.factorOf(figure)) : Json();
}

constexpr std::array ratedFigures{Figure::capacity, Figure::power, Figure::current, Figure::massFlow};

const RatedQuantity* quantityOf(const RatedCoefficients& rated, Figure figure) {
    for (const RatedQuantity& quantity : rated.quantities)
        if (quantity.figure == figure) return &quantity;
    return nullptr;
}

struct CurveTerm {
    std::size_t index;  ///< Of CubicTerms.
    std::string_view comment;
};
/// In the order of Curve:Bicubic; x is S, y is D.
constexpr std::array<CurveTerm, 10> curveTerms{{{0, "Coefficient1 Constant"},
                                                {1, "Coefficient2 x"},
                                                {3, "Coefficient3 x**2"},
                                                {2, "Coefficient4 y"},
                                                {5, "Coefficient5 y**2"},
                                                {4, "Coefficient6 x*y"},
                                                {6, "Coefficient7 x**3"},
                                                {9, "Coefficient8 y**3"},
                                                {7, "Coefficient9 x**2*y"},
                                                {8, "Coefficient10 x*y**2"}}};

/// An object of an input file: its class, then field after field.
class IdfObject {
  public:
    explicit IdfObject(std::string_view type) : text_(std::string(type) + ",\n") {}

    void add(const std::string& value, std::string_view comment) {
        if (!last_.empty() || !comment_.empty()) text_ += line(',');
        last_ = value;
        comment_ = comment;
    }
    std::string text() const { return text_ + line(';') + '\n'; }

  private:
    std::string line(char end) const { return "  " + last_ + end + "  !- " + comment_ + '\n'; }

    std::string text_;
    std::string last_;
    std::string comment_;
};

std::string curveOf(const RatedCoefficients& rated, const RatedQuantity& quantity, const std::string& name) {
    const Units units(CoefficientUnits::si);
    IdfObject curve("Curve:Bicubic");
    curve.add(name, "Name");
    const CubicTerms terms = units.termsOf(quantity);
    for (const CurveTerm& term : curveTerms) curve.add(storedText(terms[term.index]), term.comment);
    curve.add(storedText(rated.range.tedLow), "Minimum Value of x");
    curve.add(storedText(rated.range.tedHigh), "Maximum Value of x");
    curve.add(storedText(rated.range.tcdLow), "Minimum Value of y");
    curve.add(storedText(rated.range.tcdHigh), "Maximum Value of y");
    return curve.text();
}

}  // namespace

std::string_view titleOf(CoefficientForm form) {
    constexpr std::array<std::string_view, 3> titles{"AHRI 540", "EN 12900", "EnergyPlus"};
    return titles.at(static_cast<std::size_t>(form));
}

std::string coefficientsCsv(const RatedCoefficients& rated, CoefficientForm form, CoefficientUnits inUnits) {
    const Units units(inUnits);
    std::string text;
    for (const std::string& line : headOf(rated, form, units)) text += "# " + line + '\n';
    text += "# " + std::string(polynomial) + '\n';
    const auto addRow = [&](const std::string& name, auto valueOf) {
        std::vector<std::string> fields{name};
        for (const RatedQuantity& quantity : rated.quantities) fields.push_back(valueOf(quantity));
        text += csvLine(fields);
    };
    const auto addDeviation = [&](const std::string& name, double FitDeviation::* of, bool isPercent) {
        addRow(name, [&](const RatedQuantity& q) {
            return storedText(q.deviation.*of * (isPercent ? 1 : units.factorOf(q.figure)));
        });
    };
    addRow("quantity", [](const RatedQuantity& q) { return std::string(nameOf(q.figure)); });
    addRow("unit", [&](const RatedQuantity& q) { return std::string(units.nameOf(q.figure)); });
    for (std::size_t i = 0; i < CubicTerms{}.size(); ++i)
        addRow("c" + std::to_string(i + 1),
               [&](const RatedQuantity& q) { return storedText(units.termsOf(q)[i]); });
    addRow("source",
           [](const RatedQuantity& q) { return std::string(q.isOfCatalogue ? "catalogue" : "fit"); });
    addDeviation("max", &FitDeviation::max, false);
    addDeviation("rms", &FitDeviation::rms, false);
    addDeviation("maxPercent", &FitDeviation::maxPercent, true);
    addDeviation("rmsPercent", &FitDeviation::rmsPercent, true);
    std::vector<std::string> heading{"S", "D"};
    for (const RatedQuantity& quantity : rated.quantities) heading.emplace_back(nameOf(quantity.figure));
    text += '\n' + csvLine(heading);
    for (const RatedPoint& point : rated.check) {
        std::vector<std::string> fields{storedText(units.temperature(point.ted)),
                                        storedText(units.temperature(point.tcd))};
        for (const RatedQuantity& quantity : rated.quantities)
            fields.push_back(valueOf(point, quantity.figure, units).dump());
        text += csvLine(fields);
    }
    return text;
}

std::string coefficientsJson(const RatedCoefficients& rated, CoefficientForm form, CoefficientUnits inUnits) {
    const Units units(inUnits);
    Json object{{"form", form == CoefficientForm::ahri540 ? "ahri540" : "en12900"}, {"units", units.name()}};
    object["compressor"] = {{"refrigerant", rated.compressor->Refrigerant},
                            {"series", rated.compressor->Serie},
                            {"model", rated.compressor->Model}};
    for (const Condition& condition : conditionsOf(rated, units))
        object["conditions"][condition.name] = condition.value;
    object["range"] = {{"ted", rangeOf(rated.range.tedLow, rated.range.tedHigh, units)},
                       {"tcd", rangeOf(rated.range.tcdLow, rated.range.tcdHigh, units)}};
    object["limit"] = limitOf(rated, units);
    for (const Figure figure : ratedFigures) {
        const std::string name(nameOf(figure));
        const RatedQuantity* const quantity = quantityOf(rated, figure);
        object["coefficients"][name] = quantity == nullptr ? Json() : Json(units.termsOf(*quantity));
        if (quantity == nullptr) continue;
        const double factor = units.factorOf(figure);
        const FitDeviation& deviation = quantity->deviation;
        object["fit"][name] = {{"source", quantity->isOfCatalogue ? "catalogue" : "fit"},
                               {"points", rated.points},
                               {"max", deviation.max * factor},
                               {"rms", deviation.rms * factor},
                               {"maxPercent", deviation.maxPercent},
                               {"rmsPercent", deviation.rmsPercent}};
    }
    object["check"] = Json::array();
    for (const RatedPoint& point : rated.check) {
        Json& check = object["check"].emplace_back();
        check["ted"] = units.temperature(point.ted);
        check["tcd"] = units.temperature(point.tcd);
        for (const Figure figure : ratedFigures)
            check[std::string(nameOf(figure))] =
                quantityOf(rated, figure) == nullptr ? Json() : valueOf(point, figure, units);
    }
    object["remarks"] = remarksOf(rated);
    return object.dump(2) + '\n';
}

std::string coefficientsIdf(const RatedCoefficients& rated) {
    const Units units(CoefficientUnits::si);
    const std::string name = modelOf(rated) + ' ' + rated.compressor->Refrigerant;
    std::string text;
    for (const std::string& line : headOf(rated, CoefficientForm::energyPlus, units))
        text += "! " + line + '\n';
    for (const Figure figure : {Figure::power, Figure::capacity}) {
        const FitDeviation& deviation = quantityOf(rated, figure)->deviation;
        text += "! " + std::string(nameOf(figure)) + ": largest error " +
                formatNumber(deviation.max * wattsPerKilowatt, "#0.0##") + " W (" +
                formatNumber(deviation.maxPercent, "#0.00##") + " %), rms " +
                formatNumber(deviation.rms * wattsPerKilowatt, "#0.0##") + " W\n";
    }
    text +=
        "! The refrigerant has to be among the fluid properties of the input, the compressor in a "
        "Refrigeration:CompressorList.\n\n";
    text += curveOf(rated, *quantityOf(rated, Figure::power), name + " Power") + '\n';
    text += curveOf(rated, *quantityOf(rated, Figure::capacity), name + " Capacity") + '\n';
    const clsProjectConditions& c = rated.conditions;
    const bool hasSuperheat = c.SuperHeatType == SuperheatKind::difference;
    IdfObject compressor("Refrigeration:Compressor");
    compressor.add(name, "Name");
    compressor.add(name + " Power", "Refrigeration Compressor Power Curve Name");
    compressor.add(name + " Capacity", "Refrigeration Compressor Capacity Curve Name");
    compressor.add(hasSuperheat ? storedText(c.SuperHeat) : "", "Rated Superheat {deltaC}");
    compressor.add(hasSuperheat ? "" : storedText(c.SuperHeat), "Rated Return Gas Temperature {C}");
    compressor.add("", "Rated Liquid Temperature {C}");
    compressor.add(storedText(c.SubCooling), "Rated Subcooling {deltaC}");
    compressor.add("General", "End-Use Subcategory");
    compressor.add("Subcritical", "Mode of Operation");
    return text + compressor.text();
}

}  // namespace marvello
