#include "platform/UserLocale.h"

#include <clocale>

namespace marvello {

std::string userDecimalMark() {
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    if (std::setlocale(LC_NUMERIC, "") == nullptr) return ".";
    std::string mark = std::localeconv()->decimal_point;
    std::setlocale(LC_NUMERIC, before.c_str());
    return mark;
}

}  // namespace marvello
