#include "tools/fluids/Accuracy.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <optional>

#include "data/Constants.h"
#include "data/Csv.h"
#include "data/Numbers.h"
#include "data/TextTable.h"
#include "tools/fluids/FluidCaller.h"
#include "tools/fluids/Refusal.h"

namespace marvello::properties {
namespace {

using Row = TextTable::Row;
using Side = FluidCaller::Side;

constexpr auto quantityCount = static_cast<std::size_t>(Quantity::count);
constexpr std::array<const char*, quantityCount> headings{
    "p sat", "rho sat", "x,y sat", "h,s sat", "rho", "h,s", "cp", "w", "T(p,h)", "T(p,s)", "quality"};

struct Tables {
    explicit Tables(const std::filesystem::path& folder)
        : saturation(folder / "saturation.csv"),
          singlePhase(folder / "single_phase.csv"),
          flash(folder / "flash.csv") {}
    TextTable saturation, singlePhase, flash;
};

/// The rows of one refrigerant next to the library set up for it.
class Comparer {
  public:
    Comparer(const Composition& composition, const Tables& tables, Comparison& to)
        : composition_(composition), caller_(composition), to_(to) {
        double hottest = zeroCelsius;
        for (const Row& row : own(tables.saturation)) hottest = std::max(hottest, row.number("T"));
        critical_ = caller_.criticalTemperature(hottest);
        const State bubble = caller_.saturationAtT(zeroCelsius, Side::bubble);
        const State dew = caller_.saturationAtT(zeroCelsius, Side::dew);
        evaporation_ = caller_.atTP(zeroCelsius, dew.p).h - caller_.liquidAt(bubble).h;
    }

    void run(const Tables& tables) {
        for (const Row& row : own(tables.saturation)) guarded([&] { saturation(row); });
        for (const Row& row : own(tables.singlePhase)) guarded([&] { singlePhase(row); });
        for (const Row& row : own(tables.flash)) guarded([&] { flash(row); });
    }

  private:
    std::vector<Row> own(const TextTable& table) const {
        std::vector<Row> found;
        for (const Row& row : table.rows())
            if (row.text("fluid") == composition_.name) found.push_back(row);
        return found;
    }

    /// A state that the library refuses is kept and the next one compared.
    template <class Action>
    void guarded(Action action) {
        try {
            action();
        } catch (const Refusal& refusal) {
            to_.refusals.emplace_back(refusal.what());
        }
    }

    /// `unit` is what the difference is divided by.
    void add(Quantity quantity, const char* name, double reference, double computed, double unit) {
        to_.deviations.push_back({composition_.name, quantity, name, temperature_, temperature_ / critical_,
                                  pressure_, inTwoPhases_, reference, computed,
                                  (computed - reference) / unit});
    }
    void addRelative(Quantity quantity, const char* name, double reference, double computed) {
        add(quantity, name, reference, computed, reference);
    }
    void addHeats(Quantity quantity, double h, double s, const State& found) {
        add(quantity, "enthalpy", h, found.h, evaporation_);
        add(quantity, "entropy", s, found.s, evaporation_ / zeroCelsius);
    }
    void place(const Row& row, double pressure, bool inTwoPhases = false) {
        temperature_ = row.number("T");
        pressure_ = pressure;
        inTwoPhases_ = inTwoPhases;
    }

    void saturation(const Row& row) {
        place(row, row.number("bubble_p"));
        const State bubble = caller_.saturationAtT(temperature_, Side::bubble);
        addRelative(Quantity::saturationPressure, "bubble pressure", pressure_, bubble.p);
        addRelative(Quantity::saturationDensity, "bubble liquid density", row.number("liquid_density"),
                    bubble.Dl);
        addRelative(Quantity::saturationDensity, "bubble vapour density", row.number("bubble_vapour_density"),
                    bubble.Dv);
        addHeats(Quantity::saturationHeat, row.number("liquid_h"), row.number("liquid_s"),
                 caller_.liquidAt(bubble));
        place(row, row.number("dew_p"));
        const State dew = caller_.saturationAtT(temperature_, Side::dew);
        addRelative(Quantity::saturationPressure, "dew pressure", pressure_, dew.p);
        addRelative(Quantity::saturationDensity, "dew vapour density", row.number("vapour_density"), dew.Dv);
        addRelative(Quantity::saturationDensity, "dew liquid density", row.number("dew_liquid_density"),
                    dew.Dl);
        addHeats(Quantity::saturationHeat, row.number("vapour_h"), row.number("vapour_s"),
                 caller_.atTP(temperature_, dew.p));
        if (!composition_.isBlend()) return;
        for (std::size_t i = 0; i < composition_.parts.size(); ++i) {
            const std::string number = std::to_string(i + 1);
            add(Quantity::composition, "bubble vapour fraction", row.number("bubble_vapour_" + number),
                bubble.y[i], 1);
            add(Quantity::composition, "dew liquid fraction", row.number("dew_liquid_" + number), dew.x[i],
                1);
        }
    }

    void singlePhase(const Row& row) {
        place(row, row.number("p"));
        const State found = caller_.atTP(temperature_, pressure_);
        addRelative(Quantity::density, "density", row.number("density"), found.D);
        addHeats(Quantity::heat, row.number("h"), row.number("s"), found);
        addRelative(Quantity::heatCapacity, "cp", row.number("cp"), found.cp);
        addRelative(Quantity::soundSpeed, "speed of sound", row.number("w"), found.w);
    }

    void flash(const Row& row) {
        const std::optional<double> quality = row.numberIfAny("quality");
        place(row, row.number("p"), quality.has_value());
        const State byEnthalpy = caller_.atPH(pressure_, row.number("h"));
        const State byEntropy = caller_.atPS(pressure_, row.number("s"));
        add(Quantity::temperatureByEnthalpy, "T(p,h)", temperature_, byEnthalpy.t, 1);
        add(Quantity::temperatureByEntropy, "T(p,s)", temperature_, byEntropy.t, 1);
        if (!quality) return;
        add(Quantity::quality, "quality(p,h)", *quality, byEnthalpy.q, 1);
        add(Quantity::quality, "quality(p,s)", *quality, byEntropy.q, 1);
    }

    const Composition& composition_;
    FluidCaller caller_;
    Comparison& to_;
    double critical_ = 0;     // K
    double evaporation_ = 0;  // enthalpy of it at 0 degC, J/mol
    double temperature_ = 0;
    double pressure_ = 0;
    bool inTwoPhases_ = false;
};

/// Without their signs, from the least on; of all refrigerants where none is named.
std::vector<double> sizesOf(const Comparison& comparison, const std::string& refrigerant, Quantity quantity) {
    std::vector<double> sizes;
    for (const Deviation& deviation : comparison.deviations) {
        if (deviation.quantity != quantity) continue;
        if (refrigerant.empty() || deviation.refrigerant == refrigerant)
            sizes.push_back(std::abs(deviation.deviation));
    }
    std::sort(sizes.begin(), sizes.end());
    return sizes;
}

template <class Choose>
std::string block(const Comparison& comparison, const char* title, Choose choose) {
    std::array<char, 32> cell{};
    std::string text = std::string(title) + "\n           ";
    for (const char* heading : headings) {
        std::snprintf(cell.data(), cell.size(), "%9s", heading);
        text += cell.data();
    }
    const auto addLine = [&](const char* name, const std::string& refrigerant) {
        std::snprintf(cell.data(), cell.size(), "\n%-11s", name);
        text += cell.data();
        for (std::size_t k = 0; k < quantityCount; ++k) {
            const std::vector<double> sizes = sizesOf(comparison, refrigerant, static_cast<Quantity>(k));
            if (sizes.empty() || choose(sizes) == 0) {
                std::snprintf(cell.data(), cell.size(), "%9s", sizes.empty() ? "-" : "0");
            } else {
                std::snprintf(cell.data(), cell.size(), "%9.0e", choose(sizes));
            }
            text += cell.data();
        }
    };
    for (const std::string& refrigerant : comparison.refrigerants) addLine(refrigerant.c_str(), refrigerant);
    addLine("all", "");
    return text + "\n";
}

}  // namespace

Comparison compare(const std::filesystem::path& folder) {
    const std::vector<Composition> compositions = readCompositions(folder);
    const Tables tables(folder);
    Comparison comparison;
    for (const Composition& composition : compositions) {
        comparison.refrigerants.push_back(composition.name);
        Comparer(composition, tables, comparison).run(tables);
    }
    return comparison;
}

std::string asTable(const Comparison& comparison) {
    return block(comparison, "Worst deviation",
                 [](const std::vector<double>& sizes) { return sizes.back(); }) +
           "\n" +
           block(comparison, "Median deviation",
                 [](const std::vector<double>& sizes) { return sizes[sizes.size() / 2]; }) +
           "\n"
           "p, rho, cp, w relative; h and s as a share of the evaporation at 0 C; T in K; x, y and quality "
           "in moles.\n" +
           std::to_string(comparison.deviations.size()) + " numbers compared, " +
           std::to_string(comparison.refusals.size()) + " states refused.\n";
}

std::string asCsv(const Comparison& comparison) {
    std::string text = "refrigerant,quantity,name,T,T_reduced,p,two_phases,reference,computed,deviation\n";
    for (const Deviation& deviation : comparison.deviations)
        text += csvJoined(
            {deviation.refrigerant, csvQuoted(headings[static_cast<std::size_t>(deviation.quantity)]),
             csvQuoted(deviation.name), storedText(deviation.temperature),
             storedText(deviation.reducedTemperature), storedText(deviation.pressure),
             deviation.inTwoPhases ? "1" : "0", storedText(deviation.reference),
             storedText(deviation.computed), storedText(deviation.deviation)},
            ',');
    return text;
}

}  // namespace marvello::properties
