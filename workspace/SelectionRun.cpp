#include "workspace/SelectionRun.h"

#include <algorithm>
#include <exception>

#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "thermo/clsRefprop.h"

namespace marvello {

SelectionRun::Outcome SelectionRun::calculate(const SelectionInputs& inputs,
                                              const std::function<void(int percent)>& progress) {
    clear();
    AbortRequested() = false;
    selections_->SelectionPercent = [&progress](int percent, int) { progress(percent); };
    const std::string& refrigerant = inputs.key(Input::refrigerant);
    const auto [serie, market] = inputs.series();
    Outcome outcome;
    const CollectedBoxes boxes;  // what the run says in boxes is said once, after it
    try {
        outcome.fault = GetRefprop(refrigerant).SetupFault();
        if (outcome.fault.empty())
            selections_->Selection(inputs.conditions(), serie, inputs.key(Input::models), refrigerant,
                                   market);
    } catch (const std::exception& error) {
        outcome.fault = error.what();
    }
    selections_->SelectionPercent = nullptr;
    for (const CollectedBoxes::Box& box : boxes.boxes()) outcome.said.push_back(box.text);
    outcome.isAborted = selections_->isAborted();
    if (!outcome.fault.empty()) selections_->Clear();
    return outcome;
}

void SelectionRun::clear() {
    clearList();
    selections_ = std::make_unique<clsSelections>();
}

void SelectionRun::clearList() {
    rows_.clear();
    table_ = {};
}

void SelectionRun::list(const SelectionInputs& inputs, const clsOutputs& columns, const NumberMarks& marks) {
    clearList();
    table_ = listResults(*selections_, columns,
                         {.units = inputs.units(),
                          .hasEconomizer = inputs.isShown(Input::economizer),
                          .grouping = grouping,
                          .order = order,
                          .marks = marks});
    for (const ResultGroup& group : table_.groups) {
        rows_.push_back(nullptr);
        for (const ResultRow& row : group.rows) rows_.push_back(&row);
    }
}

const ResultRow* SelectionRun::row(int index) const {
    return index < 0 || index >= std::ssize(rows_) ? nullptr : rows_[static_cast<std::size_t>(index)];
}

int SelectionRun::countOf(Verdict verdict) const {
    return static_cast<int>(std::ranges::count_if(
        rows_, [verdict](const ResultRow* row) { return row && row->verdict == verdict; }));
}

}  // namespace marvello
