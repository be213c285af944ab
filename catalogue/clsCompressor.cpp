#include "catalogue/clsCompressor.h"

#include <stdexcept>

#include "catalogue/Coefficients.h"
#include "catalogue/SeriesTraits.h"
#include "data/Arithmetic.h"
#include "data/Numbers.h"
#include "data/Texts.h"

namespace marvello {

namespace {

clsPolynomial scaledSurface(const RecordSet& row, double frequencyFactor, double speedFactor = 1) {
    clsPolynomial surface;
    readCoefficients(row, surface.c);
    for (double& c : surface.c) c = checked(c * frequencyFactor * speedFactor);
    return surface;
}

std::string surfaceQuery(const std::string& id, int type, const std::string& rest = {}) {
    return "Select * from tPolynomials where fPolynomialID='" + id + "' and fType=" + std::to_string(type) +
           rest;
}

}  // namespace

std::string clsCompressor::Key() const { return Refrigerant + "-" + Serie + "-" + Sequence + "-" + Model; }

double clsCompressor::Fla2() {
    Fla = fla2_;
    return 0;
}

bool clsCompressor::GetCompressorFromDb(clsDatabase& db, const clsProjectConditions& project,
                                        const std::string& refrigerant, const std::string& serie,
                                        const std::string& model, int motorHz, int motorRpm, int motorSize,
                                        bool economized, std::uint8_t stepCapacity) {
    const RecordSet row =
        db.Execute("SELECT  tCompressors.* FROM tCompressors  Where fRefrigerantID='" + refrigerant +
                   "' and fSerieID='" + serie + "' and fModelID='" + model +
                   "' ORDER BY tCompressors.fRefrigerantID, tCompressors.fSerieID, tCompressors.fModelID");
    if (row.eof()) return false;

    readRecord(row);
    polynomialPta.Load = stepCapacity;
    PolynomialQ0.Load = stepCapacity;
    const MotorChoice selectedMotor = chooseMotor(static_cast<MotorChoice>(motorSize));
    OilCoolingLimit = row.number(economized ? "fOilCoolingLimitEco" : "fOilCoolingLimit");

    // The surfaces are for 50 Hz. At 60 Hz a motor turns 1.2 times as fast; an open compressor has its own
    // drive.
    constexpr float at60Hertz = 1.2F;
    const float frequencyFactor = motorHz == 60 && !isOpenDrive_ ? at60Hertz : 1.0F;
    if (hasInvert) {
        LoadInverterPolynomials(db, static_cast<float>(project.TEvaporatingDew),
                                static_cast<float>(project.TCondensationDew), project.InverterFrequency,
                                frequencyFactor);
        if (hasVariableVi_) VI = localText(storedNumber(InverterInfo.ViSelected).value_or(0) / 10);
    } else {
        readSurfaces(db, motorRpm, frequencyFactor);
    }
    readDischargeSurface(db, row.text("fPolynomialShID"));
    readMotor(db, row.integer(selectedMotor == MotorChoice::full ? "fMotorFullID" : "fMotorSmallID"), motorHz,
              selectedMotor);
    readEnvelope(db, row.text(economized ? "fLimitEconomizedID" : "fLimitID"));
    return true;
}

void clsCompressor::readRecord(const RecordSet& row) {
    Refrigerant = row.text("fRefrigerantID");
    Serie = row.text("fSerieID");
    Model = row.text("fModelID");
    Fla = row.number("fFla");
    fla2_ = row.number("fFla2");
    Sequence = row.NullToDefault("fSequence", "");
    VI = row.NullToDefault("fVI", "");
    polynomialPta.Name = row.text("fPolynomialPassID");
    PolynomialQ0.Name = row.text("fPolynomialQ0ID");
    hasInvert = row.boolean("fhasInverter");
    const SeriesTraits& traits = seriesTraits(Serie);
    isOpenDrive_ = traits.drive == Drive::open;
    hasVariableVi_ = hasInvert && traits.rows == SurfaceRows::volumeRatio;
    InverterInfo.Q0C1 = row.number("fInverterQ0C1");
    InverterInfo.Q0C2 = row.number("fInverterQ0C2");
    InverterInfo.Q0C3 = row.number("fInverterQ0C3");
    InverterInfo.PtaC1 = row.number("fInverterPtaC1");
    InverterInfo.PtaC2 = row.number("fInverterPtaC2");
    InverterInfo.PtaC3 = row.number("fInverterPtaC3");
    InverterInfo.CaC1 = row.number("fInverterCaC1");
    InverterInfo.CaC2 = row.number("fInverterCaC2");
    InverterInfo.CaC3 = row.number("fInverterCaC3");
    hasFullSmallMotor = row.boolean("fhasFullSmallMotor");
    isMotorSmallDefault = row.boolean("fisSmallMotorStandard");
    StartMode = row.integer("fStartMode");
    ctsca = static_cast<float>(row.number("fCtsca"));
    Economizer.KForo = row.number("fKForo");
    Economizer.KPerdita = row.number("fKPerdita");
    Economizer.Sez = row.number("fSez");
    KValues.Value1 = row.number("fValue1");
}

MotorChoice clsCompressor::chooseMotor(MotorChoice motorSize) {
    if (!hasFullSmallMotor) return MotorChoice::full;
    if (motorSize == MotorChoice::standard)
        motorSize = isMotorSmallDefault ? MotorChoice::small : MotorChoice::full;
    if (motorSize == MotorChoice::small) Fla = fla2_;
    return motorSize;
}

void clsCompressor::readSurfaces(clsDatabase& db, int motorRpm, float frequencyFactor) {
    const auto read = [&](clsPolynomial& surface, int type) {
        const int field = isOpenDrive_ ? motorRpm : surface.Load;
        const RecordSet row =
            db.Execute(surfaceQuery(surface.Name, type, " and fField=" + std::to_string(field)));
        if (!row.eof()) surface.c = scaledSurface(row, static_cast<double>(frequencyFactor)).c;
    };
    read(PolynomialQ0, 0);
    read(polynomialPta, 1);
}

void clsCompressor::readDischargeSurface(clsDatabase& db, const std::string& polynomialId) {
    PolynomialSh.Name = polynomialId;
    const RecordSet row = db.Execute(surfaceQuery(polynomialId, 3));
    if (row.eof()) return;
    readCoefficients(row, PolynomialSh.c);
    PolynomialSh.Sh = row.number("fField");
}

void clsCompressor::LoadInverterPolynomials(clsDatabase& db, float tEvaporating, float tCondensing,
                                            float frequency, float frequencyFactor) {
    const std::string rows = hasVariableVi_ ? " order by fField" : " and fField=100 order by fField";
    const double factor = static_cast<double>(frequencyFactor);
    double bestEfficiency = -1e15;
    for (RecordSet row = db.Execute(surfaceQuery(PolynomialQ0.Name, 0, rows)); !row.eof(); row.moveNext()) {
        const std::string field = storedText(row.number("fField"));
        const clsPolynomial capacity = scaledSurface(row, factor, InverterInfo.getKQ0(frequency));
        clsPolynomial power;
        const RecordSet powerRow =
            db.Execute(surfaceQuery(polynomialPta.Name, 1, " and fField =" + field + " order by fField"));
        if (!powerRow.eof()) power = scaledSurface(powerRow, factor, InverterInfo.getKPta(frequency));

        if (!capacity.isOK() || !power.isOK()) {
            // An incomplete pair spoils the whole model, a better row found before included.
            PolynomialQ0.c.fill(0);
            polynomialPta.c.fill(0);
            return;
        }
        const double absorbed = power.Calculate(tEvaporating, tCondensing);
        if (absorbed == 0) {
            throw ArithmeticFault("The power surface of " + Serie + " " + Model + " is 0 at the conditions.");
        }
        const double efficiency = checked(capacity.Calculate(tEvaporating, tCondensing) / absorbed);
        if (efficiency > bestEfficiency) {
            bestEfficiency = efficiency;
            InverterInfo.ViSelected = field;
            PolynomialQ0.c = capacity.c;
            polynomialPta.c = power.c;
        }
    }
}

void clsCompressor::readMotor(clsDatabase& db, int motorId, int motorHz, MotorChoice selectedMotor) {
    const RecordSet row =
        db.Execute("Select * from tMotors where fMotorID =" + std::to_string(motorId) + " and fhz=50");
    if (row.eof()) return;
    Motor.ID = row.integer("fMotorId");
    readCoefficients(row, Motor.c);
    Motor.Hz = motorHz;
    Motor.Lra1 = row.number("fLra1");
    Motor.Lra2 = row.number("fLra2");
    Motor.MotorType = selectedMotor;
    Motor.isStandard = !hasFullSmallMotor || (selectedMotor == MotorChoice::full && !isMotorSmallDefault) ||
                       (selectedMotor == MotorChoice::small && isMotorSmallDefault);
    Motor.Phase = row.integer("fPhase");
    Motor.NominalPower = row.NullToDefault("FNominalPower", "");
}

void clsCompressor::readEnvelope(clsDatabase& db, const std::string& limitId) {
    for (RecordSet row = db.Execute("Select * from tLimits where fLimitID='" + limitId + "'"); !row.eof();
         row.moveNext()) {
        auto limit = std::make_shared<clsLimit>();
        try {
            limit->Points = parsePoints(row.text("fPoints"));
        } catch (const std::invalid_argument& fault) {
            throw std::invalid_argument("The envelope " + limitId + " of " + Serie + " " + Model +
                                        " does not parse: " + fault.what() + ".");
        }
        limit->setType(row.integer("fType"));
        limits.add(std::move(limit));
    }
}

clsCompressor clsCompressor::Clone() {
    clsCompressor copy;
    copy.CompressorType = CompressorType;
    copy.ctsca = ctsca;
    copy.Economizer = Economizer;
    copy.Fla = Fla;
    copy.setFla2(Fla2());
    for (const auto& limit : limits) {
        auto copied = std::make_shared<clsLimit>(*limit);
        copied->Points.ClearAll();
        for (const clsPoint& point : limit->Points) copied->Points.add(point.x, point.Y);
        copy.limits.add(std::move(copied));
    }
    copy.Model = Model;
    copy.Motor = Motor;
    copy.OilCoolingLimit = OilCoolingLimit;
    copy.polynomialPta = polynomialPta;
    copy.PolynomialQ0 = PolynomialQ0;
    copy.PolynomialSh = PolynomialSh;
    copy.Refrigerant = Refrigerant;
    copy.Sequence = Sequence;
    copy.Serie = Serie;
    copy.StartMode = StartMode;
    copy.hasFullSmallMotor = hasFullSmallMotor;
    copy.isMotorSmallDefault = isMotorSmallDefault;
    for (const auto& variable : Variables) {
        copy.Variables.add(variable->Name, variable->value(), variable->Description,
                           variable->UnitMeasuretext, variable->Tag);
    }
    return copy;
}

}  // namespace marvello
