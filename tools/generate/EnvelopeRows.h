#pragma once

#include <string>
#include <vector>

#include "tools/generate/Series.h"

namespace marvello::generate {

/// Which of the envelopes of a series a model has.
struct EnvelopeKind {
    bool smallMotor = false;
    bool earlyOilFilter = false;
    bool narrow = false;
    bool economized = false;

    bool operator==(const EnvelopeKind&) const = default;
};

/// The envelopes of one series with one refrigerant. Models of the same kind share one.
class EnvelopeRows {
  public:
    /// Finds where discharge temperature calls for oil cooling and for injection, from the series' middle
    /// model.
    EnvelopeRows(const SeriesPlan& series, const Fluid& fluid);

    /// The identity of an envelope in the catalogue, such as "TK-A-R134A-S".
    std::string idOf(const EnvelopeKind& kind);

    /// Adds the rows (identity, type, points) of every envelope that was asked for.
    void write(std::vector<std::vector<std::string>>& rows) const;

  private:
    void writeOne(const EnvelopeKind& kind, std::vector<std::vector<std::string>>& rows) const;
    std::string nameOf(const EnvelopeKind& kind) const;
    Region applicationOf(const EnvelopeKind& kind) const;

    const SeriesPlan* series_;
    BrokenLine oilCooling_;
    BrokenLine injection_;
    std::vector<EnvelopeKind> asked_;
};

}  // namespace marvello::generate
