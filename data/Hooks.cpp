#include "data/Hooks.h"

#include <iostream>

namespace marvello {

Hooks& hooks() {
    static Hooks ofTheProcess;
    return ofTheProcess;
}

void giveTurn() {
    if (hooks().giveTurn) hooks().giveTurn();
}

void showBox(BoxKind kind, const std::string& text) {
    if (hooks().showBox)
        hooks().showBox(kind, text);
    else
        std::cerr << text << '\n';
}

}  // namespace marvello
