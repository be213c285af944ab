#include "fluids/MixtureFile.h"

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

#include "fluids/FluidFile.h"
#include "fluids/JsonField.h"
#include "fluids/LatinCase.h"
#include "fluids/PropertyError.h"

namespace marvello::fluids {
namespace {

constexpr const char* mixtureFormat = "marvello-mixture";

using Departures = std::map<std::string, std::vector<ResidualTerm>, std::less<>>;

/// A pair of the file, in the order of its parameters.
struct NamedPair {
    std::string first;
    std::string second;
    PairInteraction interaction;

    bool is(const std::string& one, const std::string& two) const {
        return sameButCase(first, one) && sameButCase(second, two);
    }
};

Departures readDepartures(const JsonField& field) {
    Departures found;
    for (const std::string& name : field.keys()) {
        const JsonField terms = field.at(name).at("terms");
        found[name] = terms.list(readResidualTerm);
        if (found[name].empty()) terms.refuse("is empty");
    }
    return found;
}

NamedPair readPair(const JsonField& field, const Departures& departures) {
    const JsonField fluids = field.at("fluids");
    const std::vector<std::string> names = fluids.list([](const JsonField& name) { return name.text(); });
    if (names.size() != 2 || sameButCase(names[0], names[1])) fluids.refuse("is not a pair of two fluids");

    const auto parameter = [&field](const char* name) { return field.at(name).number(0.1, 10); };
    NamedPair pair{names[0], names[1], {}};
    pair.interaction.betaT = parameter("betaT");
    pair.interaction.gammaT = parameter("gammaT");
    pair.interaction.betaV = parameter("betaV");
    pair.interaction.gammaV = parameter("gammaV");
    if (field.has("departure") || field.has("factor")) {
        const JsonField departure = field.at("departure");
        const auto known = departures.find(departure.text());
        if (known == departures.end())
            departure.refuse("is \"" + departure.text() + "\", which is none of the departures");
        pair.interaction.departure = known->second;
        pair.interaction.factor = field.at("factor").number(-100, 100);
    }
    return pair;
}

std::vector<NamedPair> readPairs(const JsonField& field, const Departures& departures) {
    std::vector<NamedPair> pairs;
    field.list([&](const JsonField& entry) {
        NamedPair pair = readPair(entry, departures);
        const bool twice = std::any_of(pairs.begin(), pairs.end(), [&pair](const NamedPair& other) {
            return other.is(pair.first, pair.second) || other.is(pair.second, pair.first);
        });
        if (twice) entry.refuse("gives the pair of " + pair.first + " and " + pair.second + " a second time");
        pairs.push_back(std::move(pair));
        return 0;
    });
    return pairs;
}

/// The interaction of two components in their own order; the places stay to be set.
PairInteraction interactionOf(const std::string& first, const std::string& second,
                              const std::vector<NamedPair>& pairs, const JsonField& root) {
    if (sameButCase(first, second)) return {};
    for (const NamedPair& pair : pairs) {
        if (pair.is(first, second)) return pair.interaction;
        if (pair.is(second, first)) {
            PairInteraction reversed = pair.interaction;
            reversed.betaT = 1 / reversed.betaT;
            reversed.betaV = 1 / reversed.betaV;
            return reversed;
        }
    }
    root.refuse("there is no pair of " + first + " and " + second);
}

MixtureModel readModel(const JsonField& root, const std::vector<std::string>& fluids) {
    const Departures departures = readDepartures(root.at("departures"));
    const std::vector<NamedPair> pairs = readPairs(root.at("pairs"), departures);

    MixtureModel model;
    model.gasConstant = root.at("gas_constant").number(8.31, 8.32);
    for (std::size_t i = 0; i < fluids.size(); ++i) {
        for (std::size_t j = i + 1; j < fluids.size(); ++j) {
            PairInteraction& pair =
                model.pairs.emplace_back(interactionOf(fluids[i], fluids[j], pairs, root));
            pair.first = i;
            pair.second = j;
        }
    }
    return model;
}

}  // namespace

MixtureModel readMixtureFile(const FluidText& file, const std::vector<std::string>& fluids) {
    return readModel(JsonFile(file, mixtureFormat).root(), fluids);
}

}  // namespace marvello::fluids
