#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "demo/generate/CsvTable.h"
#include "demo/generate/Series.h"

namespace marvello::generate {

/// One size of housing of a series: what its models have in common but for their rotors.
struct BodyPlan {
    std::string name;
    double displacementTo = 0;  ///< m^3/h at 2900 rpm, of its largest model
    std::string suction;        ///< nominal size of the valve, in inches or DN
    std::string discharge;
    std::string economizer;  ///< empty without a port
    double oil = 0;          ///< l
    double weightFrom = 0;   ///< kg, of its smallest and its largest model
    double weightTo = 0;
};

/// The technical data of all models as parameter sets "catalog": captions and values that the page of a
/// compressor and the report show. They fit a model with any refrigerant.
struct TechnicalData {
    CsvTable heads;
    CsvTable rows;
};

/// The sets of `series`, with the bodies of `plans`/bodies.csv. Throws std::runtime_error that names what
/// does not fit.
TechnicalData technicalData(const std::vector<SeriesPlan>& series, const std::filesystem::path& plans);

}  // namespace marvello::generate
