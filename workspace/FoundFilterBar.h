#pragma once

#include <QStringList>
#include <array>
#include <memory>
#include <set>
#include <string>

#include "controls/WrapBar.h"
#include "results/FoundTable.h"
#include "thermo/UnitSystem.h"

namespace marvello {

class FilterChip;
class ctlCombo;

/// The chips above the solutions of a search: best or all, filters that are on or off, and values to choose
/// from. Their counts are those of all solutions: they stand still while filters change.
class FoundFilterBar : public WrapBar {
    Q_OBJECT

  public:
    explicit FoundFilterBar(QWidget* parent);

    void translate();
    /// Counts the solutions of a search. Chosen values that none of them has are chosen no more. Temperatures
    /// in tool tips are in `units`.
    void showResult(const std::shared_ptr<const FindResult>& result, UnitSystem units);

    FoundFilters filters() const;
    FoundChoices choices() const;
    /// The filters by the names that settings have for them.
    QStringList names() const;
    void setNames(const QStringList& names);

  signals:
    /// The user switched a filter or chose values.
    void changed();

  private:
    struct Chip {
        FoundFilter filter;
        const char* name;  ///< in settings
        const char* textKey;
        FilterChip* button;
    };
    /// A chip that opens the list of the values of a fact.
    struct ChoiceChip {
        FoundFact fact;
        const char* textKey;
        FilterChip* button;
        std::set<std::string> chosen{};
    };
    void makeChips();
    void makeChoiceChips();
    void refresh();
    void refresh(const ChoiceChip& chip);
    void open(ChoiceChip& chip);
    void choose(ChoiceChip& chip, const QString& keys);

    std::shared_ptr<const FindResult> result_;
    UnitSystem units_ = UnitSystem::metric;
    std::array<Chip, 6> chips_;
    FilterChip* all_;
    std::array<ChoiceChip, 3> choiceChips_;
    ctlCombo* values_ = nullptr;    ///< the list, made at its first use
    ChoiceChip* opened_ = nullptr;  ///< whose list is open
};

}  // namespace marvello
