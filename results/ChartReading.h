#pragma once

#include <string>
#include <vector>

#include "data/Numbers.h"
#include "results/Chart.h"

namespace marvello {

/// What a chart says at a place across.
struct ChartReading {
    struct Value {
        std::string name;  ///< of the curve
        std::string text;  ///< with its unit, such as "150.0 kW"; of an outline "22.5 – 65.0 °C"
        std::vector<DrawnPoint> points;
        bool isOnSecond = false;
    };
    std::string at;  ///< "T. E. Dew -5.0 °C"
    double across = 0;
    std::vector<Value> values;  ///< in the order of the curves; only of those that are there
};

/// Returns the places across at which a chart is read, in order: those of the points of its named curves, and
/// the whole numbers within an outline.
std::vector<double> readPlaces(const Chart& chart);

/// Reads the named curves at a place, between two points of a curve on the line through them. Numbers are
/// written by the patterns of the axes.
ChartReading readChart(const Chart& chart, double across, const NumberMarks& marks);

}  // namespace marvello
