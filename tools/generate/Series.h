#pragma once

#include <string>
#include <vector>

#include "tools/generate/Envelope.h"
#include "tools/generate/ScrewModel.h"

namespace marvello::generate {

/// What sets one model apart within its series.
struct ModelPlan {
    enum class SmallMotor { none, offered, standard };

    std::string code;
    double displacement;                       ///< m^3/h at 50 Hz
    SmallMotor smallMotor = SmallMotor::none;  ///< only for a series that has small motors
    bool needsOilFilterEarly =
        false;            ///< the oil-filter region reaches higher than in the rest of the series
    bool narrow = false;  ///< the application limit stays lower than in the rest of the series
};

/// The operating range of a series with one refrigerant.
struct EnvelopePlan {
    Region application;
    Region economized;      ///< application limit with economizer
    Region over;            ///< around both
    BrokenLine smallMotor;  ///< the small motor works below
    double oilFilter;       ///< degC; below this condensing temperature the filter region begins
    double oilFilterEarly;
};

/// One series with one refrigerant.
struct SeriesPlan {
    std::string serie;
    std::string refrigerant;
    std::string fluidFile;
    std::vector<ModelPlan> models;
    double builtInRatio;
    double fillingLoss;
    double internalEfficiency;
    double motorPowerPerVolume;  ///< kW at the motor's rating for each m^3/h
    bool hasSteps;               ///< 75, 50 and 25 % beside full load
    bool hasSmallMotors;
    bool hasEconomizer;
    double oilCoolingLimit;  ///< degC
    EnvelopePlan envelope;
};

/// All series of the demonstration catalogue, in its order.
std::vector<SeriesPlan> allSeries();

/// The compressor that a model stands for. Losses by leakage shrink with size, since gaps do so less than
/// rotors.
ScrewMachine machineOf(const SeriesPlan& series, const ModelPlan& model);

}  // namespace marvello::generate
