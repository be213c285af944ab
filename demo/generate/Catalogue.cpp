#include "demo/generate/Catalogue.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <stdexcept>

#include "data/Numbers.h"
#include "demo/generate/Economizer.h"
#include "demo/generate/EnvelopeRows.h"
#include "demo/generate/FrequencyLaw.h"
#include "demo/generate/Motor.h"
#include "tools/catalogue/Schema.h"

namespace marvello::generate {
namespace {

constexpr double fullLoadField = 100;
constexpr double usualSpeed = 1450;  // rpm, of open drives
constexpr int noMotor = -1;

std::string boolText(bool value) { return value ? "True" : "False"; }

/// The motors of the maker's row that some compressor has, each once. A motor keeps its number whatever else
/// is in the catalogue.
class MotorRows {
  public:
    struct Entry {
        int id = noMotor;
        Motor motor;
    };
    const Entry& of(double shaftPower, Start start) {
        const std::size_t size = motorSizeFor(shaftPower);
        const int id = 10 * static_cast<int>(size + 1) + static_cast<int>(start);
        const auto [found, isNew] = entries_.try_emplace(id);
        if (isNew) found->second = {id, motorOf(size, start)};
        return found->second;
    }

    void write(std::vector<std::vector<std::string>>& rows) const {
        for (const auto& [id, entry] : entries_) {
            std::vector<std::string> row{std::to_string(id), "50"};
            for (const double coefficient : entry.motor.current) row.push_back(storedText(coefficient));
            row.insert(row.end(), {storedText(entry.motor.lockedRotorFirst),
                                   storedText(entry.motor.lockedRotorSecond), "3", entry.motor.nominalPower});
            rows.push_back(std::move(row));
        }
    }

  private:
    std::map<int, Entry> entries_;
};

/// A current limit a little above the greatest current of the envelope.
double currentLimit(double greatest) {
    constexpr double margin = 1.03;
    return std::ceil(margin * greatest);
}

/// Makes the rows of the models of one series with one refrigerant.
class SeriesBuilder {
  public:
    SeriesBuilder(const SeriesPlan& series, GeneratedCatalogue& made, MotorRows& motors)
        : series_(series),
          made_(made),
          motors_(motors),
          fluid_(series.fluid),
          range_(operatingRange(series, fluid_)),
          grid_(range_, fluid_),
          envelopes_(series, range_, fluid_) {
        summary_.serie = series.serie;
        summary_.refrigerant = series.refrigerant;
        if (!series.hasEconomizer()) return;
        const Point& duty = series.range.typical;
        portPressure_ = portPressureRatio(cycleAt(fluid_, duty.x, duty.y), series.portRatio);
        for (const PointGrid::Node& node : grid_.nodes()) {
            injected_.push_back(node.isEconomized ? injectedAt(fluid_, node.cycle, portPressure_)
                                                  : InjectedFlow{});
        }
    }

    void build() {
        int sequence = 0;
        for (const ModelPlan& model : series_.models) {
            sequence += 10;
            addModel(model, sequence);
        }
        envelopes_.write(made_.limits.rows);
        made_.summaries.push_back(summary_);
    }

  private:
    /// All that a row of tCompressors needs in addition to its plan.
    struct Electrics {
        MotorRows::Entry full;
        MotorRows::Entry small;
        double fullLimit = 0;
        double smallLimit = 0;
        FrequencyLaw law;
        std::array<double, 3> powerFactor{};
    };

    bool isInverter() const { return series_.drive == SeriesPlan::Drive::inverter; }
    /// The choice of motors is part of the R134A programme; other refrigerants get the motor they need.
    bool hasPair(const ModelPlan& model) const {
        return series_.drive == SeriesPlan::Drive::motorPair && series_.refrigerant == "R134A" &&
               model.smallMotor != ModelPlan::SmallMotor::none;
    }

    void addModel(const ModelPlan& model, int sequence) {
        const Start start = model.displacement > 230 ? Start::starDelta : Start::partWinding;
        ScrewMachine machine = machineOf(series_, model, 0);
        const Electrics electrics = electricsOf(model, machine, start);
        machine.motorPower = electrics.full.motor.rating;
        const std::string polynomial = series_.serie + "-" + series_.refrigerant + "-" + model.code;
        const std::vector<Performance> full = addSurfaces(machine, polynomial);
        summarize(full);

        const EnvelopeKind plain{hasPair(model), model.oilFilter == ModelPlan::OilFilter::early, model.narrow,
                                 false};
        EnvelopeKind economized = plain;
        economized.economized = series_.hasEconomizer();
        addCompressor(model, sequence, polynomial, electrics, static_cast<int>(start),
                      {envelopes_.idOf(plain), envelopes_.idOf(economized)}, full);
        ++summary_.models;
    }

    /// The greatest of `of(performance)` at the points of the application limit that `wanted` accepts.
    template <class Of, class Wanted>
    double greatest(const std::vector<Performance>& at, Of of, Wanted wanted) const {
        double found = 0;
        for (std::size_t i = 0; i < at.size(); ++i) {
            const PointGrid::Node& node = grid_.nodes()[i];
            if ((node.isApplication || node.isEconomized) && wanted(node.cycle))
                found = std::max(found, of(at[i]));
        }
        return found;
    }
    static bool everywhere(const CyclePoint&) { return true; }

    /// With economizer where there is one. Inverters take it only while their current leaves enough margin.
    std::vector<Performance> loaded(std::vector<Performance> at) const {
        if (!isInverter()) {
            for (std::size_t i = 0; i < injected_.size(); ++i) at[i] = withEconomizer(at[i], injected_[i]);
        }
        return at;
    }

    /// Chooses the motors of a model; those of inverters carry the greatest frequency of every point.
    Electrics electricsOf(const ModelPlan& model, ScrewMachine machine, Start start) const {
        Electrics found;
        if (!series_.hasMotor()) return found;
        const auto shaft = [](const Performance& p) { return p.shaftPower; };
        const auto power = [](const Performance& p) { return p.power; };
        const double speed = isInverter() ? 1.2 : 1;  // what 60 Hz takes is never much exceeded at 70 Hz
        found.full =
            motors_.of(greatest(loaded(grid_.performances(machine, speed)), shaft, everywhere), start);
        found.small = found.full;
        machine.motorPower = found.full.motor.rating;
        const std::vector<Performance> at = loaded(grid_.performances(machine));
        if (isInverter()) {
            inverterElectrics(machine, at, found);
            return found;
        }
        found.fullLimit = currentLimit(found.full.motor.currentAt(greatest(at, power, everywhere)));
        found.smallLimit = found.fullLimit;
        if (hasPair(model)) {
            const auto below = [this](const CyclePoint& point) {
                return point.condensing <= range_.smallMotor.at(point.evaporating);
            };
            found.small = motors_.of(greatest(at, shaft, below), start);
            found.smallLimit = currentLimit(found.small.motor.currentAt(greatest(at, power, below)));
        }
        return found;
    }

    void inverterElectrics(const ScrewMachine& machine, const std::vector<Performance>& at,
                           Electrics& found) const {
        found.law = frequencyLaw(machine, grid_);
        found.powerFactor = powerFactorLaw(found.full.motor);
        double current = 0;
        const double highest = range_.application.upper().points().back().y;
        for (const FrequencyBound& bound : frequencyBounds()) {
            const auto within = [&](const CyclePoint& point) {
                return point.condensing <= highest - bound.below &&
                       point.evaporating <= range_.application.right() - bound.left;
            };
            const double power = greatest(
                                     at, [](const Performance& p) { return p.power; }, within) *
                                 FrequencyLaw::factor(found.law.power, bound.hertz);
            constexpr double volts = 400;
            const auto& c = found.powerFactor;
            const double factor = c[0] * power * power + c[1] * power + c[2];
            current = std::max(current, power * 1000 / (std::sqrt(3.0) * factor * volts));
        }
        found.fullLimit = currentLimit(current);
        found.smallLimit = found.fullLimit;
    }

    /// Fits one surface and keeps its row.
    template <class Of, class ScaleOf>
    void addSurface(const std::string& polynomial, const std::string& quantity, int type, double field,
                    SurfaceForm form, const std::vector<Performance>& at, Of of, ScaleOf scaleOf) {
        const std::vector<Sample> over = grid_.samples(at, of, scaleOf);
        const Coefficients coefficients = fit(form, over);
        std::vector<std::string> row{polynomial, std::to_string(type), storedText(field)};
        for (const double coefficient : coefficients) row.push_back(storedText(coefficient));
        made_.polynomials.rows.push_back(std::move(row));
        FitRow fitted{polynomial, quantity, field,
                      errorOf(form, coefficients, grid_.samples(at, of, scaleOf, true)),
                      errorOf(form, coefficients, over)};
        summary_.worstFit = std::max({summary_.worstFit, fitted.application.rms, fitted.over.rms});
        made_.fits.push_back(std::move(fitted));
    }

    void addPair(const std::string& polynomial, double field, const std::vector<Performance>& at) {
        const auto capacity = [](const Performance& p, const CyclePoint& = {}) { return p.capacity; };
        const auto power = [](const Performance& p, const CyclePoint& = {}) { return p.power; };
        addSurface(polynomial, "capacity", 0, field, SurfaceForm::cubic, at, capacity, capacity);
        addSurface(polynomial, "power", 1, field, SurfaceForm::cubic, at, power, power);
    }

    /// The error counts over the rise of temperature, which is what the gas takes on.
    void addDischarge(const std::string& polynomial, const std::vector<Performance>& at) {
        addSurface(
            polynomial, "discharge", 3, referenceSuperheat, SurfaceForm::biquadratic, at,
            [](const Performance& p) { return p.dischargeTemperature; },
            [](const Performance& p, const CyclePoint& cycle) {
                return p.dischargeTemperature - cycle.evaporating - referenceSuperheat;
            });
    }

    /// Adds the rows of a model and returns what it does at full load, usual speed and best ratio.
    std::vector<Performance> addSurfaces(ScrewMachine machine, const std::string& polynomial) {
        std::vector<Performance> full;
        if (series_.rowsBy == SeriesPlan::RowsBy::load) {
            full = grid_.performances(machine);
            for (const double step : series_.rows) {
                std::vector<Performance> at = full;
                if (step != fullLoadField)
                    for (Performance& p : at) p = partLoad(p, step / fullLoadField);
                addPair(polynomial, step, at);
            }
        } else {
            for (const double row : series_.rows) {
                const bool bySpeed = series_.rowsBy == SeriesPlan::RowsBy::speed;
                constexpr double ratioField = 10;  // rows are kept by ten times the volume ratio
                if (!bySpeed) machine.lowestRatio = machine.highestRatio = row;
                const std::vector<Performance> at =
                    grid_.performances(machine, bySpeed ? row / nominalSpeed : 1);
                addPair(polynomial, bySpeed ? row : ratioField * row, at);
                if (!bySpeed)
                    keepBest(full, at);
                else if (row == usualSpeed || full.empty())
                    full = at;
            }
        }
        grid_.addDischarge(full);
        addDischarge(polynomial, full);
        return full;
    }

    static void keepBest(std::vector<Performance>& best, const std::vector<Performance>& at) {
        if (best.empty()) best = at;
        for (std::size_t i = 0; i < at.size(); ++i) {
            if (at[i].capacity / at[i].power > best[i].capacity / best[i].power) best[i] = at[i];
        }
    }

    void summarize(const std::vector<Performance>& full) {
        for (std::size_t i = 0; i < full.size(); ++i) {
            if (!grid_.nodes()[i].isApplication) continue;
            const Performance& p = full[i];
            summary_.leastEfficiency = std::min(summary_.leastEfficiency, p.isentropicEfficiency);
            summary_.greatestEfficiency = std::max(summary_.greatestEfficiency, p.isentropicEfficiency);
            summary_.hottestDischarge = std::max(summary_.hottestDischarge, p.dischargeTemperature);
            summary_.leastCop = std::min(summary_.leastCop, p.capacity / p.power);
            summary_.greatestCop = std::max(summary_.greatestCop, p.capacity / p.power);
        }
    }

    static constexpr double portLoss = 0.25;

    /// The port's section: with an injected flow as great as that of the evaporator, which no economizer
    /// asks for, it costs not quite a bar; at the usual flow that is some tenths.
    double portSection(const std::vector<Performance>& full) const {
        constexpr double greatestDrop = 0.75;  // bar
        double flow = 0;
        for (const Performance& p : full) flow = std::max(flow, p.massFlow);
        const double speed = isInverter() ? 1.4 : 1;
        constexpr double round = 10;
        return std::ceil(portLoss * flow * speed / greatestDrop / round) * round;
    }

    struct EnvelopeIds {
        std::string plain;
        std::string economized;
    };

    void addCompressor(const ModelPlan& model, int sequence, const std::string& polynomial,
                       const Electrics& electrics, int start, const EnvelopeIds& envelopes,
                       const std::vector<Performance>& full) {
        const bool eco = series_.hasEconomizer();
        const std::string sequenceText = (sequence < 100 ? "0" : "") + std::to_string(sequence);
        std::vector<std::string> row{series_.refrigerant,
                                     series_.serie,
                                     model.code,
                                     sequenceText,
                                     builtInRatioText(series_, model),
                                     storedText(electrics.fullLimit),
                                     storedText(electrics.smallLimit),
                                     polynomial,
                                     polynomial,
                                     polynomial,
                                     boolText(isInverter())};
        for (const auto* law : {&electrics.law.capacity, &electrics.law.power, &electrics.powerFactor})
            for (const double c : *law) row.push_back(storedText(c));
        const std::vector<std::string> rest{
            boolText(hasPair(model)),
            boolText(hasPair(model) && model.smallMotor == ModelPlan::SmallMotor::standard),
            std::to_string(series_.hasMotor() ? start : 0),
            "0",
            storedText(portPressure_),
            storedText(eco ? portLoss : 0.0),
            storedText(eco ? portSection(full) : 0.0),
            storedText(series_.oilCoolingLimit),
            storedText(series_.oilCoolingLimitEco),
            storedText(series_.ecoPowerFactor),
            std::to_string(electrics.full.id),
            std::to_string(electrics.small.id),
            envelopes.plain,
            envelopes.economized,
            std::to_string(model.market)};
        row.insert(row.end(), rest.begin(), rest.end());
        made_.compressors.rows.push_back(std::move(row));
        summary_.frequencyError =
            std::max({summary_.frequencyError, electrics.law.capacityError, electrics.law.powerError});
    }

    const SeriesPlan& series_;
    GeneratedCatalogue& made_;
    MotorRows& motors_;
    Fluid fluid_;
    OperatingRange range_;
    PointGrid grid_;
    EnvelopeRows envelopes_;
    double portPressure_ = 0;             ///< KForo of the catalogue
    std::vector<InjectedFlow> injected_;  ///< at the nodes of the grid; none without economizer
    Summary summary_;
};

CsvTable emptyTable(std::string_view name) {
    CsvTable table{std::string(name), {}, {}};
    for (const Column& column : std::ranges::find(schemaTables(), name, &Table::name)->columns)
        table.columns.emplace_back(column.name);
    return table;
}

/// The tables with their columns and no rows.
GeneratedCatalogue emptyCatalogue() {
    GeneratedCatalogue made;
    made.compressors = emptyTable("tCompressors");
    made.polynomials = emptyTable("tPolynomials");
    made.conversions = {"tPolynomials.r407c", made.polynomials.columns, {}};
    made.motors = emptyTable("tMotors");
    made.limits = emptyTable("tLimits");
    return made;
}

void addConversions(GeneratedCatalogue& made, const Fluid& r407c) {
    for (const Conversion& conversion : {evaporatingConversion(r407c), condensingConversion(r407c)}) {
        std::vector<std::string> row{conversion.name, "4", "0"};
        for (const double coefficient : conversion.coefficients) row.push_back(storedText(coefficient));
        made.conversions.rows.push_back(std::move(row));
        made.conversionFits.push_back(conversion);
    }
}

}  // namespace

bool Summary::isSound() const {
    constexpr double worstAllowed = 0.015;
    return worstFit < worstAllowed && leastEfficiency >= 0.45 && greatestEfficiency <= 0.78 &&
           hottestDischarge < 140;
}

GeneratedCatalogue generateCatalogue(const std::vector<SeriesPlan>& series,
                                     const std::vector<FluidPart>& r407c) {
    GeneratedCatalogue made = emptyCatalogue();
    MotorRows motors;
    for (const SeriesPlan& plan : series) {
        try {
            SeriesBuilder(plan, made, motors).build();
        } catch (const std::exception& reason) {
            throw std::runtime_error(plan.serie + " with " + plan.refrigerant + ": " + reason.what());
        }
    }
    motors.write(made.motors.rows);
    addConversions(made, Fluid(r407c));
    return made;
}

void writeTables(const GeneratedCatalogue& catalogue, const std::filesystem::path& folder) {
    for (const CsvTable* table : {&catalogue.compressors, &catalogue.polynomials, &catalogue.conversions,
                                  &catalogue.motors, &catalogue.limits}) {
        writeTable(*table, folder);
    }
}

}  // namespace marvello::generate
