#include "tools/select/FindQuestion.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "data/Numbers.h"
#include "data/Texts.h"
#include "tools/select/Run.h"
#include "tools/select/WordOf.h"

namespace marvello::select {

namespace {

constexpr Range capacities{searchRange::minCapacity, searchRange::maxCapacity, "kW"};
constexpr Range deviationsBelow{0, searchRange::maxBelow, "%"};
constexpr Range deviationsAbove{0, searchRange::maxAbove, "%"};

std::vector<std::string> namesIn(const std::string& text) {
    std::vector<std::string> names;
    for (const std::string& name : splitText(text, ';'))
        if (!trimmed(name).empty()) names.push_back(trimmed(name));
    if (names.empty()) throw BadRequest("\"" + text + "\" names none");
    return names;
}

void readMachines(FindQuestion& question, const std::string& text) try {
    const auto parts = splitText(text, '-');
    const auto number = [](const std::string& part) {
        return static_cast<int>(wholeNumberIn(part, 1, searchRange::maxMachines));
    };
    question.request.minMachines = number(parts.front());
    question.request.maxMachines = number(parts.back());
    if (parts.size() > 2 || question.request.minMachines > question.request.maxMachines)
        throw BadRequest("not in order");
} catch (const BadRequest&) {
    const std::string maximum = std::to_string(searchRange::maxMachines);
    throw BadRequest("\"" + text + "\" is not a number of machines from 1 to " + maximum +
                     ", or two such as 1-" + maximum);
}

constexpr std::array options = {
    FindOption{
        "capacity", "needed capacity, kW",
        [](FindQuestion& q, const std::string& text) { q.request.needed = numberIn(text, capacities); }},
    FindOption{
        "below", "permitted deviation below, % (5)",
        [](FindQuestion& q, const std::string& text) { q.request.below = numberIn(text, deviationsBelow); }},
    FindOption{
        "above", "permitted deviation above, % (20)",
        [](FindQuestion& q, const std::string& text) { q.request.above = numberIn(text, deviationsAbove); }},
    FindOption{"refrigerants", "refrigerants joined with \";\" (all)",
               [](FindQuestion& q, const std::string& text) { q.request.refrigerants = namesIn(text); }},
    FindOption{"series", "series joined with \";\" (all)",
               [](FindQuestion& q, const std::string& text) { q.request.series = namesIn(text); }},
    FindOption{"machines", "machines in parallel, such as 2 or 1-4 (1-4)", readMachines},
    FindOption{"inverter", "compressors on an inverter: no, yes or only (yes)",
               [](FindQuestion& q, const std::string& text) {
                   q.request.inverter = wordOf(
                       text, std::array{std::pair{"no", InverterUse::no}, std::pair{"yes", InverterUse::yes},
                                        std::pair{"only", InverterUse::only}});
               }},
    FindOption{"sort", "order: cop, deviation, power, capacity or margin (cop)",
               [](FindQuestion& q, const std::string& text) {
                   q.rankBy = wordOf(
                       text,
                       std::array{std::pair{"cop", RankBy::cop}, std::pair{"deviation", RankBy::deviation},
                                  std::pair{"power", RankBy::power}, std::pair{"capacity", RankBy::capacity},
                                  std::pair{"margin", RankBy::margin}});
               }},
    FindOption{"limit", "candidates that are written, 0 for all (20)",
               [](FindQuestion& q, const std::string& text) {
                   q.limit = static_cast<std::size_t>(wholeNumberIn(text, 0, 1'000'000));
               }},
};

/// What is small is in front.
double rankOf(const Candidate& candidate, RankBy rankBy) {
    switch (rankBy) {
        case RankBy::deviation:
            return std::abs(candidate.deviation);
        case RankBy::power:
            return candidate.power;
        case RankBy::capacity:
            return candidate.capacity;
        case RankBy::margin:
            return candidate.margin ? -candidate.margin->kelvin : std::numeric_limits<double>::infinity();
        case RankBy::cop:
            break;
    }
    return -candidate.cop;
}

}  // namespace

std::span<const FindOption> findOptions() { return options; }

bool isFindOption(const RequestOption& option) {
    constexpr std::array<std::string_view, 5> others{"refrigerant", "series", "models", "step", "frequency"};
    return std::ranges::find(others, option.name) == others.end();
}

void readOption(FindQuestion& question, const FindOption& option, const std::string& text) {
    try {
        option.read(question, text);
    } catch (const BadRequest& fault) {
        throw BadRequest(std::string(option.name) + ": " + fault.what());
    }
}

void checkQuestion(const FindQuestion& question) {
    const FindRequest& request = question.request;
    if (request.needed == 0) throw BadRequest("capacity is missing");
    checkConditions(request.conditions);
    checkNames(request.refrigerants, request.series);
    if (request.refrigerants.size() == 1) {
        Request one;
        one.refrigerant = request.refrigerants.front();
        one.conditions = request.conditions;
        checkTemperatures(one, saturationRange(one.refrigerant));
    }
    checkOrder(request.conditions);
}

void rank(std::vector<Candidate>& candidates, RankBy rankBy) {
    std::ranges::stable_sort(candidates, {},
                             [rankBy](const Candidate& candidate) { return rankOf(candidate, rankBy); });
}

}  // namespace marvello::select
