#pragma once

#include <string>
#include <vector>

#include "catalogue/clsLimits.h"
#include "tools/catalogue/RatingPoints.h"
#include "tools/surface/Surface.h"

namespace marvello {

/// What a fit is asked for.
struct FitRequest {
    std::string polynomialId = "NAME";
    double field = 100;           ///< fField: capacity step, speed, volume ratio or reference superheat.
    bool isDischarge = false;     ///< Nine coefficients of type 3 instead of ten of type 0 or 1.
    std::vector<clsPoint> limit;  ///< The corners of the envelope that the surface is to serve, or none.
};

/// A surface fitted to one column of rating points.
struct FittedColumn {
    std::string name;
    int type = 0;  ///< fType of the row: 0, or 1 for a column of power, or 3.
    Coefficients coefficients{};
    std::vector<double> residuals;      ///< Surface less value, in the order of the points.
    std::vector<std::string> warnings;  ///< What the points do not tell.
};

/// Fits each column by least squares: of the relative error, or for discharge temperatures of the error. A
/// value of capacity or power that is not positive is a fault of `file`.
std::vector<FittedColumn> fitColumns(const RatingPoints& points, const FitRequest& request,
                                     const std::string& file, Faults& faults);

/// The row as it stands in tPolynomials.csv.
std::string polynomialRow(const FittedColumn& column, const FitRequest& request);

/// Points, residuals, their mean and largest, and the warnings, for a person.
std::string fitReport(const FittedColumn& column, const RatingPoints& points, std::size_t index);

}  // namespace marvello
