#include "engine/SeasonalFigure.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace marvello {

double SeasonalRule::loadAt(double outdoor) const {
    const double share = (outdoor - points.back()) / (points.front() - points.back());
    return std::lerp(lowestLoad, 1.0, std::clamp(share, 0.0, 1.0));
}

double partLoadCop(const DeclaredPoint& declared, double demand, const Degradation& degradation) {
    return declared.cop * degradation.factor(std::min(demand / declared.capacity, 1.0));
}

double CopByOutdoor::at(double outdoor) const {
    for (std::size_t i = 0; i < points_.size(); ++i) {
        if (outdoor < points_[i]) continue;
        if (i == 0) return cops_.front();
        return std::lerp(cops_[i], cops_[i - 1], (outdoor - points_[i]) / (points_[i - 1] - points_[i]));
    }
    return cops_.back();
}

double seasonalFigure(const LoadProfile& profile, const CopByOutdoor& cop) {
    double demand = 0;
    double energy = 0;
    for (const LoadBin& bin : profile.bins) {
        demand += bin.hours * bin.load;
        energy += bin.hours * bin.load / cop.at(bin.outdoor);
    }
    return demand / energy;
}

}  // namespace marvello
