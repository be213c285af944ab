#include "thermo/EnteredQuantity.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "data/Constants.h"
#include "data/DictionaryTexts.h"
#include "data/Numbers.h"
#include "thermo/UnitFamilies.h"
#include "thermo/clsConvert.h"

namespace marvello {

namespace {

struct Unit {
    Quantity quantity;
    std::string_view names;  ///< lower case, joined with "="
    std::string_view code;   ///< of the unit families
};

constexpr std::array units{
    Unit{Quantity::temperature, "c=celsius", "C"},
    Unit{Quantity::temperature, "f=fahrenheit", "F"},
    Unit{Quantity::temperature, "k=kelvin", "K"},
    Unit{Quantity::temperature, "r=rankine", "R"},
    Unit{Quantity::temperatureDifference, "k=kelvin=c=celsius", "K"},
    Unit{Quantity::temperatureDifference, "f=fahrenheit=r=rankine", "R"},
    Unit{Quantity::pressure, "bar", "BAR"},
    Unit{Quantity::pressure, "mbar=hpa", "MBAR"},
    Unit{Quantity::pressure, "pa", "PA"},
    Unit{Quantity::pressure, "kpa", "KPA"},
    Unit{Quantity::pressure, "mpa", "MPA"},
    Unit{Quantity::pressure, "psi", "PSI"},
    Unit{Quantity::pressure, "atm", "ATM"},
    Unit{Quantity::pressure, "at=kgf/cm2=kg/cm2", "AT"},
    Unit{Quantity::power, "kw", "KW"},
    Unit{Quantity::power, "w", "W"},
    Unit{Quantity::power, "tons=tr=ton=rt", "TONS"},
    Unit{Quantity::power, "btu/h=btuh=btu/hr", "BTU/H"},
    Unit{Quantity::frequency, "hz", "HZ"},
};

constexpr std::array<std::string_view, 2> absolutes{"a", "abs"};
constexpr std::array<std::string_view, 3> gauges{"g", "gauge", "rel"};

/// A way to write a unit, in lower case and without blanks.
struct Spelling {
    std::string text;
    const Unit* unit;
    bool isGauge = false;
};

std::vector<std::string_view> namesOf(const Unit& unit) {
    std::vector<std::string_view> names;
    for (std::size_t begin = 0; begin <= unit.names.size();) {
        const std::size_t end = std::min(unit.names.find('=', begin), unit.names.size());
        names.push_back(unit.names.substr(begin, end - begin));
        begin = end + 1;
    }
    return names;
}

std::vector<Spelling> spellingsOf(Quantity quantity) {
    std::vector<Spelling> result;
    for (const Unit& unit : units) {
        if (unit.quantity != quantity) continue;
        for (const std::string_view name : namesOf(unit)) {
            const std::string plain(name);
            result.push_back({plain, &unit});
            if (quantity == Quantity::temperature || quantity == Quantity::temperatureDifference)
                result.push_back({"deg" + plain, &unit});
            if (quantity != Quantity::pressure) continue;
            for (const std::string_view mark : absolutes)
                result.push_back({plain + std::string(mark), &unit});
            for (const std::string_view mark : gauges)
                result.push_back({plain + std::string(mark), &unit, true});
        }
    }
    return result;
}

/// `text` in lower case without blanks, brackets and signs of degree; "2" for the superscript, "g" for the
/// letter that marks a gauge pressure in German.
std::string normalised(std::string_view text) {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 5> replaced{
        {{"\u00B0", ""}, {"\u00BA", ""}, {"\u00B2", "2"}, {"\u00FC", "g"}, {"\u00DC", "g"}}};
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
        const auto found = std::find_if(replaced.begin(), replaced.end(), [&](const auto& entry) {
            return text.substr(i).starts_with(entry.first);
        });
        if (found != replaced.end()) {
            result += found->second;
            i += found->first.size();
            continue;
        }
        const char sign = text[i++];
        if (sign == ' ' || sign == '(' || sign == ')' || sign == '^') continue;
        result += sign >= 'A' && sign <= 'Z' ? static_cast<char>(sign - 'A' + 'a') : sign;
    }
    return result;
}

double inKilowatts(double value, std::string_view code, UnitPass pass) {
    clsConvert convert;
    if (code == "TONS")
        return convert.ConvertValue(
            value, pass == UnitPass::toBase ? conversion::tonsToKilowatts : conversion::kilowattsToTons);
    if (code == "BTU/H")
        return pass == UnitPass::toBase
                   ? convert.ConvertValue(convert.ConvertValue(value, conversion::btuToTons),
                                          conversion::tonsToKilowatts)
                   : convert.ConvertValue(convert.ConvertValue(value, conversion::kilowattsToTons),
                                          conversion::tonsToBtu);
    if (code == "W") return pass == UnitPass::toBase ? value / 1000 : value * 1000;
    return value;
}

/// To kelvin, MPa and kW, or back.
double pass(double value, const Unit& unit, UnitPass direction) {
    switch (unit.quantity) {
        case Quantity::temperature:
        case Quantity::temperatureDifference:
            return convertInFamily(value, "T", unit.code, 0, direction);
        case Quantity::pressure:
            if (unit.code == "MBAR")
                return direction == UnitPass::toBase
                           ? convertInFamily(value / 1000, "P", "BAR", 0, direction)
                           : convertInFamily(value, "P", "BAR", 0, direction) * 1000;
            return convertInFamily(value, "P", unit.code, 0, direction);
        case Quantity::power:
            return inKilowatts(value, unit.code, direction);
        default:
            return value;
    }
}

/// To a thousand millionth: the last bits of a sum or a conversion are nobody's intention.
double withoutNoise(double value) {
    constexpr double steps = 1e9;
    constexpr double exact = 1e6;  // beyond it there are no bits to spare
    return std::abs(value) > exact ? value : std::nearbyint(value * steps) / steps;
}

/// Reads a sum from the front of a text.
class SumReader {
  public:
    explicit SumReader(std::string_view text) : rest_(text) {}

    /// False if the text begins with no sum; `isUnfinished` says whether it may become one.
    bool read() {
        while (true) {
            skipBlanks();
            double sign = 1;
            if (const bool isSigned = rest_.starts_with('+') || rest_.starts_with('-');
                isSigned || terms > 0) {
                if (!isSigned) return true;
                sign = rest_.front() == '-' ? -1 : 1;
                rest_.remove_prefix(1);
                if (terms > 0) skipBlanks();
            }
            const auto value = number();
            if (!value) {
                isUnfinished = rest_.empty() || rest_ == "." || rest_ == ",";
                return false;
            }
            total += sign * *value;
            ++terms;
        }
    }

    /// What follows the sum, without leading blanks.
    std::string_view rest() const { return rest_; }

    double total = 0;
    int terms = 0;
    bool isUnfinished = false;

  private:
    void skipBlanks() {
        while (rest_.starts_with(' ')) rest_.remove_prefix(1);
    }

    static bool isDigit(char sign) { return sign >= '0' && sign <= '9'; }

    std::size_t digitsFrom(std::size_t begin) const {
        std::size_t end = begin;
        while (end < rest_.size() && isDigit(rest_[end])) ++end;
        return end;
    }

    std::optional<double> number() {
        std::size_t end = digitsFrom(0);
        bool hasDigits = end > 0;
        if (end < rest_.size() && (rest_[end] == '.' || rest_[end] == ',')) {
            const std::size_t after = digitsFrom(end + 1);
            hasDigits = hasDigits || after > end + 1;
            end = after;
        }
        if (!hasDigits) return std::nullopt;
        if (end < rest_.size() && (rest_[end] == 'e' || rest_[end] == 'E')) {
            std::size_t power = end + 1;
            if (power < rest_.size() && (rest_[power] == '+' || rest_[power] == '-')) ++power;
            if (const std::size_t after = digitsFrom(power); after > power) end = after;
        }
        const auto value = localNumber(rest_.substr(0, end));
        if (value) rest_.remove_prefix(end);
        return value;
    }

    std::string_view rest_;
};

bool beginsUnit(char sign) {
    return (sign >= 'a' && sign <= 'z') || (sign >= 'A' && sign <= 'Z') || sign == '(' || sign < 0;
}

}  // namespace

UnitRule conversionOf(Quantity quantity) {
    switch (quantity) {
        case Quantity::temperature:
            return convertedTemperature;
        case Quantity::temperatureDifference:
        case Quantity::power:  // Kept: the economizer's capacity is converted as a difference, there and
                               // back.
            return convertedDifference;
        case Quantity::pressure:
            return convertedPressure;
        case Quantity::number:
        case Quantity::frequency:
            break;
    }
    return nullptr;
}

std::string unitText(Quantity quantity, UnitSystem units) {
    const bool isImperial = units == UnitSystem::imperial;
    const auto temperature = [&] { return dictionaryText("general.variable03") + (isImperial ? 'F' : 'C'); };
    switch (quantity) {
        case Quantity::temperature:
            return temperature();
        case Quantity::temperatureDifference:
            return isImperial ? temperature() : "K";
        case Quantity::pressure:
            return isImperial ? "psia" : "bar abs";
        case Quantity::power:
            return isImperial ? "Tons" : "kW";
        case Quantity::frequency:
            return "Hz";
        case Quantity::number:
            break;
    }
    return {};
}

EnteredQuantity readQuantity(std::string_view text, Quantity quantity, std::string_view unit) {
    const std::vector<Spelling> spellings = spellingsOf(quantity);
    const auto spelled = [&](const std::string& wanted) {
        return std::find_if(spellings.begin(), spellings.end(),
                            [&](const Spelling& spelling) { return spelling.text == wanted; });
    };
    const auto own = spelled(normalised(unit));
    if (quantity != Quantity::number && own == spellings.end())
        throw std::invalid_argument("A quantity has no unit " + std::string(unit) + ".");

    SumReader sum(text);
    if (!sum.read()) return {.isUnfinished = sum.isUnfinished};
    if (sum.rest().empty()) {
        const bool isPlain = sum.terms == 1;
        return {.value = isPlain ? sum.total : withoutNoise(sum.total), .isPlain = isPlain};
    }
    if (!beginsUnit(sum.rest().front())) return {};
    const std::string named = normalised(sum.rest());
    const auto found = spelled(named);
    if (found == spellings.end()) {
        const bool mayBecome = std::any_of(spellings.begin(), spellings.end(), [&](const Spelling& spelling) {
            return spelling.text.starts_with(named);
        });
        // The exponent of a number that is not there yet looks like a unit.
        return {.isUnfinished = mayBecome || named == "e"};
    }
    if (found->unit == own->unit && !found->isGauge) return {.value = withoutNoise(sum.total)};
    if (quantity == Quantity::temperature && found->unit->code == "K" && sum.terms > 1) return {};
    const double base =
        pass(sum.total, *found->unit, UnitPass::toBase) + (found->isGauge ? standardAtmosphere : 0);
    return {.value = withoutNoise(pass(base, *own->unit, UnitPass::fromBase))};
}

}  // namespace marvello
