#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/select/YearQuestion.h"

namespace marvello::select {

/// A year that was calculated.
struct YearAnswer {
    const YearQuestion& question;
    const Year& year;
    const std::optional<FourPoints>& fourPoints;  ///< Of a profile with a rule.
};

/// Returns a year in the format of its question: a table to read with its assumptions, a line of CSV for each
/// bin, or an object of JSON. Numbers of the last two read back exactly.
std::string yearText(const YearAnswer& answer);

/// Returns a sentence for what a reader of the totals has to know: load that is not met, hours that are no
/// year.
std::vector<std::string> yearRemarks(const YearAnswer& answer);

/// Returns the sentence for a plant that can run in no bin, with the reasons in the first one.
std::string cannotRun(const YearAnswer& answer);

}  // namespace marvello::select
