#include "catalogue/clsPolynomial.h"

#include <numeric>

namespace marvello {

bool clsPolynomial::isOK() const { return std::accumulate(c.begin(), c.end(), 0.0) != 0; }

double clsPolynomial::Calculate(float x, float y) const {
    return at(static_cast<double>(x), static_cast<double>(y));
}

double clsPolynomial::at(double x, double y) const {
    return c[0] + c[1] * x + c[2] * y + c[3] * x * x + c[4] * x * y + c[5] * y * y + c[6] * x * x * x +
           c[7] * y * x * x + c[8] * x * y * y + c[9] * y * y * y;
}

}  // namespace marvello
