#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/clsLimits.h"
#include "catalogue/clsMotor.h"
#include "catalogue/clsPolynomial.h"
#include "tools/catalogue/Content.h"

namespace marvello {

/// The tables by what the program finds their rows with.
class Index {
  public:
    explicit Index(const Content& content);

    struct Surface {
        const Record* record;
        clsPolynomial surface;  ///< Of type 3 its first nine coefficients count.
    };
    /// The rows of a polynomial by their field; empty when there are none.
    const std::map<double, Surface>& surfaces(const std::string& id, int type) const;

    struct Line {
        const Record* record;
        int type;
        clsPoints points;
    };
    /// The lines of an envelope in their order; empty when there are none.
    const std::vector<Line>& lines(const std::string& limitId) const;

    /// The row of 50 Hz, or nothing.
    const clsMotor* motor(int id) const;

  private:
    std::map<std::pair<std::string, int>, std::map<double, Surface>> surfaces_;
    std::map<std::string, std::vector<Line>> lines_;
    std::map<int, clsMotor> motors_;
};

/// The first line of a type, or nothing.
const Index::Line* lineOfType(const std::vector<Index::Line>& lines, int type);

}  // namespace marvello
