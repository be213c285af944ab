#include "results/Drawing.h"

namespace marvello {

double drawnWidth(const DrawnText& text) {
    constexpr double letterWidth = 0.56;
    constexpr double signWidth = 1;
    double width = 0;
    for (const char c : text.text) {
        const auto byte = static_cast<unsigned char>(c);
        constexpr unsigned char firstOfSign = 0xE0;
        const bool isContinued = (byte & 0xC0) == 0x80;
        if (!isContinued) width += byte >= firstOfSign ? signWidth : letterWidth;
    }
    return width * text.size;
}

}  // namespace marvello
