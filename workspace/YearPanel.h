#pragma once

#include <array>
#include <optional>
#include <vector>

#include "controls/Container.h"
#include "engine/YearComparison.h"
#include "workspace/YearInputs.h"

class QScrollArea;

namespace marvello {

class AdvanceText;
class DropList;
class Link;
class PanelRows;
class YearBins;
class ctlBtn;

/// The inputs of a year, and above them a field for each of its plants. Fields write into the inputs as long
/// as they hold what can be used.
class YearPanel : public Container {
    Q_OBJECT

  public:
    // A number and a choice of the inputs with their fields; of the source file alone.
    struct Number;
    struct Choices;

    YearPanel(YearInputs& inputs, const YearTables& tables, QWidget* parent);
    ~YearPanel() override;

    ctlBtn* lnkCalculate;
    Link* lnkDefaults;  ///< gives all inputs their first values again

    AdvanceText* plant(std::size_t place) const { return plants_.at(place); }
    /// The compressors that the fields offer.
    void offerPlants(const QString& choices);
    /// How many fields for plants are seen.
    void showPlants(std::size_t count);
    YearBins& bins() const { return *bins_; }

    void translate();
    void setUnits(UnitSystem units);
    UnitSystem units() const { return units_; }
    /// Shows what the inputs are.
    void show();
    /// The first field whose value cannot be used, besides those of plants; null without one.
    AdvanceText* unusable() const;

  signals:
    /// What the inputs are has changed, or cannot be used any more.
    void edited();
    /// A text that names a plant has changed.
    void plantEdited(std::size_t place);
    /// The profile is to come from a file.
    void fileWanted();

  private:
    AdvanceText* newField(const char* name);
    void makeFields();
    void makeNumber(const Number& number);
    void makeChoice(const Choices& choice);
    /// What a field comes to, in its unit; none if it is no number yet.
    std::optional<double> reading(std::size_t number) const;
    void typed(std::size_t number);
    void chosen(std::size_t choice);
    void typedEvaporating();
    void takeBins(bool isLoad);
    void showNumber(std::size_t number);
    void showChoice(std::size_t choice);
    void showEvaporating();
    void showChoices();
    void showBins();
    void layOut();
    /// With so many bins in sight.
    void layOutRows(PanelRows& rows, int bins);
    AdvanceText* field(const char* name) const;

    YearInputs& inputs_;
    const YearTables& tables_;
    UnitSystem units_ = UnitSystem::metric;
    DropList* dropList_;
    QScrollArea* scroll_;
    QWidget* content_;
    std::array<AdvanceText*, maxYearChoices> plants_{};
    std::vector<AdvanceText*> numbers_;  ///< as their definitions
    std::vector<AdvanceText*> choices_;  ///< as their definitions
    AdvanceText* evaporating_ = nullptr;
    EvaporatingRule shownRule_;  ///< that its field had last
    AdvanceText* currency_ = nullptr;
    YearBins* bins_ = nullptr;
};

}  // namespace marvello
