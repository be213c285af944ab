#pragma once

#include <string>

namespace marvello {

/// What goes into a modal dialog and comes out of it.
struct clsParametersForm {
    std::string Key;
    std::string Parameter;  ///< of the choice of refrigerants: their keys, joined with ";"
    std::string Parameter2;
    std::string Parameter3;
    std::string Tag;
};

}  // namespace marvello
