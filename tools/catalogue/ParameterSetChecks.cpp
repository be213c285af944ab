// The parameter sets against the windows of the program and the catalogue's own models.

#include <algorithm>
#include <array>
#include <map>
#include <regex>
#include <set>

#include "catalogue/SeriesTraits.h"
#include "catalogue/Variables.h"
#include "catalogue/clsInverter.h"
#include "data/Numbers.h"
#include "data/clsApplication.h"
#include "results/Columns.h"
#include "results/TechnicalData.h"
#include "tools/catalogue/Check.h"
#include "tools/catalogue/Program.h"
#include "tools/catalogue/Rows.h"
#include "tools/catalogue/Windows.h"

namespace marvello {

namespace {

constexpr std::string_view column = "fObjectPropertyValue: ";
constexpr std::string_view resultsList = "lvcps";        // its "Tag" lists the columns
constexpr std::string_view technicalPage = "pictecnic";  // its "Tag" lists captions and values

/// The windows of a set; one that nothing applies has none.
using WindowNames = std::set<std::string>;

/// The properties of the control of a name; nothing if none of the windows has it.
const ProgramWindows::Properties* propertiesOf(const std::string& control, const WindowNames& windows) {
    for (const auto& [window, controls] : programWindows().controls)
        if (const auto found = controls.find(control); windows.contains(window) && found != controls.end())
            return found->second;
    return nullptr;
}

/// Why a list of choices "key|caption;..." is none; empty for a sound one.
std::string faultOfChoices(const std::string& list) {
    std::set<std::string> keys;
    for (const auto& choice : splitText(list, ';')) {
        const auto parts = splitText(choice, '|');
        if (parts.size() != 2 || trimmed(parts[0]).empty() || trimmed(parts[1]).empty())
            return "\"" + choice + "\" is no choice; write \"key|caption;key|caption\"";
        if (!keys.insert(lowered(trimmed(parts[0]))).second)
            return "the key \"" + trimmed(parts[0]) + "\" stands twice; each choice needs a key of its own";
    }
    return {};
}

/// The same of a list of columns "key|name|unit|description|when;...".
std::string faultOfColumns(const std::string& list) {
    constexpr std::size_t pieces = 5;
    std::set<std::string> keys;
    for (const auto& told : splitText(list, ';')) {
        const auto parts = splitText(told, '|');
        if (parts.size() != pieces)
            return "the column \"" + told + "\" has " + std::to_string(parts.size()) +
                   " pieces; write \"key|name|unit|description|when\"";
        if (trimmed(parts[0]).empty() || trimmed(parts[1]).empty())
            return "the column \"" + told + "\" lacks its key or its name";
        if (!variableNamed(trimmed(parts[0])) && !isOwnColumn(trimmed(parts[0])))
            return "the column \"" + trimmed(parts[0]) +
                   "\" is no variable of the calculation; docs/variables.md lists them";
        const std::string when = trimmed(parts[4]);
        if (when.size() != 1 || when[0] < '0' || when[0] > '5')
            return "the column \"" + trimmed(parts[0]) + "\" is shown when \"" + when +
                   "\"; 0 always, 1 with economizer, 2 without, 3 imperial, 4 imperial with economizer";
        if (!keys.insert(lowered(trimmed(parts[0]))).second)
            return "the column \"" + trimmed(parts[0]) + "\" stands twice; remove one";
    }
    return {};
}

/// The same of technical data "caption|value;...".
std::string faultOfPairs(const std::string& list) {
    for (const auto& pair : splitText(list, ';')) {
        const auto parts = splitText(pair, '|');
        if (parts.size() != 2 || trimmed(parts[0]).empty())
            return "\"" + pair + "\" is no pair; write \"caption|value;caption|value\"";
    }
    return {};
}

/// The first token that nothing is put in for; empty where the program knows all.
std::string unknownToken(const std::string& list) {
    clsCompressor any;
    any.hasInvert = true;
    any.VI = any.Motor.NominalPower = "known";
    for (const var variable : {var::Lra1, var::Lra2, var::Fla}) any.Variables.set(variable, 1.0);
    const std::string shown = MotorDescription(list, any);
    const auto mark = std::min(shown.find('@'), shown.size());
    return shown.substr(mark, shown.find_first_of(" ;|", mark) - mark);
}

/// What is wrong with the range of frequencies that technical data state, "20 – 70 Hz"; empty if there is
/// none.
std::string faultOfFrequencies(const std::string& list) {
    static const std::regex range(R"((\d+)\s*(?:-|to|\xE2\x80\x93)\s*(\d+)\s*Hz)");
    std::smatch found;
    if (!std::regex_search(list, found, range)) return {};
    const std::string least = storedText(clsInverter::minimumFrequency);
    const std::string most = storedText(clsInverter::maximumFrequency);
    if (found[1] == least && found[2] == most) return {};
    return "the technical data say " + found[1].str() + " to " + found[2].str() +
           " Hz, but the program calculates from " + least + " to " + most + " Hz; write this range";
}

class ParameterSetCheck {
  public:
    ParameterSetCheck(const Content& content, Faults& faults) : content_(content), faults_(faults) {
        forEachRow(content, "tDictionary", faults, [this](const Row& row) {
            texts_[row.text("fLanguageID")].emplace(row.key("fVariableName"), row.text("fText"));
        });
        forEachRow(content, "tCompressors", faults, [this](const Row& row) {
            models_[lowered(row.text("fSerieID") + "-" + row.text("fModelID"))] =
                row.text("fSerieID") + "-" + row.text("fModelID");
            seriesOf_[lowered(row.text("fSerieID") + "-" + row.text("fModelID"))] = row.text("fSerieID");
        });
    }

    void run() {
        checkHeads();
        forEachRow(content_, "tParametersRows", faults_, [this](const Row& row) { checkRow(row); });
        checkLinks();
        checkNeeded();
        checkModels();
    }

  private:
    struct Set {
        bool isApplied = false;
        bool isWithoutTexts = false;
        std::string series;  ///< Of technical data, as it is compared.
        WindowNames windows;
    };

    void checkHeads() {
        forEachRow(content_, "tParametersHead", faults_, [this](const Row& row) {
            Set& set = sets_[row.integer("fParametersRowsID")];
            if (row.key("fType") == "catalog")
                checkCatalogHead(row, set);
            else
                checkWindowHead(row, set);
        });
    }

    void checkCatalogHead(const Row& row, Set& set) {
        set.isApplied = true;
        set.windows.insert({"frmselection", "frmselectioninverter"});
        if (!equalIgnoringCase(row.text("fKey"), technicalDataKey))
            row.warn("fKey: the program asks for technical data by the key \"" +
                     std::string(technicalDataKey) + "\" alone; enter it");
        else if (models_.contains(row.key("fTypeKey")))
            describe(row.key("fTypeKey"), set);
        else
            row.warn("fTypeKey: there is no model of this series-model; correct the name or remove the set");
    }

    void describe(const std::string& model, Set& set) {
        described_.insert(model);
        set.series = lowered(seriesOf_[model]);
    }

    void checkWindowHead(const Row& row, Set& set) {
        for (const auto& applied : appliedSets()) {
            if (row.key("fType") != "frm" || !equalIgnoringCase(row.text("fTypeKey"), applied.typeKey) ||
                !equalIgnoringCase(row.text("fKey"), applied.key))
                continue;
            set.isApplied = true;
            set.isWithoutTexts = applied.isWithoutTexts;
            for (const auto window : applied.windows) set.windows.insert(lowered(window));
            found_.insert(&applied);
            return;
        }
        row.warn(
            "the program applies no set of this name; it knows \"frm\" with a window and its key, and "
            "\"catalog\" with series-model");
    }

    void checkLinks() {
        std::set<int> rows;
        forEachRow(content_, "tParametersRows", faults_, [&](const Row& row) {
            rows.insert(row.integer("fParametersRowsID"));
            if (!sets_.contains(row.integer("fParametersRowsID")))
                row.fault("fParametersRowsID: no set of tParametersHead has these rows");
        });
        forEachRow(content_, "tParametersHead", faults_, [&](const Row& row) {
            if (!rows.contains(row.integer("fParametersRowsID")))
                row.fault("fParametersRowsID: tParametersRows has no such rows");
        });
    }

    void checkNeeded() {
        for (const auto& applied : appliedSets())
            if (applied.isNeeded && !found_.contains(&applied))
                faults_.add("tParametersHead.csv", "the set frm, " + std::string(applied.typeKey) + ", " +
                                                       std::string(applied.key) +
                                                       " is missing, which the program applies; add it");
        for (const auto& [control, key] : programWindows().neutralKeys)
            if (const auto list = lists_.find(lowered(control));
                list != lists_.end() && ListLookup(key, list->second).empty())
                faults_.add("tParametersRows.csv", "Tag1 of " + control + " does not offer the key \"" + key +
                                                       "\", to which the forms fall back; add the choice");
    }

    void checkModels() {
        std::map<std::string, std::vector<std::string>> missing;
        for (const auto& [key, name] : models_)
            if (!described_.contains(key)) missing[seriesOf_[key]].push_back(name);
        for (const auto& [series, names] : missing)
            faults_.warn("tParametersHead.csv", "the series " + series + " lacks technical data for " +
                                                    shortList(names) + "; add a set \"catalog\" for each");
    }

    void checkRow(const Row& row) {
        const auto set = sets_.find(row.integer("fParametersRowsID"));
        if (set == sets_.end()) return;
        if (!checkPlaceholders(row)) return;
        if (set->second.isWithoutTexts && row.text("fObjectPropertyValue").find('{') != std::string::npos)
            row.fault(std::string(column) +
                      "the program applies this set before there are texts; write the text itself");
        const auto* properties = propertiesOf(row.key("fObjectName"), set->second.windows);
        if (set->second.isApplied && !properties) {
            row.fault("fObjectName: the window has no control \"" + row.text("fObjectName") +
                      "\"; correct the name");
            return;
        }
        for (const auto& assignment : splitText(row.text("fObjectPropertyValue"), ':')) {
            const auto sides = splitText(assignment, '=');
            if (sides.size() != 2 || trimmed(sides[0]).empty()) {
                row.fault(
                    std::string(column) + "\"" + assignment +
                    "\" is no assignment; write \"Property=value:Property=value\", and no \":\" or \"=\" "
                    "within a value");
                continue;
            }
            if (properties) checkAssignment(row, *properties, trimmed(sides[0]), trimmed(sides[1]));
        }
    }

    bool checkPlaceholders(const Row& row) const {
        const std::string& value = row.text("fObjectPropertyValue");
        const auto defaults = texts_.find(defaultLanguage);
        bool sound = true;
        for (auto open = value.find('{'); open != std::string::npos; open = value.find('{', open + 1)) {
            const auto close = value.find('}', open);
            if (close == std::string::npos) {
                row.fault(std::string(column) + "a \"{\" has no \"}\"");
                return false;
            }
            const std::string key = value.substr(open + 1, close - open - 1);
            if (defaults != texts_.end() && defaults->second.contains(lowered(key))) continue;
            row.fault(std::string(column) + "the dictionary has no text for the key \"" + key + "\"");
            sound = false;
        }
        return sound;
    }

    void checkAssignment(const Row& row, const ProgramWindows::Properties& properties,
                         const std::string& property, const std::string& value) {
        const auto known = properties.find(lowered(property));
        if (known == properties.end()) {
            row.fault(std::string(column) + "the control has no property \"" + property +
                      "\" that a set may assign; correct the name");
            return;
        }
        // Each language may break a list that is sound without texts.
        for (const auto& [language, unused] : texts_) {
            const std::string expanded = trimmed(expandedIn(language, value));
            std::string reason = faultOfValue(row.key("fObjectName"), *known, expanded);
            if (reason.empty()) continue;
            if (value.find('{') != std::string::npos) reason.append(" (in ").append(language).append(")");
            std::string told(column);
            row.fault(told.append(property).append(": ").append(reason));
            return;
        }
        if (equalIgnoringCase(property, "tag1")) lists_[row.key("fObjectName")] = value;
        if (row.key("fObjectName") == technicalPage) checkTechnicalData(row, value);
    }

    void checkTechnicalData(const Row& row, const std::string& value) {
        if (const std::string reason = faultOfFrequencies(value); !reason.empty())
            row.fault(std::string(column) + reason);
        if (seriesTraits(sets_[row.integer("fParametersRowsID")].series).rows == SurfaceRows::volumeRatio &&
            lowered(value).find("@cps.vi") == std::string::npos)
            row.warn(std::string(column) + "the volume ratio chosen is not shown; write \"@cps.VI\" for it");
        if (const std::string token = unknownToken(value); !token.empty())
            row.warn(std::string(column) + "the program puts nothing in for \"" + token + "\"");
    }

    static std::string faultOfValue(const std::string& control,
                                    const ProgramWindows::Properties::value_type& property,
                                    const std::string& value) {
        const auto& [name, kind] = property;
        if (!convertedValue(kind, value)) {
            constexpr std::array<const char*, 5> wanted{"True or False", "a whole number", "a number",
                                                        "a colour, #RRGGBB", "a text"};
            return "\"" + value + "\" is not " + wanted.at(static_cast<std::size_t>(kind));
        }
        if (name == "tag1") return faultOfChoices(value);
        if (name == "tag" && control == resultsList) return faultOfColumns(value);
        if (name == "tag" && control == technicalPage) return faultOfPairs(value);
        return {};
    }

    /// The value as a language shows it. A text that a language lacks is that of the default language.
    std::string expandedIn(const std::string& language, std::string value) const {
        for (auto open = value.find('{'); open != std::string::npos; open = value.find('{', open)) {
            const auto close = value.find('}', open);
            const std::string key = lowered(value.substr(open + 1, close - open - 1));
            std::string text;
            for (const auto& each : {language, defaultLanguage})
                if (const auto texts = texts_.find(each); texts != texts_.end() && text.empty())
                    if (const auto found = texts->second.find(key); found != texts->second.end())
                        text = found->second;
            value.replace(open, close - open + 1, text);
            open += text.size();
        }
        return value;
    }

    const Content& content_;
    Faults& faults_;
    std::map<std::string, std::map<std::string, std::string>> texts_;
    std::map<std::string, std::string> models_;    ///< Names of series-model by their key.
    std::map<std::string, std::string> seriesOf_;  ///< The series of each.
    std::map<int, Set> sets_;
    std::set<const AppliedSet*> found_;
    std::set<std::string> described_;
    std::map<std::string, std::string> lists_;
};

}  // namespace

void checkParameterSets(const Content& content, Faults& faults) { ParameterSetCheck(content, faults).run(); }

}  // namespace marvello
