#include "results/YearTable.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "data/DictionaryTexts.h"
#include "engine/Statements.h"
#include "results/ReportLines.h"

namespace marvello {

namespace {

constexpr std::string_view whole = "#0";
constexpr std::string_view onePlace = "#0.0";
constexpr std::string_view twoPlaces = "#0.00";

/// The unit of a row: large figures are in thousands.
struct Scale {
    std::string unit;
    double divisor = 1;
    std::string_view pattern = whole;
};

Scale scaleOf(double largest, const char* small, const char* large) {
    constexpr double thousand = 1000;
    constexpr double changesAt = 10'000;
    if (largest < changesAt) return {small};
    return {large, thousand, onePlace};
}

/// Makes the table of one comparison.
class TableMaker {
  public:
    TableMaker(const YearComparison& comparison, const YearStyle& style)
        : plants_(comparison.plants),
          terms_(comparison.terms),
          style_(style),
          heads_(yearHeads(comparison)),
          energy_(scaleOf(largest([](const YearOfPlant& plant) { return plant.year.energy; }), "kWh", "MWh")),
          emissions_(scaleOf(largest([](const YearOfPlant& plant) {
                                 const Tewi tewi = plant.yearlyTewi();
                                 return tewi.total.value_or(
                                     std::max(tewi.direct.value_or(0), tewi.indirect.value_or(0)));
                             }),
                             "kg", "t")),
          less_(largest([](const YearOfPlant& plant) { return plant.year.unmet; }) > 0 ? Better::neither
                                                                                       : Better::lower) {}

    YearTable table() {
        YearTable table;
        table.figures.heads = heads_;
        table.figures.groups = {{std::string(), rows()}};
        table.differences = differences(table.figures.groups.front().rows);
        for (std::size_t i = 0; i < plants_.size(); ++i) warn(table.warnings, i);
        return table;
    }

  private:
    using Value = std::optional<double>;

    template <class Of>
    double largest(Of of) const {
        double largest = 0;
        for (const YearOfPlant& plant : plants_) largest = std::max(largest, of(plant));
        return largest;
    }

    template <class Of>
    ComparedRow row(std::string_view name, std::string_view captionKey, const Scale& scale, Better better,
                    Of of) const {
        ComparedRow row{.name = name, .caption = dictionaryText(captionKey), .unit = scale.unit};
        for (const YearOfPlant& plant : plants_) {
            const Value value = plant.canRun() ? Value(of(plant)) : std::nullopt;
            row.cells.push_back(
                numberCell(value ? Value(*value / scale.divisor) : value, scale.pattern, style_.marks));
        }
        markBest(row, better);
        return row;
    }

    Scale coolingScale() const {
        if (style_.units == UnitSystem::imperial) return {dictionaryText("frmyear.tonhours"), 1, whole};
        return scaleOf(largest([](const YearOfPlant& plant) { return plant.year.delivered; }), "kWh", "MWh");
    }

    std::vector<ComparedRow> rows() const {
        std::vector<ComparedRow> rows;
        const auto isAny = [&](auto of) { return std::ranges::any_of(plants_, of); };
        rows.push_back(
            row("cooling", "frmyear.row.cooling", coolingScale(), Better::neither, [this](const auto& plant) {
                return convertedCapacity(plant.year.delivered, UnitSystem::metric, style_.units);
            }));
        rows.push_back(row("energy", "frmyear.row.energy", energy_, less_,
                           [](const auto& plant) { return plant.year.energy; }));
        rows.push_back(row("seasonalCop", "frmyear.row.cop", {"", 1, twoPlaces}, Better::higher,
                           [](const auto& plant) { return plant.year.seasonalCop(); }));
        if (terms_.rule)
            rows.push_back(
                row("fourPoints", "frmyear.row.fourpoints", {"", 1, twoPlaces}, Better::higher,
                    [](const auto& plant) { return plant.fourPoints ? plant.fourPoints->figure : Value(); }));
        rows.push_back(row("hours", "frmyear.row.hours", {"h"}, Better::neither,
                           [](const auto& plant) { return plant.year.allRunningHours(); }));
        rows.push_back(row("intermittentHours", "frmyear.row.intermittent", {"h"}, Better::neither,
                           [](const auto& plant) { return plant.year.intermittentHours; }));
        if (isAny([](const auto& plant) { return plant.year.unmet > 0; })) addUnmet(rows);
        if (terms_.price)
            rows.push_back(row("cost", "frmyear.row.cost", costScale(), less_,
                               [](const auto& plant) { return plant.cost(); }));
        addEmissions(rows);
        return rows;
    }

    Scale costScale() const {
        constexpr double wholeFrom = 1000;
        const double most = largest([](const YearOfPlant& plant) { return plant.cost().value_or(0); });
        return {style_.currency, 1, most < wholeFrom ? twoPlaces : whole};
    }

    void addUnmet(std::vector<ComparedRow>& rows) const {
        rows.push_back(
            row("unmet", "frmyear.row.unmet", {unmetUnit()}, Better::lower, [this](const auto& plant) {
                return convertedCapacity(plant.year.unmet, UnitSystem::metric, style_.units);
            }));
        rows.push_back(row("unmetHours", "frmyear.row.unmethours", {"h"}, Better::lower,
                           [](const auto& plant) { return plant.year.unmetHours; }));
    }

    void addEmissions(std::vector<ComparedRow>& rows) const {
        const auto add = [&](std::string_view name, std::string_view key, auto of) {
            ComparedRow made = row(name, key, emissions_, less_, of);
            const bool isEmpty =
                std::ranges::all_of(made.cells, [](const ComparedCell& cell) { return !cell.value; });
            if (!isEmpty) rows.push_back(std::move(made));
        };
        add("indirect", "frmyear.row.indirect",
            [](const auto& plant) { return plant.yearlyTewi().indirect; });
        add("direct", "frmyear.row.direct", [](const auto& plant) { return plant.yearlyTewi().direct; });
        add("tewi", "frmyear.row.tewi", [](const auto& plant) { return plant.yearlyTewi().total; });
        const auto before = rows.size();
        add("lifeTewi", "frmyear.row.life", [](const auto& plant) { return plant.tewi().total; });
        if (rows.size() > before)
            rows.back().caption = dictionaryText(
                "frmyear.row.life", {formatNumber(terms_.emissions.years, "#0.#", style_.marks)});
    }

    /// Of the shown figures.
    std::string differenceOf(const ComparedRow& row, std::size_t plant, std::string_view pattern) const {
        const Value from = row.cells.front().shown;
        const Value to = row.cells[plant].shown;
        if (!from || !to) return "-";
        const double difference = shownValue(*to - *from, pattern);
        const std::string text = formatNumber(difference == 0 ? 0 : difference, pattern, style_.marks);
        return withUnit((difference > 0 ? "+" : "") + text, row.unit);
    }

    std::vector<YearDifference> differences(const std::vector<ComparedRow>& rows) const {
        if (plants_.size() < 2) return {};
        struct Line {
            std::string_view name;
            std::string_view caption;
        };
        std::vector<YearDifference> lines;
        // Without a charge the emissions of electricity are all that is known.
        const bool hasTotal = std::ranges::find(rows, "tewi", &ComparedRow::name) != rows.end();
        for (const Line& line :
             {Line{"energy", "frmyear.difference.energy"}, Line{"cost", "frmyear.difference.cost"},
              Line{hasTotal ? "tewi" : "indirect", "frmyear.difference.co2"}}) {
            const auto found = std::ranges::find(rows, line.name, &ComparedRow::name);
            if (found == rows.end()) continue;
            const std::string_view pattern = line.name == "energy" ? energy_.pattern
                                             : line.name == "cost" ? costScale().pattern
                                                                   : emissions_.pattern;
            YearDifference& difference = lines.emplace_back(YearDifference{dictionaryText(line.caption), {}});
            for (std::size_t i = 1; i < plants_.size(); ++i)
                difference.values.push_back(differenceOf(*found, i, pattern));
        }
        return lines;
    }

    /// Of cooling, such as "830 kWh".
    std::string unmetText(double kilowattHours) const {
        const double shown = convertedCapacity(kilowattHours, UnitSystem::metric, style_.units);
        return withUnit(formatNumber(shown, whole, style_.marks), unmetUnit());
    }
    std::string unmetUnit() const {
        return style_.units == UnitSystem::imperial ? dictionaryText("frmyear.tonhours") : "kWh";
    }

    std::string hoursText(double hours) const { return formatNumber(hours, "#0.#", style_.marks); }

    void warn(std::vector<std::string>& warnings, std::size_t i) const {
        const YearOfPlant& plant = plants_[i];
        if (plant.canRun() && plant.year.unmet > 0) {
            const YearBin& worst = *std::ranges::max_element(
                plant.year.bins, {}, [](const YearBin& bin) { return bin.load.unmet; });
            warnings.push_back(
                dictionaryText("frmyear.warning.unmet",
                               {heads_[i].name, temperatureText(worst.bin.outdoor, style_),
                                capacityText(worst.delivered(), style_), capacityText(worst.needed, style_),
                                hoursText(plant.year.unmetHours), unmetText(plant.year.unmet)}));
        }
        if (plant.canRun()) warnOfMachines(warnings, plant);
        if (terms_.emissions.charge && !plant.emissions.gwp)
            warnings.push_back(dictionaryText(
                "frmyear.warning.gwp", {plant.choice.plant.refrigerant(), std::string(nameOf(terms_.gwp))}));
    }

    /// Each message of a machine once, with all hours in which it comes.
    void warnOfMachines(std::vector<std::string>& warnings, const YearOfPlant& plant) const {
        struct Found {
            double hours = 0;
            double outdoor = 0;
        };
        for (std::size_t kind = 0; kind < plant.choice.plant.machines.size(); ++kind) {
            std::map<std::string, Found> found;
            for (const YearBin& bin : plant.year.bins) {
                if (bin.errors[kind].empty() || bin.bin.hours == 0) continue;
                const auto [at, isNew] = found.try_emplace(bin.errors[kind]);
                if (isNew) at->second.outdoor = bin.bin.outdoor;
                at->second.hours += bin.bin.hours;
            }
            for (const auto& [error, where] : found)
                warnings.push_back(
                    dictionaryText("frmyear.warning.machine",
                                   {machineName(*plant.choice.plant.machines[kind].compressor),
                                    hoursText(where.hours), temperatureText(where.outdoor, style_),
                                    dictionaryText(error == failureName ? "find.rejected.failed" : error)}));
        }
    }

    const std::vector<YearOfPlant>& plants_;
    const YearTerms& terms_;
    const YearStyle& style_;
    const std::vector<ComparedHead> heads_;
    const Scale energy_;
    const Scale emissions_;
    /// Of what is taken, cost or emitted: not without doubt where a part of the load is not met.
    const Better less_;
};

}  // namespace

YearTable yearTable(const YearComparison& comparison, const YearStyle& style) {
    return TableMaker(comparison, style).table();
}

}  // namespace marvello
