#include "fluids/Equilibrium.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace marvello::fluids {
namespace {

// The order of the unknowns: ln K_0 ... ln K_(n-1), ln rho_1, ln rho_2, ln T, share.
struct Places {
    explicit Places(std::size_t count)
        : firstDensity(count),
          secondDensity(count + 1),
          temperature(count + 2),
          share(count + 3),
          end(count + 4) {}
    std::size_t firstDensity;
    std::size_t secondDensity;
    std::size_t temperature;
    std::size_t share;
    std::size_t end;
};

/// Two phases that differ by less than this in ln of density and of all fractions are one.
constexpr double alike = 1e-7;

}  // namespace

void TwoPhases::compositions(std::span<const double> z, PerComponent& first, PerComponent& second) const {
    for (std::size_t i = 0; i < z.size(); ++i) {
        const double k = std::exp(logK[i]);
        first[i] = z[i] / (1 + share * (k - 1));
        second[i] = k * first[i];
    }
}

Equilibrium::Equilibrium(const Mixture& mixture, std::span<const double> z)
    : mixture_(&mixture), fugacity_(mixture) {
    std::copy(z.begin(), z.end(), z_.begin());
}

void Equilibrium::evaluate(const TwoPhases& state, bool withHeat) {
    const std::size_t count = mixture_->size();
    state.compositions(fractions(), fractions_[0], fractions_[1]);
    for (std::size_t phase = 0; phase < 2; ++phase) {
        const double density = phase == 0 ? state.firstDensity : state.secondDensity;
        for (std::size_t i = 0; i < count; ++i) amounts_[phase][i] = density * fractions_[phase][i];
        fugacity_.evaluate(state.temperature, {amounts_[phase].data(), count}, withHeat, phases_[phase]);
    }
}

/// Turns derivatives by the amounts rho_j of either phase into those by the unknowns. With the balance, ln
/// K_j changes x_j by -x_j (share y_j/z_j) and y_j by y_j ((1 - share) x_j/z_j), and the share changes both
/// by
/// -(y_j - x_j)/z_j of themselves.
template <class First, class Second>
void Equilibrium::chain(const TwoPhases& state, First byFirst, Second bySecond, Row& row) const {
    const std::size_t count = mixture_->size();
    const Places at(count);
    row[at.firstDensity] = row[at.secondDensity] = row[at.share] = 0;
    for (std::size_t j = 0; j < count; ++j) {
        const double x = fractions_[0][j];
        const double y = fractions_[1][j];
        const double inFirst = byFirst(j) * state.firstDensity * x;
        const double inSecond = bySecond(j) * state.secondDensity * y;
        row[j] = (inSecond * (1 - state.share) * x - inFirst * state.share * y) / z_[j];
        row[at.firstDensity] += inFirst;
        row[at.secondDensity] += inSecond;
        row[at.share] -= (inFirst + inSecond) * (y - x) / z_[j];
    }
}

void Equilibrium::setEquations(const TwoPhases& state, const Conditions& conditions) {
    const std::size_t count = mixture_->size();
    const Places at(count);
    const FugacityState& one = phases_[0];
    const FugacityState& two = phases_[1];
    for (std::size_t i = 0; i < count; ++i) {
        Row& row = rows_[i];
        chain(
            state, [&](std::size_t j) { return one.potentialByAmount[i][j]; },
            [&](std::size_t j) { return -two.potentialByAmount[i][j]; }, row);
        row[at.temperature] = one.potentialByHeat[i] - two.potentialByHeat[i];
        row[at.end] = two.potential[i] - one.potential[i];
    }
    Row& pressures = rows_[count];
    chain(
        state, [&](std::size_t j) { return one.pressureByAmount[j]; },
        [&](std::size_t j) { return -two.pressureByAmount[j]; }, pressures);
    pressures[at.temperature] = one.pressureByHeat - two.pressureByHeat;
    pressures[at.end] = two.pressure - one.pressure;

    Row& closure = rows_[count + 1];
    closure.fill(0);
    for (std::size_t i = 0; i < count; ++i) {
        const double x = fractions_[0][i];
        const double y = fractions_[1][i];
        closure[i] = x * y / z_[i];
        closure[at.share] -= (y - x) * (y - x) / z_[i];
        closure[at.end] -= y - x;
    }
    for (std::size_t c = 0; c < 2; ++c) setCondition(state, conditions[c], rows_[count + 2 + c]);
}

void Equilibrium::setCondition(const TwoPhases& state, const Condition& condition, Row& row) const {
    const Places at(mixture_->size());
    row.fill(0);
    switch (condition.of) {
        case Condition::Of::temperature:
            row[at.temperature] = 1;
            row[at.end] = std::log(condition.value / state.temperature);
            break;
        case Condition::Of::share:
            row[at.share] = 1;
            row[at.end] = condition.value - state.share;
            break;
        case Condition::Of::densityRatio:
            row[at.secondDensity] = 1;
            row[at.firstDensity] = -1;
            row[at.end] = condition.value - std::log(state.secondDensity / state.firstDensity);
            break;
        case Condition::Of::pressure: {
            // Of the thinner phase: in a cold liquid it is all rounding.
            const bool first = state.firstDensity < state.secondDensity;
            const FugacityState& phase = phases_[first ? 0 : 1];
            const auto own = [&](std::size_t j) { return phase.pressureByAmount[j] / phase.pressure; };
            const auto none = [](std::size_t) { return 0.0; };
            if (first) {
                chain(state, own, none, row);
            } else {
                chain(state, none, own, row);
            }
            row[at.temperature] = 1 + phase.pressureByHeat / phase.pressure;
            row[at.end] =
                -std::log(phase.pressure * mixture_->gasConstant() * state.temperature / condition.value);
            break;
        }
        case Condition::Of::enthalpy:
        case Condition::Of::entropy:
            setHeat(state, condition, row);
    }
}

/// The sum over both phases of share times (rho h)/rho, or of s.
void Equilibrium::setHeat(const TwoPhases& state, const Condition& condition, Row& row) const {
    const Places at(mixture_->size());
    const bool ofEnthalpy = condition.of == Condition::Of::enthalpy;
    const auto value = [&](std::size_t p) { return ofEnthalpy ? phases_[p].enthalpy : phases_[p].entropy; };
    const auto byAmount = [&](std::size_t p) {
        return [&, p, share = p == 0 ? 1 - state.share : state.share](std::size_t j) {
            const PerComponent& of = ofEnthalpy ? phases_[p].enthalpyByAmount : phases_[p].entropyByAmount;
            return share * (of[j] - value(p)) / phases_[p].density;
        };
    };
    const auto byHeat = [&](std::size_t p) {
        return (ofEnthalpy ? phases_[p].enthalpyByHeat : phases_[p].entropyByHeat) / phases_[p].density;
    };
    chain(state, byAmount(0), byAmount(1), row);
    row[at.share] += value(1) - value(0);
    row[at.temperature] = (1 - state.share) * byHeat(0) + state.share * byHeat(1);
    const double unit = mixture_->gasConstant() * (ofEnthalpy ? state.temperature : 1);
    row[at.end] = condition.value / unit - (1 - state.share) * value(0) - state.share * value(1);
}

/// Gauss's elimination with the largest pivot of each column; leaves the solution in the last column.
bool Equilibrium::eliminate() {
    const std::size_t size = mixture_->size() + 4;
    for (std::size_t row = 0; row < size; ++row) {
        double largest = 0;
        for (std::size_t column = 0; column < size; ++column)
            largest = std::max(largest, std::abs(rows_[row][column]));
        if (!(largest > 0 && largest < 1e300)) return false;
        for (std::size_t column = 0; column <= size; ++column) rows_[row][column] /= largest;
    }
    for (std::size_t column = 0; column < size; ++column) {
        std::size_t pivot = column;
        for (std::size_t row = column + 1; row < size; ++row) {
            if (std::abs(rows_[row][column]) > std::abs(rows_[pivot][column])) pivot = row;
        }
        if (!(std::abs(rows_[pivot][column]) > 1e-300)) return false;
        if (pivot != column) std::swap(rows_[pivot], rows_[column]);
        const Row& from = rows_[column];
        for (std::size_t row = column + 1; row < size; ++row) {
            const double factor = rows_[row][column] / from[column];
            if (factor == 0) continue;
            for (std::size_t k = column + 1; k <= size; ++k) rows_[row][k] -= factor * from[k];
        }
    }
    for (std::size_t row = size; row-- > 0;) {
        double sum = rows_[row][size];
        for (std::size_t k = row + 1; k < size; ++k) sum -= rows_[row][k] * rows_[k][size];
        rows_[row][size] = sum / rows_[row][row];
    }
    return true;
}

/// Of the thinner phase, carried along from the last evaluation over the last step to `state`.
double Equilibrium::pressureOf(const TwoPhases& state, double logTemperatureStep) const {
    const std::size_t vapour = state.firstDensity < state.secondDensity ? 0 : 1;
    const double density = vapour == 0 ? state.firstDensity : state.secondDensity;
    const FugacityState& phase = phases_[vapour];
    std::array<PerComponent, 2> now{};
    state.compositions(fractions(), now[0], now[1]);
    double reduced = phase.pressure + phase.pressureByHeat * logTemperatureStep;
    for (std::size_t j = 0; j < mixture_->size(); ++j)
        reduced += phase.pressureByAmount[j] * (density * now[vapour][j] - amounts_[vapour][j]);
    return reduced * mixture_->gasConstant() * state.temperature;
}

/// Enthalpy or entropy a whole step beyond the state evaluated last.
double Equilibrium::heatAfterStep(const TwoPhases& state, Condition::Of of) const {
    const Places at(mixture_->size());
    Row row;
    setHeat(state, {of, 0}, row);
    double reduced = -row[at.end];
    for (std::size_t k = 0; k < at.end; ++k) reduced += row[k] * rows_[k][at.end];
    return reduced * mixture_->gasConstant() * (of == Condition::Of::enthalpy ? state.temperature : 1);
}

std::optional<TwoPhases> Equilibrium::solve(const TwoPhases& guess, const Conditions& conditions) {
    constexpr int steps = 40;
    constexpr double largestStep = 0.5;  // of a logarithm
    const std::size_t count = mixture_->size();
    const Places at(count);
    const bool withHeat = std::any_of(conditions.begin(), conditions.end(), [](const Condition& condition) {
        return condition.of == Condition::Of::enthalpy || condition.of == Condition::Of::entropy;
    });
    TwoPhases state = guess;
    double lastStep = 1;
    for (int i = 0; i < steps; ++i) {
        evaluate(state, withHeat);
        setEquations(state, conditions);
        if (!eliminate()) return std::nullopt;
        const auto step = [&](std::size_t place) { return rows_[place][at.end]; };
        // The share counts as much as the phases differ; next to the critical point it is all rounding.
        const double gap = std::min(1.0, std::abs(std::log(state.secondDensity / state.firstDensity)));
        double size = gap * std::abs(step(at.share));
        for (std::size_t k = 0; k < at.share; ++k) size = std::max(size, std::abs(step(k)));
        if (!(size < 1e6)) return std::nullopt;
        const double damping =
            std::min(1.0, largestStep / std::max({size, 10 * std::abs(step(at.temperature))}));
        // The second case is rounding, which grows towards the critical point.
        const bool isSolved = size < 1e-8 || (i > 3 && size < 1e-5 && size > lastStep);
        if (isSolved && withHeat)
            heat_ = {heatAfterStep(state, Condition::Of::enthalpy),
                     heatAfterStep(state, Condition::Of::entropy)};
        for (std::size_t k = 0; k < count; ++k) state.logK[k] += damping * step(k);
        state.firstDensity *= std::exp(damping * step(at.firstDensity));
        state.secondDensity *= std::exp(damping * step(at.secondDensity));
        state.temperature *= std::exp(damping * step(at.temperature));
        state.share += damping * step(at.share);
        if (isSolved) {
            double difference = std::abs(std::log(state.secondDensity / state.firstDensity));
            for (std::size_t k = 0; k < count; ++k)
                difference = std::max(difference, std::abs(state.logK[k]));
            if (difference < alike) return std::nullopt;
            state.pressure = pressureOf(state, damping * step(at.temperature));
            return state;
        }
        lastStep = size;
    }
    return std::nullopt;
}

/// A phase is stable where the matrix d potential_i / d rho_j is positive definite: where Cholesky's
/// factorization of it exists.
bool Equilibrium::isStable() const {
    const std::size_t count = mixture_->size();
    for (std::size_t phase = 0; phase < 2; ++phase) {
        PerPair lower;
        for (std::size_t i = 0; i < count; ++i) {
            for (std::size_t j = 0; j <= i; ++j) {
                // Scaled by the amounts, so that ideal gas gives the unit matrix.
                double rest = phases_[phase].potentialByAmount[i][j] *
                              std::sqrt(amounts_[phase][i] * amounts_[phase][j]);
                for (std::size_t k = 0; k < j; ++k) rest -= lower[i][k] * lower[j][k];
                if (i == j && !(rest > 0)) return false;
                lower[i][j] = i == j ? std::sqrt(rest) : rest / lower[j][j];
            }
        }
    }
    return true;
}

Equilibrium::EnthalpyEntropy Equilibrium::enthalpyEntropy(const TwoPhases& state) {
    evaluate(state, true);
    const double gas = mixture_->gasConstant();
    const auto mixed = [&](double first, double second) { return first + state.share * (second - first); };
    return {gas * state.temperature * mixed(phases_[0].enthalpy, phases_[1].enthalpy),
            gas * mixed(phases_[0].entropy, phases_[1].entropy)};
}

}  // namespace marvello::fluids
