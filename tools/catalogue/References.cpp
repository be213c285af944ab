#include <cmath>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "catalogue/SeriesTraits.h"
#include "data/Numbers.h"
#include "data/clsApplication.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Rows.h"

namespace marvello {

namespace {

namespace fs = std::filesystem;

/// What the rows of a table can be found by.
template <class Key>
using Known = std::set<Key>;

class ReferenceCheck {
  public:
    ReferenceCheck(const Content& content, Faults& faults) : content_(content), faults_(faults) {
        forEach("tRefrigeranti", [&](const auto& row) { refrigerants_.insert(row.key("fRefrigeranteId")); });
        forEach("tPolynomials", [&](const auto& row) {
            polynomials_.emplace(row.key("fPolynomialID"), row.integer("fType"));
        });
        forEach("tLimits", [&](const auto& row) { limits_.insert(row.key("fLimitID")); });
        forEach("tMotors", [&](const auto& row) {
            if (row.integer("fhz") == 50) motors_.insert(row.integer("fMotorID"));
        });
        forEach("tLanguages", [&](const auto& row) { languages_.insert(row.key("fLanguage")); });
        forEach("tDictionary", [&](const auto& row) {
            if (equalIgnoringCase(row.text("fLanguageID"), defaultLanguage))
                texts_.insert(row.key("fVariableName"));
        });
    }

    void checkCompressors() {
        constexpr int dischargeType = 3;
        constexpr std::string_view noSurface = "-";  // how a compressor says that it has none
        forEach("tCompressors", [&](const auto& row) {
            require(row, refrigerants_.contains(row.key("fRefrigerantID")), "fRefrigerantID", "refrigerant",
                    "tRefrigeranti");
            for (const auto& [column, type] : {std::pair{"fPolynomialQ0ID", 0},
                                               {"fPolynomialPassID", 1},
                                               {"fPolynomialShID", dischargeType}})
                require(row,
                        polynomials_.contains({row.key(column), type}) ||
                            (type == dischargeType && row.text(column) == noSurface),
                        column, "polynomial of type " + std::to_string(type), "tPolynomials");
            require(row, limits_.contains(row.key("fLimitID")), "fLimitID", "envelope", "tLimits");
            const std::string economized = row.key("fLimitEconomizedID");
            require(row, economized.empty() || limits_.contains(economized), "fLimitEconomizedID", "envelope",
                    "tLimits");
            checkMotors(row);
        });
        for (const RefrigerantTraits& traits : allRefrigerantTraits()) {
            if (!traits.hasMidTemperatures() || !refrigerants_.contains(lowered(traits.name))) continue;
            for (const auto conversion : {traits.evaporatingMidSurface, traits.condensingMidSurface})
                if (!polynomials_.contains({lowered(conversion), 4}))
                    faults_.add("tPolynomials", "the polynomial " + std::string(conversion) +
                                                    " of type 4 is missing, which the forms need for " +
                                                    std::string(traits.name) + "; add its row");
        }
    }

    void checkFluids(const std::optional<fs::path>& folder) {
        constexpr int maxComponents = 20;  // as many as the property library takes
        constexpr double tolerance = 1e-6;
        struct Mixture {
            int components = 0;
            double sum = 0;
        };
        std::map<std::string, Mixture> mixtures;
        forEach("tFluidi", [&](const auto& row) {
            require(row, refrigerants_.contains(row.key("fRefrigeranteId")), "fRefrigeranteId", "refrigerant",
                    "tRefrigeranti");
            auto& mixture = mixtures[row.key("fRefrigeranteId")];
            mixture.sum += row.real("fPFluido");
            if (row.real("fPFluido") <= 0)
                row.fault("fPFluido: a mass fraction is above 0; enter it or remove the row");
            if (++mixture.components == maxComponents + 1)
                row.fault("more than 20 components; the property library takes no more");
            if (folder && !fs::is_regular_file(*folder / row.text("fFluido")))
                row.fault("fFluido: there is no file " + row.text("fFluido") + " in " + folder->string() +
                          "; add it or correct the name");
        });
        forEach("tRefrigeranti", [&](const auto& row) {
            const auto& mixture = mixtures[row.key("fRefrigeranteId")];
            if (mixture.components == 0)
                row.fault("the refrigerant has no row in tFluidi; add its components");
            else if (std::abs(mixture.sum - 1) > tolerance)
                row.fault("the mass fractions sum to " + storedText(mixture.sum) +
                          " and not to 1; correct fPFluido in tFluidi");
        });
    }

    void checkTexts() {
        for (const auto& [table, language] :
             {std::pair{"tDictionary", "fLanguageID"}, {"thelp", "flanguage"}})
            forEach(table, [&, column = language](const auto& row) {
                require(row, languages_.contains(row.key(column)), column, "language", "tLanguages");
            });
        // The default language is the fallback: a key that it lacks is misspelt or has no text for others.
        forEach("tDictionary", [&](const auto& row) {
            if (!texts_.contains(row.key("fVariableName")))
                row.fault("the key " + row.text("fVariableName") + " has no text in " + defaultLanguage +
                          "; add it there or correct the key");
        });
    }

  private:
    template <class Check>
    void forEach(std::string_view table, Check check) {
        forEachRow(content_, table, faults_, check);
    }

    static void require(const Row& row, bool found, const std::string& column, const std::string& what,
                        const std::string& table) {
        if (!found)
            row.fault(column + ": there is no " + what + " \"" + row.text(column) + "\"; add it to " + table +
                      " or correct the name");
    }

    void checkMotors(const Row& row) {
        // The current of these comes from elsewhere, so that they do without a motor; 0 or less says so.
        const bool optional =
            row.integer("fhasInverter") != 0 || seriesTraits(row.text("fSerieID")).drive == Drive::open;
        const auto check = [&](const std::string& column) {
            const int id = row.integer(column);
            if (!motors_.contains(id) && !(optional && id <= 0))
                row.fault(column + ": there is no motor " + std::to_string(id) +
                          " for 50 Hz; add it to tMotors or correct the number");
        };
        check("fMotorFullID");
        if (row.integer("fhasFullSmallMotor") != 0) check("fMotorSmallID");
    }

    const Content& content_;
    Faults& faults_;
    Known<std::string> refrigerants_;
    Known<std::pair<std::string, int>> polynomials_;
    Known<std::string> limits_;
    Known<int> motors_;
    Known<std::string> languages_;
    Known<std::string> texts_;
};

}  // namespace

void checkReferences(const Content& content, const std::optional<fs::path>& fluids, Faults& faults) {
    ReferenceCheck check(content, faults);
    check.checkCompressors();
    check.checkFluids(fluids);
    check.checkTexts();
}

}  // namespace marvello
