#include "tools/generate/Catalogue.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fstream>
#include <stdexcept>

#include "tools/generate/EnvelopeRows.h"
#include "tools/generate/Motor.h"
#include "tools/generate/Series.h"

namespace marvello::generate {
namespace {

constexpr std::array fullSteps{100, 75, 50, 25};

std::string text(double value) {
    std::array<char, 40> buffer{};
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr};
}

std::string oneDecimal(double value) {
    std::array<char, 40> buffer{};
    return {
        buffer.data(),
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, 1).ptr};
}

std::string text(bool value) { return value ? "True" : "False"; }

/// The compressor at every point of a grid over the over limit.
struct Grid {
    struct Node {
        Point point;
        Performance performance;
        bool isApplication;
    };
    std::vector<Node> nodes;

    Grid(const SeriesPlan& series, const ScrewMachine& machine, const Fluid& fluid) {
        constexpr double step = 2;
        const Region& over = series.envelope.over;
        for (double x = over.left(); x <= over.right(); x += step) {
            for (double y = over.lower().points().front().y; y <= over.upper().points().back().y; y += step) {
                if (!over.contains(x, y)) continue;
                nodes.push_back(
                    {{x, y}, fullLoad(machine, fluid, x, y), series.envelope.application.contains(x, y)});
            }
        }
    }

    template <class Of>
    std::vector<Sample> samples(Of of, bool applicationOnly = false) const {
        std::vector<Sample> found;
        for (const Node& node : nodes) {
            if (node.isApplication || !applicationOnly) {
                found.push_back({node.point.x, node.point.y, of(node.performance)});
            }
        }
        return found;
    }

    /// The greatest power at a point of the application limit that `wanted` accepts.
    template <class Wanted>
    double greatestPower(Wanted wanted) const {
        double greatest = 0;
        for (const Node& node : nodes) {
            if (node.isApplication && wanted(node.point))
                greatest = std::max(greatest, node.performance.power);
        }
        return greatest;
    }
};

/// Builds the rows of all tables, model by model.
class Builder {
  public:
    GeneratedCatalogue build() {
        for (const SeriesPlan& series : allSeries()) {
            const Fluid fluid(series.fluidFile);
            EnvelopeRows envelopes(series, fluid);
            int sequence = 0;
            for (const ModelPlan& model : series.models) {
                sequence += 10;
                addModel(series, model, fluid, envelopes, sequence);
            }
            envelopes.write(made_.limits.rows);
        }
        return std::move(made_);
    }

  private:
    void addModel(const SeriesPlan& series, const ModelPlan& model, const Fluid& fluid,
                  EnvelopeRows& envelopes, int sequence) {
        const ScrewMachine machine = machineOf(series, model);
        const Grid grid(series, machine, fluid);
        const std::string polynomial = series.serie + "-" + series.refrigerant + "-" + model.code;
        addSurfaces(series, grid, polynomial);

        const Start start = model.displacement > 230 ? Start::starDelta : Start::partWinding;
        const double nominal = fullLoad(machine, fluid, 10, 50).power;
        const bool hasPair = series.hasSmallMotors && model.smallMotor != ModelPlan::SmallMotor::none;
        const BrokenLine& smallLimit = series.envelope.smallMotor;
        const double fullPower = grid.greatestPower([](const Point&) { return true; });
        const double smallPower =
            grid.greatestPower([&](const Point& point) { return point.y <= smallLimit.at(point.x); });
        const RatedMotor full = addMotor(fullPower, nominal, start);
        const RatedMotor small = hasPair ? addMotor(smallPower, 0.8 * nominal, start) : full;

        const EnvelopeKind plain{hasPair, model.needsOilFilterEarly, model.narrow, false};
        EnvelopeKind economized = plain;
        economized.economized = series.hasEconomizer;
        // The port: its section grows with the machine; a drop of some tenths of a bar at the usual flow.
        const double port = series.hasEconomizer ? 2.5 * model.displacement : 0;
        const std::string sequenceText =
            sequence < 100 ? "0" + std::to_string(sequence) : std::to_string(sequence);
        std::vector<std::string> row{
            series.refrigerant, series.serie,      model.code, sequenceText, oneDecimal(series.builtInRatio),
            text(full.limit),   text(small.limit), polynomial, polynomial,   polynomial,
            text(false)};
        row.insert(row.end(), 9, "0");  // no inverter laws
        const std::vector<std::string> rest{
            text(hasPair),
            text(hasPair && model.smallMotor == ModelPlan::SmallMotor::standard),
            std::to_string(static_cast<int>(start)),
            "0",
            text(series.hasEconomizer ? 1.6 : 0.0),
            text(series.hasEconomizer ? 0.25 : 0.0),
            text(port),
            text(series.oilCoolingLimit),
            text(series.oilCoolingLimit),
            "0",
            std::to_string(full.id),
            std::to_string(small.id),
            envelopes.idOf(plain),
            envelopes.idOf(economized),
            "0"};
        row.insert(row.end(), rest.begin(), rest.end());
        made_.compressors.rows.push_back(std::move(row));
    }

    void addSurfaces(const SeriesPlan& series, const Grid& grid, const std::string& polynomial) {
        const auto add = [&](const std::string& quantity, int type, double field, int step, SurfaceForm form,
                             auto of) {
            const std::vector<Sample> over = grid.samples(of);
            const Coefficients coefficients = fit(form, over);
            std::vector<std::string> row{polynomial, std::to_string(type), text(field)};
            for (const double coefficient : coefficients) row.push_back(text(coefficient));
            made_.polynomials.rows.push_back(std::move(row));
            made_.fits.push_back({polynomial, quantity, step,
                                  errorOf(form, coefficients, grid.samples(of, true)),
                                  errorOf(form, coefficients, over)});
        };
        for (const int step : fullSteps) {
            if (step != 100 && !series.hasSteps) continue;
            const auto at = [step](const Performance& full) {
                return step == 100 ? full : partLoad(full, step / 100.0);
            };
            add("capacity", 0, step, step, SurfaceForm::cubic,
                [&](const Performance& p) { return at(p).capacity; });
            add("power", 1, step, step, SurfaceForm::cubic,
                [&](const Performance& p) { return at(p).power; });
        }
        add("discharge", 3, referenceSuperheat, 100, SurfaceForm::biquadratic,
            [](const Performance& p) { return p.dischargeTemperature; });
    }

    struct RatedMotor {
        int id;
        double limit;  ///< A, a little above the worst current of the envelope
    };
    RatedMotor addMotor(double worst, double nominal, Start start) {
        constexpr double margin = 1.03;
        const Motor motor = motorFor(worst, nominal, start);
        const int id = static_cast<int>(made_.motors.rows.size()) + 1;
        std::vector<std::string> row{std::to_string(id), "50"};
        for (const double coefficient : motor.current) row.push_back(text(coefficient));
        row.insert(row.end(),
                   {text(motor.lockedRotorFirst), text(motor.lockedRotorSecond), "3", motor.nominalPower});
        made_.motors.rows.push_back(std::move(row));
        return {id, std::ceil(margin * motor.currentAt(worst))};
    }

    GeneratedCatalogue made_{.compressors = {"tCompressors",
                                             {"fRefrigerantID",
                                              "fSerieID",
                                              "fModelID",
                                              "fSequence",
                                              "fVI",
                                              "fFla",
                                              "fFla2",
                                              "fPolynomialQ0ID",
                                              "fPolynomialPassID",
                                              "fPolynomialShID",
                                              "fhasInverter",
                                              "fInverterQ0C1",
                                              "fInverterQ0C2",
                                              "fInverterQ0C3",
                                              "fInverterPtaC1",
                                              "fInverterPtaC2",
                                              "fInverterPtaC3",
                                              "fInverterCaC1",
                                              "fInverterCaC2",
                                              "fInverterCaC3",
                                              "fhasFullSmallMotor",
                                              "fisSmallMotorStandard",
                                              "fStartMode",
                                              "fCtsca",
                                              "fKForo",
                                              "fKPerdita",
                                              "fSez",
                                              "fOilCoolingLimit",
                                              "fOilCoolingLimitEco",
                                              "fValue1",
                                              "fMotorFullID",
                                              "fMotorSmallID",
                                              "fLimitID",
                                              "fLimitEconomizedID",
                                              "fMarket"},
                                             {}},
                             .polynomials = {"tPolynomials",
                                             {"fPolynomialID", "fType", "fField", "fC1", "fC2", "fC3", "fC4",
                                              "fC5", "fC6", "fC7", "fC8", "fC9", "fC10"},
                                             {}},
                             .motors = {"tMotors",
                                        {"fMotorID", "fhz", "fC1", "fC2", "fC3", "fC4", "fC5", "fLra1",
                                         "fLra2", "fPhase", "FNominalPower"},
                                        {}},
                             .limits = {"tLimits", {"fLimitID", "fType", "fPoints"}, {}},
                             .fits = {}};
};

/// A field of RFC 4180: in quotes where it holds a separator.
std::string csvField(const std::string& value) {
    return value.find_first_of(",\"\n") == std::string::npos ? value : '"' + value + '"';
}

void writeTable(const CsvTable& table, const std::filesystem::path& folder) {
    const std::filesystem::path path = folder / (table.name + ".csv");
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    const auto writeRow = [&file](const std::vector<std::string>& fields) {
        const char* separator = "";
        for (const std::string& field : fields) {
            file << separator << csvField(field);
            separator = ",";
        }
        file << '\n';
    };
    writeRow(table.columns);
    for (const auto& row : table.rows) writeRow(row);
    file.close();
    if (!file) throw std::runtime_error(path.string() + " cannot be written.");
}

}  // namespace

GeneratedCatalogue generateCatalogue() { return Builder().build(); }

void writeTables(const GeneratedCatalogue& catalogue, const std::filesystem::path& folder) {
    for (const CsvTable* table :
         {&catalogue.compressors, &catalogue.polynomials, &catalogue.motors, &catalogue.limits}) {
        writeTable(*table, folder);
    }
}

}  // namespace marvello::generate
