#include "tools/catalogue/Index.h"

#include <algorithm>

#include "data/Texts.h"

namespace marvello {

Index::Index(const Content& content) {
    const TableContent& surfaces = content.table("tPolynomials");
    for (const auto& record : surfaces.records) {
        Surface row{&record, {}};
        for (std::size_t i = 0; i < row.surface.c.size(); ++i)
            row.surface.c[i] = surfaces.real(record, "fC" + std::to_string(i + 1));
        surfaces_[{lowered(surfaces.text(record, "fPolynomialID")), surfaces.integer(record, "fType")}]
            .emplace(surfaces.real(record, "fField"), row);
    }
    const TableContent& limits = content.table("tLimits");
    for (const auto& record : limits.records)
        lines_[lowered(limits.text(record, "fLimitID"))].push_back(
            {&record, limits.integer(record, "fType"), parsePoints(limits.text(record, "fPoints"))});
    const TableContent& motors = content.table("tMotors");
    for (const auto& record : motors.records) {
        if (motors.integer(record, "fhz") != 50) continue;
        clsMotor& motor = motors_[motors.integer(record, "fMotorID")];
        motor.ID = motors.integer(record, "fMotorID");
        for (std::size_t i = 0; i < motor.c.size(); ++i)
            motor.c[i] = motors.real(record, "fC" + std::to_string(i + 1));
    }
}

const std::map<double, Index::Surface>& Index::surfaces(const std::string& id, int type) const {
    static const std::map<double, Surface> none;
    const auto found = surfaces_.find({lowered(id), type});
    return found == surfaces_.end() ? none : found->second;
}

const std::vector<Index::Line>& Index::lines(const std::string& limitId) const {
    static const std::vector<Line> none;
    const auto found = lines_.find(lowered(limitId));
    return found == lines_.end() ? none : found->second;
}

const clsMotor* Index::motor(int id) const {
    const auto found = motors_.find(id);
    return found == motors_.end() ? nullptr : &found->second;
}

const Index::Line* lineOfType(const std::vector<Index::Line>& lines, int type) {
    const auto found = std::ranges::find(lines, type, &Index::Line::type);
    return found == lines.end() ? nullptr : &*found;
}

}  // namespace marvello
