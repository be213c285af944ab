#pragma once

#include <array>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "data/Session.h"
#include "tests/support/TemporaryFolder.h"

namespace marvello::testing {

/// A catalogue file of the test's own, with the schema of the real one, open in a session; the property
/// library is that of the built application folder. Nothing is left of it afterwards.
class SmallCatalogue {
  public:
    SmallCatalogue();

    /// Adds a row to tCompressors: R134A, series TK-A, model 100, surfaces "S", motor 1, envelope "E" and no
    /// frills, with the given columns changed. Values are SQL literals.
    void compressor(const std::map<std::string, std::string>& changes = {});
    void surface(const std::string& id, int type, double field, const std::vector<double>& coefficients);
    /// Capacity and power of the default surfaces "S" at a step, a speed or ten times a volume ratio.
    void surfaces(double field, const std::vector<double>& capacity, const std::vector<double>& power);
    void motor(int id, const std::array<double, 5>& coefficients, double lra1 = 300, double lra2 = 100);
    void limit(const std::string& id, int type, const std::string& points);
    void text(const std::string& key, const std::string& text, const std::string& language = "en-EN");

    /// The refrigerant R407C, a blend with glide.
    void blendR407C();
    /// The rows that make the default compressor complete: see SmallCatalogue.cpp.
    void completeDefault();

    void exec(const std::string& sql);

    Session session;
    /// What the recorded message boxes said.
    std::vector<std::string> boxes;

  private:
    test::TemporaryFolder folder_{"marvello-small"};
};

}  // namespace marvello::testing
