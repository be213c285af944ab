#pragma once

#include <cstddef>
#include <vector>

#include "fluids/PureFluid.h"

namespace marvello::fluids {

/// What the library knows of a pair of components: the parameters of the reducing functions of Kunz and
/// Wagner, J. Chem. Eng. Data 57 (2012) 3032 (1 is Lorentz-Berthelot), and the departure function with its
/// factor. betaT and betaV belong to the order first, second; in the other order they are their inverses.
struct PairInteraction {
    std::size_t first = 0;  ///< place among the components
    std::size_t second = 0;
    double betaT = 1;
    double gammaT = 1;
    double betaV = 1;
    double gammaV = 1;
    double factor = 0;  ///< of the departure function; 0 where there is none
    std::vector<ResidualTerm> departure;
};

}  // namespace marvello::fluids
