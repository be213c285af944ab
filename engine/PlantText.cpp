#include "engine/PlantText.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "data/Numbers.h"
#include "data/Texts.h"

namespace marvello {

namespace {

using Reason = PlantTextFault::Reason;

constexpr std::string_view dot = "\u00B7";

const PreparedCompressor* machineOf(const PreparedCatalogue& catalogue, std::string_view refrigerant,
                                    std::string_view name) {
    for (const PreparedCompressor& compressor : catalogue.compressors())
        if (equalIgnoringCase(compressor.Refrigerant, refrigerant) &&
            equalIgnoringCase(machineName(compressor), name))
            return &compressor;
    return nullptr;
}

/// A name with the number that may follow it.
struct NamedMachines {
    std::string name;
    std::string count{};  ///< Empty without one.
};

NamedMachines namedIn(const std::string& part) {
    const std::size_t last = part.find_last_not_of("0123456789");
    const bool hasCount = last != std::string::npos && last + 1 < part.size() && lower(part[last]) == 'x';
    if (!hasCount) return {part};
    return {trimmed(part.substr(0, last)), part.substr(last + 1)};
}

std::vector<std::string> partsOf(std::string_view text) {
    std::vector<std::string> parts;
    for (const std::string& each : splitText(text, ';'))
        if (std::string part = trimmed(each); !part.empty()) parts.push_back(std::move(part));
    if (parts.empty()) throw PlantTextFault(Reason::noMachine, "no machine is named");
    return parts;
}

int countIn(const std::string& text) {
    const auto value = storedNumber(text);
    if (!value || *value < 1 || *value > YearRequest::maxMachines || *value != std::floor(*value))
        throw PlantTextFault(
            Reason::count,
            '"' + text + "\" is not a whole number from 1 to " + std::to_string(YearRequest::maxMachines),
            {text});
    return static_cast<int>(*value);
}

PlantMachines machinesIn(const std::string& part, const PreparedCatalogue& catalogue,
                         const std::string& refrigerant) {
    // The name of a model may itself end in such a number.
    if (const PreparedCompressor* found = machineOf(catalogue, refrigerant, part)) return {found, 1};
    const auto [name, count] = namedIn(part);
    const PreparedCompressor* const found = machineOf(catalogue, refrigerant, name);
    if (found == nullptr)
        throw PlantTextFault(Reason::unknownCompressor,
                             "The catalogue has no compressor " + name + " for " + refrigerant +
                                 "; machines are named as in \"TK-A-120x2;TK-D-140\"",
                             {name, refrigerant});
    return {found, count.empty() ? 1 : countIn(count)};
}

bool hasMachine(const std::string& part, const PreparedCatalogue& catalogue, std::string_view refrigerant) {
    return machineOf(catalogue, refrigerant, part) != nullptr ||
           machineOf(catalogue, refrigerant, namedIn(part).name) != nullptr;
}

/// Those of the catalogue, in the order of the file.
std::vector<std::string> refrigerantsOf(const PreparedCatalogue& catalogue) {
    std::vector<std::string> names;
    for (const PreparedCompressor& compressor : catalogue.compressors())
        if (std::ranges::find(names, compressor.Refrigerant) == names.end())
            names.push_back(compressor.Refrigerant);
    return names;
}

std::optional<std::string> spelled(const std::vector<std::string>& names, std::string_view name) {
    const auto found =
        std::ranges::find_if(names, [&](const std::string& each) { return equalIgnoringCase(each, name); });
    return found == names.end() ? std::nullopt : std::optional(*found);
}

/// A text without the refrigerant at its end.
struct Divided {
    std::string machines;
    std::optional<std::string> refrigerant{};
};

Divided dividedText(std::string_view text, const std::vector<std::string>& refrigerants) {
    const std::string whole = trimmed(text);
    if (const std::size_t at = whole.rfind(dot); at != std::string::npos) {
        const std::string name = trimmed(whole.substr(at + dot.size()));
        const auto known = spelled(refrigerants, name);
        if (!known)
            throw PlantTextFault(Reason::unknownRefrigerant, "The catalogue has no refrigerant " + name,
                                 {name});
        return {whole.substr(0, at), known};
    }
    if (const std::size_t at = whole.find_last_of(" \t"); at != std::string::npos)
        if (const auto known = spelled(refrigerants, whole.substr(at + 1)))
            return {whole.substr(0, at), known};
    return {whole};
}

/// The refrigerant that all machines can have.
std::string commonRefrigerant(const std::vector<std::string>& parts, const PreparedCatalogue& catalogue,
                              const std::vector<std::string>& refrigerants, std::string_view usual) {
    std::vector<std::string> possible;
    std::vector<bool> isKnown(parts.size(), false);
    for (const std::string& refrigerant : refrigerants) {
        bool hasAll = true;
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const bool has = hasMachine(parts[i], catalogue, refrigerant);
            isKnown[i] = isKnown[i] || has;
            hasAll = hasAll && has;
        }
        if (hasAll) possible.push_back(refrigerant);
    }
    if (const auto found = spelled(possible, usual)) return *found;
    if (possible.size() == 1) return possible.front();
    if (!possible.empty())
        throw PlantTextFault(Reason::severalRefrigerants, "More than one refrigerant has these machines",
                             possible);
    const auto unknown = std::ranges::find(isKnown, false) - isKnown.begin();
    if (unknown == std::ssize(parts))
        throw PlantTextFault(Reason::severalRefrigerants, "No refrigerant has all of these machines");
    const std::string name = namedIn(parts[static_cast<std::size_t>(unknown)]).name;
    throw PlantTextFault(Reason::unknownCompressor, "The catalogue has no compressor " + name, {name});
}

Plant plantFrom(const std::vector<std::string>& parts, const PreparedCatalogue& catalogue,
                const std::string& refrigerant) {
    Plant plant;
    int count = 0;
    int inverters = 0;
    for (const std::string& part : parts) {
        const PlantMachines& machines = plant.machines.emplace_back(machinesIn(part, catalogue, refrigerant));
        count += machines.count;
        if (machines.compressor->hasInvert) inverters += machines.count;
    }
    if (count > YearRequest::maxMachines)
        throw PlantTextFault(
            Reason::tooManyMachines,
            std::to_string(count) + " machines are more than " + std::to_string(YearRequest::maxMachines),
            {std::to_string(count)});
    if (inverters > 1)
        throw PlantTextFault(Reason::severalInverters, "More than one machine is on an inverter.");
    return plant;
}

}  // namespace

PlantTextFault::PlantTextFault(Reason reason, const std::string& sentence, std::vector<std::string> arguments)
    : std::invalid_argument(sentence), reason(reason), arguments(std::move(arguments)) {}

Plant plantIn(std::string_view text, const PreparedCatalogue& catalogue, std::string_view refrigerant) {
    return plantFrom(partsOf(text), catalogue, std::string(refrigerant));
}

Plant plantOf(std::string_view text, const PreparedCatalogue& catalogue, std::string_view usual) {
    const std::vector<std::string> refrigerants = refrigerantsOf(catalogue);
    const Divided divided = dividedText(text, refrigerants);
    const std::vector<std::string> parts = partsOf(divided.machines);
    return plantFrom(parts, catalogue,
                     divided.refrigerant ? *divided.refrigerant
                                         : commonRefrigerant(parts, catalogue, refrigerants, usual));
}

std::string textOf(const Plant& plant) {
    std::string text;
    for (const PlantMachines& machines : plant.machines) {
        if (!text.empty()) text += "; ";
        text += machineName(*machines.compressor);
        if (machines.count > 1) text += 'x' + std::to_string(machines.count);
    }
    return text + ' ' + std::string(dot) + ' ' + plant.refrigerant();
}

std::string machineName(const PreparedCompressor& compressor) {
    return compressor.Serie + '-' + compressor.Model;
}

}  // namespace marvello
