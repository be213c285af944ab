#pragma once

#include <string>
#include <vector>

#include "data/Numbers.h"
#include "engine/PartLoad.h"
#include "results/Chart.h"
#include "thermo/UnitSystem.h"

namespace marvello {

/// A machine over its load as people read it.
struct PartLoadSheet {
    struct Column {
        std::string key;
        std::string name;
        std::string unit;         ///< Empty for a number without one.
        std::string description;  ///< Empty where the name says it all.
        bool isText = false;
    };
    struct Row {
        std::string label;
        PointState state{};
        std::vector<std::string> values;  ///< One for each column.
    };
    std::string full;             ///< What the full capacity is.
    std::string label;            ///< Heads the labels.
    std::vector<Column> columns;  ///< Load, condensing temperature, figures, among them a sentence.
    std::string statesTitle;      ///< "Step capacity", or "Frequency".
    std::vector<Row> states;
    std::string sharesTitle;
    std::vector<Row> shares;
};

/// The shares of the table and of reports, the largest first.
std::vector<double> tableShares();

/// What is calculated for a page, which also has a chart: the states, the shares of the table, and behind
/// them what the curves go through.
PartLoadQuestion partLoadQuestion(const PartLoadPlan& plan);

/// Returns the table of a question of partLoadQuestion().
PartLoadSheet partLoadSheet(const PreparedCompressor& compressor, const PartLoadTable& table,
                            UnitSystem units, const NumberMarks& marks);

/// Returns the chart of such a question: COP and power input over the load, the states as rings; solid where
/// a frequency can be set, dashed where two steps run by turns, dotted where the machine runs intermittently.
Chart partLoadChart(const PreparedCompressor& compressor, const PartLoadTable& table, UnitSystem units);

}  // namespace marvello
