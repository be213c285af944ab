#include "project/Promise.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <exception>
#include <set>
#include <span>
#include <string_view>

#include "catalogue/Variables.h"
#include "data/Numbers.h"
#include "thermo/RefpropLibrary.h"

namespace marvello {

namespace {

/// Takes the values of rows in and makes a short text of them that another value changes: FNV-1a, 64 bits.
class Fingerprint {
  public:
    Fingerprint& add(std::string_view text) {
        for (const char c : text) take(static_cast<unsigned char>(c));
        take(0xFF);  // in no text of UTF-8: two texts are not one
        return *this;
    }
    Fingerprint& add(double value) { return add(storedText(value)); }
    template <std::size_t count>
    Fingerprint& add(const std::array<double, count>& values) {
        for (const double value : values) add(value);
        return *this;
    }

    std::string text() const {
        std::array<char, 16> digits{};
        constexpr int hexadecimal = 16;
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), hash_, hexadecimal).ptr;
        return {digits.data(), end};
    }

  private:
    void take(unsigned char byte) {
        constexpr std::uint64_t prime = 1099511628211U;
        hash_ = (hash_ ^ byte) * prime;
    }

    std::uint64_t hash_ = 14695981039346656037U;
};

std::string ofModel(const PreparedCompressor& compressor, bool isEconomized) {
    Fingerprint print;
    const clsInverter& inverter = compressor.InverterInfo;
    for (const std::string& text : {compressor.VI, compressor.polynomialQ0Name, compressor.polynomialPtaName,
                                    compressor.polynomialShName, compressor.fault})
        print.add(text);
    for (const double number :
         {compressor.Fla, compressor.Fla2, inverter.Q0C1, inverter.Q0C2, inverter.Q0C3, inverter.PtaC1,
          inverter.PtaC2, inverter.PtaC3, inverter.CaC1, inverter.CaC2, inverter.CaC3, inverter.InCurrent,
          static_cast<double>(compressor.ctsca), compressor.OilCoolingLimit, compressor.Economizer.KForo,
          compressor.Economizer.Sez, compressor.Economizer.KPerdita})
        print.add(number);
    if (isEconomized) print.add(compressor.OilCoolingLimitEco).add(compressor.KValues.Value1);
    for (const int number : {compressor.hasInvert ? 1 : 0, compressor.hasFullSmallMotor ? 1 : 0,
                             compressor.isMotorSmallDefault ? 1 : 0, compressor.StartMode})
        print.add(number);
    return print.text();
}

std::string ofRows(std::span<const SurfaceRow> rows) {
    Fingerprint print;
    for (const SurfaceRow& row : rows) print.add(row.field).add(row.c).add(row.fault);
    return print.text();
}

std::string ofEnvelope(const Envelope* envelope) {
    Fingerprint print;
    print.add(envelope == nullptr ? "none" : envelope->fault);
    if (envelope == nullptr) return print.text();
    for (const auto& limit : envelope->limits) {
        print.add(limit->LimitType);
        for (const clsPoint& point : limit->Points) print.add(point.x).add(point.Y);
    }
    return print.text();
}

std::string ofMotors(const PreparedCompressor& compressor) {
    Fingerprint print;
    for (const MotorRow* const motor : {compressor.motorFull, compressor.motorSmall}) {
        print.add(motor == nullptr ? "none" : motor->NominalPower);
        if (motor == nullptr) continue;
        print.add(motor->c).add(motor->Lra1).add(motor->Lra2).add(motor->Phase).add(motor->fault);
    }
    return print.text();
}

/// Of what a calculation at these conditions reads.
std::map<CataloguePart, std::string> fingerprintsOf(const PreparedCompressor& compressor,
                                                    const clsProjectConditions& conditions) {
    using enum CataloguePart;
    return {{model, ofModel(compressor, conditions.EcoCalculateMode != EconomizerMode::none)},
            {capacitySurface, ofRows(compressor.capacityRows)},
            {powerSurface, ofRows(compressor.powerRows)},
            {dischargeSurface, ofRows(compressor.dischargeRows)},
            {envelope, ofEnvelope(compressor.envelopeFor(conditions.EcoCalculateMode))},
            {motor, ofMotors(compressor)}};
}

/// Whether a variable is a property of the refrigerant at the conditions, whatever the compressor.
bool isProperty(const std::string& name) {
    const auto variable = variableNamed(name);
    if (!variable) return false;
    const Stage stage = definitionOf(*variable).stage;
    return stage == Stage::saturation || stage == Stage::suction || stage == Stage::liquid;
}

bool areEqual(double one, double other, double tolerance) {
    constexpr double floor = 1e-3;  // what is next to 0 differs by the last bits of what it came from
    return std::abs(one - other) <= tolerance * std::max({floor, std::abs(one), std::abs(other)});
}

std::optional<double> valueIn(const std::map<std::string, double>& values, const std::string& name) {
    const auto found = values.find(name);
    return found == values.end() ? std::nullopt : std::optional(found->second);
}

std::vector<Change::Value> changedValues(const PromisedResult& promised, const PromisedResult& today,
                                         double tolerance) {
    std::set<std::string> names;
    for (const auto* const values : {&promised.values, &today.values})
        for (const auto& [name, value] : *values) names.insert(name);
    std::vector<Change::Value> changed;
    for (const std::string& name : names) {
        const auto before = valueIn(promised.values, name);
        const auto now = valueIn(today.values, name);
        if (!before || !now || !areEqual(*before, *now, tolerance)) changed.push_back({name, before, now});
    }
    return changed;
}

/// The messages that the others do not have, each as often.
std::vector<PromisedMessage> without(std::vector<PromisedMessage> messages,
                                     const std::vector<PromisedMessage>& others) {
    for (const PromisedMessage& other : others)
        if (const auto found = std::ranges::find(messages, other); found != messages.end())
            messages.erase(found);
    return messages;
}

Change changeOf(const PromisedResult& promised, const PromisedResult& today, double tolerance) {
    Change change{.values = changedValues(promised, today, tolerance),
                  .gained = without(today.messages, promised.messages),
                  .lost = without(promised.messages, today.messages)};
    for (const auto& [part, fingerprint] : today.fingerprints)
        if (const auto before = promised.fingerprints.find(part);
            before != promised.fingerprints.end() && before->second != fingerprint)
            change.parts.push_back(part);
    if (!change.parts.empty()) change.reasons.push_back(ChangeReason::row);
    const auto isOtherProperty = [](const Change::Value& value) {
        return value.promised && isProperty(value.name);
    };
    if (std::ranges::any_of(change.values, isOtherProperty)) change.reasons.push_back(ChangeReason::property);
    if (change.isInResults() && change.reasons.empty()) change.reasons.push_back(ChangeReason::rule);
    return change;
}

}  // namespace

PromisedResult promisedResult(Calculator& calculator, const PreparedCompressor& compressor,
                              const clsProjectConditions& conditions) {
    PromisedResult result{.compressor = {compressor.Refrigerant, compressor.Serie, compressor.Model},
                          .conditions = conditions,
                          .values = {},
                          .messages = {},
                          .fingerprints = fingerprintsOf(compressor, conditions)};
    const clsCompressor& calculated = calculator.calculate(compressor, conditions);
    for (const clsVariable* const variable : calculated.Variables)
        if (variable->isNumber()) result.values.emplace(variable->Name(), variable->number());
    const ClsSelectionMessages& messages = calculated.Messages;
    for (const auto& [severity, those] :
         {std::pair{Severity::error, &messages.Error}, std::pair{Severity::attention, &messages.Attention},
          std::pair{Severity::information, &messages.Information}})
        for (const clsMessage& message : *those) result.messages.push_back({severity, message.Name});
    return result;
}

std::vector<CheckedResult> checkedResults(const Promise& promise, const PreparedCatalogue& catalogue,
                                          Calculator& calculator, double tolerance) {
    std::vector<CheckedResult> checked;
    for (const PromisedResult& promised : promise.results) {
        CheckedResult& result = checked.emplace_back();
        const auto& [refrigerant, serie, model] = promised.compressor;
        const PreparedCompressor* const compressor = catalogue.find(refrigerant, serie, model);
        if (compressor == nullptr) {
            result.change.reasons = {ChangeReason::missing};
            continue;
        }
        try {
            result.today = promisedResult(calculator, *compressor, promised.conditions);
        } catch (const FluidLibraryError&) {
            throw;
        } catch (const std::exception&) {
            // Rows that cannot be read give no values.
            result.today = PromisedResult{.compressor = promised.compressor,
                                          .conditions = promised.conditions,
                                          .fingerprints = fingerprintsOf(*compressor, promised.conditions)};
        }
        result.change = changeOf(promised, *result.today, tolerance);
    }
    return checked;
}

}  // namespace marvello
