#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace marvello::fluids {

/// Raises one base to many exponents, each distinct exponent once.
class PowerTable {
  public:
    explicit PowerTable(std::vector<double> exponents);

    std::size_t size() const { return steps_.size(); }

    /// Where the power of one of the exponents stands in the table.
    std::size_t indexOf(double exponent) const;

    /// Fills `powers` (of size()) with base^exponent; `base` is positive.
    void fill(double base, std::span<double> powers) const;

  private:
    struct Step {
        double exponent;
        unsigned gap;  ///< whole distance from the exponent before it, 0 where exp() does it
    };
    std::vector<Step> steps_;
    bool needsLogarithm_ = false;
};

}  // namespace marvello::fluids
