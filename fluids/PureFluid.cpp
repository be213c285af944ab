#include "fluids/PureFluid.h"

#include <cmath>

namespace marvello::fluids {

TauDerivatives IdealPart::at(double tau) const {
    TauDerivatives sum{constant + linear * tau + logarithm * std::log(tau), linear * tau + logarithm,
                       -logarithm};
    for (const IdealPower& term : powers) {
        const double value = term.n * std::pow(tau, term.t);
        sum.value += value;
        sum.first += value * term.t;
        sum.second += value * term.t * (term.t - 1);
    }
    for (const EinsteinTerm& term : einstein) {
        const double exponent = term.theta * tau;
        const double decay = std::exp(-exponent);
        const double occupation = decay / (1 - decay);
        sum.value += term.n * std::log1p(-decay);
        sum.first += term.n * exponent * occupation;
        sum.second -= term.n * exponent * exponent * occupation * (1 + occupation);
    }
    return sum;
}

}  // namespace marvello::fluids
