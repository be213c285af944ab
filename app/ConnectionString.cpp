#include "app/ConnectionString.h"

#include <charconv>
#include <stdexcept>

namespace marvello {

namespace {

constexpr std::string_view passwordDigits = "104097114098111117114119111114107";
constexpr std::string_view userDigits = "109097114118101108108111";

}  // namespace

std::string textOfDigits(std::string_view digits) {
    constexpr std::size_t groupLength = 3;
    std::string text;
    for (std::size_t start = 0; start < digits.size(); start += groupLength) {
        const auto group = digits.substr(start, groupLength);
        int code = -1;
        const auto [end, error] = std::from_chars(group.data(), group.data() + group.size(), code);
        if (group.size() != groupLength || error != std::errc() || end != group.data() + group.size() ||
            code < 0 || code > 255)
            throw std::invalid_argument("\"" + std::string(group) +
                                        "\" is no character code of three digits.");
        text += static_cast<char>(code);
    }
    return text;
}

std::string catalogueConnectionString(const std::string& folder) {
    return "Provider=Microsoft.Jet.OLEDB.4.0;Password=" + textOfDigits(passwordDigits) +
           ";User ID=" + textOfDigits(userDigits) + ";Data Source=" + folder +
           "\\db.mdb;Persist Security Info=True;Jet OLEDB:System database=" + folder + "\\db";
}

}  // namespace marvello
