#pragma once

#include <optional>

#include "controls/PageBar.h"
#include "engine/CondensingRule.h"
#include "engine/Degradation.h"
#include "thermo/EnteredQuantity.h"
#include "workspace/PartLoadRule.h"

namespace marvello {

class AdvanceText;
class FilterChip;
class SegmentedSelector;
class ctlBtn;

/// The bar above the part load: how the condensing temperature goes with the load, what intermittent running
/// costs, and where the table goes.
class PartLoadBar : public PageBar {
    Q_OBJECT

  public:
    explicit PartLoadBar(QWidget* parent);

    void translate();
    /// Lets the tab key go through the bar and on to what is below it; to be called after translate().
    void orderTabs(QWidget* next) const;
    /// The fields are in a system of units; what they say stays.
    void setUnits(UnitSystem units);
    /// Whether there is a table to take away.
    void setHasTable(bool hasTable);

    /// What is chosen, in words for a system of units.
    PartLoadRule rule(UnitSystem units) const;

  signals:
    void ruleChanged();
    /// A field holds what is no number yet, or one that it does not permit.
    void ruleUnfinished();
    void copyClicked();
    void exportClicked();

  private:
    AdvanceText* addField(const char* name);
    void serve(AdvanceText& field, Quantity quantity, double& metric);
    void show(AdvanceText& field, Quantity quantity, double metric, double minimum, double maximum);
    ctlBtn* addButton(const char* name, const char* picture);
    void refresh();
    void openLosses();
    bool isFalling() const;
    QString lossText() const;

    SegmentedSelector* modes_;
    AdvanceText* difference_;
    AdvanceText* minimum_;
    FilterChip* losses_;
    ctlBtn* copy_;
    ctlBtn* export_;
    UnitSystem units_ = UnitSystem::metric;
    CondensingRule rule_{.difference = 12, .minimum = 25, .isScaled = true};
    Degradation::Form degradation_ = Degradation::Form::none;
};

}  // namespace marvello
