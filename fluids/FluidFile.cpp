#include "fluids/FluidFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <iterator>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "fluids/PropertyError.h"

namespace marvello::fluids {
namespace {

using nlohmann::json;

constexpr std::uintmax_t largestFile = 1'000'000;  // bytes; the largest equation takes less than a hundredth
constexpr std::size_t mostTerms = 200;
constexpr double highestExponent = 200;

/// One value of the file with the way to it, so that a complaint can name the field.
class Field {
  public:
    Field(const json& value, std::string file, std::string name)
        : value_(&value), file_(std::move(file)), name_(std::move(name)) {}

    [[noreturn]] void refuse(const std::string& reason) const {
        throw PropertyError(Fault::fluidFile,
                            file_ + ": " + (name_.empty() ? "" : "field " + name_ + " ") + reason + ".");
    }

    bool has(const std::string& key) const { return value_->is_object() && value_->contains(key); }

    Field at(const std::string& key) const {
        if (!value_->is_object()) refuse("is not an object");
        const auto found = value_->find(key);
        if (found == value_->end())
            refuse(name_.empty() ? "the field " + key + " is missing" : "has no " + key);
        return {*found, file_, name_.empty() ? key : name_ + "." + key};
    }

    double number() const {
        if (!value_->is_number()) refuse("is not a number");
        const double found = value_->get<double>();
        if (!std::isfinite(found)) refuse("is not finite");
        return found;
    }

    double number(double least, double most) const {
        const double found = number();
        if (!(found >= least && found <= most)) {
            refuse("is " + value_->dump() + ", not within " + json(least).dump() + " to " +
                   json(most).dump());
        }
        return found;
    }

    double positive() const {
        const double found = number();
        if (!(found > 0 && found < 1e9)) refuse("is " + value_->dump() + ", not positive");
        return found;
    }

    std::string text() const {
        if (!value_->is_string()) refuse("is not a text");
        return value_->get<std::string>();
    }

    template <class Read>
    auto list(Read read) const {
        if (!value_->is_array()) refuse("is not a list");
        if (value_->size() > mostTerms) refuse("has more than " + std::to_string(mostTerms) + " entries");
        std::vector<decltype(read(*this))> found;
        found.reserve(value_->size());
        for (std::size_t i = 0; i < value_->size(); ++i) {
            found.push_back(read(Field((*value_)[i], file_, name_ + "[" + std::to_string(i) + "]")));
        }
        return found;
    }

  private:
    const json* value_;
    std::string file_;
    std::string name_;
};

double exponent(const Field& field) { return field.number(-highestExponent, highestExponent); }

void readExponential(const Field& field, ResidualTerm& term) {
    term.kind = TermKind::exponential;
    term.l = field.at("l").number(1, 20);
}

void readGaussian(const Field& field, ResidualTerm& term) {
    term.kind = TermKind::gaussian;
    term.eta = field.at("eta").number(0, 1e5);
    term.epsilon = field.at("epsilon").number(-100, 100);
    term.beta = field.at("beta").number(0, 1e5);
    term.gamma = field.at("gamma").number(-100, 100);
}

void readDoubleExponential(const Field& field, ResidualTerm& term) {
    term.kind = TermKind::doubleExponential;
    term.l = field.at("l").number(1, 20);
    term.m = field.at("m").number(0.1, 20);
}

void readAssociating(const Field& field, ResidualTerm& term) {
    term.kind = TermKind::associating;
    term.eta = field.at("eta").number(-1e5, 0);
    term.epsilon = field.at("epsilon").number(-100, 100);
    term.beta = field.at("beta").number(0, 1e5);
    term.gamma = field.at("gamma").number(-100, 100);
    term.b = field.at("b").number(0.02, 1e5);
}

/// The bounds of a, b and beta keep the first derivatives finite everywhere, and the second but at the
/// critical point.
void readNonanalytic(const Field& field, ResidualTerm& term) {
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
    void (*read)(const Field&, ResidualTerm&);
};
constexpr std::array<KnownKind, 6> knownKinds{{
    {"power", [](const Field&, ResidualTerm&) {}},
    {"exp", readExponential},
    {"gauss", readGaussian},
    {"double_exp", readDoubleExponential},
    {"gao_b", readAssociating},
    {"nonanalytic", readNonanalytic},
}};

ResidualTerm readTerm(const Field& field) {
    ResidualTerm term;
    const Field kind = field.at("kind");
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

IdealPart readIdeal(const Field& field) {
    return {field.at("constant").number(), field.at("linear").number(), field.at("logarithm").number(),
            field.at("powers").list([](const Field& entry) {
                return IdealPower{entry.at("n").number(), exponent(entry.at("t"))};
            }),
            field.at("einstein").list([](const Field& entry) {
                return EinsteinTerm{entry.at("n").number(), entry.at("theta").number(1e-6, 1e3)};
            })};
}

void readLimits(const Field& limits, PureFluid& fluid) {
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

PureFluid readFluid(const Field& root) {
    if (root.at("format").text() != "marvello-fluid") root.at("format").refuse("is not \"marvello-fluid\"");
    if (root.at("version").number() != 1) root.at("version").refuse("is not 1, the only version known");

    PureFluid fluid;
    fluid.name = root.at("name").text();
    fluid.molarMass = root.at("molar_mass").positive();
    fluid.gasConstant = root.at("gas_constant").number(8.31, 8.32);
    fluid.acentricFactor = root.at("acentric_factor").number(-1, 2);
    const Field critical = root.at("critical");
    fluid.critical = {critical.at("temperature").positive(), critical.at("pressure").positive(),
                      critical.at("density").positive()};
    const Field reducing = root.at("reducing");
    fluid.reducing = {reducing.at("temperature").positive(), 0, reducing.at("density").positive()};
    readLimits(root.at("limits"), fluid);
    const Field reference = root.at("reference_state");
    fluid.referenceState = reference.text();
    if (fluid.referenceState != "IIR" && fluid.referenceState != "NBP" && fluid.referenceState != "ASH") {
        reference.refuse("is not one of IIR, NBP and ASH");
    }
    fluid.ideal = readIdeal(root.at("ideal"));
    fluid.residual = root.at("residual").list(readTerm);
    if (fluid.residual.empty()) root.at("residual").refuse("is empty");
    return fluid;
}

std::string readWhole(const std::filesystem::path& path) {
    const auto refuse = [&path](const std::string& reason) {
        throw PropertyError(Fault::fluidFile, path.string() + ": " + reason + ".");
    };
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) refuse("there is no such file");
    if (std::filesystem::file_size(path, error) > largestFile || error)
        refuse("the file is too large for a fluid file");
    std::ifstream file(path, std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (!file) refuse("the file cannot be read");
    return text;
}

}  // namespace

PureFluid readFluidFile(const std::filesystem::path& path) {
    const std::string text = readWhole(path);
    json root;
    try {
        root = json::parse(text);
    } catch (const json::parse_error& error) {
        const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(error.byte, text.size()));
        throw PropertyError(Fault::fluidFile, path.string() + ": line " +
                                                  std::to_string(std::count(text.begin(), end, '\n') + 1) +
                                                  " is ill-formed; the text of a fluid file is JSON.");
    } catch (const json::exception&) {
        throw PropertyError(Fault::fluidFile, path.string() + ": a number of the file is too large.");
    }
    return readFluid(Field(root, path.string(), ""));
}

}  // namespace marvello::fluids
