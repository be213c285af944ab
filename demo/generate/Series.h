#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "demo/generate/Envelope.h"
#include "demo/generate/Fluid.h"
#include "demo/generate/ScrewModel.h"

namespace marvello::generate {

/// What sets one model apart within its series.
struct ModelPlan {
    enum class SmallMotor { none, offered, standard };
    enum class OilFilter { usual, early };

    std::string code;
    double displacement = 0;                   ///< m^3/h at 2900 rpm
    SmallMotor smallMotor = SmallMotor::none;  ///< counts only where the series has small motors
    OilFilter oilFilter = OilFilter::usual;    ///< early: the filter region reaches higher
    bool narrow = false;      ///< the application limit stays lower than in the rest of the series
    double builtInRatio = 0;  ///< where the model has one of its own; 0 is that of the series
    int market = 0;           ///< as fMarket of the catalogue
};

/// Where a kind of application runs a refrigerant, dew temperatures in degC.
struct RangePlan {
    double evaporatingFrom = 0;
    double evaporatingTo = 0;
    double condensingFrom = 0;
    double condensingTo = 0;
    Point typical{};  ///< a usual duty
};

/// One series with one refrigerant.
struct SeriesPlan {
    enum class Drive { motor, motorPair, open, inverter };
    /// What the catalogue's rows of capacity and power are kept by.
    enum class RowsBy { load, speed, ratio };
    /// Which of the two a rising discharge temperature calls for first.
    enum class Cooling { oilFirst, injectionFirst };

    std::string serie;
    std::string refrigerant;
    std::vector<FluidPart> fluid;
    std::vector<ModelPlan> models;
    Drive drive = Drive::motor;
    double lowestRatio = 0;  ///< built-in volume ratio; the two differ where a slide adapts it
    double highestRatio = 0;
    RowsBy rowsBy = RowsBy::load;
    std::vector<double> rows;  ///< percent, rpm or built-in ratio
    double fillingLoss = 0;
    double leakage = 1;  ///< over that of a usual screw compressor
    double internalEfficiency = 0;
    double portRatio = 0;           ///< volume at closing over volume at the economizer port; 0 without port
    double ecoPowerFactor = 0;      ///< fValue1 of the catalogue
    double oilCoolingLimit = 0;     ///< degC
    double oilCoolingLimitEco = 0;  ///< degC
    Cooling cooling = Cooling::oilFirst;
    bool hasVersions = false;   ///< models in an H and an S version
    bool hasForbidden = false;  ///< marks where the pressure difference does not carry the oil
    double greatestRatio = 0;   ///< pressure ratio of the application limit
    RangePlan range;

    bool hasSteps() const { return rowsBy == RowsBy::load && rows.size() > 1; }
    bool hasEconomizer() const { return portRatio > 0; }
    bool hasMotor() const { return drive != Drive::open; }
};

/// All series of the demonstration catalogue, in its order: the tables series.csv, models.csv and ranges.csv
/// of `plans`, with the refrigerants of `content`. Throws std::runtime_error that names what does not fit.
std::vector<SeriesPlan> allSeries(const std::filesystem::path& plans, const std::filesystem::path& content);

/// The compressor that a model stands for, with a motor of `motorPower` kW. Losses by leakage shrink with
/// size, since gaps do so less than rotors.
ScrewMachine machineOf(const SeriesPlan& series, const ModelPlan& model, double motorPower);

/// The built-in volume ratio as the catalogue shows it: "2.6", or "1.9-3.6" where it adapts or can be chosen.
std::string builtInRatioText(const SeriesPlan& series, const ModelPlan& model);

/// The model in the middle of its series, which stands for it where one envelope serves all.
const ModelPlan& middleModel(const SeriesPlan& series);

/// The slowest speed at which the series has rows, 1 being 2900 rpm.
double leastSpeed(const SeriesPlan& series);

}  // namespace marvello::generate
