#include "engine/Formula.h"

#include <cmath>
#include <utility>

namespace marvello {

namespace {

// What binds closer has the higher rank.
constexpr int comparing = 0;
constexpr int adding = 1;
constexpr int multiplying = 2;
constexpr int single = 3;

}  // namespace

Formula::Formula(Kind kind, std::string_view text, std::vector<FormulaPtr> parts, double value)
    : kind_(kind), text_(text), parts_(std::move(parts)), value_(value) {}

FormulaPtr Formula::number(double value) { return FormulaPtr(new Formula(Kind::number, {}, {}, value)); }

FormulaPtr Formula::name(std::string_view name, double value) {
    return FormulaPtr(new Formula(Kind::name, name, {}, value));
}

FormulaPtr Formula::operation(char operation, FormulaPtr left, FormulaPtr right, double value) {
    return FormulaPtr(new Formula(Kind::operation, std::string_view(&operation, 1),
                                  {std::move(left), std::move(right)}, value));
}

FormulaPtr Formula::comparison(std::string_view sign, FormulaPtr left, FormulaPtr right, bool outcome) {
    return FormulaPtr(
        new Formula(Kind::operation, sign, {std::move(left), std::move(right)}, outcome ? 1 : 0));
}

FormulaPtr Formula::call(std::string_view function, std::vector<FormulaPtr> arguments, double value) {
    return FormulaPtr(new Formula(Kind::call, function, std::move(arguments), value));
}

int Formula::rank() const {
    if (kind_ != Kind::operation) return single;
    switch (text_.front()) {
        case '+':
        case '-':
            return adding;
        case '*':
        case '/':
            return multiplying;
        default:
            return comparing;
    }
}

std::string Formula::written(const Style& style, bool hasNumbers) const {
    switch (kind_) {
        case Kind::number:
            return style.number(value_);
        case Kind::name:
            return hasNumbers ? style.number(value_) : text_;
        case Kind::call: {
            std::string text = text_ + '(';
            for (std::size_t i = 0; i < parts_.size(); ++i)
                text += (i == 0 ? "" : ", ") + parts_[i]->written(style, hasNumbers);
            return text + ')';
        }
        case Kind::operation:
            break;
    }
    const std::string sign = text_ == "*" ? std::string(style.times) : ' ' + text_ + ' ';
    return part(0, style, hasNumbers) + sign + part(1, style, hasNumbers);
}

std::string Formula::part(std::size_t index, const Style& style, bool hasNumbers) const {
    const Formula& part = *parts_[index];
    const bool isWrittenAsNumber = part.isNumber() || (hasNumbers && part.kind_ == Kind::name);
    const bool isNegative = isWrittenAsNumber && std::signbit(part.value_) && index > 0;
    // a - (b + c) and a / (b * c), but a + b + c.
    const bool isGrouped = index > 0 && (text_ == "-" || text_ == "/") && part.rank() == rank();
    const std::string text = part.written(style, hasNumbers);
    return part.rank() < rank() || isGrouped || isNegative ? '(' + text + ')' : text;
}

bool Formula::hasShapeOf(const Formula& other) const {
    if (kind_ != other.kind_ || text_ != other.text_ || parts_.size() != other.parts_.size()) return false;
    for (std::size_t i = 0; i < parts_.size(); ++i)
        if (!parts_[i]->hasShapeOf(*other.parts_[i])) return false;
    return true;
}

}  // namespace marvello
