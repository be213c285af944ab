#include "demo/generate/PointGrid.h"

namespace marvello::generate {

PointGrid::PointGrid(const OperatingRange& range, const Fluid& fluid) : fluid_(&fluid) {
    constexpr double step = 2;
    const Region& over = range.over;
    for (double x = over.left(); x <= over.right(); x += step) {
        for (double y = over.lower().points().front().y; y <= over.upper().points().back().y; y += step) {
            if (!over.contains(x, y)) continue;
            nodes_.push_back(
                {cycleAt(fluid, x, y), range.application.contains(x, y), range.economized.contains(x, y)});
        }
    }
}

const std::vector<double>& PointGrid::works(double lowestRatio, double highestRatio) const {
    std::vector<double>& works = works_[{lowestRatio, highestRatio}];
    if (works.empty()) {
        for (const Node& node : nodes_)
            works.push_back(specificWork(node.cycle, *fluid_, lowestRatio, highestRatio));
    }
    return works;
}

std::vector<Performance> PointGrid::performances(const ScrewMachine& machine, double speed) const {
    const std::vector<double>& work = works(machine.lowestRatio, machine.highestRatio);
    std::vector<Performance> found;
    found.reserve(nodes_.size());
    for (std::size_t i = 0; i < nodes_.size(); ++i)
        found.push_back(fullLoad(machine, nodes_[i].cycle, work[i], speed));
    return found;
}

void PointGrid::addDischarge(std::vector<Performance>& performances) const {
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
        Performance& found = performances[i];
        found.dischargeTemperature = fluid_->temperature(nodes_[i].cycle.high, found.dischargeEnthalpy);
    }
}

}  // namespace marvello::generate
