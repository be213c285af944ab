#include "tools/select/Run.h"

#include <algorithm>
#include <optional>
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

/// The name as the catalogue spells it, which the engine compares letter by letter; none if it is not there.
std::optional<std::string> spelled(const std::string& column, const std::string& name,
                                   const std::string& among) {
    const RecordSet row = gDatabase().Execute("Select " + column + " from tCompressors where " + among +
                                              column + "=" + sqlText(name) + " limit 1");
    if (row.eof()) return std::nullopt;
    return row.text(column);
}

/// What the catalogue has in a column, as the end of a sentence.
std::string itHas(const std::string& column, const std::string& among) {
    std::string names;
    for (RecordSet row = gDatabase().Execute("Select distinct " + column + " from tCompressors where " +
                                             among + "True order by " + column);
         !row.eof(); row.moveNext())
        names += (names.empty() ? "" : ", ") + row.text(column);
    return "it has " + names + ".";
}

/// Each name is looked up before it reaches the engine, so that an answer says what is missing.
void spellNames(Request& request) {
    const auto refrigerant = spelled("fRefrigerantID", request.refrigerant, "");
    if (!refrigerant)
        throw NothingMatches("The catalogue has no refrigerant " + request.refrigerant + "; " +
                             itHas("fRefrigerantID", ""));
    request.refrigerant = *refrigerant;
    const std::string ofRefrigerant = "fRefrigerantID=" + sqlText(*refrigerant) + " and ";
    const auto series = spelled("fSerieID", request.series, ofRefrigerant);
    if (!series)
        throw NothingMatches("The catalogue has no series " + request.series + " for " + *refrigerant + "; " +
                             itHas("fSerieID", ofRefrigerant));
    request.series = *series;
    if (request.models == "*") return;
    const std::string ofSeries = ofRefrigerant + "fSerieID=" + sqlText(*series) + " and ";
    std::string models;
    for (const std::string& name : splitText(request.models, ';')) {
        if (trimmed(name).empty()) continue;
        const auto model = spelled("fModelID", trimmed(name), ofSeries);
        if (!model)
            throw NothingMatches("The series " + *series + " has no model " + trimmed(name) + " for " +
                                 *refrigerant + "; " + itHas("fModelID", ofSeries));
        models += (models.empty() ? "" : ";") + *model;
    }
    request.models = models.empty() ? "*" : models;
}

/// What a box says; of a state without a result also which one, why and what to do.
std::string remarkOf(const std::string& box, const std::string& undefinedState) {
    if (box != undefinedText) return box;
    return "a state of the refrigerant could not be calculated. A compressor whose figures rest on it has a "
           "warning or an error; for it choose other temperatures, another limit of the discharge "
           "temperature "
           "or another economizer value. Cause: " +
           undefinedState;
}

}  // namespace

void openCatalogue(const std::string& language) {
    gDatabase().Connect("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + applicationFolder() +
                        "\\db.mdb;Persist Security Info=True");
    const auto languages = catalogueLanguages();
    const auto known = std::ranges::find_if(
        languages, [&](const std::string& each) { return equalIgnoringCase(each, trimmed(language)); });
    if (known == languages.end()) throw BadRequest(notOneOf("language", language, languages));
    gApplication().populateDictionary(defaultLanguage, *known);
    loadSharedPolynomials();
}

Run carryOut(Request request) {
    checkRequest(request);
    spellNames(request);
    checkTemperatures(request, saturationRange(request.refrigerant));
    Run run{request, std::make_unique<clsSelections>(), {}};
    AbortRequested() = false;
    const auto refprop = SharedRefprop(request.refrigerant);
    refprop->clearLastUndefined();
    const CollectedBoxes said;
    run.selection->Selection(std::make_shared<clsProjectConditions>(request.conditions), request.series,
                             request.models, request.refrigerant, static_cast<std::uint8_t>(request.market));
    for (const CollectedBoxes::Box& box : said.boxes())
        run.remarks.push_back(remarkOf(box.text, refprop->LastUndefined()));
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
