#include "tools/select/Run.h"

#include <algorithm>
#include <map>
#include <utility>

#include "catalogue/CatalogueLists.h"
#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "data/CollectedBoxes.h"
#include "data/DictionaryTexts.h"
#include "data/Session.h"
#include "data/Texts.h"
#include "thermo/clsRefprop.h"

namespace marvello::select {

namespace {

/// Returns the name as the catalogue spells it, which the engine compares letter by letter. Throws
/// NothingMatches with what `problem` says, and what is there.
template <class Problem>
const std::string& spelled(const std::string& name, const std::vector<std::string>& names, Problem problem) {
    const auto found =
        std::ranges::find_if(names, [&](const std::string& each) { return equalIgnoringCase(each, name); });
    if (found != names.end()) return *found;
    std::string all;
    for (const std::string& each : names) all += (all.empty() ? "" : ", ") + each;
    throw NothingMatches(problem() + "; it has " + all + ".");
}

/// What a session knows of the open catalogue, each list read at its first use.
struct Known {
    std::vector<std::string> refrigerants;
    std::map<std::string, std::vector<std::string>> series;                          ///< By refrigerant.
    std::map<std::pair<std::string, std::string>, std::vector<std::string>> models;  ///< And by series.
    std::shared_ptr<clsSelections> selection;  ///< Of the last run, to be used again.
    long long opening = 0;                     ///< Of the file that has them.
};

Known& known() {
    auto& known = Session::current().part<Known>();
    const long long opening = gDatabase().openings();
    if (known.opening == opening) return known;
    known = {};
    known.opening = opening;
    return known;
}

/// That of the last run, unless somebody holds its results.
std::shared_ptr<clsSelections> freeSelection() {
    auto& selection = known().selection;
    if (!selection || selection.use_count() > 1) selection = std::make_shared<clsSelections>();
    return selection;
}

/// Returns the entry of a key, made at its first use.
template <class Map, class Make>
const auto& entryOf(Map& map, const typename Map::key_type& key, Make make) {
    auto found = map.find(key);
    if (found == map.end()) found = map.emplace(key, make()).first;
    return found->second;
}

const std::vector<std::string>& knownRefrigerants() {
    auto& names = known().refrigerants;
    if (names.empty()) names = refrigerantsOf();
    return names;
}

const std::vector<std::string>& knownSeries(const std::string& refrigerant) {
    return entryOf(known().series, refrigerant, [&] { return seriesOf({.refrigerant = refrigerant}); });
}

/// Of any refrigerant.
const std::vector<std::string>& knownSeries() {
    return entryOf(known().series, {}, [] { return seriesOf({}); });
}

const std::vector<std::string>& knownModels(const std::string& refrigerant, const std::string& series) {
    return entryOf(known().models, {refrigerant, series}, [&] {
        std::vector<std::string> models;
        for (const ModelName& name : modelsOf({.refrigerant = refrigerant, .series = series}))
            models.push_back(name.model);
        return models;
    });
}

/// Each name is looked up before it reaches the engine, so that an answer says what is missing.
void spellNames(Request& request) {
    std::string& refrigerant = request.refrigerant;
    refrigerant = spelled(refrigerant, knownRefrigerants(),
                          [&] { return "The catalogue has no refrigerant " + refrigerant; });
    std::string& series = request.series;
    series = spelled(series, knownSeries(refrigerant),
                     [&] { return "The catalogue has no series " + series + " for " + refrigerant; });
    if (request.models == "*") return;
    const std::vector<std::string>& ofSeries = knownModels(refrigerant, series);
    std::string models;
    for (const std::string& each : splitText(request.models, ';')) {
        const std::string name = trimmed(each);
        if (name.empty()) continue;
        if (!models.empty()) models += ';';
        models += spelled(name, ofSeries, [&] {
            return "The series " + series + " has no model " + name + " for " + refrigerant;
        });
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

std::vector<std::vector<MessageAdvice>> adviceOn(const Run& run) {
    const auto catalogue = preparedCatalogue(gDatabase());
    Calculator calculator;
    std::vector<std::vector<MessageAdvice>> advice;
    for (const auto& compressor : *run.selection) {
        const PreparedCompressor* const prepared =
            catalogue->find(compressor->Refrigerant, compressor->Serie, compressor->Model);
        advice.push_back(adviseOn(calculator, *prepared, run.request.conditions));
    }
    return advice;
}

}  // namespace

void openCatalogue(const std::string& language) {
    marvello::openCatalogue();
    std::vector<std::string> languages;
    for (const Language& each : catalogueLanguages()) languages.push_back(each.key);
    const auto known = std::ranges::find_if(
        languages, [&](const std::string& each) { return equalIgnoringCase(each, trimmed(language)); });
    if (known == languages.end()) throw BadRequest(notOneOf("language", language, languages));
    gApplication().populateDictionary(defaultLanguage, *known);
}

Run carryOut(Request request) {
    checkRequest(request);
    spellNames(request);
    checkTemperatures(request, saturationRange(request.refrigerant));
    const auto selection = freeSelection();
    Run run{std::move(request), selection, {}, {}};
    AbortRequested() = false;
    const auto refprop = SharedRefprop(run.request.refrigerant);
    refprop->clearLastUndefined();
    const CollectedBoxes said;
    selection->Selection(std::make_shared<clsProjectConditions>(run.request.conditions), run.request.series,
                         run.request.models, run.request.refrigerant,
                         static_cast<std::uint8_t>(run.request.market));
    for (const CollectedBoxes::Box& box : said.boxes())
        run.remarks.push_back(remarkOf(box.text, refprop->LastUndefined()));
    if (run.request.hasAdvice) run.advice = adviceOn(run);
    return run;
}

const PreparedCompressor& oneCompressor(Request& request, const PreparedCatalogue& catalogue) {
    checkRequest(request);
    spellNames(request);
    const bool isAny = request.models == "*";
    const std::vector<std::string> models =
        isAny ? knownModels(request.refrigerant, request.series) : splitText(request.models, ';');
    if (models.size() != 1)
        throw BadRequest("models: one model is needed" +
                         (isAny ? "; the series " + request.series + " has " + std::to_string(models.size())
                                : ", not " + std::to_string(models.size())));
    request.models = models.front();
    const PreparedCompressor* const found =
        catalogue.find(request.refrigerant, request.series, request.models);
    if (found == nullptr) throw NothingMatches("No compressor matches.");
    return *found;
}

void checkNames(const std::vector<std::string>& refrigerants, const std::vector<std::string>& series) {
    for (const std::string& name : refrigerants)
        spelled(name, knownRefrigerants(), [&] { return "The catalogue has no refrigerant " + name; });
    for (const std::string& name : series)
        spelled(name, knownSeries(), [&] { return "The catalogue has no series " + name; });
}

std::string catalogueListing(bool inverter) {
    std::string listing;
    std::string current;
    for (const ModelName& name : modelsOf({.onInverter = inverter})) {
        const std::string series = name.refrigerant + "  " + name.series + "  ";
        if (series != current) listing += (listing.empty() ? "" : "\n") + series;
        listing += (series != current ? "" : ";") + name.model;
        current = series;
    }
    return listing.empty() ? "" : listing + "\n";
}

}  // namespace marvello::select
