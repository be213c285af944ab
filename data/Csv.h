#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/Faults.h"

namespace marvello {

/// One record of a CSV text.
struct CsvRecord {
    int line = 0;  ///< Where the record begins, from 1.
    std::vector<std::string> fields;
    std::string fault{};  ///< What is wrong with its quotes; empty for a sound one.
};

/// The records of a text in the format of RFC 4180: fields separated by `separator`, a field in double quotes
/// may hold separators, line ends and doubled quotes. Lines end with LF or CRLF; empty lines are passed over,
/// and so is a byte order mark. Misplaced quotes and invalid UTF-8 are faults of `file`.
std::vector<CsvRecord> readCsv(std::string_view text, const std::string& file, Faults& faults,
                               char separator = ',');

/// Returns a text in double quotes, as a field of RFC 4180.
std::string csvQuoted(const std::string& text);

/// Returns a text as a field of RFC 4180: in double quotes if it holds a separator, a quote or a line end.
std::string csvField(const std::string& text);

/// Returns a record of fields that are written already, with its line end.
std::string csvJoined(const std::vector<std::string>& written, char separator);

/// Returns a record of these texts, separated by ",", with its line end. A single empty one is in quotes,
/// since an empty line is no record.
std::string csvLine(const std::vector<std::string>& fields);

/// Whether the bytes are well-formed UTF-8: no overlong form, no surrogate, nothing above U+10FFFF.
bool isUtf8(std::string_view bytes);

}  // namespace marvello
