#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "data/clsDatabase.h"
#include "thermo/FluidState.h"
#include "thermo/RefpropLibrary.h"
#include "thermo/SaturationRange.h"
#include "thermo/StateMemory.h"
#include "thermo/clsConvert.h"

namespace marvello {

/// The sides of saturation, for the argument `kph`.
namespace saturation {
inline constexpr int bubble = 1;
inline constexpr int dew = 2;
}  // namespace saturation

/// The one gateway to thermodynamic properties, bound to one refrigerant. Inputs and results are in the units
/// of `Convert`: for the set 0 degrees Celsius, bar absolute, kg/m^3, kJ/kg, kJ/kg-K. `type` is the kind of a
/// value (`property`), `kph` the side of saturation (`saturation`).
///
/// The library's error channel is not acted on: a state outside its range gives what the library leaves, and
/// its undefined marker shows the box of clsConvert. What protects the results are the envelope and the
/// rules.
///
/// The pairs of property codes that are permitted, as (type1, type2):
///   Temperature  (pressure, none), (pressure, enthalpy), (pressure, entropy)
///   Enthalpy     (temperature, pressure), (pressure, entropy), (temperature, entropy)
///   Entropy      (temperature, pressure), (pressure, enthalpy)
///   Density      (temperature, pressure), (pressure, none), (temperature, none)
/// Two values may come in either order. Any other pair shows the box "Aggiungere funzione" and returns what
/// the call before left. `States` has these calls under the names of the trade.
///
/// A state asked for before is not calculated again: results are remembered until the object is released.
class clsRefprop {
  public:
    /// Binds to the library of the application folder. Throws FluidLibraryError.
    clsRefprop();

    clsConvert Convert;
    std::string Fluidpath;    ///< Folder of the fluid files, ending in "\".
    std::string Refrigerant;  ///< A key of tRefrigeranti.

    /// Sets the library up for a refrigerant of the catalogue; a blank refrigerant or path keeps the former
    /// one. Always true; SetupFault has what the library said. Throws DatabaseError, and std::out_of_range
    /// for a 21st component.
    bool Initialize(clsDatabase& db, int unitsMeasure, const std::string& refrigerant,
                    const std::string& fluidPath);

    /// The library's sentence about the last Initialize, empty when it was content. For those who start a
    /// calculation; no calculation reads it.
    const std::string& SetupFault() const { return setupFault_; }

    /// Saturation pressure at the temperature `t`.
    double Pressure(double t, int kph);
    /// The temperatures that have a dew pressure; see saturationRange(). Throws std::runtime_error if there
    /// are none.
    const SaturationRange& DewRange();
    double Temperature(double value1, int type1, int kph, double value2, int type2);
    double Enthalpy(double value1, int type1, double value2, int type2);
    double Entropy(double value1, int type1, double value2, int type2);
    /// With a pressure alone the saturated vapour's density, whatever `kph` says.
    double Density(double value1, int type1, int kph, std::optional<double> value2 = std::nullopt,
                   int type2 = property::none);

    /// A state as a whole, calculated anew; none where the library refuses it. What the other calls return
    /// does not change by it. Throws ArithmeticFault.
    std::optional<FluidState> StateAtTemperature(double t, double p);
    std::optional<FluidState> StateAtEnthalpy(double p, double h);
    std::optional<FluidState> StateAtEntropy(double p, double s);
    /// Saturated liquid or vapour, by `kph`.
    std::optional<FluidState> SaturationAtPressure(double p, int kph);
    std::optional<FluidState> SaturationAtTemperature(double t, int kph);

    /// Returns the last state without a result: the call, and why in the library's own sentence. Empty if
    /// each had one since clearLastUndefined().
    const std::string& LastUndefined() const { return lastUndefined_; }
    void clearLastUndefined() { lastUndefined_.clear(); }

    /// How often the library was asked for a state, for benchmarks and tests.
    long long libraryCalls() const { return libraryCalls_; }
    /// Forgets all states; for benchmarks.
    void forget() { remembered_.clear(); }
    /// Notes these calls from now on, or no longer; for benchmarks.
    void note(std::vector<StateCall>* calls) { noted_ = calls; }
    /// Asks the library for a state, whatever is remembered.
    RefpropState asked(const StateCall& call) { return askLibrary(call, RefpropSession::usualErrorLength); }

  private:
    using Function = StateCall::Function;

    /// How a pair of property codes reaches a call of the library.
    enum Order : std::uint8_t { asGiven, swapped };
    struct Route {
        int type1, type2;
        Function function;
        Order order = asGiven;
        std::int32_t errorLength = RefpropSession::usualErrorLength;
    };
    static const Route temperatureRoutes[5];
    static const Route enthalpyRoutes[6];
    static const Route entropyRoutes[4];
    static const Route densityRoutes[4];

    void ask(const StateCall& call, std::int32_t errorLength = RefpropSession::usualErrorLength);
    RefpropState askLibrary(const StateCall& call, std::int32_t errorLength);
    /// Asks by the route of a pair of property codes; false for a pair without one, which shows a
    /// box and changes nothing.
    bool askBy(std::span<const Route> routes, std::pair<int, int> types, std::pair<double, double> values,
               int kph);

    bool hasDewPressure(double kelvin);
    /// The state of a call whose inputs are in the units of `Convert`, without these.
    std::optional<FluidState> wholeState(StateCall::Function function, std::pair<double, int> first,
                                         std::pair<double, int> second);
    std::optional<FluidState> saturated(int kph, double t, double p);

    /// A call as its caller wrote it.
    struct Request {
        const char* name;
        double value1;
        int type1;
        double value2 = 0;
        int type2 = property::none;
    };
    std::string describe(const Request& request) const;
    /// Converts a result of the library. Throws ArithmeticFault that says which call it was.
    double answer(const Request& request, double value, int type);

    RefpropSession session_;
    RefpropState state_;
    StateMemory remembered_;
    long long libraryCalls_ = 0;
    std::vector<StateCall>* noted_ = nullptr;
    std::string setupFault_;
    std::string lastUndefined_;
    std::optional<SaturationRange> dewRange_;
};

/// Sets up a service for `refrigerant`, on gDatabase() and with the units set 0, which the current session
/// shares from now on in place of the one for it before.
void InitRefprop(const std::string& refrigerant);

/// The session's service for `refrigerant`, case ignored. It is set up at its first use, again after a set-up
/// that failed, and when the application folder or the file of the catalogue is another one.
/// The reference is valid until the service is replaced, which a calculation or a turn of the window may do.
clsRefprop& GetRefprop(const std::string& refrigerant);

/// The same, for who holds it across window events, in which the service may be replaced.
std::shared_ptr<clsRefprop> SharedRefprop(const std::string& refrigerant);

}  // namespace marvello
