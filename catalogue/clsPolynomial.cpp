#include "catalogue/clsPolynomial.h"

#include <numeric>

namespace marvello {

bool clsPolynomial::isOK() const { return std::accumulate(c.begin(), c.end(), 0.0) != 0; }

double clsPolynomial::Calculate(float x, float y) const {
    return at(static_cast<double>(x), static_cast<double>(y));
}

}  // namespace marvello
