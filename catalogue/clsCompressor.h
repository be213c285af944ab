#pragma once

#include <cstdint>
#include <string>

#include "catalogue/ClsSelectionMessages.h"
#include "catalogue/clsEconomizer.h"
#include "catalogue/clsInverter.h"
#include "catalogue/clsKValues.h"
#include "catalogue/clsLimits.h"
#include "catalogue/clsMotor.h"
#include "catalogue/clsPolynomial.h"
#include "catalogue/clsPolynomialSh.h"
#include "catalogue/clsProjectConditions.h"
#include "catalogue/clsVariables.h"
#include "data/clsDatabase.h"

namespace marvello {

/// One model of the catalogue made ready for one set of conditions: with the surfaces, motor, economizer port
/// and envelope that apply to them. A calculation hangs its results (Variables) and what it has to say
/// (Messages) on it.
class clsCompressor {
  public:
    clsKValues KValues;
    int StartMode = 0;  ///< 1 star delta, 2 part winding.
    float ctsca = 0;    ///< Correction added to the discharge temperature, K.
    clsPolynomialSh PolynomialSh;
    ClsSelectionMessages Messages;
    clsLimits limits;
    clsVariables Variables;
    clsEconomizer Economizer;
    clsPolynomial PolynomialQ0;   ///< Cooling capacity, kW.
    clsPolynomial polynomialPta;  ///< Power input, kW.
    clsInverter InverterInfo;
    clsMotor Motor;
    std::string Refrigerant;
    std::string Serie;
    std::string Model;
    std::string Sequence;
    bool hasFullSmallMotor = false;    ///< The model exists with a full and with a small motor.
    bool isMotorSmallDefault = false;  ///< The small motor is the standard fit.
    double Fla = 0;                    ///< Rated current of the chosen motor, A.
    double OilCoolingLimit = 0;        ///< Discharge temperature from which oil is cooled, degrees Celsius.
    int CompressorType = 0;            ///< Nothing fills it.
    bool hasInvert = false;            ///< The model runs on an inverter.
    std::string VI;                    ///< Built-in volume ratio as shown.

    /// Refrigerant-Serie-Sequence-Model: the identity of the entry in a set of results.
    std::string Key() const { return keyOf(*this); }
    /// Of whatever has these four.
    static std::string keyOf(const auto& entry) {
        return entry.Refrigerant + "-" + entry.Serie + "-" + entry.Sequence + "-" + entry.Model;
    }

    /// Puts the rated current of the small motor into Fla. Kept: returns 0; callers read Fla.
    double Fla2();
    void setFla2(double value) { fla2_ = value; }

    /// Kept: false in every case; the errors of a compressor are among its messages.
    bool isInError() const { return false; }

    /// Loads the model for the conditions; false when the catalogue has no such row. `economized` chooses the
    /// envelope and the oil-cooling limit with economizer. A missing polynomial, motor or envelope leaves its
    /// part empty: the calculation reports it. Throws DatabaseError, std::invalid_argument for an envelope
    /// line that does not parse, and ArithmeticFault.
    bool GetCompressorFromDb(clsDatabase& db, const clsProjectConditions& project,
                             const std::string& refrigerant, const std::string& serie,
                             const std::string& model, int motorHz, int motorRpm, int motorSize,
                             bool economized, std::uint8_t stepCapacity);

    /// A copy with its own member objects: without hasInvert, InverterInfo, KValues, Messages and VI, and
    /// through Fla2, which changes Fla of this compressor.
    clsCompressor Clone();

  private:
    double fla2_ = 0;
};

}  // namespace marvello
