#include "data/Hooks.h"

#include <iostream>
#include <utility>

#include "data/Session.h"

namespace marvello {

void giveTurn() {
    if (const auto& turn = Session::current().hooks.giveTurn) turn();
}

NoTurns::NoTurns() : held_(std::exchange(Session::current().hooks.giveTurn, nullptr)) {}

NoTurns::~NoTurns() { Session::current().hooks.giveTurn = std::move(held_); }

void showBox(BoxKind kind, const std::string& text) {
    if (const auto& show = Session::current().hooks.showBox)
        show(kind, text);
    else
        std::cerr << text << '\n';
}

}  // namespace marvello
