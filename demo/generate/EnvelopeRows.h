#pragma once

#include <string>
#include <vector>

#include "demo/generate/OperatingRange.h"
#include "demo/generate/Series.h"

namespace marvello::generate {

/// Which of the envelopes of a series a model has.
struct EnvelopeKind {
    bool smallMotor = false;
    bool earlyOilFilter = false;
    bool narrow = false;
    bool economized = false;

    bool operator==(const EnvelopeKind&) const = default;
};

/// Share of the application limit, from its upper right, that an inverter compressor may not use at a
/// frequency.
struct FrequencyBound {
    double hertz;
    double below;  ///< K below the greatest condensing temperature
    double left;   ///< K left of the greatest evaporating temperature
};

/// The frequencies with a line of their own, fastest first; the slowest may use the whole limit.
const std::vector<FrequencyBound>& frequencyBounds();

/// The envelopes of one series with one refrigerant. Models of the same kind share one.
class EnvelopeRows {
  public:
    /// Finds where discharge temperature calls for oil cooling and for injection. The arguments are kept by
    /// reference.
    EnvelopeRows(const SeriesPlan& series, const OperatingRange& range, const Fluid& fluid);

    /// The identity of an envelope in the catalogue, such as "TK-A-R134A-S".
    std::string idOf(const EnvelopeKind& kind);

    /// Adds the rows (identity, type, points) of every envelope that was asked for.
    void write(std::vector<std::vector<std::string>>& rows) const;

  private:
    void writeOne(const EnvelopeKind& kind, std::vector<std::vector<std::string>>& rows) const;
    std::string nameOf(const EnvelopeKind& kind) const;
    BrokenLine contour(double limit) const;

    const SeriesPlan* series_;
    const OperatingRange* range_;
    const Fluid* fluid_;
    ScrewMachine usual_;
    BrokenLine cooling_;  ///< where the first kind of cooling begins, and the second below
    BrokenLine moreCooling_;
    BrokenLine coolingEco_;
    BrokenLine moreCoolingEco_;
    BrokenLine leastDifference_;
    std::vector<EnvelopeKind> asked_;
};

/// The application limit of models of a kind.
Region applicationOf(const OperatingRange& range, const EnvelopeKind& kind);

}  // namespace marvello::generate
