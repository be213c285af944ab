#pragma once

#include <cmath>
#include <string_view>
#include <utility>
#include <vector>

#include "data/Arithmetic.h"
#include "engine/Formula.h"

namespace marvello {

class Trace;

/// A number that remembers how it came about. Calculates as a double does; a comparison is noted in the
/// trace.
class TracedNumber {
  public:
    /// A number that stands in the formula as it is.
    TracedNumber(double value) : value_(value), formula_(Formula::number(value)) {}
    TracedNumber(double value, FormulaPtr formula, Trace* trace)
        : value_(value), formula_(std::move(formula)), trace_(trace) {}

    double value() const { return value_; }
    const FormulaPtr& formula() const { return formula_; }
    Trace* trace() const { return trace_; }

    friend TracedNumber operator+(const TracedNumber& a, const TracedNumber& b) {
        return combined('+', a, b, a.value_ + b.value_);
    }
    friend TracedNumber operator-(const TracedNumber& a, const TracedNumber& b) {
        return combined('-', a, b, a.value_ - b.value_);
    }
    friend TracedNumber operator*(const TracedNumber& a, const TracedNumber& b) {
        return combined('*', a, b, a.value_ * b.value_);
    }
    friend TracedNumber operator/(const TracedNumber& a, const TracedNumber& b) {
        return combined('/', a, b, a.value_ / b.value_);
    }
    friend bool operator<(const TracedNumber& a, const TracedNumber& b) {
        return compared("<", a, b, a.value_ < b.value_);
    }
    friend bool operator<=(const TracedNumber& a, const TracedNumber& b) {
        return compared("<=", a, b, a.value_ <= b.value_);
    }
    friend bool operator>(const TracedNumber& a, const TracedNumber& b) {
        return compared(">", a, b, a.value_ > b.value_);
    }
    friend bool operator>=(const TracedNumber& a, const TracedNumber& b) {
        return compared(">=", a, b, a.value_ >= b.value_);
    }
    friend bool operator==(const TracedNumber& a, const TracedNumber& b) {
        return compared("=", a, b, a.value_ == b.value_);
    }

    /// A function of numbers by its name.
    static TracedNumber call(std::string_view function, const std::vector<TracedNumber>& arguments,
                             double value);

  private:
    static TracedNumber combined(char sign, const TracedNumber& a, const TracedNumber& b, double value) {
        return {value, Formula::operation(sign, a.formula_, b.formula_, value),
                a.trace_ != nullptr ? a.trace_ : b.trace_};
    }
    static bool compared(std::string_view sign, const TracedNumber& a, const TracedNumber& b, bool outcome);

    double value_;
    FormulaPtr formula_;
    Trace* trace_ = nullptr;  ///< None for a number that stands alone.
};

inline double valueOf(double number) { return number; }
inline double valueOf(const TracedNumber& number) { return number.value(); }

inline TracedNumber checked(TracedNumber number) {
    checked(number.value());
    return number;
}
inline TracedNumber abs(const TracedNumber& number) {
    return TracedNumber::call("abs", {number}, std::abs(number.value()));
}
inline TracedNumber roundedToPlaces(const TracedNumber& number, int places) {
    return TracedNumber::call("round", {number, static_cast<double>(places)},
                              roundedToPlaces(number.value(), places));
}

}  // namespace marvello
