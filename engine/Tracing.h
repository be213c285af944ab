#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "catalogue/clsCompressor.h"
#include "engine/Trace.h"
#include "engine/TracedNumber.h"
#include "thermo/States.h"

namespace marvello {

/// How a calculation goes that nobody watches: with plain numbers, and at no cost. The classes of the
/// calculation are written once, for this and for Tracer.
struct Untraced {
    using Number = double;
    using Variables = clsVariables&;
    using States = marvello::States;

    static Variables variables(clsVariables& variables) { return variables; }
    static States states(clsRefprop& refprop) { return States(refprop); }
    /// A value of the compressor or a constant, by the name that a trace has for it.
    static double named(std::string_view, double value) { return value; }
    /// A test of something that is no number.
    static bool test(std::string_view, bool outcome) { return outcome; }
    static bool inside(int, bool outcome) { return outcome; }
    static bool hasLimit(int, bool outcome) { return outcome; }
    template <class Surface>
    static double surface(std::string_view, const Surface& surface, double x, double y) {
        return surface.at(x, y);
    }
    static double motorCurrent(const clsMotor& motor, double power) { return motor.current(power); }
    static double powerFactor(const clsInverter& inverter, double power) {
        return inverter.powerFactor(power);
    }
    template <class Rule>
    static void rule(int, const ClsSelectionMessages&, const Rule& rule) {
        rule();
    }
};

/// The variables of a calculation that is traced.
class TracedVariables {
  public:
    TracedVariables(clsVariables& variables, Trace& trace) : variables_(variables), trace_(trace) {}

    bool isSet(var variable) const { return variables_.isSet(variable); }
    TracedNumber operator[](var variable) const {
        const double value = variables_[variable];
        return {value, Formula::name(definitionOf(variable).name, value), &trace_};
    }
    void set(var variable, const TracedNumber& number) {
        variables_.set(variable, number.value());
        trace_.write(variable, number.formula());
    }
    void set(var variable, const char* text) {
        variables_.set(variable, text);
        trace_.write(variable, text);
    }

  private:
    clsVariables& variables_;
    Trace& trace_;
};

/// The states of a refrigerant in a calculation that is traced. See States.
class TracedStates {
  public:
    explicit TracedStates(clsRefprop& refprop) : states_(refprop) {}

    using Number = TracedNumber;
    Number dewPressure(const Number& t) const { return of("pdew", &States::dewPressure, t); }
    Number bubblePressure(const Number& t) const { return of("pbub", &States::bubblePressure, t); }
    Number dewTemperature(const Number& p) const { return of("tdew", &States::dewTemperature, p); }
    Number bubbleTemperature(const Number& p) const { return of("tbub", &States::bubbleTemperature, p); }
    Number dewDensity(const Number& p) const { return of("rhodew", &States::dewDensity, p); }
    Number temperatureAtEnthalpy(const Number& p, const Number& h) const {
        return of("t_ph", &States::temperatureAtEnthalpy, p, h);
    }
    Number temperatureAtEntropy(const Number& p, const Number& s) const {
        return of("t_ps", &States::temperatureAtEntropy, p, s);
    }
    Number enthalpy(const Number& t, const Number& p) const { return of("h", &States::enthalpy, t, p); }
    Number enthalpyAtEntropy(const Number& p, const Number& s) const {
        return of("h_ps", &States::enthalpyAtEntropy, p, s);
    }
    Number entropy(const Number& t, const Number& p) const { return of("s", &States::entropy, t, p); }
    Number entropyAtEnthalpy(const Number& p, const Number& h) const {
        return of("s_ph", &States::entropyAtEnthalpy, p, h);
    }
    Number density(const Number& t, const Number& p) const { return of("rho", &States::density, t, p); }

  private:
    Number of(std::string_view name, double (States::*state)(double) const, const Number& a) const {
        return Number::call(name, {a}, (states_.*state)(a.value()));
    }
    Number of(std::string_view name, double (States::*state)(double, double) const, const Number& a,
              const Number& b) const {
        return Number::call(name, {a, b}, (states_.*state)(a.value(), b.value()));
    }

    States states_;
};

/// How a calculation goes that writes a trace.
class Tracer {
  public:
    using Number = TracedNumber;
    using Variables = TracedVariables;
    using States = TracedStates;

    explicit Tracer(Trace& trace) : trace_(&trace) {}

    Variables variables(clsVariables& variables) const { return {variables, *trace_}; }
    static States states(clsRefprop& refprop) { return States(refprop); }
    Number named(std::string_view name, double value) const {
        return {value, Formula::name(name, value), trace_};
    }
    bool test(std::string_view fact, bool outcome) const;
    /// Whether the operating point is inside a limit of a type.
    bool inside(int limitType, bool outcome) const;
    /// Whether the compressor has a limit of a type.
    bool hasLimit(int limitType, bool outcome) const;
    template <class Surface>
    Number surface(std::string_view name, const Surface& surface, const Number& x, const Number& y) const {
        return Surface::at(coefficients(name, surface.c), x, y);
    }
    Number motorCurrent(const clsMotor& motor, const Number& power) const {
        return clsMotor::current(coefficients("motor", motor.c), power);
    }
    Number powerFactor(const clsInverter& inverter, const Number& power) const {
        const std::array c{inverter.CaC1, inverter.CaC2, inverter.CaC3};
        return clsInverter::powerFactor(coefficients("cosphi", c), power);
    }
    template <class Rule>
    void rule(int number, const ClsSelectionMessages& messages, const Rule& rule) const {
        trace_->beginRule(number, messages);
        rule();
        trace_->endRule(messages);
    }

  private:
    /// "Q0.c1" and so on.
    template <std::size_t count>
    std::array<Number, count> coefficients(std::string_view name, const std::array<double, count>& c) const {
        return [&]<std::size_t... i>(std::index_sequence<i...>) {
            return std::array<Number, count>{
                named(std::string(name) + ".c" + std::to_string(i + 1), c[i])...};
        }(std::make_index_sequence<count>());
    }

    Trace* trace_;
};

}  // namespace marvello
