#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/clsSelections.h"
#include "inputs/SelectionInputs.h"
#include "results/ResultTable.h"

namespace marvello {

/// The last calculation of a form, and its results in the order and the groups in which they are listed.
/// Knows no window.
class SelectionRun {
  public:
    /// What a calculation has to say besides its results.
    struct Outcome {
        std::string fault;              ///< why there are none; empty if the calculation went to its end
        std::vector<std::string> said;  ///< the boxes of the calculation, each once
        bool isAborted = false;
    };
    /// Calculates in place of what was there before, and tells the percent done. Lists nothing yet.
    Outcome calculate(const SelectionInputs& inputs, const std::function<void(int percent)>& progress);
    void clear();

    /// Lists the results with `columns`, as the inputs say.
    void list(const SelectionInputs& inputs, const clsOutputs& columns, const NumberMarks& marks);
    bool hasResults() const { return selections_->Count() > 0; }
    /// The conditions that the results were calculated for; null without any.
    const std::shared_ptr<const clsProjectConditions>& conditions() const {
        return selections_->ProjectConditions;
    }
    int count() const { return selections_->Count(); }
    const ResultTable& table() const { return table_; }
    /// The rows of the list; null for the heading of a group.
    const std::vector<const ResultRow*>& rows() const { return rows_; }
    /// The result in a row of the list; null for a group, and for -1.
    const ResultRow* row(int index) const;
    /// How many compressors of the list have a verdict.
    int countOf(Verdict verdict) const;

    Grouping grouping = Grouping::byRefrigerant;  ///< of the next list
    ListOrder order;                              ///< of the next list

  private:
    void clearList();

    std::unique_ptr<clsSelections> selections_ = std::make_unique<clsSelections>();
    ResultTable table_;
    std::vector<const ResultRow*> rows_;
};

}  // namespace marvello
