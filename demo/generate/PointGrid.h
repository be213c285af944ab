#pragma once

#include <map>
#include <utility>
#include <vector>

#include "demo/generate/OperatingRange.h"
#include "tools/surface/Surface.h"

namespace marvello::generate {

/// The ideal cycle at the points of a grid of 2 K over the over limit of a series, which all its models
/// share.
class PointGrid {
  public:
    /// The arguments are kept by reference.
    PointGrid(const OperatingRange& range, const Fluid& fluid);

    struct Node {
        CyclePoint cycle;
        bool isApplication;
        bool isEconomized;
    };
    const std::vector<Node>& nodes() const { return nodes_; }

    /// A machine at every node, at full load, the discharge temperatures left out.
    std::vector<Performance> performances(const ScrewMachine& machine, double speed = 1) const;

    /// Adds the discharge temperatures.
    void addDischarge(std::vector<Performance>& performances) const;

    /// `of(performance)` at the nodes, those of the application limit only where that is asked for, with
    /// `scaleOf(performance, cycle)` as the scale.
    template <class Of, class ScaleOf>
    std::vector<Sample> samples(const std::vector<Performance>& performances, Of of, ScaleOf scaleOf,
                                bool applicationOnly = false) const {
        std::vector<Sample> found;
        for (std::size_t i = 0; i < nodes_.size(); ++i) {
            const CyclePoint& cycle = nodes_[i].cycle;
            if (applicationOnly && !nodes_[i].isApplication) continue;
            found.push_back(
                {cycle.evaporating, cycle.condensing, of(performances[i]), scaleOf(performances[i], cycle)});
        }
        return found;
    }

  private:
    const std::vector<double>& works(double lowestRatio, double highestRatio) const;

    const Fluid* fluid_;
    std::vector<Node> nodes_;
    mutable std::map<std::pair<double, double>, std::vector<double>> works_;
};

}  // namespace marvello::generate
