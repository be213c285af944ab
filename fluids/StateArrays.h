#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "fluids/FluidModel.h"
#include "fluids/PhaseLanes.h"

namespace marvello::fluids {

/// Finds many states of one phase, several at once in the vector unit. States are sorted by the polynomials
/// of the table of isobars that serve them, so that those next to each other begin from the same. Allocates
/// nothing.
class StateArrays {
  public:
    /// Where the states go, in any order.
    class Sink {
      public:
        virtual ~Sink() = default;
        /// The state in a lane; enthalpy and entropy on the equation's own zero.
        virtual void take(std::size_t place, const PhaseLanes& states, std::size_t lane) = 0;
        /// A state that is to be searched alone: in two phases, next to them, or where the table has none.
        virtual void leave(std::size_t place) = 0;
    };

    /// Both must outlive this.
    StateArrays(const FluidModel& fluid, Sink& sink) : fluid_(&fluid), sink_(&sink) {}

    /// The states of pressures in kPa and as many values of a property, which are `zero` higher than on the
    /// equation's own zero.
    void find(Property property, std::span<const double> pressures, std::span<const double> values,
              double zero);

  private:
    static constexpr std::size_t blockSize = 512;
    using Index = std::uint16_t;
    /// What is asked, in the lanes.
    struct Query {
        Lanes within, pressure, value;
    };

    void findBlock(std::size_t size);
    void sort(std::size_t size);
    template <class Run>
    void forEachRun(std::size_t size, Run run);
    void fill(std::span<const Index> states, Query& query) const;
    void chooseStretches(std::span<const Index> states);
    void search(std::span<const Index> states);

    const FluidModel* fluid_;
    Sink* sink_;
    Property property_ = Property::enthalpy;
    std::span<const double> pressures_;
    std::span<const double> values_;
    double zero_ = 0;
    std::size_t first_ = 0;  ///< of the block
    // Of each state of the block: its place in its cell, and the number of its stretch among those of all
    // cells.
    std::array<double, blockSize> within_;
    std::array<Index, blockSize> keys_;
    Index none_ = 0;                      ///< the key of what is left
    std::array<Index, blockSize> order_;  ///< the states by their keys
};

}  // namespace marvello::fluids
