#include "tools/fluids/FluidCaller.h"

#include <string_view>

#include "data/Texts.h"
#include "tools/fluids/Refusal.h"

namespace marvello::properties {
namespace {

constexpr std::int32_t filesLength = 10000;
constexpr std::int32_t textLength = 255;

std::string padded(std::string text, std::int32_t length) {
    text.resize(static_cast<std::size_t>(length), ' ');
    return text;
}

}  // namespace

FluidCaller::FluidCaller(const Composition& composition)
    : library_(&refpropFunctions()), name_(composition.name) {
    constexpr std::size_t most = 20;
    if (composition.parts.size() > most) throw Refusal(name_ + " has more than 20 components.");
    std::string files;
    std::array<double, most> mass{};
    for (std::size_t i = 0; i < composition.parts.size(); ++i) {
        files += (i > 0 ? "|Fluids/" : "Fluids/") + composition.parts[i].file;
        mass[i] = composition.parts[i].massFraction;
    }
    if (files.size() > static_cast<std::size_t>(filesLength)) throw Refusal("The file names are too long.");
    files = padded(files, filesLength);
    std::string mix = padded("Fluids/hmx.bnc", textLength);
    std::string reference = "IIR";
    auto count = static_cast<std::int32_t>(composition.parts.size());
    library_->SETUPdll(&count, files.data(), mix.data(), reference.data(), &error_, sentence_.data(),
                       filesLength, textLength, 3, textLength);
    check();
    library_->XMOLEdll(mass.data(), z_.data(), &molarMass_);
    std::int32_t flag = composition.isBlend() ? 2 : 1;
    double unused = 0;
    library_->SETREFdll(reference.data(), &flag, z_.data(), &unused, &unused, &unused, &unused, &error_,
                        sentence_.data(), 3, textLength);
    check();
}

void FluidCaller::check() const {
    if (error_ <= 0) return;
    const std::string_view whole(sentence_.data(), sentence_.size());
    throw Refusal(name_ + ": " + trimmed(whole.substr(0, whole.find('\0'))));
}

State FluidCaller::saturationAtT(double t, Side side) {
    State state;
    state.t = t;
    auto kph = static_cast<std::int32_t>(side);
    library_->SATTdll(&t, z_.data(), &kph, &state.p, &state.Dl, &state.Dv, state.x.data(), state.y.data(),
                      &error_, sentence_.data(), textLength);
    check();
    return state;
}

State FluidCaller::saturationAtP(double p, Side side) {
    State state;
    state.p = p;
    auto kph = static_cast<std::int32_t>(side);
    library_->SATPdll(&p, z_.data(), &kph, &state.t, &state.Dl, &state.Dv, state.x.data(), state.y.data(),
                      &error_, sentence_.data(), textLength);
    check();
    return state;
}

State FluidCaller::atTP(double t, double p) {
    State state;
    state.t = t;
    state.p = p;
    library_->TPFLSHdll(&t, &p, z_.data(), &state.D, &state.Dl, &state.Dv, state.x.data(), state.y.data(),
                        &state.q, &state.e, &state.h, &state.s, &state.cv, &state.cp, &state.w, &error_,
                        sentence_.data(), textLength);
    check();
    return state;
}

State FluidCaller::atPH(double p, double h) {
    State state;
    state.p = p;
    state.h = h;
    library_->PHFLSHdll(&p, &h, z_.data(), &state.t, &state.D, &state.Dl, &state.Dv, state.x.data(),
                        state.y.data(), &state.q, &state.e, &state.s, &state.cv, &state.cp, &state.w, &error_,
                        sentence_.data(), textLength);
    check();
    return state;
}

State FluidCaller::atPS(double p, double s) {
    State state;
    state.p = p;
    state.s = s;
    library_->PSFLSHdll(&p, &s, z_.data(), &state.t, &state.D, &state.Dl, &state.Dv, state.x.data(),
                        state.y.data(), &state.q, &state.e, &state.h, &state.cv, &state.cp, &state.w, &error_,
                        sentence_.data(), textLength);
    check();
    return state;
}

State FluidCaller::atTS(double t, double s) {
    State state;
    state.t = t;
    state.s = s;
    std::int32_t root = 0;
    library_->TSFLSHdll(&t, &s, z_.data(), &root, &state.p, &state.D, &state.Dl, &state.Dv, state.x.data(),
                        state.y.data(), &state.q, &state.e, &state.h, &state.cv, &state.cp, &state.w, &error_,
                        sentence_.data(), textLength);
    check();
    return state;
}

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
