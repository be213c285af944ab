#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace marvello {

/// Hours of a year that are alike.
struct LoadBin {
    double outdoor = 0;  ///< degrees Celsius
    double hours = 0;
    double load = 1;  ///< What is needed, as a share of the design load.

    bool operator==(const LoadBin&) const = default;
};

/// What a plant has to do over a year, by outdoor temperature.
struct LoadProfile {
    static constexpr std::size_t maxBins = 8784;  ///< The hours of a leap year.

    std::vector<LoadBin> bins{};  ///< The coldest first; bins of one temperature as they were stated.

    double hours() const;
    /// Whether the hours are those of a year, or of a leap year.
    bool isOfAYear() const;
    /// The hours at the design load that need as much.
    double fullLoadHours() const;

    bool operator==(const LoadProfile&) const = default;
};

/// Why a text is no load profile. `what()` is a sentence with file and line; a window makes its own of the
/// rest.
class LoadProfileFault : public std::runtime_error {
  public:
    enum class Reason : std::uint8_t {
        notCsv,  ///< Quotes or letters; `text` says what.
        noBins,
        tooManyBins,
        missingColumn,   ///< `text` is its name.
        repeatedColumn,  ///< The same.
        unknownUnit,     ///< `text` is the heading of the column.
        fieldCount,      ///< The line has more or fewer fields than the heading.
        missingValue,    ///< `text` is the name of the column.
        notANumber,      ///< `text` is what is there.
        outsideRange,    ///< The same: outdoor temperatures are from -80 to 70 degrees Celsius.
        negativeHours,
        hoursAboveYear,
        negativeLoad,
        loadAboveFull,
    };
    struct Place {
        std::string file;
        int line = 0;  ///< From 1; 0 for the whole file.
    };

    LoadProfileFault(Reason reason, const Place& place, const std::string& text = {});

    Reason reason;
    int line;
    std::string text;
};

/// Why a value of a bin is refused; none for a good one.
std::optional<LoadProfileFault::Reason> faultOf(const LoadBin& bin, double LoadBin::* member);

/// Reads a load profile from CSV: a heading with the columns "outdoor", "hours" and "load" in any order, then
/// a line for each bin, in any order. A unit may follow a name, bare or in brackets: C or F for the outdoor
/// temperature (C), h, % for the load (a share of the design load). Columns are separated by ",", ";" or
/// tabs, and numbers have "." or ",". Other columns, empty lines and lines that begin with "#" are passed
/// over. Without `hasLoad` there is no column "load", and the design load is needed all the time. `file` is
/// what messages call it. Throws LoadProfileFault.
LoadProfile loadProfileIn(std::string_view text, const std::string& file, bool hasLoad = true);

}  // namespace marvello
