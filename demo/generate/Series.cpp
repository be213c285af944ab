#include "demo/generate/Series.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "data/Numbers.h"
#include "data/TextTable.h"

namespace marvello::generate {
namespace {

using Row = TextTable::Row;

std::map<std::string, std::vector<ModelPlan>> readModels(const std::filesystem::path& file) {
    std::map<std::string, std::vector<ModelPlan>> models;
    const TextTable table(file);
    for (const Row& row : table.rows()) {
        ModelPlan model;
        model.code = row.text("model");
        model.displacement = row.number("displacement");
        model.smallMotor =
            static_cast<ModelPlan::SmallMotor>(row.choice("small_motor", {"", "offered", "standard"}));
        model.oilFilter = static_cast<ModelPlan::OilFilter>(row.choice("oil_filter", {"", "early"}));
        model.narrow = row.choice("limit", {"", "narrow"}) == 1;
        model.builtInRatio = row.number("built_in_ratio", 0);
        model.market = static_cast<int>(row.number("market", 0));
        models[row.text("serie")].push_back(model);
    }
    return models;
}

std::map<std::pair<std::string, std::string>, RangePlan> readRanges(const std::filesystem::path& file) {
    std::map<std::pair<std::string, std::string>, RangePlan> ranges;
    const TextTable table(file);
    for (const Row& row : table.rows()) {
        ranges[{row.text("range"), row.text("refrigerant")}] = {
            .evaporatingFrom = row.number("evaporating_from"),
            .evaporatingTo = row.number("evaporating_to"),
            .condensingFrom = row.number("condensing_from"),
            .condensingTo = row.number("condensing_to"),
            .typical = {row.number("typical_evaporating"), row.number("typical_condensing")}};
    }
    return ranges;
}

/// The series of a row, without what its refrigerant decides.
SeriesPlan readSeries(const Row& row) {
    SeriesPlan series;
    series.serie = row.text("serie");
    series.drive = static_cast<SeriesPlan::Drive>(row.choice("drive", {"motor", "pair", "open", "inverter"}));
    series.lowestRatio = row.number("built_in_ratio");
    series.highestRatio = row.number("built_in_ratio_to", series.lowestRatio);
    series.rowsBy = static_cast<SeriesPlan::RowsBy>(row.choice("rows_by", {"load", "speed", "ratio"}));
    for (const std::string& word : row.words("rows")) {
        const auto value = storedNumber(word);
        if (!value || *value <= 0) row.fault("rows", '"' + word + "\" is no number above 0");
        series.rows.push_back(*value);
    }
    if (series.rows.empty()) row.fault("rows", "there is none");
    // The best of the rows is as good as a ratio that adapts.
    if (series.rowsBy == SeriesPlan::RowsBy::ratio) series.highestRatio = series.rows.back();
    series.fillingLoss = row.number("filling_loss");
    series.leakage = row.number("leakage");
    series.internalEfficiency = row.number("internal_efficiency");
    series.portRatio = row.number("port_ratio", 0);
    series.ecoPowerFactor = row.number("eco_power_factor", 0);
    series.oilCoolingLimit = row.number("oil_limit");
    series.oilCoolingLimitEco = row.number("oil_limit_eco", series.oilCoolingLimit);
    series.cooling = static_cast<SeriesPlan::Cooling>(row.choice("cooling", {"oil", "injection"}));
    const std::vector<std::string> marks = row.words("marks");
    for (const std::string& mark : marks) {
        if (mark == "versions")
            series.hasVersions = true;
        else if (mark == "forbidden")
            series.hasForbidden = true;
        else
            row.fault("marks", '"' + mark + "\" is none of its words");
    }
    series.greatestRatio = row.number("greatest_ratio");
    return series;
}

}  // namespace

std::vector<SeriesPlan> allSeries(const std::filesystem::path& plans, const std::filesystem::path& content) {
    const auto models = readModels(plans / "models.csv");
    const auto ranges = readRanges(plans / "ranges.csv");
    const auto fluids = readCompositions(content);
    std::vector<SeriesPlan> all;
    const TextTable table(plans / "series.csv");
    for (const Row& row : table.rows()) {
        SeriesPlan series = readSeries(row);
        const auto ofSeries = models.find(series.serie);
        if (ofSeries == models.end()) row.fault("serie", "models.csv has no model of it");
        series.models = ofSeries->second;
        for (const std::string& refrigerant : row.words("refrigerants")) {
            const auto fluid = fluids.find(refrigerant);
            if (fluid == fluids.end()) row.fault("refrigerants", "tFluidi.csv has no " + refrigerant);
            const auto range = ranges.find({row.text("range"), refrigerant});
            if (range == ranges.end())
                row.fault("refrigerants", "ranges.csv has no " + row.text("range") + " for " + refrigerant);
            series.refrigerant = refrigerant;
            series.fluid = fluid->second;
            series.range = range->second;
            const double shift = row.number("evaporating_shift", 0);
            series.range.evaporatingFrom += shift;
            series.range.evaporatingTo += shift;
            series.range.condensingFrom += row.number("condensing_from_shift", 0);
            series.range.condensingTo += row.number("condensing_to_shift", 0);
            all.push_back(series);
        }
    }
    return all;
}

ScrewMachine machineOf(const SeriesPlan& series, const ModelPlan& model, double motorPower) {
    constexpr double sizeOfFigures = 150;  // m^3/h
    const double size = std::pow(sizeOfFigures / model.displacement, 0.25);
    const bool own = model.builtInRatio > 0;
    return {.displacement = model.displacement,
            .lowestRatio = own ? model.builtInRatio : series.lowestRatio,
            .highestRatio = own ? model.builtInRatio : series.highestRatio,
            .fillingLoss = series.fillingLoss,
            .ratioLeakage = 0.014 * size * series.leakage,
            .pressureLeakage = 0.040 * size * series.leakage,
            .internalEfficiency = series.internalEfficiency - 0.03 * (size - 1),
            .frictionPressure = 30,
            .motorPower = series.hasMotor() ? motorPower : 0,
            .inverterLoss = series.drive == SeriesPlan::Drive::inverter ? 0.03 : 0};
}

std::string builtInRatioText(const SeriesPlan& series, const ModelPlan& model) {
    if (series.rowsBy == SeriesPlan::RowsBy::ratio)
        return formatNumber(series.rows.front(), "#0.0") + "-" + formatNumber(series.rows.back(), "#0.0");
    const ScrewMachine machine = machineOf(series, model, 0);
    if (machine.highestRatio > machine.lowestRatio)
        return formatNumber(machine.lowestRatio, "#0.0") + "-" + formatNumber(machine.highestRatio, "#0.0");
    return formatNumber(machine.lowestRatio, "#0.0");
}

const ModelPlan& middleModel(const SeriesPlan& series) { return series.models[series.models.size() / 2]; }

double leastSpeed(const SeriesPlan& series) {
    if (series.rowsBy != SeriesPlan::RowsBy::speed) return 1;
    return *std::min_element(series.rows.begin(), series.rows.end()) / nominalSpeed;
}

}  // namespace marvello::generate
