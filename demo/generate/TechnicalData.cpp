#include "demo/generate/TechnicalData.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <stdexcept>

#include "catalogue/clsInverter.h"
#include "data/Numbers.h"
#include "data/TextTable.h"

namespace marvello::generate {
namespace {

using BodiesOfSeries = std::map<std::string, std::vector<BodyPlan>>;

BodiesOfSeries readBodies(const std::filesystem::path& file) {
    BodiesOfSeries bodies;
    const TextTable table(file);
    for (const auto& row : table.rows()) {
        std::vector<BodyPlan>& ofSeries = bodies[row.text("serie")];
        const BodyPlan body{.name = row.text("body"),
                            .displacementTo = row.number("displacement_to"),
                            .suction = row.text("suction"),
                            .discharge = row.text("discharge"),
                            .economizer = row.text("economizer"),
                            .oil = row.number("oil"),
                            .weightFrom = row.number("weight_from"),
                            .weightTo = row.number("weight_to")};
        if (!ofSeries.empty() && body.displacementTo <= ofSeries.back().displacementTo)
            row.fault("displacement_to", "it is not above that of the body before");
        ofSeries.push_back(body);
    }
    return bodies;
}

const BodyPlan& bodyOf(const std::vector<BodyPlan>& bodies, const ModelPlan& model) {
    const auto found = std::ranges::find_if(
        bodies, [&](const BodyPlan& body) { return model.displacement <= body.displacementTo; });
    if (found == bodies.end())
        throw std::runtime_error("bodies.csv has no body large enough for model " + model.code);
    return *found;
}

/// The weight grows with the displacement from the smallest to the largest model in the body.
double weightOf(const SeriesPlan& series, const std::vector<BodyPlan>& bodies, const ModelPlan& model) {
    const BodyPlan& body = bodyOf(bodies, model);
    double least = model.displacement;
    double most = model.displacement;
    for (const ModelPlan& other : series.models) {
        if (bodyOf(bodies, other).name != body.name) continue;
        least = std::min(least, other.displacement);
        most = std::max(most, other.displacement);
    }
    if (most == least) return body.weightFrom;
    const double share = (model.displacement - least) / (most - least);
    return std::round(body.weightFrom + share * (body.weightTo - body.weightFrom));
}

/// Collects the pairs of caption and value of one set.
class Sheet {
  public:
    void add(const std::string& captionKey, const std::string& value) {
        if (!pairs_.empty()) pairs_ += ';';
        pairs_ += '{' + captionKey + "}|" + value;
    }
    const std::string& pairs() const { return pairs_; }

  private:
    std::string pairs_;
};

void addMotor(Sheet& sheet, const SeriesPlan& series) {
    if (series.drive == SeriesPlan::Drive::open) {
        sheet.add("technicaldata.drive.caption", "{technicaldata.drive.open}");
        sheet.add("technicaldata.speed.caption", storedText(series.rows.front()) + " \u2013 " +
                                                     storedText(series.rows.back()) + " min\u207b\u00b9");
        return;
    }
    const bool isInverter = series.drive == SeriesPlan::Drive::inverter;
    sheet.add("technicaldata.motor.caption", "@cps.motorsize");
    sheet.add("technicaldata.supply.caption", "@Motor.VoltageDescription V/ph/Hz");
    sheet.add("technicaldata.nominalpower.caption", "@Motor.NominalPower");
    sheet.add("technicaldata.start.caption",
              isInverter ? "{technicaldata.start.inverter}" : "@cps.startmode");
    if (isInverter)
        sheet.add("technicaldata.frequency.caption", storedText(clsInverter::minimumFrequency) + " \u2013 " +
                                                         storedText(clsInverter::maximumFrequency) + " Hz");
    sheet.add("technicaldata.fla.caption", "@Cps.Fla A");
    if (isInverter) return;  // the converter keeps the starting current below the running one
    sheet.add("variables.lra1.name", "@Motor.Lra1 A");
    sheet.add("variables.lra2.name", "@Motor.Lra2 A");
}

std::string stepsOf(const SeriesPlan& series) {
    if (!series.hasSteps()) return "100 %";
    std::string steps;
    for (const double step : series.rows) steps += (steps.empty() ? "" : " / ") + storedText(step);
    return steps + " %";
}

std::string pairsOf(const SeriesPlan& series, const std::vector<BodyPlan>& bodies, const ModelPlan& model) {
    const BodyPlan& body = bodyOf(bodies, model);
    Sheet sheet;
    addMotor(sheet, series);
    sheet.add("technicaldata.displacement.caption", storedText(model.displacement) + " m\u00b3/h");
    if (series.drive == SeriesPlan::Drive::motor || series.drive == SeriesPlan::Drive::motorPair)
        sheet.add("technicaldata.capacitycontrol.caption", stepsOf(series));
    const bool isRatioChosen = series.rowsBy == SeriesPlan::RowsBy::ratio;
    sheet.add("technicaldata.volumeratio.caption",
              isRatioChosen ? "@cps.VI" : builtInRatioText(series, model));
    sheet.add("technicaldata.suction.caption", body.suction);
    sheet.add("technicaldata.discharge.caption", body.discharge);
    if (series.hasEconomizer()) sheet.add("technicaldata.economizer.caption", body.economizer);
    sheet.add("technicaldata.oil.caption", storedText(body.oil) + " l");
    sheet.add("technicaldata.weight.caption", storedText(weightOf(series, bodies, model)) + " kg");
    return sheet.pairs();
}

}  // namespace

TechnicalData technicalData(const std::vector<SeriesPlan>& series, const std::filesystem::path& plans) {
    constexpr int firstSet = 1000;  // below are the sets of windows
    const BodiesOfSeries bodies = readBodies(plans / "bodies.csv");
    TechnicalData made{
        .heads = {"tParametersHead.technical", {"fType", "fTypeKey", "fKey", "fParametersRowsID"}, {}},
        .rows = {"tParametersRows.technical",
                 {"fParametersRowsID", "fObjectName", "fObjectType", "fObjectPropertyValue"},
                 {}}};
    std::set<std::string> done;  // a series comes once for each refrigerant
    for (const SeriesPlan& plan : series) {
        if (!done.insert(plan.serie).second) continue;
        const auto ofSeries = bodies.find(plan.serie);
        if (ofSeries == bodies.end()) throw std::runtime_error("bodies.csv has no body of " + plan.serie);
        for (const ModelPlan& model : plan.models) {
            const std::string set = std::to_string(firstSet + static_cast<int>(made.heads.rows.size()));
            made.rows.rows.push_back(
                {set, "picTecnic", "PictureBox", "Tag=" + pairsOf(plan, ofSeries->second, model)});
            made.heads.rows.push_back({"catalog", plan.serie + '-' + model.code, "eng", set});
        }
    }
    return made;
}

}  // namespace marvello::generate
