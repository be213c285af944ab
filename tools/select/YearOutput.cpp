#include "tools/select/YearOutput.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "data/Csv.h"
#include "data/DictionaryTexts.h"
#include "data/Numbers.h"
#include "engine/PlantText.h"
#include "engine/Statements.h"
#include "engine/YearComparison.h"
#include "tools/select/AlignedTable.h"

namespace marvello::select {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view figureNote =
    "that of the compressors under these assumptions, no declared value of a unit";

std::string modelOf(const YearAnswer& answer, std::size_t kind) {
    return machineName(*answer.question.year.machines[kind].compressor);
}

std::string errorText(const std::string& error) {
    return error == failureName ? "cannot be calculated" : dictionaryText(error);
}

Tewi tewiOf(const YearAnswer& answer) {
    return marvello::tewiOf(answer.year.energy, answer.question.emissions);
}

std::optional<double> costOf(const YearAnswer& answer) {
    return marvello::costOf(answer.year.energy, answer.question.price);
}

std::string shown(double value, std::string_view pattern = "#0.0") { return formatNumber(value, pattern); }

/// Such as "2 x TK-A-120 75 %, TK-D-140 20.0 Hz 0.42".
std::string runningText(const YearAnswer& answer, const YearBin& bin) {
    std::string text;
    for (const RunningMachines& running : bin.load.running) {
        const RunningState& state = running.state;
        if (!text.empty()) text += ", ";
        if (running.count > 1) text += std::to_string(running.count) + " x ";
        text += modelOf(answer, running.kind) + ' ';
        text += state.frequency ? shown(static_cast<double>(*state.frequency)) + " Hz"
                                : std::to_string(state.step) + " %";
        if (running.share < 1) text += " for " + shown(running.share, "#0.00");
    }
    return text;
}

/// What a bin has: the same in each line of CSV and each object of JSON.
struct Column {
    const char* name;
    double (*value)(const YearBin& bin);
};
constexpr std::array columns{
    Column{"outdoor", [](const YearBin& bin) { return bin.bin.outdoor; }},
    Column{"hours", [](const YearBin& bin) { return bin.bin.hours; }},
    Column{"load", [](const YearBin& bin) { return bin.bin.load; }},
    Column{"needed", [](const YearBin& bin) { return bin.needed; }},
    Column{"delivered", [](const YearBin& bin) { return bin.delivered(); }},
    Column{"ted", [](const YearBin& bin) { return bin.ted; }},
    Column{"tcd", [](const YearBin& bin) { return bin.tcd; }},
    Column{"power", [](const YearBin& bin) { return bin.power(); }},
    Column{"energy", [](const YearBin& bin) { return bin.energy(); }},
    Column{"unmet", [](const YearBin& bin) { return bin.load.unmet * bin.bin.hours; }},
};

std::string csvOf(const YearAnswer& answer) {
    Cells heading;
    for (const Column& column : columns) heading.emplace_back(column.name);
    heading.emplace_back("running");
    std::string text = csvLine(heading);
    for (const YearBin& bin : answer.year.bins) {
        Cells cells;
        for (const Column& column : columns) cells.push_back(storedText(column.value(bin)));
        cells.push_back(runningText(answer, bin));
        text += csvLine(cells);
    }
    return text;
}

template <class Value>
Json orNull(const std::optional<Value>& value) {
    return value ? Json(*value) : Json(nullptr);
}

Json runningJson(const YearAnswer& answer, const YearBin& bin) {
    Json list = Json::array();
    for (const RunningMachines& running : bin.load.running)
        list.push_back({{"model", modelOf(answer, running.kind)},
                        {"count", running.count},
                        {"step", running.state.step},
                        {"frequency", orNull(running.state.frequency)},
                        {"share", running.share},
                        {"capacity", running.state.capacity},
                        {"power", running.state.power},
                        {"degradation", running.degradation}});
    return list;
}

Json binJson(const YearAnswer& answer, const YearBin& bin) {
    Json object;
    for (const Column& column : columns) {
        if (object.size() == 7) object["running"] = runningJson(answer, bin);
        object[column.name] = column.value(bin);
    }
    for (std::size_t kind = 0; kind < bin.errors.size(); ++kind)
        if (!bin.errors[kind].empty())
            object["notPossible"].push_back({{"model", modelOf(answer, kind)},
                                             {"name", bin.errors[kind]},
                                             {"description", errorText(bin.errors[kind])}});
    return object;
}

Json tewiJson(const YearAnswer& answer) {
    const Tewi tewi = tewiOf(answer);
    const double years = answer.question.emissions.years;
    const auto perYear = [years](const std::optional<double>& value) {
        return value ? Json(*value / years) : Json(nullptr);
    };
    return {{"direct", orNull(tewi.direct)},
            {"indirect", orNull(tewi.indirect)},
            {"total", orNull(tewi.total)},
            {"perYear",
             {{"direct", perYear(tewi.direct)},
              {"indirect", perYear(tewi.indirect)},
              {"total", perYear(tewi.total)}}}};
}

Json fourPointsJson(const YearAnswer& answer) {
    Json object{{"figure", orNull(answer.fourPoints->figure)}, {"note", figureNote}};
    Json& points = object["points"] = Json::array();
    for (const YearBin& point : answer.fourPoints->points) {
        Json one{{"point", std::string(1, static_cast<char>('A' + points.size()))}};
        for (const char* name : {"outdoor", "load", "needed", "delivered", "ted", "tcd", "power"})
            one[name] = std::ranges::find(columns, std::string_view(name), [](const Column& column) {
                            return std::string_view(column.name);
                        })->value(point);
        one["cop"] = point.power() > 0 ? Json(point.delivered() / point.power()) : Json(nullptr);
        one["running"] = runningJson(answer, point);
        points.push_back(std::move(one));
    }
    return object;
}

Json assumptionsJson(const YearAnswer& answer) {
    const YearQuestion& q = answer.question;
    const clsProjectConditions& c = q.year.conditions;
    return {{"refrigerant", q.request.refrigerant},
            {"profile",
             {{"name", q.chosen.name},
              {"title", q.chosen.title},
              {"source", q.chosen.source},
              {"hours", answer.year.hours},
              {"fullLoadHours", q.chosen.profile.fullLoadHours()}}},
            {"designLoad", q.year.designLoad},
            {"evaporating", textOf(q.year.evaporating)},
            {"condensing", textOf(q.year.condensing)},
            {"staging", q.year.staging == Staging::power ? "power" : "sequence"},
            {"degradation", textOf(q.year.degradation)},
            {"shType", codeOf(c.SuperHeatType)},
            {"sh", c.SuperHeat},
            {"sc", c.SubCooling},
            {"ecoMode", codeOf(c.EcoCalculateMode)},
            {"eco", c.Eco},
            {"price", orNull(q.price)},
            {"grid", orNull(q.emissions.grid)},
            {"gridSource", q.gridSource},
            {"gwp", orNull(q.emissions.gwp)},
            {"gwpBasis", nameOf(q.gwp)},
            {"charge", orNull(q.emissions.charge)},
            {"leakage", q.emissions.leakage},
            {"recovery", q.emissions.recovery},
            {"years", q.emissions.years}};
}

std::string jsonOf(const YearAnswer& answer) {
    const Year& year = answer.year;
    Json object{{"bins", Json::array()}};
    for (const YearBin& bin : year.bins) object["bins"].push_back(binJson(answer, bin));
    object["energy"] = year.energy;
    object["delivered"] = year.delivered;
    object["seasonalCop"] = orNull(year.seasonalCop());
    object["hours"] = year.allRunningHours();
    object["intermittentHours"] = year.intermittentHours;
    object["unmet"] = year.unmet;
    object["unmetHours"] = year.unmetHours;
    Json& machines = object["machines"] = Json::array();
    for (std::size_t kind = 0; kind < year.runningHours.size(); ++kind)
        machines.push_back({{"model", modelOf(answer, kind)},
                            {"count", answer.question.year.machines[kind].count},
                            {"hours", year.runningHours[kind]}});
    object["cost"] = orNull(costOf(answer));
    object["tewi"] = tewiJson(answer);
    if (answer.fourPoints) object["fourPoints"] = fourPointsJson(answer);
    object["assumptions"] = assumptionsJson(answer);
    return object.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

std::string plantText(const YearAnswer& answer) {
    std::string text;
    for (const PlantMachines& machines : answer.question.year.machines)
        text += (text.empty() ? "" : " + ") +
                (machines.count > 1 ? std::to_string(machines.count) + " x " : std::string()) +
                machineName(*machines.compressor);
    return text;
}

std::string assumptionsText(const YearAnswer& answer) {
    const YearQuestion& q = answer.question;
    const clsProjectConditions& c = q.year.conditions;
    const bool isDifference = c.SuperHeatType == SuperheatKind::difference;
    std::string text =
        q.request.refrigerant + ", " + plantText(answer) + " for " + storedText(q.year.designLoad) + " kW\n";
    text += "    " + q.chosen.title + ", " + shown(answer.year.hours, "#0.##") + " h" +
            (q.chosen.source.empty() ? "" : " (" + q.chosen.source + ")") + '\n';
    text += "    evaporating " + textOf(q.year.evaporating) + " C, condensing " + textOf(q.year.condensing) +
            ", " +
            (isDifference ? "superheat " + storedText(c.SuperHeat) + " K"
                          : "suction gas " + storedText(c.SuperHeat) + " C") +
            ", subcooling " + storedText(c.SubCooling) + " K\n";
    text += std::string("    machines ") +
            (q.year.staging == Staging::power ? "at least power" : "in sequence") +
            ", degradation of intermittent running " + textOf(q.year.degradation) + '\n';
    return text;
}

std::string binsText(const YearAnswer& answer) {
    std::vector<Cells> lines{{"Outdoor C", "Hours", "Load %", "Needed kW", "Delivered kW", "Ted C", "Tcd C",
                              "Power kW", "Energy kWh", "Unmet kWh"}};
    for (const YearBin& bin : answer.year.bins)
        lines.push_back({shown(bin.bin.outdoor), shown(bin.bin.hours, "#0.00"), shown(bin.bin.load * 100),
                         shown(bin.needed), shown(bin.delivered()), shown(bin.ted), shown(bin.tcd),
                         shown(bin.power(), "#0.00"), shown(bin.energy()),
                         shown(bin.load.unmet * bin.bin.hours)});
    const auto widths = widthsOf(lines, std::vector<std::size_t>(lines.front().size(), 8));
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::string line = lineText(lines[i], widths, 0);
        line.pop_back();
        text += line + "  " + (i == 0 ? "Running" : runningText(answer, answer.year.bins[i - 1])) + '\n';
    }
    return text;
}

/// Lines of a name and a value.
class Totals {
  public:
    void add(const std::string& name, const std::string& value) {
        text_ += padded(name, 24, false) + value + '\n';
    }
    void addKilograms(const std::string& name, const std::optional<double>& value, double years) {
        if (value)
            add(name, shown(*value) + " kg CO2e in " + storedText(years) + " years, " +
                          shown(*value / years) + " a year");
    }
    const std::string& text() const { return text_; }

  private:
    std::string text_;
};

void addEmissions(Totals& totals, const YearAnswer& answer) {
    const EmissionInputs& inputs = answer.question.emissions;
    const Tewi tewi = tewiOf(answer);
    if (inputs.charge && inputs.gwp)
        totals.add("Refrigerant", storedText(*inputs.charge) + " kg, GWP " + storedText(*inputs.gwp) +
                                      " by " + std::string(nameOf(answer.question.gwp)) + ", " +
                                      storedText(inputs.leakage) + " % lost a year, " +
                                      storedText(inputs.recovery) + " % recovered");
    if (inputs.grid)
        totals.add("Electricity",
                   storedText(*inputs.grid) + " kg CO2e/kWh" +
                       (answer.question.gridSource.empty() ? "" : " (" + answer.question.gridSource + ")"));
    totals.addKilograms("Direct emissions", tewi.direct, inputs.years);
    totals.addKilograms("Indirect emissions", tewi.indirect, inputs.years);
    totals.addKilograms("TEWI", tewi.total, inputs.years);
}

std::string totalsText(const YearAnswer& answer) {
    const Year& year = answer.year;
    Totals totals;
    totals.add("Energy", shown(year.energy) + " kWh");
    totals.add("Cooling", shown(year.delivered) + " kWh");
    if (year.seasonalCop()) totals.add("Seasonal COP", shown(*year.seasonalCop(), "#0.00"));
    if (answer.fourPoints && answer.fourPoints->figure)
        totals.add("Four-point figure",
                   shown(*answer.fourPoints->figure, "#0.00") + " (" + std::string(figureNote) + ')');
    totals.add("Not met", shown(year.unmet) + " kWh in " + shown(year.unmetHours) + " h");
    for (std::size_t kind = 0; kind < year.runningHours.size(); ++kind)
        totals.add("Hours of " + modelOf(answer, kind),
                   shown(year.runningHours[kind]) +
                       (answer.question.year.machines[kind].count > 1 ? " together" : ""));
    totals.add("Intermittent running", "in " + shown(year.intermittentHours) + " h");
    if (const auto cost = costOf(answer))
        totals.add("Cost",
                   shown(*cost, "#0.00") + " at " + storedText(*answer.question.price) + " for a kWh");
    addEmissions(totals, answer);
    return totals.text();
}

/// Why machines cannot run in a bin.
std::string reasonsText(const YearAnswer& answer, const YearBin& bin) {
    std::string text;
    for (std::size_t kind = 0; kind < bin.errors.size(); ++kind)
        if (!bin.errors[kind].empty())
            text += "; " + modelOf(answer, kind) + ": " + errorText(bin.errors[kind]);
    return text;
}

}  // namespace

std::string yearText(const YearAnswer& answer) {
    switch (answer.question.format) {
        case YearFormat::csv:
            return csvOf(answer);
        case YearFormat::json:
            return jsonOf(answer);
        case YearFormat::table:
            break;
    }
    return assumptionsText(answer) + '\n' + binsText(answer) + '\n' + totalsText(answer);
}

std::vector<std::string> yearRemarks(const YearAnswer& answer) {
    const Year& year = answer.year;
    std::vector<std::string> remarks;
    if (!answer.question.year.profile.isOfAYear())
        remarks.push_back("profile: its hours sum to " + shown(year.hours, "#0.##") + ", not 8760");
    if (year.unmet > 0) {
        const YearBin& worst =
            *std::ranges::max_element(year.bins, {}, [](const YearBin& bin) { return bin.load.unmet; });
        std::string remark = "the load is not met in " + shown(year.unmetHours) + " h: " + shown(year.unmet) +
                             " kWh are missing, most at " + shown(worst.bin.outdoor) + " C with " +
                             shown(worst.load.unmet) + " of " + shown(worst.needed) + " kW";
        remarks.push_back(remark + reasonsText(answer, worst));
    }
    return remarks;
}

std::string cannotRun(const YearAnswer& answer) {
    return "The machines cannot run at any temperature of the profile" +
           reasonsText(answer, answer.year.bins.front());
}

}  // namespace marvello::select
