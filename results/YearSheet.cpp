#include "results/YearSheet.h"

#include <array>

#include "data/Csv.h"
#include "data/DictionaryTexts.h"
#include "thermo/EnteredQuantity.h"

namespace marvello {

namespace {

using Column = YearSheet::Column;

constexpr std::string_view onePlace = "#0.0";

std::string text(const char* key) { return dictionaryText(key); }

/// The columns that a bin has whatever the plant.
class SheetMaker {
  public:
    SheetMaker(const YearComparison& comparison, const YearStyle& style)
        : comparison_(comparison), style_(style), heads_(yearHeads(comparison)) {
        const std::string temperature = unitText(Quantity::temperature, style.units);
        sheet_.columns = {{"outdoor", text("frmyear.column.outdoor") + ' ' + temperature, ""},
                          {"hours", text("frmyear.column.hours"), "h"},
                          {"load", text("frmyear.column.load"), "%"},
                          {"needed", text("frmyear.column.needed"), unitText(Quantity::power, style.units)},
                          {"ted", text("frmselection.txtted.captiontext"), temperature},
                          {"tcd", text("frmselection.txttcd.captiontext"), temperature}};
        for (std::size_t i = 0; i < comparison.terms.profile.bins.size(); ++i)
            sheet_.rows.push_back(binCells(i));
    }

    YearSheet figures() {
        for (std::size_t plant = 0; plant < heads_.size(); ++plant) addFigures(plant);
        return std::move(sheet_);
    }
    YearSheet running() {
        for (std::size_t plant = 0; plant < heads_.size(); ++plant) {
            sheet_.columns.push_back({keyOf("running", plant), heads_[plant].name, "", true});
            forBins(plant, [&](const YearOfPlant& of, const YearBin& bin) {
                return runningText(of, bin, style_.marks);
            });
        }
        return std::move(sheet_);
    }

  private:
    static std::string keyOf(const char* name, std::size_t plant) { return name + std::to_string(plant); }

    std::string number(double value, std::string_view pattern = onePlace) const {
        return formatNumber(value, pattern, style_.marks);
    }
    std::string temperature(double celsius) const {
        return number(convertedTemperature(celsius, UnitSystem::metric, style_.units));
    }
    std::string capacity(double kilowatts) const {
        return number(convertedCapacity(kilowatts, UnitSystem::metric, style_.units));
    }

    std::vector<std::string> binCells(std::size_t index) const {
        const YearTerms& terms = comparison_.terms;
        const LoadBin& bin = terms.profile.bins[index];
        return {temperature(bin.outdoor),
                number(bin.hours, "#0.##"),
                number(bin.load * 100),
                capacity(terms.designLoad * bin.load),
                temperature(terms.evaporating.at(bin.outdoor)),
                temperature(terms.condensing.at(bin.outdoor, bin.load))};
    }

    template <class Cell>
    void forBins(std::size_t plant, Cell cellOf) {
        const YearOfPlant& of = comparison_.plants[plant];
        for (std::size_t i = 0; i < sheet_.rows.size(); ++i)
            sheet_.rows[i].push_back(cellOf(of, of.year.bins.at(i)));
    }

    void addFigures(std::size_t plant) {
        const auto add = [&](const char* name, const char* key, const std::string& unit, auto cellOf) {
            const std::string caption = heads_.size() > 1 ? heads_[plant].name + ' ' + text(key) : text(key);
            sheet_.columns.push_back({keyOf(name, plant), caption, unit});
            forBins(plant, [&](const YearOfPlant&, const YearBin& bin) { return cellOf(bin); });
        };
        add("energy", "frmyear.difference.energy", "kWh",
            [this](const YearBin& bin) { return number(bin.energy()); });
        add("cop", "variables.cop.name", "", [this](const YearBin& bin) {
            return bin.power() > 0 ? number(bin.delivered() / bin.power(), "#0.00") : std::string("-");
        });
        const std::size_t kinds = comparison_.plants[plant].choice.plant.machines.size();
        add("running", "frmyear.row.hours", "h", [this, kinds](const YearBin& bin) {
            double hours = 0;
            for (std::size_t kind = 0; kind < kinds; ++kind) hours += bin.runningHours(kind);
            return number(hours);
        });
        if (comparison_.plants[plant].year.unmet > 0)
            add("unmet", "frmyear.row.unmet", unitText(Quantity::power, style_.units),
                [this](const YearBin& bin) { return capacity(bin.load.unmet); });
    }

    const YearComparison& comparison_;
    const YearStyle& style_;
    const std::vector<ComparedHead> heads_;
    YearSheet sheet_;
};

/// What a bin has for each plant in a file.
struct FileColumn {
    const char* name;
    double (*value)(const YearBin& bin);
};
constexpr std::array plantColumns{
    FileColumn{"delivered kW", [](const YearBin& bin) { return bin.delivered(); }},
    FileColumn{"power kW", [](const YearBin& bin) { return bin.power(); }},
    FileColumn{"energy kWh", [](const YearBin& bin) { return bin.energy(); }},
    FileColumn{"unmet kW", [](const YearBin& bin) { return bin.load.unmet; }}};

std::string binsCsv(const YearComparison& comparison, char separator, std::string_view point) {
    const YearTerms& terms = comparison.terms;
    std::vector<std::string> line{"outdoor C", "hours", "load", "needed kW", "ted C", "tcd C"};
    const auto heads = yearHeads(comparison);
    for (const ComparedHead& head : heads) {
        for (const FileColumn& column : plantColumns)
            line.push_back(csvQuoted(head.name + ' ' + column.name));
        line.push_back(csvQuoted(head.name + " running"));
    }
    std::string text = csvJoined(line, separator);
    for (std::size_t i = 0; i < terms.profile.bins.size(); ++i) {
        const LoadBin& bin = terms.profile.bins[i];
        line.clear();
        for (const double value :
             {bin.outdoor, bin.hours, bin.load, terms.designLoad * bin.load,
              terms.evaporating.at(bin.outdoor), terms.condensing.at(bin.outdoor, bin.load)})
            line.push_back(plainText(value, point));
        for (const YearOfPlant& plant : comparison.plants) {
            const YearBin& of = plant.year.bins.at(i);
            for (const FileColumn& column : plantColumns) line.push_back(plainText(column.value(of), point));
            line.push_back(csvQuoted(runningText(plant, of, {})));
        }
        text += csvJoined(line, separator);
    }
    return text;
}

}  // namespace

YearSheet yearSheet(const YearComparison& comparison, const YearStyle& style) {
    return SheetMaker(comparison, style).figures();
}

YearSheet runningSheet(const YearComparison& comparison, const YearStyle& style) {
    return SheetMaker(comparison, style).running();
}

std::string yearCsv(const YearComparison& comparison, const YearTable& table,
                    const std::vector<std::string>& assumptions, std::string_view point) {
    constexpr char separator = ';';
    std::string text = comparisonCsv(table.figures, false, point);
    const auto addLines = [&](const char* name, const std::vector<std::string>& lines) {
        for (const std::string& line : lines) text += csvJoined({name, csvQuoted(line)}, separator);
    };
    addLines("warning", table.warnings);
    addLines("assumption", assumptions);
    return text + '\n' + binsCsv(comparison, separator, point);
}

}  // namespace marvello
