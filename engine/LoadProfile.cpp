#include "engine/LoadProfile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>

#include "data/Csv.h"
#include "data/Faults.h"
#include "data/Numbers.h"
#include "data/Texts.h"
#include "engine/YearLimits.h"

namespace marvello {

namespace {

using Reason = LoadProfileFault::Reason;

constexpr std::size_t maxBins = LoadProfile::maxBins;

std::string sentenceOf(Reason reason, const std::string& text) {
    const std::string quoted = '"' + text + '"';
    switch (reason) {
        case Reason::notCsv:
            return text;
        case Reason::noBins:
            return "there are no bins below the heading";
        case Reason::tooManyBins:
            return "there are more than " + std::to_string(maxBins) + " bins, the hours of a year";
        case Reason::missingColumn:
            return "the heading has no column " + quoted + "; it is such as outdoor,hours,load";
        case Reason::repeatedColumn:
            return "the heading has the column " + quoted + " twice";
        case Reason::unknownUnit:
            return quoted + " has a unit that is not known; outdoor may have C or F, hours h and load %";
        case Reason::fieldCount:
            return "the line has not as many fields as the heading; with decimal commas the columns are "
                   "separated by semicolons";
        case Reason::missingValue:
            return text + " is missing";
        case Reason::notANumber:
            return quoted + " is not a number";
        case Reason::outsideRange:
            return quoted + " is not an outdoor temperature from -80 to 70 degrees Celsius";
        case Reason::negativeHours:
            return "the hours " + quoted + " are negative";
        case Reason::hoursAboveYear:
            return "the hours " + quoted + " are more than a year has";
        case Reason::negativeLoad:
            return "the load " + quoted + " is negative";
        case Reason::loadAboveFull:
            return "the load " + quoted +
                   " is above the design load; it is a share from 0 to 1, or percent if the heading says "
                   "load %";
    }
    return text;
}

std::string placed(const LoadProfileFault::Place& place, const std::string& sentence) {
    if (place.file.empty()) return sentence;
    return place.file + (place.line > 0 ? ":" + std::to_string(place.line) : std::string()) + ": " + sentence;
}

/// A column with how its numbers become those of a bin.
struct Column {
    std::string_view name;
    double LoadBin::* member;
    struct Unit {
        std::string_view name;
        double offset, factor, divisor;
    };
    std::array<Unit, 2> units;  // the first one is that of a heading without one
};

constexpr std::array columns{
    Column{"outdoor", &LoadBin::outdoor, {{{"c", 0, 1, 1}, {"f", -32, 5, 9}}}},
    Column{"hours", &LoadBin::hours, {{{"h", 0, 1, 1}, {"hours", 0, 1, 1}}}},
    Column{"load", &LoadBin::load, {{{"", 0, 1, 1}, {"%", 0, 1, 100}}}},
};

/// The unit after the name of a column, without brackets and the degree sign.
std::string unitIn(std::string_view heading, std::string_view name) {
    std::string unit = lowered(heading.substr(name.size()));
    for (const std::string_view dropped : {"\u00b0", "deg", "[", "]", "(", ")", " ", ":"})
        replaceAll(unit, dropped, "");
    return unit;
}

/// The text with empty lines in place of the remarks: a quote in a remark quotes nothing.
std::string withoutRemarks(std::string_view text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    std::string kept;
    bool isQuoted = false;  // at the begin of the line
    for (const std::string& line : splitText(text, '\n')) {
        if (isQuoted || !line.starts_with('#')) {
            kept += line;
            if (std::ranges::count(line, '"') % 2 == 1) isQuoted = !isQuoted;
        }
        kept += '\n';
    }
    return kept;
}

/// What separates the columns: what is in the first line that has any.
char separatorOf(std::string_view text) {
    for (const std::string& line : splitText(text, '\n')) {
        if (trimmed(line).empty()) continue;
        for (const char separator : {';', '\t'})
            if (line.find(separator) != std::string::npos) return separator;
        break;
    }
    return ',';
}

bool isBlank(const CsvRecord& record) {
    return std::ranges::all_of(record.fields,
                               [](const std::string& field) { return trimmed(field).empty(); });
}

/// Where a column of the file goes.
struct Target {
    std::size_t index;  ///< Of the field.
    const Column* column;
    Column::Unit unit;
};

class Reader {
  public:
    Reader(const std::string& file, bool hasLoad) : file_(file), wanted_(hasLoad ? 3 : 2) {}

    LoadProfile read(std::string_view whole) {
        Faults faults;
        const std::string text = withoutRemarks(whole);
        const std::vector<CsvRecord> records = readCsv(text, file_, faults, separatorOf(text));
        if (!faults.empty()) throw LoadProfileFault(Reason::notCsv, {}, faults.lines().front());
        LoadProfile profile;
        for (const CsvRecord& record : records) {
            line_ = record.line;
            if (isBlank(record)) continue;
            if (targets_.empty())
                readHeading(record.fields);
            else if (profile.bins.size() == maxBins)
                refuse(Reason::tooManyBins);
            else
                profile.bins.push_back(binOf(record.fields));
        }
        line_ = 0;
        if (profile.bins.empty()) refuse(Reason::noBins);
        std::ranges::stable_sort(profile.bins, {}, &LoadBin::outdoor);
        return profile;
    }

  private:
    [[noreturn]] void refuse(Reason reason, const std::string& text = {}) const {
        throw LoadProfileFault(reason, {file_, line_}, text);
    }

    void readHeading(const std::vector<std::string>& names) {
        for (std::size_t index = 0; index < names.size(); ++index) {
            const std::string name = trimmed(names[index]);
            for (const Column& column : std::span(columns).first(wanted_)) {
                if (!lowered(name).starts_with(column.name)) continue;
                const auto isSame = [&](const Target& target) { return target.column == &column; };
                if (std::ranges::any_of(targets_, isSame))
                    refuse(Reason::repeatedColumn, std::string(column.name));
                targets_.push_back({index, &column, unitOf(name, column)});
            }
        }
        for (const Column& column : std::span(columns).first(wanted_))
            if (std::ranges::find(targets_, &column, &Target::column) == targets_.end())
                refuse(Reason::missingColumn, std::string(column.name));
        fields_ = names.size();
    }

    Column::Unit unitOf(const std::string& heading, const Column& column) const {
        const std::string stated = unitIn(heading, column.name);
        if (stated.empty()) return column.units.front();
        const auto unit = std::ranges::find(column.units, stated, &Column::Unit::name);
        if (unit == column.units.end()) refuse(Reason::unknownUnit, heading);
        return *unit;
    }

    LoadBin binOf(const std::vector<std::string>& fields) const {
        if (fields.size() != fields_) refuse(Reason::fieldCount);
        LoadBin bin;
        for (const auto& [index, column, unit] : targets_) {
            const std::string text = trimmed(fields[index]);
            if (text.empty()) refuse(Reason::missingValue, std::string(column->name));
            const auto value = localNumber(text);
            if (!value) refuse(Reason::notANumber, text);
            bin.*column->member = (*value + unit.offset) * unit.factor / unit.divisor;
            check(bin, column->member, text);
        }
        return bin;
    }

    void check(const LoadBin& bin, double LoadBin::* member, const std::string& text) const {
        if (const auto reason = faultOf(bin, member)) refuse(*reason, text);
    }

    std::string file_;
    std::size_t wanted_;
    int line_ = 0;
    std::vector<Target> targets_;
    std::size_t fields_ = 0;
};

}  // namespace

double LoadProfile::hours() const {
    double sum = 0;
    for (const LoadBin& bin : bins) sum += bin.hours;
    return sum;
}

bool LoadProfile::isOfAYear() const {
    constexpr double hoursOfAYear = 8760;
    constexpr double hoursOfALeapYear = 8784;
    constexpr double rounding = 0.01;
    const double sum = hours();
    return std::abs(sum - hoursOfAYear) <= rounding || std::abs(sum - hoursOfALeapYear) <= rounding;
}

double LoadProfile::fullLoadHours() const {
    double sum = 0;
    for (const LoadBin& bin : bins) sum += bin.hours * bin.load;
    return sum;
}

std::optional<Reason> faultOf(const LoadBin& bin, double LoadBin::* member) {
    const double value = bin.*member;
    if (member == &LoadBin::outdoor && !yearLimits::outdoorTemperature.holds(value))
        return Reason::outsideRange;
    if (member == &LoadBin::hours && value < yearLimits::binHours.minimum) return Reason::negativeHours;
    if (member == &LoadBin::hours && value > yearLimits::binHours.maximum) return Reason::hoursAboveYear;
    if (member == &LoadBin::load && value < 0) return Reason::negativeLoad;
    if (member == &LoadBin::load && value > 1) return Reason::loadAboveFull;
    return std::nullopt;
}

LoadProfileFault::LoadProfileFault(Reason reason, const Place& place, const std::string& text)
    : std::runtime_error(placed(place, sentenceOf(reason, text))),
      reason(reason),
      line(place.line),
      text(text) {}

LoadProfile loadProfileIn(std::string_view text, const std::string& file, bool hasLoad) {
    return Reader(file, hasLoad).read(text);
}

}  // namespace marvello
