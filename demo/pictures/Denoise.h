#pragma once

#include <vector>

#include "demo/pictures/Vector.h"

namespace marvello::pictures {

/// What the samples of a pixel amount to.
struct PixelSum {
    Vec3 light;           ///< mean
    double variance = 0;  ///< of the mean's brightness
    Vec3 colour;          ///< mean of the paint's colour
    Vec3 normal;          ///< mean; 0 where there is no machine
};

/// Smooths what the few samples leave as grain, not what normals, colours or more than the grain set apart. A
/// filter with holes (H. Dammertz et al., Edge-avoiding A-trous wavelet transform, HPG 2010), its tolerance
/// from the variance.
void denoise(std::vector<PixelSum>& pixels, int width, int height);

}  // namespace marvello::pictures
