#pragma once

namespace marvello {

/// Geometry of the economizer port.
class clsEconomizer {
  public:
    double KForo = 0;     ///< Port pressure over evaporating pressure.
    double Sez = 0;       ///< Section in the pressure drop of the injection line.
    double KPerdita = 0;  ///< Loss coefficient in the same term.

    bool hasPort() const { return KPerdita + Sez + KForo > 0; }
};

}  // namespace marvello
