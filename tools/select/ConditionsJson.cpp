#include "tools/select/ConditionsJson.h"

namespace marvello::select {

nlohmann::ordered_json conditionsJson(const Request& request) {
    const clsProjectConditions& c = request.conditions;
    return {{"Refrigerant", request.refrigerant},
            {"Serie", request.series},
            {"Models", request.models},
            {"Market", request.market},
            {"Ted", c.TEvaporatingDew},
            {"Tcd", c.TCondensationDew},
            {"ShType", codeOf(c.SuperHeatType)},
            {"Sh", c.SuperHeat},
            {"Sc", c.SubCooling},
            {"OC", c.OilCooling},
            {"OCCalculateMode", codeOf(c.OilCoolingCalculateMode)},
            {"EcoCalculateMode", codeOf(c.EcoCalculateMode)},
            {"Eco", c.Eco},
            {"Fm", c.MotorHz},
            {"MotorType", codeOf(c.MotorSize)},
            {"MotorRPM", c.MotorRPM},
            {"Vm", c.MotorVoltage},
            {"InverterFrequency", c.InverterFrequency},
            {"StepCapacity", c.StepCapacity}};
}

}  // namespace marvello::select
