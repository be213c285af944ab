#include "catalogue/PreparedCatalogue.h"

#include <mutex>
#include <stdexcept>

#include "catalogue/Coefficients.h"
#include "data/Texts.h"

namespace marvello {

namespace {

std::string nameOf(std::string_view refrigerant, std::string_view serie, std::string_view model) {
    std::string name;
    name.append(refrigerant).append(1, '\0').append(serie).append(1, '\0').append(model);
    return lowered(name);
}

/// Runs `read`; what is wrong with the row becomes its fault.
void readSoundly(std::string& fault, const auto& read) {
    try {
        read();
    } catch (const DatabaseError& failure) {
        fault = failure.what();
    }
}

/// Those that are in use, by the digest of their file.
std::shared_ptr<const PreparedCatalogue> shared(clsDatabase& db) {
    static std::mutex one;
    static std::map<std::string, std::weak_ptr<const PreparedCatalogue>> byDigest;
    const std::string digest = db.checkedDigest();
    if (digest.empty()) return std::make_shared<const PreparedCatalogue>(db);
    const std::lock_guard lock(one);
    std::erase_if(byDigest, [](const auto& entry) { return entry.second.expired(); });
    auto found = byDigest[digest].lock();
    if (!found) byDigest[digest] = found = std::make_shared<const PreparedCatalogue>(db);
    return found;
}

}  // namespace

PreparedCatalogue::PreparedCatalogue(clsDatabase& db) {
    readSurfaces(db);
    readMotors(db);
    readEnvelopes(db);
    readCompressors(db);
    readFacts(db);
}

void PreparedCatalogue::readSurfaces(clsDatabase& db) {
    for (RecordSet row = db.Execute("Select * from tPolynomials order by fPolynomialID, fType, fField");
         !row.eof(); row.moveNext()) {
        SurfaceRow& surface =
            surfaces_[{lowered(row.text("fPolynomialID")), row.integer("fType")}].emplace_back();
        readSoundly(surface.fault, [&] {
            surface.field = row.number("fField");
            readCoefficients(row, surface.c);
        });
    }
}

void PreparedCatalogue::readMotors(clsDatabase& db) {
    for (RecordSet row = db.Execute("Select * from tMotors where fhz=50"); !row.eof(); row.moveNext()) {
        MotorRow& motor = motors_[row.integer("fMotorID")];
        readSoundly(motor.fault, [&] {
            motor.ID = row.integer("fMotorID");
            readCoefficients(row, motor.c);
            motor.Lra1 = row.number("fLra1");
            motor.Lra2 = row.number("fLra2");
            motor.Phase = row.integer("fPhase");
            motor.NominalPower = row.NullToDefault("FNominalPower", "");
        });
    }
}

void PreparedCatalogue::readEnvelopes(clsDatabase& db) {
    for (RecordSet row = db.Execute("Select * from tLimits order by rowid"); !row.eof(); row.moveNext()) {
        Envelope& envelope = envelopes_[lowered(row.text("fLimitID"))];
        if (!envelope.fault.empty()) continue;
        auto limit = std::make_shared<clsLimit>();
        try {
            limit->setType(row.integer("fType"));
            limit->Points = parsePoints(row.text("fPoints"));
            envelope.limits.add(std::move(limit));
        } catch (const std::invalid_argument& fault) {
            envelope.fault = fault.what();
        }
    }
}

void PreparedCatalogue::readCompressors(clsDatabase& db) {
    for (RecordSet row = db.Execute("Select * from tCompressors order by rowid"); !row.eof();
         row.moveNext()) {
        PreparedCompressor& compressor = compressors_.emplace_back();
        readSoundly(compressor.fault, [&] { compressor = compressorOf(row); });
        const std::string name =
            nameOf(row.text("fRefrigerantID"), row.text("fSerieID"), row.text("fModelID"));
        byName_.emplace(name, compressors_.size() - 1);
    }
}

void PreparedCatalogue::readFacts(clsDatabase& db) {
    if (!db.hasTable("tRefrigerantFacts")) return;  // a catalogue from before there were facts
    for (RecordSet row = db.Execute("Select * from tRefrigerantFacts"); !row.eof(); row.moveNext()) {
        std::string unread;  // a faulty row counts as none: facts are only shown
        readSoundly(unread, [&] {
            facts_[lowered(row.text("fRefrigeranteId"))] = {
                .safetyClass = row.NullToDefault("fSafetyClass", ""),
                .gwpAr4 = row.optionalNumber("fGwpAr4"),
                .gwpAr5 = row.optionalNumber("fGwpAr5"),
                .gwpAr6 = row.optionalNumber("fGwpAr6"),
                .odp = row.optionalNumber("fOdp"),
                .boilingPoint = row.optionalNumber("fBoilingPoint"),
                .glide = row.optionalNumber("fGlide"),
                .criticalTemperature = row.optionalNumber("fCriticalTemperature")};
        });
    }
}

const RefrigerantFacts& PreparedCatalogue::factsOf(std::string_view refrigerant) const {
    static const RefrigerantFacts none;
    const auto found = facts_.find(lowered(refrigerant));
    return found == facts_.end() ? none : found->second;
}

PreparedCompressor PreparedCatalogue::compressorOf(const RecordSet& row) const {
    PreparedCompressor c;
    c.Refrigerant = row.text("fRefrigerantID");
    c.Serie = row.text("fSerieID");
    c.Model = row.text("fModelID");
    c.Sequence = row.NullToDefault("fSequence", "");
    c.VI = row.NullToDefault("fVI", "");
    c.Fla = row.number("fFla");
    c.Fla2 = row.number("fFla2");
    c.polynomialQ0Name = row.text("fPolynomialQ0ID");
    c.polynomialPtaName = row.text("fPolynomialPassID");
    c.polynomialShName = row.text("fPolynomialShID");
    c.hasInvert = row.boolean("fhasInverter");
    clsInverter& inverter = c.InverterInfo;
    inverter.Q0C1 = row.number("fInverterQ0C1");
    inverter.Q0C2 = row.number("fInverterQ0C2");
    inverter.Q0C3 = row.number("fInverterQ0C3");
    inverter.PtaC1 = row.number("fInverterPtaC1");
    inverter.PtaC2 = row.number("fInverterPtaC2");
    inverter.PtaC3 = row.number("fInverterPtaC3");
    inverter.CaC1 = row.number("fInverterCaC1");
    inverter.CaC2 = row.number("fInverterCaC2");
    inverter.CaC3 = row.number("fInverterCaC3");
    c.hasFullSmallMotor = row.boolean("fhasFullSmallMotor");
    c.isMotorSmallDefault = row.boolean("fisSmallMotorStandard");
    c.StartMode = row.integer("fStartMode");
    c.ctsca = static_cast<float>(row.number("fCtsca"));
    c.Economizer.KForo = row.number("fKForo");
    c.Economizer.KPerdita = row.number("fKPerdita");
    c.Economizer.Sez = row.number("fSez");
    c.OilCoolingLimit = row.number("fOilCoolingLimit");
    c.OilCoolingLimitEco = row.number("fOilCoolingLimitEco");
    c.KValues.Value1 = row.number("fValue1");
    c.motorFull = motor(row.integer("fMotorFullID"));
    c.motorSmall = motor(row.integer("fMotorSmallID"));
    c.limitName = row.text("fLimitID");
    c.limitEconomizedName = row.text("fLimitEconomizedID");
    c.Market = row.integer("fMarket");
    c.capacityRows = surfaces(c.polynomialQ0Name, 0);
    c.powerRows = surfaces(c.polynomialPtaName, 1);
    c.dischargeRows = surfaces(c.polynomialShName, 3);
    c.envelope = envelope(c.limitName);
    c.envelopeEconomized = envelope(c.limitEconomizedName);
    c.traits = &seriesTraits(c.Serie);
    return c;
}

std::span<const SurfaceRow> PreparedCatalogue::surfaces(const std::string& id, int type) const {
    const auto found = surfaces_.find({lowered(id), type});
    if (found == surfaces_.end()) return {};
    return found->second;
}

const MotorRow* PreparedCatalogue::motor(int id) const {
    const auto found = motors_.find(id);
    return found == motors_.end() ? nullptr : &found->second;
}

const Envelope* PreparedCatalogue::envelope(const std::string& id) const {
    const auto found = envelopes_.find(lowered(id));
    return found == envelopes_.end() ? nullptr : &found->second;
}

const PreparedCompressor* PreparedCatalogue::find(std::string_view refrigerant, std::string_view serie,
                                                  std::string_view model) const {
    const auto found = byName_.find(nameOf(refrigerant, serie, model));
    return found == byName_.end() ? nullptr : &compressors_[found->second];
}

std::shared_ptr<const PreparedCatalogue> preparedCatalogue(clsDatabase& db) {
    db.followFile();
    std::shared_ptr<const void>& kept = db.kept();
    if (!kept) kept = shared(db);
    return std::static_pointer_cast<const PreparedCatalogue>(kept);
}

}  // namespace marvello
