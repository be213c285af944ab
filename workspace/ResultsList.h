#pragma once

#include <QLocale>
#include <QString>

#include "catalogue/clsCompressor.h"
#include "engine/clsOutputs.h"

namespace marvello {

/// The columns of a results list from the text "key|name|unit|description|visibility;...". A piece that lacks
/// its parts, or repeats a key, is left out.
clsOutputs readOutputs(const QString& text);

/// Whether a column of that visibility is shown.
bool isShown(int visibility, bool isImperial, bool hasEconomizer);

/// The mark of a compressor: "ledgreen", "ledorange" with warnings, "ledred" in error or without the
/// economizer that was asked for.
QString markOf(const clsCompressor& compressor);

/// True when the mark leaves the columns blank.
bool isBlank(const clsCompressor& compressor);

/// Returns the unit of a column. In the imperial system the columns that are named there have the units told,
/// and every other one follows its metric unit: temperatures, differences, heat flows and mass flows are
/// converted.
QString unitText(const clsOutput& column, bool isImperial);

/// Returns what is in a column for a calculated compressor, in the system of units. Throws VariableError for
/// a value that is not there.
QString resultText(clsCompressor& compressor, const clsOutput& column, bool isImperial,
                   const QLocale& locale = QLocale());

/// Serie-Model, and Serie-Model-Refrigerant.
QString nameOf(const clsCompressor& compressor);
QString nameWithRefrigerant(const clsCompressor& compressor);

}  // namespace marvello
