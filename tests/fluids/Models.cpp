#include "tests/fluids/Models.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "fluids/FluidFile.h"
#include "fluids/JsonField.h"
#include "fluids/MixtureFile.h"

namespace marvello::test {
namespace {

std::vector<double> moleFractions(const fluids::Mixture& mixture, const std::vector<double>& mass) {
    std::vector<double> z;
    double moles = 0;
    for (std::size_t i = 0; i < mass.size(); ++i)
        moles += z.emplace_back(mass[i] / mixture.components()[i].molarMass);
    for (double& fraction : z) fraction /= moles;
    return z;
}

}  // namespace

fluids::Mixture mixtureOf(const std::vector<std::string>& files) {
    const std::string folder = std::string(MARVELLO_SOURCE_FOLDER) + "/fluids/files/";
    std::vector<fluids::PureFluid> components;
    std::vector<std::string> names;
    for (const std::string& file : files) {
        components.push_back(fluids::readFluidFile(fluids::readFluidText(folder + file)));
        names.push_back(components.back().name);
    }
    if (files.size() == 1) {
        const double gasConstant = components.front().gasConstant;
        return {std::move(components), {}, gasConstant};
    }
    fluids::MixtureModel model = fluids::readMixtureFile(fluids::readFluidText(folder + "hmx.bnc"), names);
    return {std::move(components), std::move(model.pairs), model.gasConstant};
}

Model::Model(const Refrigerant& refrigerant)
    : mixture(mixtureOf(refrigerant.files)),
      z(moleFractions(mixture, refrigerant.massFractions)),
      fluid(mixture, z),
      lowest(fluid.boundary().temperatureMin()),
      highest(1e9),
      pressureMax(1e9) {
    for (const fluids::PureFluid& fluid : mixture.components()) {
        highest = std::min(highest, fluid.temperatureExtrapolated);
        pressureMax = std::min(pressureMax, fluid.pressureMax);
    }
}

const Model& modelOf(const Refrigerant& refrigerant) {
    static std::map<std::string, std::unique_ptr<Model>> made;
    std::unique_ptr<Model>& model = made[refrigerant.name];
    if (!model) model = std::make_unique<Model>(refrigerant);
    return *model;
}

fluids::FugacityState phaseAt(const Model& model, double t, double density, const Fractions& x) {
    fluids::PerComponent amounts{};
    for (std::size_t i = 0; i < model.z.size(); ++i) amounts[i] = density * x[i];
    fluids::FugacityState state;
    fluids::Fugacity(model.mixture).evaluate(t, {amounts.data(), model.z.size()}, false, state);
    return state;
}

double enthalpyAt(const Model& model, double t, double density) {
    return model.fluid.phase().at(t).state(density).enthalpy;
}

double imbalance(const Model& model, double t, double p, const Properties& found) {
    const fluids::FugacityState liquid = phaseAt(model, t, found.Dl, found.x);
    const fluids::FugacityState vapour = phaseAt(model, t, found.Dv, found.y);
    const double reduced = p / (model.mixture.gasConstant() * t);
    double stiffness = 0;
    for (std::size_t i = 0; i < model.z.size(); ++i)
        stiffness += liquid.pressureByAmount[i] * found.Dl * found.x[i];
    double most = std::max(deviation(vapour.pressure, reduced),
                           std::abs(liquid.pressure - reduced) / std::max(reduced, 0.1 * stiffness));
    for (std::size_t i = 0; i < model.z.size(); ++i)
        most = std::max(most, std::abs(liquid.potential[i] - vapour.potential[i]));
    return most;
}

}  // namespace marvello::test
