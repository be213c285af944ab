#include "data/CollectedBoxes.h"

#include <algorithm>
#include <utility>

namespace marvello {

CollectedBoxes::CollectedBoxes() : former_(std::move(hooks().showBox)) {
    hooks().showBox = [this](BoxKind kind, const std::string& text) {
        const bool isNew = std::ranges::none_of(boxes_, [&](const Box& box) { return box.text == text; });
        if (isNew) boxes_.push_back({kind, text});
    };
}

CollectedBoxes::~CollectedBoxes() { hooks().showBox = std::move(former_); }

}  // namespace marvello
