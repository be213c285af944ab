#pragma once

#include <array>
#include <string>

#include "catalogue/Modes.h"

namespace marvello {

/// The motor chosen for a compressor. Currents are at the reference voltage: 400 V at 50 Hz, 460 V otherwise.
class clsMotor {
  public:
    int ID = -1;               ///< -1 until a row was found.
    std::string NominalPower;  ///< As shown to the user.
    int Voltage = 0;           ///< Supply voltage, V.
    int Phase = 0;
    /// Current in A over the power input t in kW at 50 Hz: c1 + c2 t + ... + c5 t^4.
    std::array<double, 5> c{};
    int Hz = 0;  ///< The supply's frequency; the row read is always the one of 50 Hz.
    MotorChoice MotorType = MotorChoice::small;
    double Lra1 = 0;          ///< Locked-rotor current, first value, A.
    double Lra2 = 0;          ///< Locked-rotor current, second value, A.
    bool isStandard = false;  ///< The motor is the standard fit.

    bool isVirtual() const { return ID == 0; }
    bool isValid() const { return ID >= 0; }
    double current(double t) const { return current(c, t); }
    /// The same of coefficients and a power that calculate like doubles.
    template <class Number>
    static Number current(const std::array<Number, 5>& c, const Number& t) {
        return c[0] + t * (c[1] + t * (c[2] + t * (c[3] + t * c[4])));
    }
};

}  // namespace marvello
