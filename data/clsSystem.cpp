#include "data/clsSystem.h"

#include <clocale>
#include <mutex>

namespace marvello {

namespace {

/// The library keeps what it returns in one place for the process; threads take turns there.
std::string mark(char* std::lconv::* which) {
    static std::mutex turns;
    const std::lock_guard turn(turns);
    return std::localeconv()->*which;
}

}  // namespace

std::string clsSystem::DecimalSeparator() const { return mark(&std::lconv::decimal_point); }

std::string clsSystem::ThousandSeparator() const { return mark(&std::lconv::thousands_sep); }

}  // namespace marvello
