#include "results/PartLoadSheet.h"

#include <algorithm>
#include <array>

#include "data/DictionaryTexts.h"
#include "results/FigureTexts.h"
#include "results/Messages.h"
#include "results/PartLoadTexts.h"
#include "thermo/EnteredQuantity.h"

namespace marvello {

namespace {

using Kind = LoadRun::Kind;
using Line = CurveStyle::Line;
using Tone = CurveStyle::Tone;

constexpr std::string_view loadPattern = "#0.0";
constexpr std::array shownShares{1.0, 0.75, 0.5, 0.25};

/// The columns of the figures, in front of the sentence and behind it: it says how the first ones come about,
/// and is in sight where there is no room for all.
constexpr std::array firstFigures{Figure::capacity, Figure::power, Figure::cop};
constexpr std::array otherFigures{Figure::current, Figure::massFlow, Figure::dischargeTemperature};

/// Writes the rows of a sheet.
class SheetWriter {
  public:
    SheetWriter(const PreparedCompressor& compressor, UnitSystem units, const NumberMarks& marks)
        : compressor_(compressor), units_(units), marks_(marks) {}

    std::vector<PartLoadSheet::Column> columns() const;
    PartLoadSheet::Row rowOf(const SteadyLoad& load) const;
    PartLoadSheet::Row rowOf(const PartLoad& load) const;

  private:
    std::string loadText(std::optional<double> share) const {
        return share ? formatNumber(*share * 100, loadPattern, marks_) : "-";
    }
    std::string temperatureText(double celsius) const {
        return formatNumber(convertedTemperature(celsius, UnitSystem::metric, units_), "#0.0", marks_);
    }

    /// What is in the columns of the figures and of the sentence.
    template <class Value>
    void addValues(PartLoadSheet::Row& row, Value valueOf, const std::string& sentence) const {
        const auto add = [&](Figure figure) {
            row.values.push_back(shownFigure(figure, valueOf(figure), units_, marks_).text);
        };
        for (const Figure figure : firstFigures) add(figure);
        row.values.push_back(sentence);
        for (const Figure figure : otherFigures) add(figure);
    }

    const PreparedCompressor& compressor_;
    UnitSystem units_;
    const NumberMarks& marks_;
};

std::vector<PartLoadSheet::Column> SheetWriter::columns() const {
    std::vector<PartLoadSheet::Column> columns{
        {.key = "load",
         .name = dictionaryText("frmselection.partload.load"),
         .unit = "%",
         .description = dictionaryText("frmselection.partload.load.description")},
        {.key = "tcd",
         .name = dictionaryText("frmselection.txttcd.captiontext"),
         .unit = unitText(Quantity::temperature, units_),
         .description = {}}};
    const auto add = [&](Figure figure) {
        columns.push_back({.key = std::string(nameOf(figure)),
                           .name = dictionaryText(textOf(figure).name),
                           .unit = unitOf(figure, units_),
                           .description = dictionaryText(textOf(figure).description)});
    };
    for (const Figure figure : firstFigures) add(figure);
    columns.push_back({.key = "sentence",
                       .name = dictionaryText("frmselection.tabstrip.tabs.messages"),
                       .unit = {},
                       .description = {},
                       .isText = true});
    for (const Figure figure : otherFigures) add(figure);
    return columns;
}

PartLoadSheet::Row SheetWriter::rowOf(const SteadyLoad& load) const {
    const Performance& performance = load.state.performance;
    PartLoadSheet::Row row{
        .label = stateText(compressor_, load.state, marks_),
        .state = performance.state,
        .values = {loadText(load.share), temperatureText(load.state.at.conditions.TCondensationDew)}};
    std::string sentence;
    for (const ShownMessage& message : messagesOf(load.messages))
        if (message.severity != Severity::information)
            sentence += (sentence.empty() ? "" : " ") + message.text;
    addValues(row, [&](Figure figure) { return valueOf(performance, figure); }, sentence);
    return row;
}

/// That of the state that has most to say.
PointState stateOf(const LoadRun& run) {
    if (run.kind == Kind::none) return PointState::error;
    const bool hasWarning = std::ranges::any_of(run.running, [](const TimedState& timed) {
        return timed.state.performance.state == PointState::warning;
    });
    return hasWarning || run.kind == Kind::tooSmall ? PointState::warning : PointState::ok;
}

PartLoadSheet::Row SheetWriter::rowOf(const PartLoad& load) const {
    PartLoadSheet::Row row{.label = percentText(load.share, marks_),
                           .state = stateOf(load.run),
                           .values = {loadText(load.share), temperatureText(load.condensing)}};
    addValues(
        row, [&](Figure figure) { return valueOf(load.run, figure); },
        load.run.kind == Kind::none ? dictionaryText(load.error) : runText(compressor_, load.run, marks_));
    return row;
}

/// A place of the curves: a state, or a share between two of them.
struct Place {
    double share;
    std::optional<double> cop, power;  ///< None where there is no value.
    Kind kind;
    const CapacityState* lowest;  ///< Of those that run; null without one.
};

std::vector<Place> placesOf(const PartLoadTable& table) {
    std::vector<Place> places;
    for (const SteadyLoad& load : table.states)
        if (load.share)
            places.push_back({*load.share, valueOf(load.state.performance, Figure::cop),
                              valueOf(load.state.performance, Figure::power), Kind::steady, &load.state});
    for (const PartLoad& load : table.shares)
        places.push_back({load.share, valueOf(load.run, Figure::cop), valueOf(load.run, Figure::power),
                          load.run.kind,
                          load.run.running.empty() ? nullptr : &load.run.running.back().state});
    std::ranges::stable_sort(places, {}, &Place::share);
    return places;
}

/// Another state is the lowest one where the limits begin to allow it, or cease to.
bool isBreak(const Place& one, const Place& other) {
    return one.lowest != nullptr && other.lowest != nullptr &&
           (one.kind == Kind::intermittent || other.kind == Kind::intermittent) &&
           one.lowest->step() != other.lowest->step();
}

/// The line between two neighbouring places: how the machine runs there.
Line lineBetween(const Place& one, const Place& other) {
    for (const Kind kind : {Kind::intermittent, Kind::blended})
        if (one.kind == kind || other.kind == kind)
            return kind == Kind::intermittent ? Line::dotted : Line::dashed;
    return Line::solid;
}

void addCurves(Chart& chart, const std::vector<Place>& places, std::optional<double> Place::* figure,
               Tone tone, bool isOnSecond, const std::string& name) {
    for (std::size_t i = 1; i < places.size(); ++i) {
        if (!(places[i - 1].*figure) || !(places[i].*figure)) continue;
        if (places[i - 1].share == places[i].share || isBreak(places[i - 1], places[i])) continue;
        const DrawnPoint from{places[i - 1].share * 100, *(places[i - 1].*figure)};
        const DrawnPoint to{places[i].share * 100, *(places[i].*figure)};
        const CurveStyle style{.line = lineBetween(places[i - 1], places[i]), .tone = tone};
        const bool goesOn = !chart.curves.empty() && chart.curves.back().isOnSecond == isOnSecond &&
                            chart.curves.back().style.line == style.line &&
                            chart.curves.back().points.back().x == from.x;
        if (!goesOn)
            chart.curves.push_back({.points = {from},
                                    .style = style,
                                    .isOnSecond = isOnSecond,
                                    .name = name,
                                    .set = isOnSecond ? 1 : 0});
        chart.curves.back().points.push_back(to);
    }
}

void addRings(Chart& chart, const PartLoadTable& table, Figure figure, Tone tone, bool isOnSecond) {
    ChartCurve rings{.style = {.line = Line::none, .tone = tone, .hasRings = true}, .isOnSecond = isOnSecond};
    for (const SteadyLoad& load : table.states)
        if (const auto value = valueOf(load.state.performance, figure); value && load.share)
            rings.points.push_back({*load.share * 100, *value});
    chart.curves.push_back(std::move(rings));
}

/// The kinds of lines that the chart has.
void addLegend(Chart& chart, const PreparedCompressor& compressor) {
    const auto hasLine = [&](Line line) {
        return std::ranges::any_of(chart.curves,
                                   [line](const ChartCurve& curve) { return curve.style.line == line; });
    };
    const auto add = [&](std::string_view key, const CurveStyle& style) {
        chart.legend.push_back({dictionaryText(key), style});
    };
    add(textOf(Figure::cop).name, {.tone = Tone::accent});
    add(textOf(Figure::power).name, {.tone = Tone::text});
    add(compressor.hasInvert ? "frmselection.txtfrequency.captiontext"
                             : "frmselection.cmbusessteps.captiontext",
        {.line = hasLine(Line::solid) ? Line::solid : Line::none, .tone = Tone::muted, .hasRings = true});
    if (hasLine(Line::dashed))
        add("frmselection.partload.chart.blended", {.line = Line::dashed, .tone = Tone::muted});
    if (hasLine(Line::dotted))
        add("frmselection.partload.chart.intermittent", {.line = Line::dotted, .tone = Tone::muted});
}

ChartAxis axisOf(const std::string& name, const std::string& unit, std::string_view pattern) {
    return {.title = unit.empty() ? name : name + ", " + unit,
            .hasZero = true,
            .name = name,
            .unit = unit,
            .pattern = pattern};
}

}  // namespace

std::vector<double> tableShares() { return {shownShares.begin(), shownShares.end()}; }

PartLoadQuestion partLoadQuestion(const PartLoadPlan& plan) {
    // An economizer takes milliseconds for each state.
    const bool isQuick = plan.conditions.EcoCalculateMode == EconomizerMode::none;
    PartLoadQuestion question{.plan = plan, .shares = tableShares()};
    const float hertzStep = isQuick ? 5 : 10;
    const FrequencyRange range = frequencyRange(*plan.compressor, plan.conditionsOf(1));
    for (float hertz = range.low; hertz <= range.high; hertz += hertzStep)
        question.frequencies.push_back(hertz);
    const int percentStep = isQuick ? 2 : 5;
    // On an inverter the frequencies make the rest of the curve.
    const int lastPercent = plan.compressor->hasInvert ? static_cast<int>(100 * range.low / range.high) : 98;
    for (int percent = percentStep; percent <= lastPercent; percent += percentStep)
        question.shares.push_back(percent / 100.0);
    return question;
}

PartLoadSheet partLoadSheet(const PreparedCompressor& compressor, const PartLoadTable& table,
                            UnitSystem units, const NumberMarks& marks) {
    const SheetWriter writer(compressor, units, marks);
    const ShownValue full =
        shownFigure(Figure::capacity, valueOf(table.full.state.performance, Figure::capacity), units, marks);
    PartLoadSheet sheet{
        .full =
            dictionaryText("frmselection.partload.full", {full.text + ' ' + unitOf(Figure::capacity, units),
                                                          stateText(compressor, table.full.state, marks)}),
        .label = dictionaryText("frmselection.tabstrip.tabs.partload"),
        .columns = writer.columns(),
        .statesTitle = dictionaryText(compressor.hasInvert ? "frmselection.txtfrequency.captiontext"
                                                           : "frmselection.cmbusessteps.captiontext"),
        .states = {},
        .sharesTitle = dictionaryText("frmselection.partload.load.description"),
        .shares = {}};
    for (const SteadyLoad& load : table.states) sheet.states.push_back(writer.rowOf(load));
    for (std::size_t i = 0; i < std::min(shownShares.size(), table.shares.size()); ++i)
        sheet.shares.push_back(writer.rowOf(table.shares[i]));
    return sheet;
}

Chart partLoadChart(const PreparedCompressor& compressor, const PartLoadTable& table, UnitSystem units) {
    Chart chart{.title = dictionaryText("frmselection.partload.chart"),
                .across = axisOf(dictionaryText("frmselection.partload.load"), "%", loadPattern),
                .up = axisOf(dictionaryText(textOf(Figure::cop).name), {}, textOf(Figure::cop).pattern),
                .second = axisOf(dictionaryText(textOf(Figure::power).name), unitOf(Figure::power, units),
                                 textOf(Figure::power).pattern)};
    const std::vector<Place> places = placesOf(table);
    addCurves(chart, places, &Place::power, Tone::text, true, chart.second->name);
    addCurves(chart, places, &Place::cop, Tone::accent, false, chart.up.name);
    addRings(chart, table, Figure::power, Tone::text, true);
    addRings(chart, table, Figure::cop, Tone::accent, false);
    addLegend(chart, compressor);
    return chart;
}

}  // namespace marvello
