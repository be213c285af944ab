#pragma once

#include <string>

namespace marvello {

/// A Windows bitmap of 96 by 64 pixels with 1, 4, 8 or 24 bits each: a ramp of colours from left to right,
/// darker towards the lower edge, with a white square in the upper left corner.
std::string sampleBitmap(int bits);

}  // namespace marvello
