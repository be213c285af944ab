#pragma once

#include <functional>
#include <map>

namespace marvello {

/// Finds the frequency at which a compressor on an inverter has a wanted capacity. What was calculated is
/// kept for the next wanted one.
class FrequencySearch {
  public:
    /// What the compressor comes to at a frequency.
    struct Trial {
        bool isPossible = false;  ///< Calculated without an error.
        double capacity = 0;      ///< kW
    };
    using Calculate = std::function<Trial(float frequency)>;

    /// Between two frequencies, both included, Hz. Where errors stand at an end of the range, it begins or
    /// ends where they do, to 0.001 Hz.
    FrequencySearch(float from, float to, Calculate calculate);

    /// Whether there is any frequency without an error.
    bool isPossible() const;

    /// Returns the frequency at which the capacity comes nearest to the wanted one, in kW: within 1e-9 of it
    /// where the capacity is steady, which that of an economizer search is not quite; an end of the range if
    /// it is beyond it. Needs a possible one.
    float solve(double wanted);

  private:
    using Trials = std::map<float, Trial>;

    const Trial& at(float frequency);
    void sample(float from, float to);
    void narrowToError(float possible, float failing);
    void refine(float low, float high, double wanted);
    float nearest(double wanted) const;

    Calculate calculate_;
    Trials trials_;
};

}  // namespace marvello
