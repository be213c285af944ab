#include "data/CollectedBoxes.h"

#include <algorithm>
#include <utility>

#include "data/Session.h"

namespace marvello {

CollectedBoxes::CollectedBoxes() : former_(std::move(Session::current().hooks.showBox)) {
    Session::current().hooks.showBox = [this](BoxKind kind, const std::string& text) {
        const bool isNew = std::ranges::none_of(boxes_, [&](const Box& box) { return box.text == text; });
        if (isNew) boxes_.push_back({kind, text});
    };
}

CollectedBoxes::~CollectedBoxes() { Session::current().hooks.showBox = std::move(former_); }

}  // namespace marvello
