#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "data/Session.h"

namespace marvello::bench {

/// A series of a refrigerant.
struct Series {
    std::string refrigerant;
    std::string name;
};

/// A catalogue file of a size that a shipped one may reach, opened in a session of its own: the compressors
/// of the text tables repeated under further models and series, with surfaces of their own, until there are
/// `least` of them. The property library is that of the built application folder. Nothing is left of it
/// afterwards.
class GrownCatalogue {
  public:
    explicit GrownCatalogue(int least);
    ~GrownCatalogue();
    GrownCatalogue(const GrownCatalogue&) = delete;
    GrownCatalogue& operator=(const GrownCatalogue&) = delete;

    std::string file() const { return (folder_ / "db.mdb").string(); }

  private:
    Session session_;
    std::filesystem::path folder_;
};

/// The series of the open catalogue, those of a refrigerant in a row.
std::vector<Series> seriesOfCatalogue();

}  // namespace marvello::bench
