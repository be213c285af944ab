#include "engine/Advice.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>
#include <optional>
#include <utility>

#include "catalogue/SeriesTraits.h"
#include "data/Arithmetic.h"
#include "data/CollectedBoxes.h"
#include "engine/PermittedConditions.h"
#include "engine/SelectionRules.h"

namespace marvello {

namespace {

using Said = std::vector<MessageId>;

bool contains(const Said& said, const MessageId& message) {
    return std::ranges::find(said, message) != said.end();
}

Said saidOf(const clsCompressor& compressor) {
    Said said;
    const auto add = [&said](Severity severity, const clsMessages& messages) {
        for (const clsMessage& message : messages)
            if (MessageId id{severity, message.Name}; !contains(said, id)) said.push_back(std::move(id));
    };
    add(Severity::error, compressor.Messages.Error);
    add(Severity::attention, compressor.Messages.Attention);
    add(Severity::information, compressor.Messages.Information);
    return said;
}

/// What is said in the one and not in the other.
Said without(const Said& said, const Said& other) {
    Said rest;
    std::ranges::copy_if(said, std::back_inserter(rest),
                         [&](const MessageId& message) { return !contains(other, message); });
    return rest;
}

/// The numbers that are advised lie on a grid, in the units of the user.
constexpr double gridPoints = 10;  // in a unit

double valueAt(long point) { return static_cast<double>(point) / gridPoints; }

/// Where a number may be, in the units of the user.
struct Range {
    AdvisedInput input;
    double low, high;
    long step;  ///< Of the first, coarse search, in grid points.
};

/// The grid points from the present value of an input to one end of its range.
struct Way {
    long point;  ///< The next one to be looked at.
    long end;
    int sign;
    long passed;               ///< The last one that was looked at.
    std::vector<bool> isOpen;  ///< By message: no cure is found on it.

    bool isOver() const { return sign * (end - point) < 0; }
    void goOn(long step) {
        passed = point;
        // The end of the range is looked at too.
        point = point != end && sign * (end - point) <= step ? end : point + sign * step;
    }
    void leave() { point = end + sign; }
};

/// A grid point at which a message is ended, and what is said there.
struct Cure {
    long point;
    Said said;
};

class Adviser {
  public:
    Adviser(Calculator& calculator, const PreparedCompressor& compressor,
            const clsProjectConditions& conditions, UnitSystem units, const std::function<bool()>& isWanted)
        : calculator_(calculator),
          compressor_(compressor),
          conditions_(conditions),
          units_(units),
          isWanted_(isWanted) {}

    struct Unwanted {};

    /// Throws Unwanted.
    std::vector<MessageAdvice> run() {
        const clsCompressor& calculated = calculator_.calculate(compressor_, conditions_);
        said_ = saidOf(calculated);
        const bool hasErrors = calculated.Messages.Error.Count() > 0;
        for (const MessageId& message : said_) {
            const bool isAsked =
                hasErrors ? message.severity == Severity::error
                          : message.severity == Severity::attention && !isWhateverTheInputs(message.key);
            if (isAsked) asked_.push_back({message});
        }
        if (asked_.empty()) return {};
        const std::vector<Range> ranges = rangesFor(calculated);
        for (const auto& [input, codes] : choicesFor(calculated)) choose(input, codes);
        for (const Range& range : ranges) search(range);
        for (MessageAdvice& asked : asked_)
            std::ranges::stable_sort(asked.advice, {},
                                     [](const Advice& advice) { return std::abs(advice.change); });
        return std::move(asked_);
    }

  private:
    double shown(AdvisedInput input, double metric) const {
        return inUnits(input, metric, conditions_, units_);
    }

    std::vector<Range> rangesFor(const clsCompressor& calculated) const;
    std::optional<Range> economizerRange(const clsCompressor& calculated) const;
    std::vector<std::pair<AdvisedInput, std::vector<int>>> choicesFor(const clsCompressor& calculated) const;

    /// What is said with an input at a value in the units of the user; none if it cannot be calculated.
    std::optional<Said> trial(AdvisedInput input, double value) {
        if (isWanted_ && !isWanted_()) throw Unwanted();
        try {
            return saidOf(calculator_.calculate(compressor_, withInput(conditions_, input, value, units_)));
        } catch (const std::exception&) {
            return std::nullopt;  // such as a step whose row of the catalogue is faulty
        }
    }

    bool isCured(const MessageId& message, const std::optional<Said>& said) const {
        return said && !contains(*said, message) && std::ranges::none_of(*said, [&](const MessageId& other) {
                   return other.severity <= message.severity && !contains(said_, other);
               });
    }

    Advice adviceOn(const MessageId& message, AdvisedInput input, double value, const Said& said) const {
        Advice advice{
            .input = input, .value = value, .ends = without(said_, said), .brings = without(said, said_)};
        std::erase(advice.ends, message);
        return advice;
    }

    void choose(AdvisedInput input, const std::vector<int>& codes) {
        std::vector<bool> isOpen(asked_.size(), true);
        for (const int code : codes) {
            const auto said = trial(input, code);
            for (std::size_t i = 0; i < asked_.size(); ++i) {
                if (!isOpen[i] || !isCured(asked_[i].message, said)) continue;
                asked_[i].advice.push_back(adviceOn(asked_[i].message, input, code, *said));
                isOpen[i] = false;
            }
        }
    }

    void search(const Range& range);
    void lookFurther(const Range& range, double present, Way& way, std::vector<std::optional<Cure>>& cures);
    Cure firstCure(AdvisedInput input, const MessageId& message, long ill, Cure cure);

    Calculator& calculator_;
    const PreparedCompressor& compressor_;
    const clsProjectConditions& conditions_;
    UnitSystem units_;
    const std::function<bool()>& isWanted_;
    Said said_;                         ///< At the present conditions.
    std::vector<MessageAdvice> asked_;  ///< The messages to be ended.
};

std::vector<Range> Adviser::rangesFor(const clsCompressor& calculated) const {
    constexpr long temperatureStep = 5;
    constexpr long otherStep = 10;
    constexpr double maxSubcooling = 30;  // K; the rules say what is too much
    std::vector<Range> ranges;
    const auto add = [&](AdvisedInput input, double low, double high, long step) {
        ranges.push_back({input, shown(input, low), shown(input, high), step});
    };
    const auto& left = calculated.limits.getLeftPoint();
    const auto& right = calculated.limits.getRightPoint();
    if (left && right) {  // nothing is possible outside of all limits
        add(AdvisedInput::evaporating, left->x, right->x, temperatureStep);
        add(AdvisedInput::condensing, right->Y, left->Y, temperatureStep);
    }
    const bool isDifference = conditions_.SuperHeatType == SuperheatKind::difference;
    const double noSuperheat = isDifference ? 0 : conditions_.TEvaporatingDew;
    add(AdvisedInput::superheat, noSuperheat,
        noSuperheat + refrigerantTraits(compressor_.Refrigerant).maxSuperheat, otherStep);
    add(AdvisedInput::subcooling, 0, std::max(maxSubcooling, conditions_.SubCooling), otherStep);
    if (compressor_.hasInvert)
        add(AdvisedInput::frequency, clsInverter::minimumFrequency, clsInverter::maximumFrequency, otherStep);
    if (const auto range = economizerRange(calculated)) ranges.push_back(*range);
    return ranges;
}

std::optional<Range> Adviser::economizerRange(const clsCompressor& calculated) const {
    constexpr double minApproach = 0.1;  // K
    constexpr double maxApproach = 40;
    constexpr double steps = 40;  // over a range of capacities, which may be some kW or thousands
    if (!compressor_.Economizer.hasPort() || !permits(compressor_, Selector::economizer)) return std::nullopt;
    const auto input = AdvisedInput::economizer;
    if (conditions_.EcoCalculateMode == EconomizerMode::approach)
        return Range{input, shown(input, minApproach), shown(input, maxApproach), 10};
    if (conditions_.EcoCalculateMode != EconomizerMode::capacity || !calculated.Variables.isSet(var::Q0))
        return std::nullopt;
    // An economizer adds to the capacity, and never doubles it.
    const double low = shown(input, calculated.Variables[var::Q0]);
    return Range{input, low, 2 * low, std::max(1L, std::lround(low * gridPoints / steps))};
}

std::vector<std::pair<AdvisedInput, std::vector<int>>> Adviser::choicesFor(
    const clsCompressor& calculated) const {
    std::vector<std::pair<AdvisedInput, std::vector<int>>> choices;
    if (compressor_.hasFullSmallMotor && permits(compressor_, Selector::motorSize)) {
        const bool isFull = calculated.Motor.MotorType == MotorChoice::full;
        choices.push_back(
            {AdvisedInput::motorSize, {codeOf(isFull ? MotorChoice::small : MotorChoice::full)}});
    }
    // The limit of the catalogue alone: one that is given further up, or none at all, would end the message
    // and not what it warns of.
    if (conditions_.OilCoolingCalculateMode == OilCoolingMode::givenLimit &&
        permits(compressor_, Selector::oilCooling))
        choices.push_back({AdvisedInput::oilCoolingMode, {codeOf(OilCoolingMode::catalogueLimit)}});
    if (permits(compressor_, Selector::stepCapacity)) {
        std::vector<int> steps(capacitySteps.begin(), capacitySteps.end());
        std::erase(steps, conditions_.StepCapacity);
        std::ranges::stable_sort(steps, {},
                                 [&](int step) { return std::abs(step - conditions_.StepCapacity); });
        choices.push_back({AdvisedInput::capacityStep, steps});
    }
    return choices;
}

/// Looks both ways from the present value, nearer points first, in steps, and between a step and the one
/// before it for the first point that is a cure.
void Adviser::search(const Range& range) {
    constexpr double rounding = 1e-9;
    const double present = valueOf(range.input, conditions_, units_) * gridPoints;
    const long low = std::lround(std::ceil(range.low * gridPoints - rounding));
    const long high = std::lround(std::floor(range.high * gridPoints + rounding));
    const auto way = [&](long first, long end, int sign) {
        return Way{first, end, sign, first - sign, std::vector<bool>(asked_.size(), true)};
    };
    Way up = way(std::max(low, std::lround(std::floor(present + rounding)) + 1), high, 1);
    Way down = way(std::min(high, std::lround(std::ceil(present - rounding)) - 1), low, -1);
    std::vector<std::optional<Cure>> cures(asked_.size());
    while (!up.isOver() || !down.isOver()) {
        const bool isUp =
            down.isOver() || (!up.isOver() && static_cast<double>(up.point + down.point) <= 2 * present);
        lookFurther(range, present, isUp ? up : down, cures);
    }
    for (std::size_t i = 0; i < asked_.size(); ++i) {
        if (!cures[i]) continue;
        const auto& [point, said] = *cures[i];
        const MessageId& message = asked_[i].message;
        Advice advice = adviceOn(message, range.input, valueAt(point), said);
        advice.change = roundedToPlaces(valueAt(point) - present / gridPoints, 9);
        const long further = point + (advice.change > 0 ? range.step : -range.step);
        advice.isLasting =
            further >= low && further <= high && isCured(message, trial(range.input, valueAt(further)));
        asked_[i].advice.push_back(std::move(advice));
    }
}

void Adviser::lookFurther(const Range& range, double present, Way& way,
                          std::vector<std::optional<Cure>>& cures) {
    const auto distanceOf = [&](long point) { return std::abs(static_cast<double>(point) - present); };
    const auto said = trial(range.input, valueAt(way.point));
    bool isAnyOpen = false;
    for (std::size_t i = 0; i < asked_.size(); ++i) {
        // The other way may have led to a nearer one.
        if (!way.isOpen[i] || (cures[i] && distanceOf(cures[i]->point) <= distanceOf(way.passed))) continue;
        if (!isCured(asked_[i].message, said)) {
            isAnyOpen = true;
            continue;
        }
        way.isOpen[i] = false;
        Cure cure = firstCure(range.input, asked_[i].message, way.passed, {way.point, *said});
        if (!cures[i] || distanceOf(cure.point) < distanceOf(cures[i]->point)) cures[i] = std::move(cure);
    }
    if (isAnyOpen)
        way.goOn(range.step);
    else
        way.leave();
}

/// Between a point that is no cure and one that is: the first one that is, by halving.
Cure Adviser::firstCure(AdvisedInput input, const MessageId& message, long ill, Cure cure) {
    while (std::abs(cure.point - ill) > 1) {
        const long middle = (ill + cure.point) / 2;
        auto said = trial(input, valueAt(middle));
        if (isCured(message, said))
            cure = {middle, std::move(*said)};
        else
            ill = middle;
    }
    return cure;
}

}  // namespace

std::vector<MessageAdvice> adviseOn(Calculator& calculator, const PreparedCompressor& compressor,
                                    const clsProjectConditions& conditions, UnitSystem units,
                                    const std::function<bool()>& isWanted) {
    const CollectedBoxes said;  // what a trial has to say is of no interest
    try {
        return Adviser(calculator, compressor, conditions, units, isWanted).run();
    } catch (const Adviser::Unwanted&) {
        return {};
    }
}

}  // namespace marvello
