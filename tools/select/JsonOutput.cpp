#include "tools/select/JsonOutput.h"

#include <nlohmann/json.hpp>

#include <utility>

#include "data/Texts.h"

namespace marvello::select {

namespace {

using Json = nlohmann::ordered_json;

Json ofConditions(const Request& request) {
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

Json ofMotor(const clsMotor& motor) {
    return {{"id", motor.ID},
            {"type", codeOf(motor.MotorType)},
            {"standard", motor.isStandard},
            {"hz", motor.Hz},
            {"voltage", motor.Voltage},
            {"phase", motor.Phase},
            {"nominalPower", motor.NominalPower},
            {"c", motor.c},
            {"lra1", motor.Lra1},
            {"lra2", motor.Lra2}};
}

Json ofLimits(const clsLimits& limits) {
    Json list = Json::array();
    for (const auto& limit : limits) {
        Json points = Json::array();
        for (const clsPoint& point : limit->Points) points.push_back({point.x, point.Y});
        list.push_back({{"type", limit->LimitType}, {"points", std::move(points)}});
    }
    return list;
}

Json ofVariables(const clsVariables& variables) {
    Json list = Json::array();
    for (const auto& variable : variables) {
        Json value;
        if (const auto* number = std::get_if<double>(&variable->value())) value = *number;
        if (const auto* text = std::get_if<std::string>(&variable->value())) value = *text;
        list.push_back({{"name", variable->Name()},
                        {"value", std::move(value)},
                        {"unit", variable->UnitMeasuretext()},
                        {"description", variable->Description()}});
    }
    return list;
}

Json ofMessages(const clsMessages& messages) {
    Json list = Json::array();
    for (const clsMessage& message : messages) {
        list.push_back({{"name", message.Name}, {"description", message.Description()}});
        if (!message.Cause.empty()) list.back()["cause"] = message.Cause;
    }
    return list;
}

Json ofCompressor(const clsCompressor& c) {
    return {{"key", c.Key()},
            {"refrigerant", c.Refrigerant},
            {"serie", c.Serie},
            {"model", c.Model},
            {"sequence", c.Sequence},
            {"vi", c.VI},
            {"hasInvert", c.hasInvert},
            {"fla", c.Fla},
            {"oilCoolingLimit", c.OilCoolingLimit},
            {"ctsca", static_cast<double>(c.ctsca)},
            {"startMode", c.StartMode},
            {"motor", ofMotor(c.Motor)},
            {"economizer",
             {{"KForo", c.Economizer.KForo}, {"KPerdita", c.Economizer.KPerdita}, {"Sez", c.Economizer.Sez}}},
            {"inverter", {{"viSelected", c.InverterInfo.ViSelected}}},
            {"polynomials",
             {{"Q0", c.PolynomialQ0.c},
              {"Pta", c.polynomialPta.c},
              {"Sh", {{"c", c.PolynomialSh.c}, {"reference", c.PolynomialSh.Sh}}}}},
            {"limits", ofLimits(c.limits)},
            {"variables", ofVariables(c.Variables)},
            {"messages",
             {{"error", ofMessages(c.Messages.Error)},
              {"attention", ofMessages(c.Messages.Attention)},
              {"information", ofMessages(c.Messages.Information)}}}};
}

Json ofRun(const Run& run, LineNumber line) {
    Json object;
    if (line) object["line"] = *line;
    object["conditions"] = ofConditions(run.request);
    object["aborted"] = run.selection->isAborted();
    object["count"] = run.selection->Count();
    Json& compressors = object["compressors"] = Json::array();
    for (const auto& compressor : *run.selection) compressors.push_back(ofCompressor(*compressor));
    return object;
}

std::string written(const Json& json, int indent) {
    return json.dump(indent, ' ', false, Json::error_handler_t::replace);
}

}  // namespace

Frame jsonFrame(bool isBatch, bool) { return isBatch ? Frame{"[", ",", "\n]\n"} : Frame{"", "", "\n"}; }

void addJson(std::string& text, const Run& run, LineNumber line) {
    std::string object = written(ofRun(run, {}), 2);
    if (line) {
        replaceAll(object, "\n", "\n  ");  // those of a text inside are escaped
        text += "\n  ";
    }
    text += object;
}

void addJsonLine(std::string& text, const Run& run, LineNumber line) {
    text += written(ofRun(run, line), -1) + "\n";
}

}  // namespace marvello::select
