#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/PreparedCatalogue.h"
#include "engine/Year.h"

namespace marvello {

/// The machines of a plant in the order of their sequence, all of one refrigerant.
struct Plant {
    std::vector<PlantMachines> machines{};

    /// Needs a machine.
    const std::string& refrigerant() const { return machines.front().compressor->Refrigerant; }
};

/// Why a text names no plant. `what()` is a sentence for scripts; a window makes its own of the rest.
class PlantTextFault : public std::invalid_argument {
  public:
    enum class Reason : std::uint8_t {
        noMachine,
        unknownCompressor,    ///< Arguments: its name, and the refrigerant if one was stated.
        unknownRefrigerant,   ///< Its name.
        severalRefrigerants,  ///< Those that have all machines.
        count,                ///< What stands for the number of machines.
        tooManyMachines,      ///< How many there are.
        severalInverters,
    };

    PlantTextFault(Reason reason, const std::string& sentence, std::vector<std::string> arguments = {});

    Reason reason;
    std::vector<std::string> arguments;
};

/// Reads machines of a refrigerant such as "TK-A-120x2; TK-D-140", in any case of letters. At most
/// YearRequest::maxMachines of them, one of which may be on an inverter. Throws PlantTextFault.
Plant plantIn(std::string_view text, const PreparedCatalogue& catalogue, std::string_view refrigerant);

/// Reads the same with a refrigerant of its own, such as "TK-A-120x2; TK-D-140 · R134A", with a blank in
/// place of the dot as well. Without one it is `usual` if that has all machines, or else the only one that
/// has them. Throws PlantTextFault.
Plant plantOf(std::string_view text, const PreparedCatalogue& catalogue, std::string_view usual = {});

/// Returns the text that reads back as the plant.
std::string textOf(const Plant& plant);

/// Returns a compressor as machines are named: "TK-A-120".
std::string machineName(const PreparedCompressor& compressor);

}  // namespace marvello
