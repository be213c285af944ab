// The rows of tPolynomials against what the program asks of them.

#include <set>

#include "catalogue/clsProjectConditions.h"
#include "data/Numbers.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Index.h"
#include "tools/catalogue/Program.h"
#include "tools/catalogue/Rows.h"
#include "tools/catalogue/SurfaceFields.h"

namespace marvello {

namespace {

constexpr int capacityType = 0;
constexpr int powerType = 1;
constexpr int dischargeType = 3;
constexpr int conversionType = 4;

class SurfaceCheck {
  public:
    SurfaceCheck(const Content& content, Faults& faults)
        : content_(content), index_(content), faults_(faults) {}

    void run() {
        forEachRow(content_, "tCompressors", faults_, [this](const Row& row) { checkRows(row); });
        forEachRow(content_, "tPolynomials", faults_, [this](const Row& row) { checkRow(row); });
    }

  private:
    void checkRows(const Row& row) {
        for (const auto& [column, type] :
             {std::pair{"fPolynomialQ0ID", capacityType}, {"fPolynomialPassID", powerType}}) {
            const std::string& id = row.text(column);
            used_.insert({lowered(id), type});
            const auto& found = index_.surfaces(id, type);
            if (found.empty()) continue;  // told with the references
            for (const double field : fieldsOf(content_, index_, row)) requireRow(row, column, type, field);
        }
        used_.insert({row.key("fPolynomialShID"), dischargeType});
    }

    void requireRow(const Row& row, const std::string& column, int type, double field) {
        const auto& found = index_.surfaces(row.text(column), type);
        const std::string what = "\"" + row.text(column) + "\" of type " + std::to_string(type) +
                                 " and fField " + storedText(field);
        const auto surface = found.find(field);
        if (surface == found.end()) {
            row.fault(column + ": the polynomial " + what + " is missing, which " + askedBy(row) +
                      "; add the row to tPolynomials");
            return;
        }
        // Rows shared by several models are told once.
        if (!surface->second.surface.isOK() && told_.insert(surface->second.record).second)
            faults_.add(
                surface->second.record->file, surface->second.record->line,
                "the coefficients of " + what +
                    " sum to 0, so that the program takes the row for missing; enter the coefficients (" +
                    row.name() + ")");
    }

    static std::string askedBy(const Row& row) {
        if (row.key("fSerieID") == "nl-h") return "a speed on offer asks for";
        if (row.integer("fhasInverter") != 0 && row.key("fSerieID") == "tk-d")
            return "has its other half: capacity and power need the same volume ratios";
        return "a capacity step on offer asks for";
    }

    void checkRow(const Row& row) {
        const int type = row.integer("fType");
        if (type != capacityType && type != powerType && type != dischargeType && type != conversionType) {
            row.fault("fType: " + std::to_string(type) +
                      " is none of 0 capacity, 1 power, 3 discharge temperature, 4 conversion");
            return;
        }
        const auto& rows = index_.surfaces(row.text("fPolynomialID"), type);
        if ((type == dischargeType || type == conversionType) && rows.size() > 1 &&
            rows.begin()->second.record != &row.record)
            row.fault("fField: the program reads one row of type " + std::to_string(type) +
                      " alone and would not know which; remove this one or that at " +
                      placeOf(*rows.begin()->second.record));
        if (type == dischargeType && row.real("fC10") != 0)
            row.fault("fC10: a discharge surface has nine coefficients; enter 0");
        if (type == dischargeType && (row.real("fField") < 0 || row.real("fField") > 50))
            row.fault("fField: a reference superheat of " + storedText(row.real("fField")) +
                      " K is not usual; enter the superheat that the surface holds for");
        if (type != conversionType && !used_.contains({row.key("fPolynomialID"), type}))
            row.warn("no compressor uses the polynomial; remove the row or name it in tCompressors");
    }

    static std::string placeOf(const Record& record) {
        return record.file + ":" + std::to_string(record.line);
    }

    const Content& content_;
    const Index index_;
    Faults& faults_;
    std::set<std::pair<std::string, int>> used_;
    std::set<const Record*> told_;
};

/// The speeds that the forms offer, from the choices of their selector.
std::vector<double> speedsOnOffer(const Content& content) {
    std::vector<double> speeds;
    Faults none;
    forEachRow(content, "tParametersRows", none, [&](const Row& row) {
        if (row.key("fObjectName") != "cmbmotorrpm") return;
        for (const auto& assignment : splitText(row.text("fObjectPropertyValue"), ':')) {
            const auto sides = splitText(assignment, '=');
            if (sides.size() < 2 || lowered(trimmed(sides[0])) != "tag1") continue;
            for (const auto& choice : splitText(sides[1], ';'))
                if (const auto speed = storedNumber(splitText(choice, '|')[0])) speeds.push_back(*speed);
        }
    });
    return speeds;
}

}  // namespace

std::vector<double> fieldsOf(const Content& content, const Index& index, const Row& compressor) {
    const std::string series = compressor.key("fSerieID");
    if (compressor.integer("fhasInverter") != 0) {
        if (series != "tk-d") return {100};
        std::set<double> ratios;
        for (const auto& [column, type] :
             {std::pair{"fPolynomialQ0ID", capacityType}, {"fPolynomialPassID", powerType}})
            for (const auto& [field, row] : index.surfaces(compressor.text(column), type))
                ratios.insert(field);
        return {ratios.begin(), ratios.end()};
    }
    if (series == "nl-h") return speedsOnOffer(content);
    if (offersCapacitySteps(series)) return {capacitySteps.begin(), capacitySteps.end()};
    return {100};
}

void checkSurfaces(const Content& content, Faults& faults) { SurfaceCheck(content, faults).run(); }

}  // namespace marvello
