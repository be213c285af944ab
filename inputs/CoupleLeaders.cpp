#include "inputs/CoupleLeaders.h"

namespace marvello {

void CoupleLeaders::typed(Input input) {
    const auto couple = coupleOf(input);
    if (couple.empty()) return;
    (couple.front() == Input::evaporatingDew ? evaporating_ : condensing_) = input;
    // Kept: a condensing pressure leaves the temperature that leads as it was.
    if (input == Input::condensingDew || input == Input::condensingMid) condensingTemperature_ = input;
}

}  // namespace marvello
