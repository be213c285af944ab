#include "tools/select/Run.h"

#include <utility>

#include "catalogue/Globals.h"
#include "data/ApplicationFolder.h"
#include "data/CollectedBoxes.h"
#include "data/Globals.h"
#include "data/Texts.h"
#include "engine/AbortRequested.h"
#include "thermo/clsRefprop.h"

namespace marvello::select {

namespace {

bool catalogueHas(const std::string& condition) {
    return !gDatabase().Execute("Select fModelID from tCompressors where " + condition + " limit 1").eof();
}

/// Each name is looked up before it reaches the engine, so that an answer says what is missing.
void checkNames(const Request& request) {
    const std::string ofRefrigerant = "fRefrigerantID=" + sqlText(request.refrigerant);
    if (!catalogueHas(ofRefrigerant)) {
        throw NothingMatches("The catalogue has no refrigerant " + request.refrigerant + ".");
    }
    const std::string ofSeries = ofRefrigerant + " and fSerieID=" + sqlText(request.series);
    if (!catalogueHas(ofSeries)) {
        throw NothingMatches("The catalogue has no series " + request.series + " for " + request.refrigerant +
                             ".");
    }
    if (request.models == "*") return;
    for (const std::string& model : splitText(request.models, ';')) {
        if (!catalogueHas(ofSeries + " and fModelID=" + sqlText(model))) {
            throw NothingMatches("The series " + request.series + " has no model " + model + " for " +
                                 request.refrigerant + ".");
        }
    }
}

}  // namespace

void openCatalogue(const std::string& language) {
    gDatabase().Connect("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + applicationFolder() +
                        "\\db.mdb;Persist Security Info=True");
    gApplication().populateDictionary(defaultLanguage, language);
    loadSharedPolynomials();
}

Run carryOut(const Request& request) {
    checkRequest(request);
    checkNames(request);
    if (const std::string& fault = GetRefprop(request.refrigerant).SetupFault(); !fault.empty()) {
        throw std::runtime_error("The fluid library cannot set up " + request.refrigerant + ": " + fault);
    }
    Run run{request, std::make_unique<clsSelections>(), {}};
    AbortRequested() = false;
    const CollectedBoxes said;
    run.selection->Selection(std::make_shared<clsProjectConditions>(request.conditions), request.series,
                             request.models, request.refrigerant, static_cast<std::uint8_t>(request.market));
    for (const CollectedBoxes::Box& box : said.boxes()) run.remarks.push_back(box.text);
    return run;
}

std::string catalogueListing(bool inverter) {
    std::string listing;
    std::pair<std::string, std::string> current;
    for (RecordSet row = gDatabase().Execute(
             std::string("Select fRefrigerantID, fSerieID, fModelID from tCompressors where fHasInverter=") +
             (inverter ? "True" : "False") + " order by fRefrigerantID, fSerieID, fSequence, fModelID");
         !row.eof(); row.moveNext()) {
        const std::pair series(row.text("fRefrigerantID"), row.text("fSerieID"));
        if (series != current) {
            if (!listing.empty()) listing += '\n';
            listing += series.first + "  " + series.second + "  ";
            current = series;
        } else {
            listing += ';';
        }
        listing += row.text("fModelID");
    }
    return listing.empty() ? "" : listing + "\n";
}

}  // namespace marvello::select
