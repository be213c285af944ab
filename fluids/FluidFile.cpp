#include "fluids/FluidFile.h"

#include <algorithm>
#include <array>
#include <string>

#include "fluids/JsonField.h"

namespace marvello::fluids {
namespace {

constexpr const char* fluidFormat = "marvello-fluid";
constexpr double highestExponent = 200;

double exponent(const JsonField& field) { return field.number(-highestExponent, highestExponent); }

void readExponential(const JsonField& field, ResidualTerm& term) {
    term.kind = TermKind::exponential;
    term.l = field.at("l").number(1, 20);
}

void readGaussian(const JsonField& field, ResidualTerm& term) {
    term.kind = TermKind::gaussian;
    term.eta = field.at("eta").number(0, 1e5);
    term.epsilon = field.at("epsilon").number(-100, 100);
    term.beta = field.at("beta").number(0, 1e5);
    term.gamma = field.at("gamma").number(-100, 100);
}

void readDoubleExponential(const JsonField& field, ResidualTerm& term) {
    term.kind = TermKind::doubleExponential;
    term.l = field.at("l").number(1, 20);
    term.m = field.at("m").number(0.1, 20);
}

void readAssociating(const JsonField& field, ResidualTerm& term) {
    term.kind = TermKind::associating;
    term.eta = field.at("eta").number(-1e5, 0);
    term.epsilon = field.at("epsilon").number(-100, 100);
    term.beta = field.at("beta").number(0, 1e5);
    term.gamma = field.at("gamma").number(-100, 100);
    term.b = field.at("b").number(0.02, 1e5);
}

/// The bounds of a, b and beta keep the first derivatives finite everywhere, and the second but at the
/// critical point.
void readNonanalytic(const JsonField& field, ResidualTerm& term) {
    term.kind = TermKind::nonanalytic;
    term.a = field.at("a").number(1, 20);
    term.b = field.at("b").number(0.5, 20);
    term.beta = field.at("beta").number(0.025, 0.5);
    term.A = field.at("A").number(0, 100);
    term.B = field.at("B").number(0, 100);
    term.C = field.at("C").number(0, 1e5);
    term.D = field.at("D").number(0, 1e5);
}

struct KnownKind {
    const char* name;
    void (*read)(const JsonField&, ResidualTerm&);
};
constexpr std::array<KnownKind, 6> knownKinds{{
    {"power", [](const JsonField&, ResidualTerm&) {}},
    {"exp", readExponential},
    {"gauss", readGaussian},
    {"double_exp", readDoubleExponential},
    {"gao_b", readAssociating},
    {"nonanalytic", readNonanalytic},
}};

IdealPart readIdeal(const JsonField& field) {
    return {field.at("constant").number(), field.at("linear").number(), field.at("logarithm").number(),
            field.at("powers").list([](const JsonField& entry) {
                return IdealPower{entry.at("n").number(), exponent(entry.at("t"))};
            }),
            field.at("einstein").list([](const JsonField& entry) {
                return EinsteinTerm{entry.at("n").number(), entry.at("theta").number(1e-6, 1e3)};
            })};
}

void readLimits(const JsonField& limits, PureFluid& fluid) {
    fluid.temperatureMin = limits.at("temperature_min").positive();
    fluid.temperatureMax = limits.at("temperature_max").positive();
    fluid.temperatureExtrapolated = limits.has("temperature_extrapolated")
                                        ? limits.at("temperature_extrapolated").positive()
                                        : fluid.temperatureMax;
    fluid.pressureMax = limits.at("pressure_max").positive();
    if (!(fluid.temperatureMin < 0.9 * fluid.critical.temperature)) {
        limits.refuse("begins too near the critical temperature");
    }
    if (!(fluid.temperatureMax > fluid.critical.temperature))
        limits.refuse("ends below the critical temperature");
    if (!(fluid.temperatureExtrapolated >= fluid.temperatureMax)) {
        limits.refuse("has a temperature_extrapolated below its temperature_max");
    }
    if (!(fluid.pressureMax > fluid.critical.pressure)) limits.refuse("ends below the critical pressure");
}

PureFluid readFluid(const JsonField& root) {
    PureFluid fluid;
    fluid.name = root.at("name").text();
    fluid.molarMass = root.at("molar_mass").positive();
    fluid.gasConstant = root.at("gas_constant").number(8.31, 8.32);
    fluid.acentricFactor = root.at("acentric_factor").number(-1, 2);
    const JsonField critical = root.at("critical");
    fluid.critical = {critical.at("temperature").positive(), critical.at("pressure").positive(),
                      critical.at("density").positive()};
    const JsonField reducing = root.at("reducing");
    fluid.reducing = {reducing.at("temperature").positive(), 0, reducing.at("density").positive()};
    readLimits(root.at("limits"), fluid);
    const JsonField reference = root.at("reference_state");
    fluid.referenceState = reference.text();
    if (fluid.referenceState != "IIR" && fluid.referenceState != "NBP" && fluid.referenceState != "ASH") {
        reference.refuse("is not one of IIR, NBP and ASH");
    }
    fluid.ideal = readIdeal(root.at("ideal"));
    fluid.residual = root.at("residual").list(readResidualTerm);
    if (fluid.residual.empty()) root.at("residual").refuse("is empty");
    return fluid;
}

}  // namespace

ResidualTerm readResidualTerm(const JsonField& field) {
    ResidualTerm term;
    const JsonField kind = field.at("kind");
    const std::string name = kind.text();
    const auto* const known = std::find_if(knownKinds.begin(), knownKinds.end(),
                                           [&](const KnownKind& entry) { return entry.name == name; });
    if (known == knownKinds.end()) {
        std::string names;
        for (const KnownKind& entry : knownKinds)
            names += (names.empty() ? "" : ", ") + std::string(entry.name);
        kind.refuse("is \"" + name + "\"; the kinds known are " + names);
    }
    term.n = field.at("n").number();
    known->read(field, term);
    if (term.kind != TermKind::nonanalytic) {
        term.d = exponent(field.at("d"));
        term.t = exponent(field.at("t"));
    }
    return term;
}

PureFluid readFluidFile(const FluidText& file) { return readFluid(JsonFile(file, fluidFormat).root()); }

}  // namespace marvello::fluids
