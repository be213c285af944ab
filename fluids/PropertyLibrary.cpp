#include "fluids/PropertyLibrary.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "fluids/PropertyError.h"

namespace marvello::fluids {
namespace {

constexpr std::size_t keptCompositions = 4;
constexpr double nothing = 1e-12;  // a mole fraction below this counts as 0

ReferenceState referenceOf(const std::string& name, const PureFluid& fluid) {
    const std::string chosen = name == "DEF" ? fluid.referenceState : name;
    if (chosen == "IIR") return ReferenceState::iir;
    if (chosen == "NBP") return ReferenceState::nbp;
    if (chosen == "ASH") return ReferenceState::ashrae;
    throw PropertyError(Fault::badArgument,
                        "The reference state \"" + name + "\" is not DEF, IIR, NBP or ASH.");
}

}  // namespace

PropertyLibrary::Solved::Solved(const std::shared_ptr<const Mixture>& mixture, Composition itsComposition)
    : composition(std::move(itsComposition)),
      fluid(FluidCache::ofProcess().fluid(mixture, composition)),
      flash(std::make_unique<Flash>(fluid)) {}

void PropertyLibrary::setUp(const FluidFiles& files, const std::string& reference) {
    mixture_.reset();
    solved_.clear();
    if (files.fluids.empty()) throw PropertyError(Fault::badArgument, "A set-up needs at least one fluid.");
    const std::shared_ptr<const Mixture> loaded = FluidCache::ofProcess().mixture(files);
    // A fluid alone is solved at once; a blend waits for its composition.
    std::vector<Solved> solved;
    if (loaded->size() == 1) {
        Solved& made = solved.emplace_back(loaded, Composition{{0}, {1.0}});
        made.flash->setShift(made.fluid->shiftFor(referenceOf(reference, loaded->components().front())));
    }
    for (const PureFluid& fluid : loaded->components()) referenceOf(reference, fluid);
    mixture_ = loaded;
    solved_ = std::move(solved);
    componentReference_ = reference;
    mixtureShift_.reset();
}

const Mixture& PropertyLibrary::mixture() const {
    if (!mixture_) throw PropertyError(Fault::notSetUp, "No fluid has been set up.");
    return *mixture_;
}

std::size_t PropertyLibrary::componentCount() const { return mixture().size(); }

Flash& PropertyLibrary::flash(const double* z) {
    const std::size_t count = componentCount();
    if (count == 1) return *solved_.front().flash;
    Solved& solved = solvedFor(z);
    if (!solved.hasShift) setShift(solved);
    return *solved.flash;
}

PropertyLibrary::Solved& PropertyLibrary::solvedFor(const double* z) {
    const std::size_t count = componentCount();
    const auto isWanted = [&](const Solved& solved) { return std::equal(z, z + count, solved.z.begin()); };
    const auto found = std::find_if(solved_.begin(), solved_.end(), isWanted);
    if (found == solved_.end()) {
        if (solved_.size() == keptCompositions) solved_.pop_back();
        solved_.insert(solved_.begin(), make({z, count}));
    } else if (found != solved_.begin()) {
        std::rotate(solved_.begin(), found, found + 1);
    }
    return solved_.front();
}

void PropertyLibrary::setShift(Solved& solved) const {
    solved.flash->setShift(mixtureShift_ ? *mixtureShift_ : shiftOfComponents(solved));
    solved.hasShift = true;
}

PropertyLibrary::Solved PropertyLibrary::make(std::span<const double> z) const {
    double sum = 0;
    for (const double fraction : z) {
        if (!(std::isfinite(fraction) && fraction >= 0)) {
            throw PropertyError(Fault::badArgument, "A mole fraction is not a number from 0 on.");
        }
        sum += fraction;
    }
    if (!(std::abs(sum - 1) < 1e-3)) {
        throw PropertyError(Fault::badArgument,
                            "The mole fractions add up to " + inText(sum) + ", not to 1.");
    }
    Composition composition;
    for (std::size_t i = 0; i < z.size(); ++i) {
        if (z[i] < nothing) continue;
        composition.kept.push_back(i);
        composition.fractions.push_back(z[i] / sum);
    }
    Solved made(mixture_, std::move(composition));
    std::copy(z.begin(), z.end(), made.z.begin());
    return made;
}

/// Each component's shift is that of the fluid alone.
FluidModel::Shift PropertyLibrary::shiftOfComponents(const Solved& solved) const {
    FluidModel::Shift sum;
    for (std::size_t k = 0; k < solved.composition.kept.size(); ++k) {
        const std::size_t component = solved.composition.kept[k];
        const auto alone = FluidCache::ofProcess().fluid(mixture_, {{component}, {1.0}});
        const FluidModel::Shift own =
            alone->shiftFor(referenceOf(componentReference_, mixture().components()[component]));
        sum.enthalpy += solved.composition.fractions[k] * own.enthalpy;
        sum.entropy += solved.composition.fractions[k] * own.entropy;
    }
    return sum;
}

void PropertyLibrary::setReferenceOfComponents(const std::string& reference) {
    for (const PureFluid& fluid : mixture().components()) referenceOf(reference, fluid);
    componentReference_ = reference;
    mixtureShift_.reset();
    for (Solved& solved : solved_) setShift(solved);
}

void PropertyLibrary::setReferenceOfMixture(const std::string& reference, std::span<const double> z) {
    // What DEF means for a blend is what it means for its first component.
    const ReferenceState chosen = referenceOf(reference, mixture().components().front());
    mixtureShift_ = solvedFor(z.data()).fluid->shiftFor(chosen);
    for (Solved& solved : solved_) setShift(solved);
}

void PropertyLibrary::compositions(const PerComponent& logK, double share, std::span<double> liquid,
                                   std::span<double> vapour) const {
    std::fill(liquid.begin(), liquid.end(), 0.0);
    std::fill(vapour.begin(), vapour.end(), 0.0);
    const auto& [kept, fractions] = solved_.front().composition;
    for (std::size_t k = 0; k < kept.size(); ++k) {
        const double ratio = logK[k] == 0 ? 1 : std::exp(logK[k]);
        const double inLiquid = fractions[k] / (1 + share * (ratio - 1));
        liquid[kept[k]] = inLiquid;
        vapour[kept[k]] = ratio * inLiquid;
    }
}

double PropertyLibrary::moleFractions(std::span<const double> massFractions,
                                      std::span<double> moleFractions) const {
    const std::vector<PureFluid>& components = mixture().components();
    if (components.size() == 1) {
        moleFractions[0] = 1;
        return components.front().molarMass;
    }
    double mass = 0;
    double moles = 0;
    for (std::size_t i = 0; i < components.size(); ++i) {
        if (!(std::isfinite(massFractions[i]) && massFractions[i] >= 0)) {
            throw PropertyError(Fault::badArgument, "A mass fraction is not a number from 0 on.");
        }
        moleFractions[i] = massFractions[i] / components[i].molarMass;
        mass += massFractions[i];
        moles += moleFractions[i];
    }
    if (!(moles > 0)) throw PropertyError(Fault::badArgument, "The mass fractions add up to nothing.");
    for (double& fraction : moleFractions) fraction /= moles;
    return mass / moles;
}

double PropertyLibrary::molarMass(std::span<const double> moleFractions) const {
    if (componentCount() == 1) return mixture().components().front().molarMass;
    return mixture().molarMass(moleFractions);
}

}  // namespace marvello::fluids
