#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "engine/Comparison.h"

namespace marvello {

/// The choices of a comparison in their order. Each has a number that it keeps: what a key press or an open
/// menu is about may be at another place by the time it counts, or gone.
class ComparedChoices {
  public:
    const std::vector<ComparedChoice>& all() const { return choices_; }
    /// In the order of the choices.
    const std::vector<int>& numbers() const { return numbers_; }
    /// None for one that is gone.
    std::optional<std::size_t> placeOf(int number) const;

    void add(const ComparedChoice& choice);
    /// Returns false if it is gone already.
    bool takeOut(int number);
    /// Puts a choice into the place of another one. Returns false if that changes nothing, or one is gone.
    bool move(int number, int intoPlaceOf);
    /// The same by places, as far as there are some.
    bool step(int number, int by);

  private:
    bool moveTo(std::size_t place, std::size_t to);

    std::vector<ComparedChoice> choices_;
    std::vector<int> numbers_;
    int next_ = 0;
};

}  // namespace marvello
