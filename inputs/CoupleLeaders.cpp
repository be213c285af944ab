#include "inputs/CoupleLeaders.h"

namespace marvello {

void CoupleLeaders::typed(Input input) {
    const auto couple = coupleOf(input);
    if (couple.empty()) return;
    (couple.front() == Input::evaporatingDew ? evaporating_ : condensing_) = input;
    // Kept: a condensing pressure leaves the temperature that leads as it was.
    if (input == Input::condensingDew || input == Input::condensingMid) condensingTemperature_ = input;
}

std::vector<std::string> CoupleLeaders::names() const {
    // A condensing pressure comes after the temperature that leads under it, so that both lead again.
    std::vector<std::string> names{nameInCouple(evaporating_), nameInCouple(condensingTemperature_)};
    if (condensing_ != condensingTemperature_) names.push_back(nameInCouple(condensing_));
    return names;
}

CoupleLeaders CoupleLeaders::named(std::span<const std::string> names) {
    CoupleLeaders leaders;
    for (const std::string& name : names)
        for (const InputDefinition& definition : allInputs())
            if (!definition.isChoice && name == nameInCouple(definition.input))
                leaders.typed(definition.input);
    return leaders;
}

}  // namespace marvello
