#include "catalogue/clsCompressor.h"

#include <memory>

#include "catalogue/PreparedCatalogue.h"

namespace marvello {

double clsCompressor::Fla2() {
    Fla = fla2_;
    return 0;
}

bool clsCompressor::GetCompressorFromDb(clsDatabase& db, const clsProjectConditions& project,
                                        const std::string& refrigerant, const std::string& serie,
                                        const std::string& model, int motorHz, int motorRpm, int motorSize,
                                        bool economized, std::uint8_t stepCapacity) {
    const auto catalogue = preparedCatalogue(db);
    const PreparedCompressor* found = catalogue->find(refrigerant, serie, model);
    if (found == nullptr) return false;
    found->load(*this, {project.TEvaporatingDew, project.TCondensationDew, project.InverterFrequency, motorHz,
                        motorRpm, static_cast<MotorChoice>(motorSize), economized, stepCapacity});
    return true;
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
        copy.Variables.add(variable->Name(), variable->value(), variable->Description(),
                           variable->UnitMeasuretext(), variable->Tag());
    }
    return copy;
}

}  // namespace marvello
