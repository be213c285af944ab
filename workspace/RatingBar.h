#pragma once

#include <array>
#include <cstdint>

#include "controls/PageBar.h"
#include "engine/Performance.h"
#include "results/RatingSheet.h"

class QMenu;

namespace marvello {

class FilterChip;
class SegmentedSelector;
class ctlBtn;

/// What a rating table can be written as.
enum class RatingFile : std::uint8_t { table, en12900, ahri540, energyPlus };

/// The bar above a rating table: the figure, the steps of both axes, and where the table goes.
class RatingBar : public PageBar {
    Q_OBJECT

  public:
    explicit RatingBar(QWidget* parent);

    void translate();
    /// Steps are those of a system of units; frequencies are offered for an inverter.
    void setSubject(UnitSystem units, bool hasInverter);
    /// Whether there is a table to take away.
    void setHasTable(bool hasTable);

    Figure figure() const;
    RatingStyle tableStyle() const;

  signals:
    /// Another figure is to be shown.
    void figureChanged();
    /// The axes are other ones.
    void styleChanged();
    void copyClicked();
    void exportClicked(marvello::RatingFile file);

  private:
    /// A step of an axis and what it is a step of.
    struct Step {
        RatingAcross across;
        double size;
    };
    FilterChip* addChip(const QString& name);
    QString textOf(const Step& step, bool isAcross) const;
    void openSteps(FilterChip* chip, bool isAcross);
    void addSteps(QMenu& menu, RatingAcross across, bool isAcross);
    void openExports();
    void refresh();

    SegmentedSelector* figures_;
    FilterChip* across_;
    FilterChip* down_;
    ctlBtn* copy_;
    ctlBtn* export_;
    UnitSystem units_ = UnitSystem::metric;
    bool hasInverter_ = false;
    bool hasFrequencies_ = false;              ///< across, as the user chose
    std::array<double, 2> acrossStep_{5, 10};  ///< by system of units
    std::array<double, 2> downStep_{5, 10};
    double frequencyStep_ = 10;
};

}  // namespace marvello
