#include "engine/Trace.h"

#include <algorithm>
#include <utility>

#include "engine/TracedNumber.h"

namespace marvello {

TracedNumber TracedNumber::call(std::string_view function, const std::vector<TracedNumber>& arguments,
                                double value) {
    std::vector<FormulaPtr> formulas;
    Trace* trace = nullptr;
    for (const TracedNumber& argument : arguments) {
        formulas.push_back(argument.formula_);
        if (trace == nullptr) trace = argument.trace_;
    }
    return {value, Formula::call(function, std::move(formulas), value), trace};
}

bool TracedNumber::compared(std::string_view sign, const TracedNumber& a, const TracedNumber& b,
                            bool outcome) {
    Trace* const trace = a.trace_ != nullptr ? a.trace_ : b.trace_;
    if (trace != nullptr) trace->test(Formula::comparison(sign, a.formula_, b.formula_, outcome), outcome);
    return outcome;
}

void Trace::add(Entry entry) {
    entry.rule = rule_;
    const auto isTheSame = [&](const Entry& before) {
        if (before.kind != entry.kind || before.rule != entry.rule || before.variable != entry.variable ||
            (before.formula == nullptr) != (entry.formula == nullptr))
            return false;
        return entry.formula ? before.formula->hasShapeOf(*entry.formula) : before.text == entry.text;
    };
    const auto before = std::ranges::find_if(entries_, isTheSame);
    if (before != entries_.end()) {
        entry.times = before->times + 1;
        entries_.erase(before);
    }
    entries_.push_back(std::move(entry));
}

void Trace::write(var variable, FormulaPtr formula) {
    add({.kind = Entry::Kind::value, .variable = variable, .formula = std::move(formula)});
}

void Trace::write(var variable, std::string_view text) {
    add({.kind = Entry::Kind::value, .variable = variable, .formula = nullptr, .text = std::string(text)});
}

void Trace::test(FormulaPtr comparison, bool outcome) {
    add({.kind = Entry::Kind::test, .formula = std::move(comparison), .outcome = outcome});
}

void Trace::test(std::string_view fact, bool outcome) {
    add({.kind = Entry::Kind::test, .formula = nullptr, .text = std::string(fact), .outcome = outcome});
}

void Trace::beginRule(int number, const ClsSelectionMessages& messages) {
    rule_ = number;
    errors_ = messages.Error.Count();
    warnings_ = messages.Attention.Count();
    notes_ = messages.Information.Count();
}

void Trace::endRule(const ClsSelectionMessages& messages) {
    const auto addNew = [this](const clsMessages& list, int before, Severity severity) {
        const int first = list.Count() < before ? 1 : before + 1;  // a rule may clear the lists
        for (int i = first; i <= list.Count(); ++i)
            add({.kind = Entry::Kind::message,
                 .formula = nullptr,
                 .text = list.Item(i).Name,
                 .severity = severity});
    };
    addNew(messages.Error, errors_, Severity::error);
    addNew(messages.Attention, warnings_, Severity::attention);
    addNew(messages.Information, notes_, Severity::information);
    rule_ = 0;
}

}  // namespace marvello
