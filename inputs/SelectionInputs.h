#pragma once

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/clsProjectConditions.h"
#include "inputs/CoupleLeaders.h"
#include "inputs/EconomizerValues.h"
#include "inputs/EnteredValue.h"
#include "inputs/Input.h"
#include "inputs/InputRules.h"
#include "inputs/SelectionKind.h"
#include "thermo/EnteredQuantity.h"
#include "thermo/SaturationRange.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// Why nothing follows from the value that leads a couple.
struct Refusal {
    std::string sentence{};                       ///< of the property library; empty with a range
    std::optional<SaturationRange> saturation{};  ///< the value is beyond it; degrees Celsius
};

/// What an input holds.
struct InputValue {
    std::string key{};                 ///< of a choice; several models are joined with ";"
    std::vector<Choice> choices{};     ///< what is offered for it
    std::optional<double> number{};    ///< none while half typed, and for an unknown one
    bool isUnknown = false;            ///< a derived number that has no value
    bool isEnabled = true;             ///< false where the series fixes it
    std::optional<Refusal> refusal{};  ///< of a number that leads its couple
};

/// What inputs leave to those of another form, or of another start: by the names of their fields, with
/// numbers in `units`.
struct InputState {
    UnitSystem units = UnitSystem::metric;
    std::map<std::string, std::string> keys;
    std::map<std::string, double> values;
    CoupleLeaders leaders;

    bool isEmpty() const { return keys.empty(); }
    bool operator==(const InputState&) const = default;
};

/// The inputs of a form: what they offer, how they follow one another, their ranges and units, and
/// the conditions that a calculation gets from them. Numbers are in `units()`. The lists of refrigerants,
/// series and models are read from gDatabase(); other lists are offered by the form, in the user's language.
class SelectionInputs {
  public:
    /// The inputs of a new form. Throws DatabaseError.
    explicit SelectionInputs(const SelectionKind& kind);

    /// False for an input that this kind of form does not ask for.
    bool has(Input input) const;

    UnitSystem units() const { return units_; }
    /// Shows all numbers in another system. A value that was entered in it is the same again.
    void setUnits(UnitSystem units);

    const InputValue& operator[](Input input) const { return values_[static_cast<std::size_t>(input)]; }
    const std::string& key(Input input) const { return (*this)[input].key; }
    /// The number of an input, 0 while it has none.
    double number(Input input) const { return (*this)[input].number.value_or(0); }
    /// What the user reads for the key of a choice; the key itself if the list lacks it, as for several
    /// models.
    std::string caption(Input input) const;
    /// True if a choice has the key of a new form.
    bool isNeutral(Input input) const;
    /// Returns what a number measures, which for some depends on a choice.
    Quantity quantity(Input input) const;
    /// False for an input that does not go with the others.
    bool isShown(Input input) const;
    bool hasMidTemperatures() const;
    /// False for a search over several refrigerants: temperatures and pressures have nothing to follow then.
    bool hasOneRefrigerant() const;
    /// The keys of an input of several.
    std::vector<std::string> keys(Input input) const;
    /// The input that leads the couple of this one; none outside a couple.
    std::optional<Input> leaderOf(Input input) const;
    /// The series of the catalogue that is chosen, and its market.
    SeriesOfMarket series() const;

    /// Offers a list of choices.
    void offer(Input input, std::vector<Choice> choices);
    /// Names the choice of all models in the user's language.
    void translate();
    /// Takes a key, and what follows from it: a refrigerant offers its series, a series its models.
    void choose(Input input, const std::string& key);
    /// Takes what was typed; none for half a number, from which nothing follows. A temperature or pressure of
    /// a couple leads it from now on.
    void type(Input input, std::optional<double> value);
    /// Takes the value of a field that the user leaves, by the rule of the field: a subcooling has no sign.
    void settle(Input input, double value);
    /// Takes a number and keeps the evaporating dew temperature, which would follow the condensing side where
    /// a mid temperature leads.
    void change(Input input, double value);
    /// Works out anew what follows from an input.
    void follow(Input input);
    /// Replaces a superheat beyond its range. Returns true if it did.
    bool limitSuperheat();
    /// Replaces what a run would not take. Returns true if the superheat was replaced.
    bool prepareRun();

    /// The permitted range of a number that is beyond it; none for a permitted one.
    struct Bounds {
        double low, high;
    };
    std::optional<Bounds> exceededBounds(Input input) const;
    /// True if the evaporating temperature is above the condensing one.
    bool temperaturesCross() const;

    /// The conditions of a calculation, in metric units.
    std::shared_ptr<const clsProjectConditions> conditions() const;

    InputState state() const;
    /// Takes over the inputs of another form, as far as the catalogue offers them; keeps the units.
    void takeOver(const InputState& state);

  private:
    InputValue& at(Input input) { return values_[static_cast<std::size_t>(input)]; }
    void set(Input input, double value);
    UnitRule conversionFor(Input input) const;
    void offerRefrigerants();
    void offerAllSeries();
    void chooseRefrigerants();
    void orderMachines(Input chosen);
    void takeOverChoices(const InputState& state);
    void offerSeries();
    void offerModels();
    void applySeriesRules();
    void synchronize(Input leader);
    void refuse(Input leader, std::optional<Refusal> refusal);
    void followLeaders();
    SuperheatRange superheatRange() const;
    void keepEconomizerValue(const std::string& mode);

    const SelectionKind& kind_;
    UnitSystem units_ = UnitSystem::metric;
    std::array<InputValue, inputCount> values_;
    std::array<EnteredValue, inputCount> entered_;
    CoupleLeaders leaders_;
    EconomizerValues economizerValues_;
};

}  // namespace marvello
