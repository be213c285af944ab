// What the surfaces, motors and economizer ports of the compressors give over their envelopes.

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <tuple>

#include "catalogue/SeriesTraits.h"
#include "catalogue/clsInverter.h"
#include "catalogue/clsPolynomialSh.h"
#include "data/Constants.h"
#include "data/Numbers.h"
#include "thermo/RefpropLibrary.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Index.h"
#include "tools/catalogue/Program.h"
#include "tools/catalogue/Rows.h"
#include "tools/catalogue/SurfaceFields.h"

namespace marvello {

namespace {

using Points = std::vector<clsPoint>;

std::string rounded(double value) {
    const double scale = std::abs(value) < 10 ? 100 : 10;
    return storedText(std::nearbyint(value * scale) / scale);
}

std::string at(const clsPoint& point) {
    return "at " + rounded(point.x) + " evaporating and " + rounded(point.Y) + " condensing";
}

/// The corners of a line and a grid inside it.
Points samplesOf(const clsPoints& line) {
    constexpr int steps = 10;
    Points samples(line.begin(), line.end());
    const auto& topLeft = line.getLeftPoint();
    const auto& bottomRight = line.getRightPoint();
    if (!topLeft || !bottomRight) return samples;
    const clsPoint low{topLeft->x, bottomRight->Y};
    const clsPoint high{bottomRight->x, topLeft->Y};
    for (int i = 1; i < steps; ++i)
        for (int j = 1; j < steps; ++j) {
            const double x = low.x + (high.x - low.x) * i / steps;
            const double y = low.Y + (high.Y - low.Y) * j / steps;
            if (polygonTest(line, x, y) > PolygonState::outside) samples.push_back({x, y});
        }
    return samples;
}

/// Heat of evaporation of a fluid at 0 degrees Celsius, kJ/kg: a usual one if the property library does not
/// have the fluid. Throws FluidLibraryError.
double evaporationHeat(const std::string& fluidFile) {
    constexpr double usual = 180;
    constexpr double hair = 1e-6;  // off the line, to either side of it
    RefpropSession library(refpropFunctions());
    if (library.setUp({fluidFile}, {1}).code > 0) return usual;
    const RefpropState line = library.saturationAtT(zeroCelsius, 2);
    const RefpropState vapour = library.atTP(zeroCelsius, line.p * (1 - hair));
    const RefpropState liquid = library.atTP(zeroCelsius, line.p * (1 + hair));
    for (const RefpropState& state : {line, vapour, liquid})
        if (state.answer.code > 0) return usual;
    return (vapour.h - liquid.h) / library.molarMass();
}

class PerformanceCheck {
  public:
    PerformanceCheck(const Content& content, Faults& faults)
        : content_(content), index_(content), faults_(faults) {
        try {
            readHeats();
        } catch (const FluidLibraryError& failure) {
            heats_.clear();
            faults.warn("tCompressors",
                        std::string("the losses of the economizer ports are not checked: ") + failure.what());
        }
    }

    void run() {
        forEachRow(content_, "tCompressors", faults_, [this](const Row& row) {
            const Points& points = applicationSamples(row.key("fLimitID"));
            checkFigures(row);
            if (points.empty()) return;  // told with the envelopes
            checkCapacityAndPower(row, points);
            checkDischarge(row, points);
            checkCurrents(row, points);
            checkEconomizer(row);
        });
    }

  private:
    /// Of a blend the mean by mass, which serves an estimate.
    void readHeats() {
        std::map<std::string, double> ofFluids;
        forEachRow(content_, "tFluidi", faults_, [&](const Row& row) {
            const std::string fluid = row.text("fFluido");
            if (!ofFluids.contains(fluid)) ofFluids[fluid] = evaporationHeat(fluid);
            heats_[row.key("fRefrigeranteId")] += row.real("fPFluido") * ofFluids[fluid];
        });
    }

    const Points& applicationSamples(const std::string& limitId) {
        const auto [found, isNew] = samples_.try_emplace(limitId);
        if (!isNew) return found->second;
        const auto* const line = lineOfType(index_.lines(limitId), limitType::application);
        if (line) found->second = samplesOf(line->points);
        return found->second;
    }

    const Index::Surface* surface(const Row& row, const std::string& column, int type, double field) const {
        const auto& rows = index_.surfaces(row.text(column), type);
        const auto found = rows.find(field);
        return found == rows.end() || !found->second.surface.isOK() ? nullptr : &found->second;
    }

    /// Those of the points at which the program lets the compressor run at a capacity step.
    Points pointsOfStep(const Row& row, const Points& points, double field) const {
        if (field == 100 || !allows(seriesTraits(row.text("fSerieID")).inputs, Selector::stepCapacity))
            return points;
        const int type = field == 25   ? limitType::step25
                         : field == 50 ? limitType::step50
                                       : limitType::step75;
        const auto* const line = lineOfType(index_.lines(row.key("fLimitID")), type);
        Points inside;
        if (line)
            std::ranges::copy_if(points, std::back_inserter(inside), [&](const clsPoint& point) {
                return polygonTest(line->points, point.x, point.Y) > PolygonState::outside;
            });
        return inside;
    }

    static clsInverter inverterOf(const Row& row) {
        clsInverter laws;
        laws.Q0C1 = row.real("fInverterQ0C1");
        laws.Q0C2 = row.real("fInverterQ0C2");
        laws.Q0C3 = row.real("fInverterQ0C3");
        laws.PtaC1 = row.real("fInverterPtaC1");
        laws.PtaC2 = row.real("fInverterPtaC2");
        laws.PtaC3 = row.real("fInverterPtaC3");
        laws.CaC1 = row.real("fInverterCaC1");
        laws.CaC2 = row.real("fInverterCaC2");
        laws.CaC3 = row.real("fInverterCaC3");
        return laws;
    }

    /// The frequencies of the inverter, and one that changes nothing for other drives.
    static std::vector<float> frequenciesOf(const Row& row) {
        if (row.integer("fhasInverter") == 0) return {50};
        return {20, 30, 40, 50, 60, 70};
    }

    void checkFigures(const Row& row) const {
        const SeriesTraits& traits = seriesTraits(row.text("fSerieID"));
        const bool hasMotor = row.integer("fMotorFullID") > 0;
        const bool isRatedElsewhere = traits.drive == Drive::open && !hasMotor;
        if (row.real("fFla") <= 0 && !isRatedElsewhere)
            row.fault("fFla: the rated current is " + storedText(row.real("fFla")) +
                      " A; it must be positive");
        if (row.real("fFla2") <= 0 && row.integer("fhasFullSmallMotor") != 0)
            row.fault("fFla2: the rated current of the small motor is " + storedText(row.real("fFla2")) +
                      " A; it must be positive");
        for (const auto* column : {"fOilCoolingLimit", "fOilCoolingLimitEco"})
            if (row.real(column) < 50 || row.real(column) > 150)
                row.warn(std::string(column) + ": a discharge limit of " + storedText(row.real(column)) +
                         " degrees Celsius is not usual");
        if (row.integer("fStartMode") < 0 || row.integer("fStartMode") > 2)
            row.warn("fStartMode: the program shows 1 star delta and 2 part winding, and nothing for " +
                     std::to_string(row.integer("fStartMode")));
        const int market = row.integer("fMarket");
        const bool isOffered =
            market == 0 || std::ranges::any_of(traits.markets, [market](const MarketChoice& choice) {
                return codeOf(choice.market) == market;
            });
        if (!isOffered && row.integer("fhasInverter") == 0)
            row.warn("fMarket: no form offers a model of market " + std::to_string(market) +
                     " in this series; enter one that the series has, or 0 for any");
        if (row.integer("fhasInverter") != 0) checkFrequencyLaws(row);
    }

    static void checkFrequencyLaws(const Row& row) {
        const clsInverter laws = inverterOf(row);
        for (const float frequency : frequenciesOf(row)) {
            const double speed = static_cast<double>(frequency) / 50;
            for (const auto& [columns, factor] : {std::pair{"fInverterQ0C1 to C3", laws.getKQ0(frequency)},
                                                  {"fInverterPtaC1 to C3", laws.getKPta(frequency)}}) {
                if (factor > 0.5 * speed && factor < 1.5 * speed) continue;
                row.fault(std::string(columns) + ": the factor at " + std::to_string(std::lround(frequency)) +
                          " Hz is " + rounded(factor) + ", which is far from the ratio of speeds " +
                          rounded(speed));
                return;
            }
        }
    }

    void checkCapacityAndPower(const Row& row, const Points& points) {
        const clsInverter laws = inverterOf(row);
        const bool isInverter = row.integer("fhasInverter") != 0;
        for (const double field : fieldsOf(content_, index_, row)) {
            const auto* const capacity = surface(row, "fPolynomialQ0ID", 0, field);
            const auto* const power = surface(row, "fPolynomialPassID", 1, field);
            if (!capacity || !power) continue;  // told with the surfaces
            if (!checked_.emplace(capacity->record, power->record, row.key("fLimitID")).second) continue;
            const Points reached = pointsOfStep(row, points, field);
            for (const float frequency : frequenciesOf(row))
                if (!checkPair(row, *capacity, *power, reached, isInverter ? laws.getKQ0(frequency) : 1,
                               isInverter ? laws.getKPta(frequency) : 1))
                    break;
        }
    }

    /// False when a fault was found.
    bool checkPair(const Row& row, const Index::Surface& capacity, const Index::Surface& power,
                   const Points& points, double capacityFactor, double powerFactor) {
        constexpr double minCop = 0.3;
        const auto fault = [&](const Index::Surface& surface, const std::string& what) {
            faults_.add(surface.record->file, surface.record->line,
                        what + ", inside the application limit; fit the row of \"" +
                            row.text(&surface == &capacity ? "fPolynomialQ0ID" : "fPolynomialPassID") +
                            "\" anew or narrow the limit (" + row.name() + ")");
            return false;
        };
        for (const clsPoint& point : points) {
            const auto value = [&](const Index::Surface& surface, double factor) {
                return factor *
                       surface.surface.Calculate(static_cast<float>(point.x), static_cast<float>(point.Y));
            };
            const double q = value(capacity, capacityFactor);
            const double p = value(power, powerFactor);
            if (q <= 0) return fault(capacity, "the capacity " + at(point) + " is " + rounded(q) + " kW");
            if (p <= 0) return fault(power, "the absorbed power " + at(point) + " is " + rounded(p) + " kW");
            const double cop = q / p;
            const double carnot = (point.x + zeroCelsius) / (point.Y - point.x);
            if (point.Y > point.x && cop >= carnot)
                return fault(capacity, "the COP " + at(point) + " is " + rounded(cop) +
                                           " and above that of Carnot, " + rounded(carnot));
            if (cop < minCop)
                return fault(capacity, "the COP " + at(point) + " is no more than " + rounded(cop));
        }
        return true;
    }

    void checkDischarge(const Row& row, const Points& points) {
        constexpr double most = 200;
        const auto& rows = index_.surfaces(row.text("fPolynomialShID"), 3);
        if (rows.empty()) return;
        const Index::Surface& found = rows.begin()->second;
        if (!checked_.emplace(found.record, nullptr, row.key("fLimitID")).second) return;
        clsPolynomialSh discharge;
        std::copy_n(found.surface.c.begin(), discharge.c.size(), discharge.c.begin());
        for (const clsPoint& point : points) {
            const double temperature = discharge.at(point.x, point.Y);
            if (temperature >= point.Y && temperature <= most) continue;
            faults_.add(found.record->file, found.record->line,
                        "the discharge temperature " + at(point) + " is " + rounded(temperature) +
                            " degrees Celsius, " +
                            (temperature < point.Y ? "below the condensing one" : "above " + rounded(most)) +
                            ", inside the application limit; fit the row of \"" +
                            row.text("fPolynomialShID") + "\" anew (" + row.name() + ")");
            return;
        }
    }

    /// The least and the greatest power input over the envelope, kW at 50 Hz, at all that is on offer.
    std::optional<std::pair<double, double>> load(const Row& row, const Points& points) const {
        std::optional<std::pair<double, double>> range;
        const clsInverter laws = inverterOf(row);
        for (const double field : fieldsOf(content_, index_, row)) {
            const auto* const power = surface(row, "fPolynomialPassID", 1, field);
            if (!power) continue;
            for (const clsPoint& point : pointsOfStep(row, points, field))
                for (const float frequency : frequenciesOf(row)) {
                    const double factor = row.integer("fhasInverter") != 0 ? laws.getKPta(frequency) : 1;
                    const double p = factor * power->surface.at(point.x, point.Y);
                    if (!range) range = {p, p};
                    range->first = std::min(range->first, p);
                    range->second = std::max(range->second, p);
                }
        }
        return range;
    }

    void checkCurrents(const Row& row, const Points& points) {
        const auto range = load(row, points);
        if (!range) return;
        if (row.integer("fhasInverter") != 0) {
            checkPowerFactor(row, *range);
            return;
        }
        checkMotor(row, "fMotorFullID", *range);
        if (row.integer("fhasFullSmallMotor") == 0) return;
        Points small = points;
        if (const auto* const line = lineOfType(index_.lines(row.key("fLimitID")), limitType::smallMotor))
            std::erase_if(small, [&](const clsPoint& point) {
                return polygonTest(line->points, point.x, point.Y) <= PolygonState::outside;
            });
        if (const auto smallRange = load(row, small)) checkMotor(row, "fMotorSmallID", *smallRange);
    }

    void checkMotor(const Row& row, const std::string& column, std::pair<double, double> range) const {
        const clsMotor* const motor = index_.motor(row.integer(column));
        if (!motor) return;
        constexpr int steps = 20;
        for (int i = 0; i <= steps; ++i) {
            const double p = range.first + (range.second - range.first) * i / steps;
            if (motor->current(p) > 0) continue;
            row.fault(column + ": the current of motor " + std::to_string(motor->ID) + " at " + rounded(p) +
                      " kW is " + rounded(motor->current(p)) +
                      " A; correct its coefficients in tMotors or choose another motor");
            return;
        }
    }

    static void checkPowerFactor(const Row& row, std::pair<double, double> range) {
        const clsInverter laws = inverterOf(row);
        for (const double p : {range.first, (range.first + range.second) / 2, range.second}) {
            const double factor = laws.powerFactor(p);
            if (factor > 0.05 && factor <= 1) continue;
            row.fault("fInverterCaC1 to C3: the power factor at " + rounded(p) + " kW is " + rounded(factor) +
                      "; it lies between 0.05 and 1");
            return;
        }
    }

    void checkEconomizer(const Row& row) {
        const double ratio = row.real("fKForo");
        const double loss = row.real("fKPerdita");
        const double section = row.real("fSez");
        if (ratio == 0 && loss == 0 && section == 0) return;  // no port
        if (ratio <= 1) {
            row.fault("fKForo: the pressure at the economizer port is " + storedText(ratio) +
                      " times the evaporating one; it must be above 1, or fKForo, fKPerdita and fSez 0");
            return;
        }
        if (loss < 0 || section <= 0) {
            row.fault("fSez: a loss of " + storedText(loss) + " through a section of " + storedText(section) +
                      " is none; both must be positive");
            return;
        }
        checkLoss(row, loss / section);
    }

    /// The loss of the injected gas, in bar, is fKPerdita / fSez times its flow in kg/h times the ratio of
    /// its density to that of the saturated gas at the port, which is near 1.
    void checkLoss(const Row& row, double lossPerFlow) {
        constexpr double most = 1;  // bar
        // What is left of the heat of evaporation at 0 degrees Celsius when liquid of some 35 degrees enters.
        constexpr double usualShare = 0.78;
        const std::string economized = row.key("fLimitEconomizedID");
        if (economized.empty()) return;
        const auto* const capacity = surface(row, "fPolynomialQ0ID", 0, 100);
        const auto heat = heats_.find(row.key("fRefrigerantID"));
        if (!capacity || heat == heats_.end() || heat->second <= 0) return;
        double greatest = 0;
        for (const clsPoint& point : applicationSamples(economized))
            greatest = std::max(greatest, capacity->surface.at(point.x, point.Y));
        const double flow = greatest * secondsPerHour / (usualShare * heat->second);
        if (lossPerFlow * flow > most)
            row.warn("fKPerdita: the pressure loss of an injected flow as great as the evaporator's, " +
                     rounded(flow) + " kg/h, is " + rounded(lossPerFlow * flow) +
                     " bar; above 1 bar the search for that flow may find none; check fKPerdita and fSez");
    }

    const Content& content_;
    const Index index_;
    Faults& faults_;
    std::map<std::string, Points> samples_;
    std::map<std::string, double> heats_;
    /// Rows shared by several models with the same envelope are checked once.
    std::set<std::tuple<const Record*, const Record*, std::string>> checked_;
};

}  // namespace

void checkPerformance(const Content& content, Faults& faults) { PerformanceCheck(content, faults).run(); }

}  // namespace marvello
