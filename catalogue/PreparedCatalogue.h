#pragma once

#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "catalogue/PreparedCompressor.h"
#include "catalogue/RefrigerantFacts.h"
#include "data/clsDatabase.h"

namespace marvello {

/// All compressors of a catalogue with what belongs to them, and the facts of its refrigerants, in memory. It
/// does not change: several threads may use it, and it outlives the file that it was read from.
class PreparedCatalogue {
  public:
    /// Reads the tables of an open catalogue. A row that cannot be read is a fault of those who need it.
    /// Throws DatabaseError for a table that cannot be read.
    explicit PreparedCatalogue(clsDatabase& db);
    PreparedCatalogue(const PreparedCatalogue&) = delete;
    PreparedCatalogue& operator=(const PreparedCatalogue&) = delete;

    /// In the order of the file.
    std::span<const PreparedCompressor> compressors() const { return compressors_; }

    /// The first model of the names, case ignored, or null.
    const PreparedCompressor* find(std::string_view refrigerant, std::string_view serie,
                                   std::string_view model) const;

    /// The facts of a refrigerant, case ignored; empty ones for a refrigerant that the file does not know.
    const RefrigerantFacts& factsOf(std::string_view refrigerant) const;

  private:
    void readSurfaces(clsDatabase& db);
    void readMotors(clsDatabase& db);
    void readEnvelopes(clsDatabase& db);
    void readCompressors(clsDatabase& db);
    void readFacts(clsDatabase& db);
    PreparedCompressor compressorOf(const RecordSet& row) const;

    std::span<const SurfaceRow> surfaces(const std::string& id, int type) const;
    const MotorRow* motor(int id) const;
    const Envelope* envelope(const std::string& id) const;

    // By names in lower case.
    std::map<std::pair<std::string, int>, std::vector<SurfaceRow>> surfaces_;
    std::unordered_map<int, MotorRow> motors_;
    std::unordered_map<std::string, Envelope> envelopes_;
    std::vector<PreparedCompressor> compressors_;
    std::unordered_map<std::string, std::size_t> byName_;
    std::unordered_map<std::string, RefrigerantFacts> facts_;
};

/// The catalogue of the open file, read once for each state of it: a file that was replaced or written to is
/// opened anew and read again. Connections to one catalogue share it. Throws DatabaseError.
std::shared_ptr<const PreparedCatalogue> preparedCatalogue(clsDatabase& db);

}  // namespace marvello
