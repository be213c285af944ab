#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "catalogue/SeriesTraits.h"
#include "catalogue/clsCompressor.h"

namespace marvello {

/// A row of tPolynomials with the field by which it is chosen.
struct SurfaceRow {
    double field = 0;
    std::array<double, 10> c{};
    std::string fault{};  ///< Why the row cannot be read; empty for a sound one.
};

/// A row of tMotors for 50 Hz.
struct MotorRow {
    int ID = 0;
    std::array<double, 5> c{};
    double Lra1 = 0;
    double Lra2 = 0;
    int Phase = 0;
    std::string NominalPower{};
    std::string fault{};
};

/// The lines of tLimits under one name.
struct Envelope {
    clsLimits limits;
    std::string fault{};  ///< Of the first line that does not parse.
};

/// What is asked of a compressor when it is made ready for a calculation.
struct CompressorChoice {
    double TEvaporatingDew = 0;   ///< degrees Celsius, with the next two for an inverter's surfaces
    double TCondensationDew = 0;  ///< degrees Celsius
    float InverterFrequency = 0;  ///< Hz
    int motorHz = 0;
    int motorRpm = 0;
    MotorChoice motorSize{};
    bool economized = false;
    std::uint8_t stepCapacity = 0;  ///< percent
};

/// One model as the catalogue has it, with all rows that any conditions can choose from. It does not change
/// and may be used by several threads.
class PreparedCompressor {
  public:
    // As the row of tCompressors has them.
    std::string Refrigerant;
    std::string Serie;
    std::string Model;
    std::string Sequence;
    std::string VI;
    double Fla = 0;
    double Fla2 = 0;
    std::string polynomialQ0Name;
    std::string polynomialPtaName;
    std::string polynomialShName;
    bool hasInvert = false;
    clsInverter InverterInfo;
    bool hasFullSmallMotor = false;
    bool isMotorSmallDefault = false;
    int StartMode = 0;
    float ctsca = 0;
    clsEconomizer Economizer;
    double OilCoolingLimit = 0;
    double OilCoolingLimitEco = 0;
    clsKValues KValues;
    std::string limitName;
    std::string limitEconomizedName;
    int Market = 0;
    std::string fault;  ///< Why the row cannot be read; empty for a sound one.

    // What the row names; empty or null where the catalogue has no such row.
    std::span<const SurfaceRow> capacityRows;
    std::span<const SurfaceRow> powerRows;
    std::span<const SurfaceRow> dischargeRows;
    const MotorRow* motorFull = nullptr;
    const MotorRow* motorSmall = nullptr;
    const Envelope* envelope = nullptr;
    const Envelope* envelopeEconomized = nullptr;
    const SeriesTraits* traits = nullptr;

    /// With any mode of an economizer it is the economized one.
    const Envelope* envelopeFor(EconomizerMode mode) const {
        return mode == EconomizerMode::none ? envelope : envelopeEconomized;
    }

    /// Makes `compressor` this model, ready for a calculation and without results. One that was this model
    /// before is made ready without an allocation. Throws DatabaseError for a row that cannot be read,
    /// std::invalid_argument for an envelope line that does not parse, and ArithmeticFault.
    void load(clsCompressor& compressor, const CompressorChoice& choice) const;

  private:
    bool isOpenDrive() const { return traits->drive == Drive::open; }
    bool hasVariableVi() const { return hasInvert && traits->rows == SurfaceRows::volumeRatio; }
    void readRecord(clsCompressor& compressor) const;
    MotorChoice chooseMotor(clsCompressor& compressor, MotorChoice motorSize) const;
    void readSurfaces(clsCompressor& compressor, const CompressorChoice& choice, double factor) const;
    void readInverterSurfaces(clsCompressor& compressor, const CompressorChoice& choice, double factor) const;
    void readDischargeSurface(clsPolynomialSh& surface) const;
    void readMotor(clsMotor& motor, int motorHz, MotorChoice selectedMotor) const;
    void readEnvelope(clsLimits& limits, bool economized) const;
};

}  // namespace marvello
