#include "engine/Find.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <stdexcept>
#include <string_view>
#include <tuple>
#include <utility>

#include "data/Texts.h"
#include "engine/Performance.h"
#include "engine/PermittedConditions.h"

namespace marvello {

namespace {

void check(const FindRequest& request) {
    const auto need = [](bool holds, const char* sentence) {
        if (!holds) throw std::invalid_argument(sentence);
    };
    need(std::isfinite(request.needed) && request.needed > 0, "The needed capacity is not above 0 kW.");
    need(request.below >= 0 && request.above >= 0, "A tolerance is below 0 %.");
    need(request.minMachines >= 1 && request.maxMachines <= searchRange::maxMachines &&
             request.minMachines <= request.maxMachines,
         "The number of machines is not from 1 to 4.");
}

bool isAmong(const std::vector<std::string>& names, const std::string& name) {
    return names.empty() || std::ranges::any_of(names, [&](const std::string& wanted) {
               return equalIgnoringCase(wanted, name);
           });
}

bool takesPart(const FindRequest& request, const PreparedCompressor& compressor) {
    if (request.inverter == InverterUse::no && compressor.hasInvert) return false;
    if (request.inverter == InverterUse::only && !compressor.hasInvert) return false;
    if (request.markets != 0 && (compressor.Market & request.markets) != compressor.Market) return false;
    return isAmong(request.series, compressor.Serie) && isAmong(request.refrigerants, compressor.Refrigerant);
}

std::vector<const PreparedCompressor*> compressorsOf(const FindRequest& request,
                                                     const PreparedCatalogue& catalogue) {
    std::vector<const PreparedCompressor*> choice;
    for (const PreparedCompressor& compressor : catalogue.compressors())
        if (takesPart(request, compressor)) choice.push_back(&compressor);
    return choice;
}

/// A candidate of a possible state, without its machines.
Candidate candidateOf(const PreparedCompressor& compressor, const CapacityState& state, CapacityKind kind) {
    const Performance& performance = state.performance;
    const Performance::Duty& duty = performance.duty();
    return {.compressor = &compressor,
            .conditions = state.at.conditions,
            .putBack = state.at.putBack,
            .capacity = capacityOf(performance, kind),
            .power = duty.power,
            .cop = duty.cop,
            .dischargeTemperature = duty.dischargeTemperature,
            .isEconomized = performance.economized.has_value(),
            .hasWarnings = performance.state == PointState::warning};
}

/// What a search says of one compressor.
struct Answer {
    std::vector<Candidate> candidates;
    Rejection rejection;  ///< If there is no candidate.
    long long calculations = 0;
};

/// The search for one compressor.
class Examination {
  public:
    Examination(const FindRequest& request, const PreparedCompressor& compressor, Calculator& calculator)
        : request_(request),
          compressor_(compressor),
          calculator_(calculator),
          envelope_(compressor.envelopeFor(
              permittedConditions(compressor, request.conditions).conditions.EcoCalculateMode)) {}

    Answer run() {
        if (compressor_.hasInvert)
            atFrequencies();
        else
            atSteps();
        if (answer_.candidates.empty()) answer_.rejection = rejection();
        return std::move(answer_);
    }

  private:
    Rejection rejection() const {
        using Reason = Rejection::Reason;
        if (nearest_)
            return {.reason = nearest_->deviation < 0 ? Reason::tooSmall : Reason::tooLarge,
                    .compressor = &compressor_,
                    .nearest = nearest_};
        return {.reason = error_ == outsideEnvelope ? Reason::envelope : Reason::rule,
                .rule = error_,
                .compressor = &compressor_};
    }

    void atSteps() {
        const auto steps = request_.steps ? stepsOf(compressor_) : std::span(capacitySteps).first(1);
        const auto states = stepStates(calculator_, compressor_, request_.conditions, steps);
        answer_.calculations += static_cast<long long>(states.size());
        for (const CapacityState& state : states)
            for (int machines = request_.minMachines; machines <= request_.maxMachines; ++machines)
                take(state, machines);
    }

    void atFrequencies() {
        InverterStates states(calculator_, compressor_, request_.conditions, request_.kind);
        if (!states.isPossible()) {
            take(states.first(), 1);
        } else {
            for (int machines = request_.minMachines; machines <= request_.maxMachines; ++machines)
                take(states.forCapacity(request_.needed / machines), machines);
        }
        answer_.calculations += static_cast<long long>(states.calculations());
    }

    void take(const CapacityState& state, int machines) {
        if (!state.isPossible()) {
            if (error_.empty()) error_ = state.performance.error;
            return;
        }
        Candidate candidate = candidateOf(compressor_, state, request_.kind);
        candidate.machines = machines;
        candidate.capacity *= machines;
        candidate.power *= machines;
        candidate.deviation = (candidate.capacity / request_.needed - 1) * 100;
        candidate.margin = margin();
        if (candidate.deviation >= -request_.below && candidate.deviation <= request_.above)
            answer_.candidates.push_back(candidate);
        else if (!nearest_ || std::abs(candidate.deviation) < std::abs(nearest_->deviation))
            nearest_ = candidate;
    }

    /// The same for all steps and frequencies of a possible compressor, which has an envelope.
    const std::optional<Margin>& margin() {
        if (!margin_)
            margin_ = applicationMargin(envelope_->limits, request_.conditions.TEvaporatingDew,
                                        request_.conditions.TCondensationDew);
        return *margin_;
    }

    const FindRequest& request_;
    const PreparedCompressor& compressor_;
    Calculator& calculator_;
    const Envelope* envelope_;
    std::optional<std::optional<Margin>> margin_;
    std::optional<Candidate> nearest_;
    std::string error_;
    Answer answer_;
};

/// The best first; equal ones in the order of the catalogue.
void rank(std::vector<Candidate>& candidates) {
    std::ranges::stable_sort(candidates, {}, [](const Candidate& candidate) {
        return std::tuple(-candidate.cop, std::abs(candidate.deviation));
    });
}

FindResult resultOf(std::shared_ptr<const PreparedCatalogue> catalogue, std::vector<Answer> answers) {
    FindResult result{.catalogue = std::move(catalogue)};
    for (Answer& answer : answers) {
        result.calculations += answer.calculations;
        result.candidates.insert(result.candidates.end(), answer.candidates.begin(), answer.candidates.end());
        if (answer.candidates.empty()) result.rejections.push_back(std::move(answer.rejection));
    }
    rank(result.candidates);
    return result;
}

}  // namespace

const Candidate* FindResult::nearest() const {
    const Candidate* best = nullptr;
    for (const Rejection& rejection : rejections) {
        if (!rejection.nearest) continue;
        if (best == nullptr || std::abs(rejection.nearest->deviation) < std::abs(best->deviation))
            best = &*rejection.nearest;
    }
    return best;
}

FindResult find(const FindRequest& request, std::shared_ptr<const PreparedCatalogue> catalogue,
                Calculator& calculator, FindProgress* progress) {
    check(request);
    const auto choice = compressorsOf(request, *catalogue);
    if (progress != nullptr) progress->count = choice.size();
    std::vector<Answer> answers;
    answers.reserve(choice.size());
    for (const PreparedCompressor* compressor : choice) {
        answers.push_back(Examination(request, *compressor, calculator).run());
        if (progress != nullptr) ++progress->done;
    }
    return resultOf(std::move(catalogue), std::move(answers));
}

FindResult find(const FindRequest& request, std::shared_ptr<const PreparedCatalogue> catalogue,
                CalculatorPool& pool, FindProgress* progress) {
    check(request);
    const auto choice = compressorsOf(request, *catalogue);
    if (progress != nullptr) progress->count = choice.size();
    std::vector<Answer> answers(choice.size());
    const bool isComplete = pool.run(choice.size(), [&](Calculator& calculator, std::size_t index) {
        answers[index] = Examination(request, *choice[index], calculator).run();
        if (progress != nullptr) ++progress->done;
    });
    if (!isComplete) return {.catalogue = std::move(catalogue), .isAborted = true};
    return resultOf(std::move(catalogue), std::move(answers));
}

}  // namespace marvello
