#include "catalogue/PreparedCompressor.h"

#include <algorithm>
#include <stdexcept>

#include "data/Arithmetic.h"
#include "data/Numbers.h"

namespace marvello {

namespace {

template <class Row>
const Row& sound(const Row& row) {
    if (!row.fault.empty()) throw DatabaseError(row.fault);
    return row;
}

using Coefficients = std::array<double, 10>;

Coefficients scaled(const SurfaceRow& row, double frequencyFactor, double speedFactor = 1) {
    Coefficients scaled = sound(row).c;
    for (double& c : scaled) c = checked(c * frequencyFactor * speedFactor);
    return scaled;
}

const SurfaceRow* rowAt(std::span<const SurfaceRow> rows, double field) {
    const auto found = std::ranges::find(rows, field, &SurfaceRow::field);
    return found == rows.end() ? nullptr : &*found;
}

}  // namespace

void PreparedCompressor::load(clsCompressor& compressor, const CompressorChoice& choice) const {
    sound(*this);
    readRecord(compressor);
    compressor.polynomialPta.Load = choice.stepCapacity;
    compressor.PolynomialQ0.Load = choice.stepCapacity;
    const MotorChoice selectedMotor = chooseMotor(compressor, choice.motorSize);
    compressor.OilCoolingLimit = choice.economized ? OilCoolingLimitEco : OilCoolingLimit;

    // The surfaces are for 50 Hz. At 60 Hz a motor turns 1.2 times as fast; an open compressor has its own
    // drive.
    constexpr float at60Hertz = 1.2F;
    const auto factor = static_cast<double>(choice.motorHz == 60 && !isOpenDrive() ? at60Hertz : 1.0F);
    if (hasInvert)
        readInverterSurfaces(compressor, choice, factor);
    else
        readSurfaces(compressor, choice, factor);
    readDischargeSurface(compressor.PolynomialSh);
    readMotor(compressor.Motor, choice.motorHz, selectedMotor);
    readEnvelope(compressor.limits, choice.economized);
}

void PreparedCompressor::readRecord(clsCompressor& compressor) const {
    compressor.Messages.Clear();
    compressor.Variables.Clear();
    compressor.Refrigerant = Refrigerant;
    compressor.Serie = Serie;
    compressor.Model = Model;
    compressor.Fla = Fla;
    compressor.setFla2(Fla2);
    compressor.Sequence = Sequence;
    compressor.VI = VI;
    compressor.polynomialPta.Name = polynomialPtaName;
    compressor.PolynomialQ0.Name = polynomialQ0Name;
    compressor.polynomialPta.c.fill(0);
    compressor.PolynomialQ0.c.fill(0);
    compressor.hasInvert = hasInvert;
    compressor.InverterInfo = InverterInfo;
    compressor.hasFullSmallMotor = hasFullSmallMotor;
    compressor.isMotorSmallDefault = isMotorSmallDefault;
    compressor.StartMode = StartMode;
    compressor.ctsca = ctsca;
    compressor.Economizer = Economizer;
    compressor.KValues = KValues;
}

MotorChoice PreparedCompressor::chooseMotor(clsCompressor& compressor, MotorChoice motorSize) const {
    if (!hasFullSmallMotor) return MotorChoice::full;
    if (motorSize == MotorChoice::standard)
        motorSize = isMotorSmallDefault ? MotorChoice::small : MotorChoice::full;
    if (motorSize == MotorChoice::small) compressor.Fla = Fla2;
    return motorSize;
}

void PreparedCompressor::readSurfaces(clsCompressor& compressor, const CompressorChoice& choice,
                                      double factor) const {
    const double field = isOpenDrive() ? choice.motorRpm : choice.stepCapacity;
    if (const SurfaceRow* row = rowAt(capacityRows, field)) compressor.PolynomialQ0.c = scaled(*row, factor);
    if (const SurfaceRow* row = rowAt(powerRows, field)) compressor.polynomialPta.c = scaled(*row, factor);
}

void PreparedCompressor::readInverterSurfaces(clsCompressor& compressor, const CompressorChoice& choice,
                                              double factor) const {
    constexpr double onlyField = 100;  // of a model without a choice of volume ratios
    const auto tEvaporating = static_cast<float>(choice.TEvaporatingDew);
    const auto tCondensing = static_cast<float>(choice.TCondensationDew);
    const double speedOfQ0 = InverterInfo.getKQ0(choice.InverterFrequency);
    const double speedOfPta = InverterInfo.getKPta(choice.InverterFrequency);
    clsPolynomial& q0 = compressor.PolynomialQ0;
    clsPolynomial& pta = compressor.polynomialPta;
    double bestEfficiency = -1e15;
    const SurfaceRow* best = nullptr;
    for (const SurfaceRow& row : capacityRows) {
        if (!hasVariableVi() && row.field != onlyField) continue;
        clsPolynomial capacity;
        clsPolynomial power;
        capacity.c = scaled(row, factor, speedOfQ0);
        if (const SurfaceRow* powerRow = rowAt(powerRows, row.field))
            power.c = scaled(*powerRow, factor, speedOfPta);
        if (!capacity.isOK() || !power.isOK()) {
            // An incomplete pair spoils the whole model, a better row found before included.
            q0.c.fill(0);
            pta.c.fill(0);
            break;
        }
        const double absorbed = power.Calculate(tEvaporating, tCondensing);
        if (absorbed == 0) {
            throw ArithmeticFault("The power surface of " + Serie + " " + Model + " is 0 at the conditions.");
        }
        const double efficiency = checked(capacity.Calculate(tEvaporating, tCondensing) / absorbed);
        if (efficiency <= bestEfficiency) continue;
        bestEfficiency = efficiency;
        best = &row;
        q0.c = capacity.c;
        pta.c = power.c;
    }
    if (best != nullptr) compressor.InverterInfo.ViSelected = storedText(best->field);
    if (hasVariableVi()) compressor.VI = localText((best == nullptr ? 0 : best->field) / 10);
}

/// The first row, which has the lowest field.
void PreparedCompressor::readDischargeSurface(clsPolynomialSh& surface) const {
    surface.Name = polynomialShName;
    surface.Sh = 0;
    surface.c.fill(0);
    if (dischargeRows.empty()) return;
    const SurfaceRow& row = sound(dischargeRows.front());
    std::copy_n(row.c.begin(), surface.c.size(), surface.c.begin());
    surface.Sh = row.field;
}

void PreparedCompressor::readMotor(clsMotor& motor, int motorHz, MotorChoice selectedMotor) const {
    motor = {};
    const MotorRow* found = selectedMotor == MotorChoice::full ? motorFull : motorSmall;
    if (found == nullptr) return;
    const MotorRow& row = sound(*found);
    motor.ID = row.ID;
    motor.c = row.c;
    motor.Hz = motorHz;
    motor.Lra1 = row.Lra1;
    motor.Lra2 = row.Lra2;
    motor.MotorType = selectedMotor;
    motor.isStandard = !hasFullSmallMotor || (selectedMotor == MotorChoice::full && !isMotorSmallDefault) ||
                       (selectedMotor == MotorChoice::small && isMotorSmallDefault);
    motor.Phase = row.Phase;
    motor.NominalPower = row.NominalPower;
}

void PreparedCompressor::readEnvelope(clsLimits& limits, bool economized) const {
    const Envelope* found = economized ? envelopeEconomized : envelope;
    if (found == nullptr) {
        limits = {};
        return;
    }
    if (!found->fault.empty())
        throw std::invalid_argument("The envelope " + (economized ? limitEconomizedName : limitName) +
                                    " of " + Serie + " " + Model + " does not parse: " + found->fault + ".");
    // Threads with this compressor would wait for each other's counts of who shares the lines.
    if (!limits.sharesLinesWith(found->limits)) limits = found->limits;
}

}  // namespace marvello
