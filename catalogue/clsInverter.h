#pragma once

#include <array>
#include <string>

namespace marvello {

/// The laws that scale a compressor's surfaces with the inverter's frequency.
class clsInverter {
  public:
    /// The output frequencies that can be chosen, Hz.
    static constexpr double minimumFrequency = 20;
    static constexpr double maximumFrequency = 70;

    double Q0C1 = 0, Q0C2 = 0, Q0C3 = 0;     ///< Frequency law of the capacity.
    double PtaC1 = 0, PtaC2 = 0, PtaC3 = 0;  ///< Frequency law of the power input.
    double CaC1 = 0, CaC2 = 0, CaC3 = 0;     ///< Power factor over the power input in kW.
    double InCurrent = 0;
    std::string ViSelected;  ///< fField of the polynomial row in use: ten times the volume ratio.

    /// Factor on the capacity at `frequency` in Hz: r (r^2 Q0C1 + r Q0C2 + Q0C3 + 1) with r = frequency / 50
    /// in single precision.
    double getKQ0(float frequency) const { return factor(frequency, Q0C1, Q0C2, Q0C3); }
    /// The same law for the power input.
    double getKPta(float frequency) const { return factor(frequency, PtaC1, PtaC2, PtaC3); }
    /// Power factor of the motor at a power input in kW.
    double powerFactor(double power) const { return powerFactor<double>({CaC1, CaC2, CaC3}, power); }
    /// The same of coefficients and a power that calculate like doubles.
    template <class Number>
    static Number powerFactor(const std::array<Number, 3>& c, const Number& power) {
        return c[0] * power * power + c[1] * power + c[2];
    }

  private:
    static double factor(float frequency, double c1, double c2, double c3) {
        const float ratio = frequency / 50;
        const double r = static_cast<double>(ratio);
        return (r * r * c1 + r * c2 + c3 + 1) * r;
    }
};

}  // namespace marvello
