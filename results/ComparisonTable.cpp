#include "results/ComparisonTable.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

#include "data/Csv.h"
#include "data/DictionaryTexts.h"
#include "engine/Statements.h"
#include "results/FigureTexts.h"
#include "results/RefrigerantTexts.h"
#include "results/ReportLines.h"
#include "results/TechnicalData.h"
#include "thermo/EnteredQuantity.h"

namespace marvello {

namespace {

constexpr std::string_view onePlace = "#0.0";
constexpr std::string_view twoPlaces = "#0.00";
const std::string times = " \u00D7";
const std::string dot = " \u00B7 ";

/// Which values of a row are the better ones, without doubt.
enum class Better : std::uint8_t { neither, lower, higher };

/// How a value is told from that of the reference.
enum class Apart : std::uint8_t { notAtAll, percent, kelvin };

struct RowUnit {
    std::string (*text)(UnitSystem units) = nullptr;
    UnitRule convert = nullptr;
};
template <Quantity quantity>
std::string unitOfQuantity(UnitSystem units) {
    return unitText(quantity, units);
}
template <Figure figure>
std::string unitOfFigure(UnitSystem units) {
    return unitOf(figure, units);
}
constexpr RowUnit heatFlow{unitOfFigure<Figure::capacity>, convertedCapacity};
constexpr RowUnit electricPower{unitOfFigure<Figure::power>};
constexpr RowUnit current{unitOfFigure<Figure::current>};
constexpr RowUnit flow{unitOfFigure<Figure::massFlow>, convertedMassFlow};
constexpr RowUnit temperature{unitOfFigure<Figure::dischargeTemperature>, convertedTemperature};
constexpr RowUnit difference{unitOfQuantity<Quantity::temperatureDifference>, convertedDifference};
constexpr RowUnit pressure{unitOfQuantity<Quantity::pressure>, convertedPressure};

/// A row of numbers.
struct NumberRow {
    std::string_view name;
    std::string_view caption;  ///< key of the dictionary
    std::string_view pattern;
    RowUnit unit;
    Better better;
    Apart apart;
    std::optional<double> (*value)(const ComparedMachine& machine);
};

template <Figure figure>
std::optional<double> ofOne(const ComparedMachine& machine) {
    return valueOf(machine.performance, figure);
}

std::optional<double> ofAll(const ComparedMachine& machine, std::optional<double> ofOne) {
    return ofOne ? std::optional(*ofOne * machine.choice.machines) : std::nullopt;
}
template <Figure figure>
std::optional<double> ofAll(const ComparedMachine& machine) {
    return ofAll(machine, valueOf(machine.performance, figure));
}

std::optional<double> condenserLoad(const ComparedMachine& machine) {
    if (!machine.performance.hasValues()) return std::nullopt;
    return ofAll(machine, machine.performance.duty().condenserLoad);
}

std::optional<double> variableOf(const ComparedMachine& machine, var variable) {
    if (!machine.calculated || !machine.calculated->Variables.isSet(variable)) return std::nullopt;
    return machine.calculated->Variables[variable];
}

std::optional<double> oilLoad(const ComparedMachine& machine) {
    if (!machine.performance.hasValues()) return std::nullopt;
    return ofAll(machine, variableOf(machine, var::Pra));
}

/// A catalogue without a figure has 0, and the list shows it as none.
std::optional<double> notZero(std::optional<double> value) {
    return value && *value != 0 ? value : std::nullopt;
}

std::optional<double> currentOfAll(const ComparedMachine& machine) {
    return notZero(ofAll<Figure::current>(machine));
}
std::optional<double> fullLoadCurrent(const ComparedMachine& machine) {
    return notZero(ofAll(machine, variableOf(machine, var::Fla)));
}

std::optional<double> marginOf(const ComparedMachine& machine) {
    if (!machine.margin || !machine.performance.hasValues()) return std::nullopt;
    return machine.margin->kelvin;
}

template <var variable>
std::optional<double> ifPossible(const ComparedMachine& machine) {
    return machine.performance.hasValues() ? variableOf(machine, variable) : std::nullopt;
}

constexpr std::array pointRows{
    NumberRow{"capacity", "variables.q0.name", onePlace, heatFlow, Better::neither, Apart::percent,
              ofAll<Figure::capacity>},
    NumberRow{"power", "variables.pta.name", onePlace, electricPower, Better::lower, Apart::percent,
              ofAll<Figure::power>},
    NumberRow{"cop", "variables.cop.name", twoPlaces, {}, Better::higher, Apart::percent, ofOne<Figure::cop>},
    NumberRow{"dischargeTemperature", "variables.tsca.name", onePlace, temperature, Better::lower,
              Apart::kelvin, ofOne<Figure::dischargeTemperature>},
    NumberRow{"massFlow", "variables.mbase.name", onePlace, flow, Better::neither, Apart::percent,
              ofAll<Figure::massFlow>},
    NumberRow{"condenserLoad", "variables.qc.name", onePlace, heatFlow, Better::neither, Apart::percent,
              condenserLoad},
    NumberRow{"oilLoad", "variables.pra.name", onePlace, heatFlow, Better::lower, Apart::percent, oilLoad},
    NumberRow{"margin", "frmcomparison.margin", onePlace, difference, Better::higher, Apart::kelvin,
              marginOf},
};

constexpr std::array pressureRows{
    NumberRow{"evaporatingPressure", "report.pe.caption", twoPlaces, pressure, Better::neither,
              Apart::notAtAll, ifPossible<var::Pe>},
    NumberRow{"condensingPressure", "report.pc.caption", twoPlaces, pressure, Better::neither,
              Apart::notAtAll, ifPossible<var::Pc>},
};

constexpr std::array currentRows{
    NumberRow{"current", "variables.ca.name", onePlace, current, Better::lower, Apart::percent, currentOfAll},
    NumberRow{"fullLoadCurrent", "variables.fla.name", onePlace, current, Better::lower, Apart::percent,
              fullLoadCurrent},
};

/// Rows of the technical data that are worth a comparison.
struct TechnicalRow {
    std::string_view name;
    std::string_view caption;  ///< key of the dictionary, as the technical data have it
    bool isOfAll;              ///< several machines have several of it
    Better better = Better::neither;
};
constexpr std::array technicalRows{
    TechnicalRow{"displacement", "technicaldata.displacement.caption", true},
    TechnicalRow{"capacityControl", "technicaldata.capacitycontrol.caption", false},
    TechnicalRow{"frequencyRange", "technicaldata.frequency.caption", false},
    TechnicalRow{"speedRange", "technicaldata.speed.caption", false},
    TechnicalRow{"volumeRatio", "technicaldata.volumeratio.caption", false},
    TechnicalRow{"weight", "technicaldata.weight.caption", true, Better::lower},
    TechnicalRow{"oilCharge", "technicaldata.oil.caption", true},
    TechnicalRow{"suctionValve", "technicaldata.suction.caption", false},
    TechnicalRow{"dischargeValve", "technicaldata.discharge.caption", false},
    TechnicalRow{"economizerConnection", "technicaldata.economizer.caption", false},
};

ComparedCell numberCell(std::optional<double> value, std::string_view pattern, const NumberMarks& marks) {
    if (!value) return {};
    return {
        .text = formatNumber(*value, pattern, marks), .value = value, .shown = shownValue(*value, pattern)};
}

ComparedCell wordCell(const std::string& word) { return word.empty() ? ComparedCell{} : ComparedCell{word}; }

/// The better ones of a row, unless all show the same.
void markBest(ComparedRow& row, Better better) {
    std::set<double> values;
    for (const ComparedCell& cell : row.cells)
        if (cell.shown) values.insert(*cell.shown);
    if (better == Better::neither || values.size() < 2) return;
    const double best = better == Better::lower ? *values.begin() : *values.rbegin();
    for (ComparedCell& cell : row.cells) cell.isBest = cell.shown == best;
}

std::string signedText(double value, const std::string& unit, const NumberMarks& marks) {
    const double shown = shownValue(value, onePlace);
    const std::string text = formatNumber(shown == 0 ? 0 : shown, onePlace, marks);
    return withUnit((shown > 0 ? "+" : "") + text, unit);
}

/// Writes how far each value is from that of the reference.
void tellApart(ComparedRow& row, Apart apart, const ComparisonStyle& style) {
    if (!style.reference || apart == Apart::notAtAll) return;
    const std::optional<double> from = row.cells.at(*style.reference).shown;
    if (!from || (apart == Apart::percent && *from == 0)) return;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        ComparedCell& cell = row.cells[i];
        if (i == *style.reference || !cell.shown) continue;
        cell.difference =
            apart == Apart::percent
                ? signedText((*cell.shown - *from) / *from * 100, "%", style.marks)
                : signedText(*cell.shown - *from, unitText(Quantity::temperatureDifference, style.units),
                             style.marks);
    }
}

/// Makes the table of one comparison.
class TableMaker {
  public:
    TableMaker(const Comparison& comparison, const ComparisonStyle& style)
        : comparison_(comparison), style_(style) {}

    ComparisonTable table() {
        ComparisonTable table;
        for (const ComparedMachine& machine : comparison_.machines) table.heads.push_back(headOf(machine));
        table.groups = {pointGroup(), refrigerantGroup(), electricalGroup(), machineGroup()};
        const auto hasValues = [](const ComparedMachine& machine) { return machine.performance.hasValues(); };
        // Where no machine has values their errors take the place of the first group.
        const bool isPointEmpty = std::ranges::none_of(comparison_.machines, hasValues);
        for (ComparedGroup& group : table.groups)
            if (!isPointEmpty || &group != &table.groups.front())
                std::erase_if(group.rows, [](const ComparedRow& row) {
                    return std::ranges::all_of(row.cells, &ComparedCell::isEmpty);
                });
        std::erase_if(table.groups, [](const ComparedGroup& group) { return group.rows.empty(); });
        return table;
    }

  private:
    static std::string errorOf(const ComparedMachine& machine) {
        if (machine.performance.hasValues()) return {};
        if (machine.calculated && machine.calculated->Messages.Error.Count() > 0)
            return messagesOf(*machine.calculated).front().text;
        const std::string& key = machine.performance.error;
        return dictionaryText(key == failureName ? "find.rejected.failed" : key);
    }

    std::string speedOf(const ComparedMachine& machine) const {
        const clsProjectConditions& conditions = machine.choice.conditions;
        if (machine.prepared != nullptr && machine.prepared->traits->drive == Drive::open)
            return formatNumber(conditions.MotorRPM, "#0", style_.marks) + "/min";
        const double hertz =
            machine.isOnInverter() ? conditions.InverterFrequency : static_cast<double>(conditions.MotorHz);
        return withUnit(formatNumber(hertz, "#0.#", style_.marks), "Hz");
    }

    ComparedHead headOf(const ComparedMachine& machine) const {
        const ComparedChoice& choice = machine.choice;
        std::string facts =
            std::to_string(choice.machines) + times + dot + choice.refrigerant + dot + speedOf(machine);
        if (!machine.isOnInverter() && choice.conditions.StepCapacity != capacitySteps.front())
            facts += dot + std::to_string(choice.conditions.StepCapacity) + " %";
        return {
            .name = choice.serie + '-' + choice.model,
            .facts = facts,
            .state = machine.performance.state,
            .error = errorOf(machine),
            .messages = machine.calculated ? messagesOf(*machine.calculated) : std::vector<ShownMessage>()};
    }

    template <class Make>
    ComparedRow row(std::string_view name, const std::string& caption, Make makeCell) const {
        ComparedRow row{.name = name, .caption = caption};
        for (const ComparedMachine& machine : comparison_.machines) row.cells.push_back(makeCell(machine));
        return row;
    }
    template <class Words>
    ComparedRow wordRow(std::string_view name, std::string_view caption, Words wordsOf) const {
        return row(name, dictionaryText(caption),
                   [&](const ComparedMachine& machine) { return wordCell(wordsOf(machine)); });
    }
    ComparedRow numberRow(const NumberRow& definition) const {
        const RowUnit& unit = definition.unit;
        ComparedRow made =
            row(definition.name, dictionaryText(definition.caption), [&](const ComparedMachine& machine) {
                std::optional<double> value = definition.value(machine);
                if (value && unit.convert != nullptr)
                    value = unit.convert(*value, UnitSystem::metric, style_.units);
                return numberCell(value, definition.pattern, style_.marks);
            });
        if (unit.text != nullptr) made.unit = unit.text(style_.units);
        markBest(made, definition.better);
        tellApart(made, definition.apart, style_);
        return made;
    }
    void addNumbers(ComparedGroup& group, std::span<const NumberRow> rows) const {
        for (const NumberRow& each : rows) group.rows.push_back(numberRow(each));
    }

    ComparedGroup pointGroup() const {
        const auto same = comparison_.samePoint();
        ComparedGroup group{same ? dictionaryText("frmcomparison.group.point", {pointText(*same, style_)})
                                 : dictionaryText("frmcomparison.group.points"),
                            {}};
        const auto at = [](const ComparedMachine& machine) { return pointOf(machine.choice.conditions); };
        if (!same) {
            group.rows.push_back(row(
                "point",
                dictionaryText("frmselection.txtted.captiontext") + " / " +
                    dictionaryText("frmselection.txttcd.captiontext"),
                [&](const ComparedMachine& machine) { return wordCell(pointText(at(machine), style_)); }));
            group.rows.push_back(wordRow("gas", "frmcomparison.gas", [&](const ComparedMachine& machine) {
                return gasText(at(machine), style_);
            }));
        }
        addNumbers(group, pointRows);
        addPartLoads(group);
        group.rows.push_back(
            wordRow("economizer", "frmselection.cmbeco.captiontext",
                    [this](const ComparedMachine& machine) { return economizerOf(machine); }));
        return group;
    }

    void addPartLoads(ComparedGroup& group) const {
        constexpr std::array<std::string_view, partLoadShares.size()> names{"cop75", "cop50", "cop25"};
        for (std::size_t i = 0; i < names.size(); ++i) {
            const std::string percent = formatNumber(partLoadShares.at(i) * 100, "#0");
            ComparedRow made = row(names.at(i), dictionaryText("frmcomparison.partload", {percent}),
                                   [&](const ComparedMachine& machine) {
                                       return numberCell(machine.partLoadCop.at(i), twoPlaces, style_.marks);
                                   });
            markBest(made, Better::higher);
            tellApart(made, Apart::percent, style_);
            group.rows.push_back(std::move(made));
        }
    }

    std::string economizerOf(const ComparedMachine& machine) const {
        const clsProjectConditions& conditions = machine.choice.conditions;
        const bool isApproach = conditions.EcoCalculateMode == EconomizerMode::approach;
        if (conditions.EcoCalculateMode == EconomizerMode::none) return {};
        const RowUnit& unit = isApproach ? difference : heatFlow;
        const double value = unit.convert(conditions.Eco, UnitSystem::metric, style_.units);
        return withUnit(formatNumber(value, onePlace, style_.marks), unit.text(style_.units));
    }

    ComparedGroup refrigerantGroup() const {
        ComparedGroup group{dictionaryText("report.refrigerant.caption"), {}};
        const auto factsOf = [this](const ComparedMachine& machine) -> const RefrigerantFacts& {
            return comparison_.catalogue->factsOf(machine.choice.refrigerant);
        };
        ComparedRow gwp =
            row("gwp", dictionaryText("frmcomparison.gwp"), [&](const ComparedMachine& machine) {
                return numberCell(factsOf(machine).gwpAr4, gwpPattern, style_.marks);
            });
        markBest(gwp, Better::lower);
        tellApart(gwp, Apart::percent, style_);
        group.rows.push_back(std::move(gwp));
        group.rows.push_back(
            wordRow("safetyClass", "technicaldata.safetyclass.caption",
                    [&](const ComparedMachine& machine) { return factsOf(machine).safetyClass; }));
        addNumbers(group, pressureRows);
        return group;
    }

    static std::string supplyOf(const ComparedMachine& machine) {
        const clsProjectConditions& conditions = machine.choice.conditions;
        return formatNumber(conditions.MotorVoltage, "#0") + " V / " + std::to_string(conditions.MotorHz) +
               " Hz";
    }

    std::string lockedRotorOf(const ComparedMachine& machine) const {
        const auto first = notZero(variableOf(machine, var::Lra1));
        const auto second = notZero(variableOf(machine, var::Lra2));
        if (!first && !second) return {};
        const auto text = [this](std::optional<double> value) {
            return value ? formatNumber(*value, onePlace, style_.marks) : std::string("-");
        };
        return text(first) + " / " + text(second);
    }

    ComparedGroup electricalGroup() const {
        std::set<std::string> supplies;
        for (const ComparedMachine& machine : comparison_.machines) supplies.insert(supplyOf(machine));
        const bool isSame = supplies.size() == 1;
        ComparedGroup group{isSame ? dictionaryText("frmcomparison.group.supply", {*supplies.begin()})
                                   : dictionaryText("frmcomparison.group.electrical"),
                            {}};
        if (!isSame) group.rows.push_back(wordRow("supply", "technicaldata.supply.caption", supplyOf));
        addNumbers(group, currentRows);
        ComparedRow locked =
            row("lockedRotorCurrent",
                dictionaryText("variables.lra1.name") + " / " + dictionaryText("variables.lra2.name"),
                [this](const ComparedMachine& machine) { return wordCell(lockedRotorOf(machine)); });
        locked.unit = unitOf(Figure::current, style_.units);
        group.rows.push_back(std::move(locked));
        group.rows.push_back(wordRow("motor", "technicaldata.motor.caption", [](const auto& machine) {
            return machine.calculated ? machine.calculated->Motor.NominalPower : std::string();
        }));
        return group;
    }

    static std::string driveOf(const ComparedMachine& machine) {
        if (machine.prepared == nullptr) return {};
        if (machine.prepared->hasInvert) return dictionaryText("technicaldata.start.inverter");
        const bool isOpen = machine.prepared->traits->drive == Drive::open;
        return dictionaryText(isOpen ? "technicaldata.drive.open" : "frmcomparison.drive.mains");
    }

    /// A text of the technical data, such as "286 kg", with the number that it begins with.
    static ComparedCell technicalCell(const std::string& text, int machines, bool isOfAll) {
        ComparedCell cell = wordCell(text);
        if (cell.isEmpty()) return cell;
        cell.shown = localNumber(text.substr(0, text.find(' ')));
        if (!isOfAll || machines == 1) return cell;
        if (cell.shown) *cell.shown *= machines;
        cell.text = std::to_string(machines) + times + ' ' + cell.text;
        return cell;
    }

    ComparedGroup machineGroup() const {
        ComparedGroup group{dictionaryText("frmcomparison.group.machine"), {}};
        group.rows.push_back(wordRow("drive", "technicaldata.drive.caption", driveOf));
        std::vector<std::vector<TechnicalEntry>> entries;
        for (const ComparedMachine& machine : comparison_.machines)
            entries.push_back(machine.calculated
                                  ? technicalData(*machine.calculated, style_.units, style_.marks)
                                  : std::vector<TechnicalEntry>());
        for (const TechnicalRow& definition : technicalRows) {
            ComparedRow made{.name = definition.name, .caption = dictionaryText(definition.caption)};
            for (std::size_t i = 0; i < entries.size(); ++i) {
                const auto found = std::ranges::find(entries[i], made.caption, &TechnicalEntry::caption);
                made.cells.push_back(found == entries[i].end()
                                         ? ComparedCell{}
                                         : technicalCell(found->value,
                                                         comparison_.machines[i].choice.machines,
                                                         definition.isOfAll));
            }
            markBest(made, definition.better);
            if (definition.better != Better::neither) tellApart(made, Apart::percent, style_);
            group.rows.push_back(std::move(made));
        }
        return group;
    }

    const Comparison& comparison_;
    const ComparisonStyle& style_;
};

}  // namespace

ComparisonTable comparisonTable(const Comparison& comparison, const ComparisonStyle& style) {
    return TableMaker(comparison, style).table();
}

std::string pointText(const OperatingPoint& point, const ComparisonStyle& style) {
    const auto text = [&](double celsius) {
        return formatNumber(convertedTemperature(celsius, UnitSystem::metric, style.units), onePlace,
                            style.marks);
    };
    return withUnit(text(point.ted) + " / " + text(point.tcd), unitText(Quantity::temperature, style.units));
}

std::string gasText(const OperatingPoint& point, const ComparisonStyle& style) {
    const auto text = [&](Quantity quantity, double value) {
        const double converted = conversionOf(quantity)(value, UnitSystem::metric, style.units);
        return withUnit(formatNumber(converted, "#0.#", style.marks), unitText(quantity, style.units));
    };
    const bool isDifference = point.superheatKind == SuperheatKind::difference;
    const std::string gas =
        text(isDifference ? Quantity::temperatureDifference : Quantity::temperature, point.superheat);
    return dictionaryText(isDifference ? "frmcomparison.superheat" : "frmcomparison.suctiongas",
                          {gas, text(Quantity::temperatureDifference, point.subcooling)});
}

std::string comparisonCsv(const ComparisonTable& table, bool hasDifferences, std::string_view point) {
    constexpr char separator = ';';
    std::vector<std::string> line{"row", "caption", "unit"};
    for (const ComparedHead& head : table.heads) line.push_back(csvQuoted(head.label()));
    if (hasDifferences)
        for (const ComparedHead& head : table.heads)
            line.push_back(csvQuoted(dictionaryText("frmcomparison.differenceof", {head.label()})));
    std::string text = csvJoined(line, separator);
    for (const ComparedGroup& group : table.groups)
        for (const ComparedRow& row : group.rows) {
            line = {std::string(row.name), csvQuoted(row.caption), csvQuoted(row.unit)};
            for (const ComparedCell& cell : row.cells)
                line.push_back(cell.value       ? plainText(*cell.value, point)
                               : cell.isEmpty() ? std::string()
                                                : csvQuoted(cell.text));
            if (hasDifferences)
                for (const ComparedCell& cell : row.cells)
                    line.push_back(cell.difference.empty() ? std::string() : csvQuoted(cell.difference));
            text += csvJoined(line, separator);
        }
    return text;
}

}  // namespace marvello
