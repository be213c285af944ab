#include "data/clsSystem.h"

#include <clocale>

namespace marvello {

std::string clsSystem::DecimalSeparator() const { return std::localeconv()->decimal_point; }

std::string clsSystem::ThousandSeparator() const { return std::localeconv()->thousands_sep; }

}  // namespace marvello
