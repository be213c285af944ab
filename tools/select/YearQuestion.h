#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "catalogue/PreparedCatalogue.h"
#include "engine/ShippedProfiles.h"
#include "engine/Tewi.h"
#include "engine/Year.h"
#include "tools/select/Request.h"

namespace marvello::select {

enum class YearFormat : std::uint8_t { table, csv, json };

/// A year as the command line states it.
struct YearQuestion {
    Request request;         ///< Its temperatures are not read.
    std::string machines{};  ///< As stated, such as "TK-A-120x2;TK-D-140".
    std::string profile{};   ///< A name or a file.
    std::string grid{};      ///< A number or a region; empty for the first one of the table.
    YearRequest year{};      ///< complete() adds machines, profile and what follows from it.
    std::optional<Degradation> degradation{};  ///< That of the profile's rule if it is not stated.
    EmissionInputs emissions{};
    GwpBasis gwp = GwpBasis::ar4;
    std::optional<double> price{};  ///< Of a kWh, in any currency.
    YearFormat format = YearFormat::table;

    // Filled by complete().
    ShippedProfile chosen{};  ///< A file of the user's has its name and no rule.
    std::string gridSource{};
};

/// An option of this command under the name that the command line uses.
struct YearOption {
    std::string_view name;
    std::string_view help;
    void (*read)(YearQuestion&, const std::string& text);
};

/// Those besides the options of a selection.
std::span<const YearOption> yearOptions();

/// Whether an option of a selection is one of this command too: the refrigerant and the options of the
/// calculation, without the temperatures and what a year finds.
bool isYearOption(const RequestOption& option);

/// Reads one option. Throws BadRequest with its name, the value and what is allowed.
void readOption(YearQuestion& question, const YearOption& option, const std::string& text);

/// Completes what follows from the options, with the tables of the application folder. Throws BadRequest for
/// what is missing or does not go together, NothingMatches for a name that the catalogue does not have, and
/// std::runtime_error for a damaged table.
void complete(YearQuestion& question, const PreparedCatalogue& catalogue,
              const std::filesystem::path& applicationFolder);

}  // namespace marvello::select
