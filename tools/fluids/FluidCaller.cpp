#include "tools/fluids/FluidCaller.h"

#include <vector>

#include "tools/fluids/Refusal.h"

namespace marvello::properties {
namespace {

void check(const std::string& name, const RefpropAnswer& answer) {
    if (answer.code > 0) throw Refusal(name + ": " + answer.sentence());
}

}  // namespace

FluidCaller::FluidCaller(const Composition& composition)
    : session_(refpropFunctions()), name_(composition.name) {
    if (composition.parts.size() > RefpropSession::maximumComponents)
        throw Refusal(name_ + " has more than 20 components.");
    std::vector<std::string> files;
    std::vector<double> massFractions;
    for (const auto& part : composition.parts) {
        files.push_back(part.file);
        massFractions.push_back(part.massFraction);
    }
    check(name_, session_.setUp(files, massFractions, "Fluids/", "IIR"));
}

State FluidCaller::checked(const RefpropState& state) const {
    check(name_, state.answer);
    return {state, session_.liquid(), session_.vapour()};
}

State FluidCaller::saturationAtT(double t, Side side) {
    return checked(session_.saturationAtT(t, static_cast<std::int32_t>(side), {.t = t}));
}

State FluidCaller::atTP(double t, double p) { return checked(session_.atTP(t, p, {.t = t, .p = p})); }

State FluidCaller::atPH(double p, double h) { return checked(session_.atPH(p, h, {.p = p, .h = h})); }

State FluidCaller::atPS(double p, double s) { return checked(session_.atPS(p, s, {.p = p, .s = s})); }

State FluidCaller::liquidAt(const State& bubblePoint) {
    constexpr double hair = 2e-9;  // a flash takes 1e-9 for the line itself
    const State near = atTP(bubblePoint.t, bubblePoint.p * (1 + hair));
    const State far = atTP(bubblePoint.t, bubblePoint.p * (1 + 2 * hair));
    State liquid = bubblePoint;
    liquid.D = 2 * near.D - far.D;
    liquid.h = 2 * near.h - far.h;
    liquid.s = 2 * near.s - far.s;
    return liquid;
}

double FluidCaller::criticalTemperature(double known) {
    const auto isSaturated = [this](double t) {
        try {
            saturationAtT(t, Side::bubble);
            saturationAtT(t, Side::dew);
            return true;
        } catch (const Refusal&) {
            return false;
        }
    };
    double low = known;
    double high = 1.5 * known;
    while (high - low > 1e-9) {
        const double middle = (low + high) / 2;
        (isSaturated(middle) ? low : high) = middle;
    }
    return low;
}

}  // namespace marvello::properties
