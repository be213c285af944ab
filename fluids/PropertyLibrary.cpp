#include "fluids/PropertyLibrary.h"

#include <cmath>
#include <utility>

#include "fluids/FluidFile.h"
#include "fluids/FluidPath.h"
#include "fluids/PropertyError.h"

namespace marvello::fluids {
namespace {

PureFluid load(const std::string& name, const std::vector<std::filesystem::path>& folders) {
    const std::filesystem::path path = findFluidFile(name, folders);
    if (path.empty()) throw PropertyError(Fault::fluidFile, "There is no fluid file \"" + name + "\".");
    return readFluidFile(path);
}

ReferenceState referenceOf(const std::string& name, const PureFluid& fluid) {
    const std::string chosen = name == "DEF" ? fluid.referenceState : name;
    if (chosen == "IIR") return ReferenceState::iir;
    if (chosen == "NBP") return ReferenceState::nbp;
    if (chosen == "ASH") return ReferenceState::ashrae;
    throw PropertyError(Fault::badArgument,
                        "The reference state \"" + name + "\" is not DEF, IIR, NBP or ASH.");
}

}  // namespace

void PropertyLibrary::setUp(const std::vector<std::string>& fileNames, const std::string& reference,
                            const std::vector<std::filesystem::path>& folders) {
    flash_.reset();
    if (fileNames.empty()) throw PropertyError(Fault::badArgument, "A set-up needs at least one fluid.");
    if (fileNames.size() > 1) {
        throw PropertyError(Fault::notSupported,
                            "This library knows pure fluids; blends are not among them.");
    }
    PureFluid fluid = load(fileNames.front(), folders);
    const ReferenceState zero = referenceOf(reference, fluid);
    const double gasConstant = fluid.gasConstant;
    std::vector<PureFluid> components;
    components.push_back(std::move(fluid));
    auto made = std::make_unique<Flash>(Mixture(std::move(components), {}, gasConstant));
    made->setReference(zero);
    flash_ = std::move(made);
}

Flash& PropertyLibrary::flash() {
    if (!flash_) throw PropertyError(Fault::notSetUp, "No fluid has been set up.");
    return *flash_;
}

std::size_t PropertyLibrary::componentCount() { return flash().mixture().components().size(); }

void PropertyLibrary::setReference(const std::string& reference) {
    flash().setReference(referenceOf(reference, flash().mixture().components().front()));
}

double PropertyLibrary::moleFractions(std::span<const double> massFractions,
                                      std::span<double> moleFractions) {
    const std::vector<PureFluid>& components = flash().mixture().components();
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

double PropertyLibrary::molarMass(std::span<const double> moleFractions) {
    const Mixture& mixture = flash().mixture();
    if (mixture.components().size() == 1) return mixture.components().front().molarMass;
    return mixture.molarMass(moleFractions);
}

}  // namespace marvello::fluids
