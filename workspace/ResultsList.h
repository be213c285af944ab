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

/// The unit that a column has in the imperial system, "F" for degrees Fahrenheit; empty where it keeps its
/// own.
QString imperialUnit(const QString& key);

/// What stands in the column `key` for a calculated compressor, in the measure system. Raises VariableError
/// for a value that is not there.
QString resultText(clsCompressor& compressor, const QString& key, bool isImperial,
                   const QLocale& locale = QLocale());

/// Serie-Model, and Serie-Model-Refrigerant.
QString nameOf(const clsCompressor& compressor);
QString nameWithRefrigerant(const clsCompressor& compressor);

}  // namespace marvello
