#pragma once

#include <QString>

#include "catalogue/clsCompressor.h"

namespace marvello {

/// A text of the technical data with its tokens, such as "@Motor.Lra1", replaced by what the motor of a
/// calculated compressor has; tokens are known without regard to case. A value that is not there takes the
/// word behind it, its unit, with it. "@cps.VI" is a token for `isInverter` alone.
QString MotorDescription(QString text, const clsCompressor& compressor, bool isInverter);

}  // namespace marvello
