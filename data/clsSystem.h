#pragma once

#include <string>

namespace marvello {

/// The user's locale as the process has it.
class clsSystem {
  public:
    std::string DecimalSeparator() const;
    std::string ThousandSeparator() const;
};

}  // namespace marvello
