#include "workspace/ComparedChoices.h"

#include <algorithm>
#include <iterator>

namespace marvello {

namespace {

template <class Values>
void rotate(Values& values, std::size_t place, std::size_t to) {
    const auto at = [&values](std::size_t index) {
        return values.begin() + static_cast<std::ptrdiff_t>(index);
    };
    if (to > place)
        std::rotate(at(place), at(place + 1), at(to + 1));
    else
        std::rotate(at(to), at(place), at(place + 1));
}

}  // namespace

std::optional<std::size_t> ComparedChoices::placeOf(int number) const {
    const auto found = std::ranges::find(numbers_, number);
    if (found == numbers_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - numbers_.begin());
}

void ComparedChoices::add(const ComparedChoice& choice) {
    choices_.push_back(choice);
    numbers_.push_back(next_++);
}

bool ComparedChoices::takeOut(int number) {
    const auto place = placeOf(number);
    if (!place) return false;
    choices_.erase(choices_.begin() + static_cast<std::ptrdiff_t>(*place));
    numbers_.erase(numbers_.begin() + static_cast<std::ptrdiff_t>(*place));
    return true;
}

bool ComparedChoices::move(int number, int intoPlaceOf) {
    const auto place = placeOf(number);
    const auto to = placeOf(intoPlaceOf);
    return place && to && moveTo(*place, *to);
}

bool ComparedChoices::step(int number, int by) {
    const auto place = placeOf(number);
    if (!place) return false;
    const auto to = static_cast<std::ptrdiff_t>(*place) + by;
    return to >= 0 && to < std::ssize(choices_) && moveTo(*place, static_cast<std::size_t>(to));
}

bool ComparedChoices::moveTo(std::size_t place, std::size_t to) {
    if (place == to) return false;
    rotate(choices_, place, to);
    rotate(numbers_, place, to);
    return true;
}

}  // namespace marvello
