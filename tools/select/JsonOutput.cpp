#include "tools/select/JsonOutput.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>

#include "data/Texts.h"
#include "tools/select/ConditionsJson.h"

namespace marvello::select {

namespace {

using Json = nlohmann::ordered_json;

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

const char* directionOf(const Advice& advice) {
    if (isChoice(advice.input)) return "choice";
    if (!advice.isLasting) return "exactly";
    return advice.change < 0 ? "lower" : "higher";
}

Json keysOf(const std::vector<MessageId>& messages) {
    Json keys = Json::array();
    for (const MessageId& message : messages) keys.push_back(message.key);
    return keys;
}

Json ofAdvice(const std::vector<Advice>& advice) {
    Json list = Json::array();
    for (const Advice& each : advice) {
        list.push_back({{"input", nameOf(each.input)},
                        {"value", each.value},
                        {"change", isChoice(each.input) ? Json() : Json(each.change)},
                        {"direction", directionOf(each)},
                        {"ends", keysOf(each.ends)},
                        {"brings", keysOf(each.brings)}});
    }
    return list;
}

Json ofMessages(Severity severity, const clsMessages& messages, const std::vector<MessageAdvice>* advice) {
    Json list = Json::array();
    for (const clsMessage& message : messages) {
        list.push_back({{"name", message.Name}, {"description", message.Description()}});
        if (!message.Cause.empty()) list.back()["cause"] = message.Cause;
        if (!advice) continue;
        const auto about =
            std::ranges::find(*advice, MessageId{severity, message.Name}, &MessageAdvice::message);
        if (about != advice->end()) list.back()["advice"] = ofAdvice(about->advice);
    }
    return list;
}

/// `advice` is null if none was asked for.
Json ofCompressor(const clsCompressor& c, const std::vector<MessageAdvice>* advice) {
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
             {{"error", ofMessages(Severity::error, c.Messages.Error, advice)},
              {"attention", ofMessages(Severity::attention, c.Messages.Attention, advice)},
              {"information", ofMessages(Severity::information, c.Messages.Information, advice)}}}};
}

Json ofRun(const Run& run, LineNumber line) {
    Json object;
    if (line) object["line"] = *line;
    object["conditions"] = conditionsJson(run.request);
    object["aborted"] = run.selection->isAborted();
    object["count"] = run.selection->Count();
    Json& compressors = object["compressors"] = Json::array();
    auto advice = run.advice.begin();
    for (const auto& compressor : *run.selection)
        compressors.push_back(ofCompressor(*compressor, advice == run.advice.end() ? nullptr : &*advice++));
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
