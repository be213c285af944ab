#pragma once

#include <array>
#include <optional>

#include "controls/PageBar.h"
#include "engine/Comparison.h"
#include "results/ComparisonTable.h"

namespace marvello {

class AdvanceText;
class FilterChip;

/// The bar above a comparison: whether all machines are at the same operating point, and which; and from
/// which of them the differences are.
class ComparisonBar : public PageBar {
    Q_OBJECT

  public:
    explicit ComparisonBar(QWidget* parent);

    void translate();
    /// Shows a point in a system of units; fields are those of the same point alone.
    void showPoint(const OperatingPoint& point, bool isSame, UnitSystem units);
    /// Shows what the differences are from, by its place; none without a reference. The numbers of the
    /// machines are in the order of the heads.
    void showReference(const std::vector<ComparedHead>& heads, const std::vector<int>& numbers,
                       std::optional<std::size_t> reference);
    AdvanceText* firstField() const { return fields_.front(); }

  signals:
    /// All machines are to be at the point that the fields show, or each at its own again.
    void sameChosen(bool isSame);
    /// Another point was typed, in metric units.
    void pointTyped(const marvello::OperatingPoint& point);
    /// The differences are to be from a machine, by its number.
    void referenceChosen(std::optional<int> number);

  private:
    /// Evaporating and condensing temperature, suction gas, subcooling.
    static constexpr std::size_t fieldCount = 4;

    void typed(std::size_t index);
    void openReferences();
    void refresh();

    FilterChip* same_;
    std::array<AdvanceText*, fieldCount> fields_{};
    FilterChip* differences_;
    OperatingPoint point_;
    UnitSystem units_ = UnitSystem::metric;
    std::vector<ComparedHead> heads_;
    std::vector<int> numbers_;
    std::optional<std::size_t> reference_;
};

}  // namespace marvello
