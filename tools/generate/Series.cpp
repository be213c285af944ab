#include "tools/generate/Series.h"

#include <cmath>

namespace marvello::generate {
namespace {

using enum ModelPlan::SmallMotor;

// TK-A: models named after their displacement.
std::vector<ModelPlan> tkModels() {
    return {{"120", 120, offered}, {"140", 140, offered},    {"165", 165, none, true},
            {"190", 190, offered}, {"220", 220, standard},   {"255", 255, none},
            {"300", 300, offered}, {"350", 350, none, true}, {"410", 410, none, false, true},
            {"480", 480, offered}};
}

// MV-A: models named after nominal horsepower and displacement.
std::vector<ModelPlan> mvModels() {
    return {{"25-105", 105, offered},       {"30-125", 125, none},
            {"35-150", 150, offered},       {"40-175", 175, none},
            {"45-205", 205, offered, true}, {"50-240", 240, none},
            {"60-280", 280, standard},      {"70-330", 330, none, false, true},
            {"80-385", 385, offered},       {"100-450", 450, none}};
}

EnvelopePlan tkR134a() {
    return {.application = {BrokenLine({{-15, 25}, {4, 25}, {15, 36}}),
                            BrokenLine({{-15, 44}, {0, 60}, {15, 65}})},
            .economized = {BrokenLine({{-20, 25}, {4, 25}, {10, 31}}),
                           BrokenLine({{-20, 42}, {-2, 60}, {10, 64}})},
            .over = {BrokenLine({{-22, 20}, {8, 20}, {20, 32}}),
                     BrokenLine({{-22, 44}, {-4, 64}, {4, 70}, {20, 70}})},
            .smallMotor = BrokenLine({{-15, 50}, {15, 53}}),
            .oilFilter = 29,
            .oilFilterEarly = 41};
}

EnvelopePlan mvR134a() {
    return {.application = {BrokenLine({{-12, 28}, {5, 28}, {17, 40}}),
                            BrokenLine({{-12, 46}, {2, 62}, {17, 67}})},
            .economized = {BrokenLine({{-18, 28}, {5, 28}, {11, 34}}),
                           BrokenLine({{-18, 43}, {-1, 61}, {11, 65}})},
            .over = {BrokenLine({{-20, 23}, {9, 23}, {21, 35}}),
                     BrokenLine({{-20, 45}, {-2, 66}, {6, 71}, {21, 71}})},
            .smallMotor = BrokenLine({{-12, 48}, {17, 52}}),
            .oilFilter = 32,
            .oilFilterEarly = 41};
}

EnvelopePlan tkR290() {
    return {.application = {BrokenLine({{-25, 20}, {0, 20}, {12, 33}}),
                            BrokenLine({{-25, 37}, {-8, 55}, {12, 60}})},
            .economized = {BrokenLine({{-30, 20}, {0, 20}, {7, 27}}),
                           BrokenLine({{-30, 34}, {-10, 55}, {7, 59}})},
            .over = {BrokenLine({{-32, 16}, {4, 16}, {17, 29}}),
                     BrokenLine({{-32, 36}, {-12, 58}, {-4, 65}, {17, 65}})},
            .smallMotor = BrokenLine({{-25, 46}, {12, 49}}),
            .oilFilter = 24,
            .oilFilterEarly = 41};
}

EnvelopePlan mvR290() {
    return {
        .application = {BrokenLine({{-22, 23}, {2, 23}, {14, 36}}),
                        BrokenLine({{-22, 39}, {-6, 56}, {14, 61}})},
        .economized = {BrokenLine({{-28, 23}, {2, 23}, {9, 30}}), BrokenLine({{-28, 35}, {-8, 56}, {9, 60}})},
        .over = {BrokenLine({{-30, 19}, {6, 19}, {18, 31}}),
                 BrokenLine({{-30, 37}, {-10, 60}, {-3, 66}, {18, 66}})},
        .smallMotor = BrokenLine({{-22, 46}, {14, 49}}),
        .oilFilter = 27,
        .oilFilterEarly = 41};
}

}  // namespace

std::vector<SeriesPlan> allSeries() {
    const SeriesPlan tk{.serie = "TK-A",
                        .refrigerant = "R134A",
                        .fluidFile = "Fluids\\R134A.FLD",
                        .models = tkModels(),
                        .builtInRatio = 2.6,
                        .fillingLoss = 0.045,
                        .internalEfficiency = 0.77,
                        .motorPowerPerVolume = 0.20,
                        .hasSteps = true,
                        .hasSmallMotors = true,
                        .hasEconomizer = true,
                        .oilCoolingLimit = 100,
                        .envelope = tkR134a()};
    const SeriesPlan mv{.serie = "MV-A",
                        .refrigerant = "R134A",
                        .fluidFile = "Fluids\\R134A.FLD",
                        .models = mvModels(),
                        .builtInRatio = 3.0,
                        .fillingLoss = 0.055,
                        .internalEfficiency = 0.75,
                        .motorPowerPerVolume = 0.21,
                        .hasSteps = false,
                        .hasSmallMotors = true,
                        .hasEconomizer = false,
                        .oilCoolingLimit = 100,
                        .envelope = mvR134a()};
    const auto withPropane = [](SeriesPlan plan, double builtInRatio, const EnvelopePlan& envelope) {
        plan.refrigerant = "R290";
        plan.fluidFile = "Fluids\\PROPANE.FLD";
        plan.builtInRatio = builtInRatio;
        plan.motorPowerPerVolume *= 1.3;
        plan.hasSmallMotors = false;
        plan.envelope = envelope;
        return plan;
    };
    return {tk, mv, withPropane(tk, 2.4, tkR290()), withPropane(mv, 2.7, mvR290())};
}

ScrewMachine machineOf(const SeriesPlan& series, const ModelPlan& model) {
    constexpr double sizeOfFigures = 150;  // m^3/h
    const double size = std::pow(sizeOfFigures / model.displacement, 0.25);
    return {.displacement = model.displacement,
            .builtInRatio = series.builtInRatio,
            .fillingLoss = series.fillingLoss,
            .ratioLeakage = 0.016 * size,
            .pressureLeakage = 0.045 * size,
            .internalEfficiency = series.internalEfficiency - 0.03 * (size - 1),
            .frictionPressure = 30,
            .motorPower = series.motorPowerPerVolume * model.displacement};
}

}  // namespace marvello::generate
