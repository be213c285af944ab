#pragma once

#include <string>
#include <vector>

#include "catalogue/clsCompressor.h"
#include "data/Numbers.h"
#include "thermo/UnitSystem.h"

namespace marvello {

struct TechnicalEntry {
    std::string caption;
    std::string value;
    bool beginsBlock = false;  ///< of lines that belong together
};

/// Returns the technical data of a model from the catalogue, in its order, with what the motor of the
/// calculated compressor has to say, and after them the facts of its refrigerant. Empty for a model without
/// technical data whose refrigerant the catalogue knows no facts of.
std::vector<TechnicalEntry> technicalData(const clsCompressor& compressor, UnitSystem units,
                                          const NumberMarks& marks = {});

/// Returns a text of the technical data with its tokens, such as "@Motor.Lra1", replaced by what the motor of
/// a calculated compressor has; tokens are known without regard to case. A token without a value goes
/// together with the word after it, its unit. "@cps.VI" is a token for a compressor on an inverter alone.
std::string MotorDescription(std::string text, const clsCompressor& compressor,
                             const NumberMarks& marks = {});

/// Returns a value of the technical data in imperial units: flows in m³/h, masses in kg and volumes in l are
/// converted with three significant digits. All else stays: the rated power of a motor has both units.
std::string technicalInImperial(std::string_view value, const NumberMarks& marks = {});

}  // namespace marvello
