#include "data/Hooks.h"

#include <iostream>

#include "data/Session.h"

namespace marvello {

void giveTurn() {
    if (const auto& turn = Session::current().hooks.giveTurn) turn();
}

void showBox(BoxKind kind, const std::string& text) {
    if (const auto& show = Session::current().hooks.showBox)
        show(kind, text);
    else
        std::cerr << text << '\n';
}

}  // namespace marvello
