#pragma once

#include <cstdint>
#include <string>

#include "thermo/RefpropLibrary.h"
#include "tools/fluids/Composition.h"

namespace marvello::properties {

/// A state as the property library gives it, in K, kPa, mol/dm^3, J/mol, J/(mol K), m/s. `Dl`, `Dv`, `x`, `y`
/// and `q` are as in fluids/Refprop.h.
struct State : RefpropState {
    RefpropSession::Fractions x{}, y{};
};

/// The property library of the application folder, set up for one refrigerant. The zero of enthalpy and
/// entropy is 200 kJ/kg and 1 kJ/(kg K) for saturated liquid of the refrigerant at 0 degC.
///
/// All calls throw Refusal with the library's own sentence.
class FluidCaller {
  public:
    enum class Side : std::int32_t { bubble = 1, dew = 2 };

    explicit FluidCaller(const Composition& composition);

    double molarMass() const { return session_.molarMass(); }  ///< g/mol

    State saturationAtT(double t, Side side);
    State atTP(double t, double p);
    State atPH(double p, double h);
    State atPS(double p, double s);

    /// Enthalpy, entropy and density of the liquid at its bubble point. A flash answers with vapour on the
    /// line of a pure fluid, so the liquid is followed to the line from two pressures a hair above.
    State liquidAt(const State& bubblePoint);

    /// The highest temperature with a bubble and a dew point, to 1e-9 K; there is saturation at `known`.
    double criticalTemperature(double known);

  private:
    /// The state with its compositions. Throws what the library says of a failure.
    State checked(const RefpropState& state) const;

    RefpropSession session_;
    std::string name_;
};

}  // namespace marvello::properties
