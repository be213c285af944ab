#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace marvello {

class Formula;
using FormulaPtr = std::shared_ptr<const Formula>;

/// A formula with the numbers that went into it: a number, a name that stands for one, or an operation or a
/// function of others. Does not change once it is made.
class Formula {
  public:
    static FormulaPtr number(double value);
    static FormulaPtr name(std::string_view name, double value);
    /// `operation` is one of + - * / < <= > >= = and stands between the two.
    static FormulaPtr operation(char operation, FormulaPtr left, FormulaPtr right, double value);
    static FormulaPtr comparison(std::string_view sign, FormulaPtr left, FormulaPtr right, bool outcome);
    static FormulaPtr call(std::string_view function, std::vector<FormulaPtr> arguments, double value);

    /// What it comes to; 1 or 0 for a comparison.
    double value() const { return value_; }
    /// True for a number that stands alone.
    bool isNumber() const { return kind_ == Kind::number; }

    /// How a formula is written.
    struct Style {
        std::string_view times = " * ";
        std::function<std::string(double)> number;  ///< Writes a number.
    };
    /// Returns the formula with its names.
    std::string withNames(const Style& style) const { return written(style, false); }
    /// Returns the formula with the values in the place of the names.
    std::string withNumbers(const Style& style) const { return written(style, true); }

    /// Whether the two are written alike but for the numbers that stand in them.
    bool hasShapeOf(const Formula& other) const;

  private:
    enum class Kind : unsigned char { number, name, operation, call };

    Formula(Kind kind, std::string_view text, std::vector<FormulaPtr> parts, double value);
    std::string written(const Style& style, bool hasNumbers) const;
    std::string part(std::size_t index, const Style& style, bool hasNumbers) const;
    int rank() const;

    Kind kind_;
    std::string text_;  ///< Name, sign or function.
    std::vector<FormulaPtr> parts_;
    double value_;
};

}  // namespace marvello
