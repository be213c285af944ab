#include "platform/UserLocale.h"

#include <langinfo.h>
#include <clocale>

namespace marvello {

std::string userDecimalMark() {
    const locale_t user = newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (user == nullptr) return ".";
    const std::string mark = nl_langinfo_l(RADIXCHAR, user);
    freelocale(user);
    return mark;
}

}  // namespace marvello
