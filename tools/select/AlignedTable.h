#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "data/Texts.h"

namespace marvello::select {

using Cells = std::vector<std::string>;

/// Returns the widths of columns: as given, or as the widest cell and a blank need.
inline std::vector<std::size_t> widthsOf(const std::vector<Cells>& lines, std::vector<std::size_t> widths) {
    for (const Cells& line : lines)
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], letterCount(line[i]) + 1);
    return widths;
}

/// Returns a line of cells; those behind the first `words` are numbers and set to the right.
inline std::string lineText(const Cells& cells, const std::vector<std::size_t>& widths, std::size_t words) {
    std::string text;
    for (std::size_t i = 0; i < cells.size(); ++i) text += padded(cells[i], widths[i], i >= words);
    return text + '\n';
}

}  // namespace marvello::select
