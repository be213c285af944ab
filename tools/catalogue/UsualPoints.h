#pragma once

#include <map>
#include <string>

#include "catalogue/PreparedCatalogue.h"
#include "catalogue/clsLimits.h"

namespace marvello {

/// A series with a refrigerant, in lower case, without or with economizer.
struct SeriesChoice {
    std::string refrigerant;
    std::string serie;
    bool economized = false;

    auto operator<=>(const SeriesChoice&) const = default;
};

/// The usual operating points of series, dew temperatures in degrees Celsius.
using UsualPoints = std::map<SeriesChoice, clsPoint>;

/// Whether the form of a compressor offers the economizer and the catalogue has its envelope.
bool hasEconomizer(const PreparedCompressor& compressor);

SeriesChoice seriesChoiceOf(const PreparedCompressor& compressor, bool economized);

/// Returns the usual operating point of each series with each refrigerant of a catalogue, with economizer as
/// well where some model has one: the first values of the forms, if they are inside of the application limit
/// of half of the models at least. Otherwise, for a series of other temperatures, the centre of that limit,
/// to whole degrees, which is inside of most.
UsualPoints usualPoints(const PreparedCatalogue& catalogue);

/// Returns the area within a closed line, K^2.
double areaOf(const clsPoints& line);

}  // namespace marvello
