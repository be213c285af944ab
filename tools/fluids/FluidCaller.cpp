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

/// Calls a function of the library with these arguments; throws what it says where it fails.
template <class Function, class... Arguments>
void FluidCaller::ask(Function* function, Arguments... arguments) {
    function(arguments..., &error_, sentence_.data(), textLength);
    check();
}

State FluidCaller::saturationAtT(double t, Side side) {
    State at{.t = t};
    auto kph = static_cast<std::int32_t>(side);
    ask(library_->SATTdll, &t, z_.data(), &kph, &at.p, &at.Dl, &at.Dv, at.x.data(), at.y.data());
    return at;
}

State FluidCaller::atTP(double t, double p) {
    State at{.t = t, .p = p};
    ask(library_->TPFLSHdll, &t, &p, z_.data(), &at.D, &at.Dl, &at.Dv, at.x.data(), at.y.data(), &at.q, &at.e,
        &at.h, &at.s, &at.cv, &at.cp, &at.w);
    return at;
}

State FluidCaller::atPH(double p, double h) {
    State at{.p = p, .h = h};
    ask(library_->PHFLSHdll, &p, &h, z_.data(), &at.t, &at.D, &at.Dl, &at.Dv, at.x.data(), at.y.data(), &at.q,
        &at.e, &at.s, &at.cv, &at.cp, &at.w);
    return at;
}

State FluidCaller::atPS(double p, double s) {
    State at{.p = p, .s = s};
    ask(library_->PSFLSHdll, &p, &s, z_.data(), &at.t, &at.D, &at.Dl, &at.Dv, at.x.data(), at.y.data(), &at.q,
        &at.e, &at.h, &at.cv, &at.cp, &at.w);
    return at;
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
