#pragma once

#include <string>
#include <vector>

#include "tools/catalogue/Content.h"

namespace marvello {

/// A value, or the reason why the text is none.
struct ParsedField {
    Value value;
    std::string reason;
};

/// Reads a field of a text table as a column of its kind stores it.
ParsedField parsedField(const std::string& field, ColumnKind kind);

/// Returns a value as a text table has it, numbers as short as they read back the same. Throws
/// std::runtime_error for a number that is not finite.
std::string fieldText(const Value& value, ColumnKind kind);

/// Returns a value such that two rows hold the same if and only if these texts are the same: of numbers and
/// polylines what they say, not how they are written.
std::string comparedText(const Value& value, ColumnKind kind);

/// Returns the key of a row such that two rows of a table have the same if and only if these texts are the
/// same; empty for a table without a key.
std::string keyText(const Table& table, const std::vector<Value>& values);

}  // namespace marvello
