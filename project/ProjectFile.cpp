#include "project/ProjectFile.h"

#include <algorithm>
#include <functional>
#include <set>
#include <utility>

#include "project/JsonArchive.h"

namespace marvello {

namespace {

using json_archive::Json;
using Reason = ProjectFault::Reason;

constexpr const char* formatName = "marvello project";
/// Deeper than any project.
constexpr int maxDepth = 16;

std::string sentenceOf(Reason reason, const std::string& place, const std::string& text) {
    switch (reason) {
        case Reason::tooLarge:
            return "The file is too large for a project.";
        case Reason::notJson:
            return "The file is damaged: line " + place + " is no JSON.";
        case Reason::tooDeep:
            return "The file is no project: " + place + " is nested too deeply.";
        case Reason::repeatedName:
            return "The file is damaged: " + place + " is there twice.";
        case Reason::notProject:
            return "The file is no project of Marvello.";
        case Reason::newerVersion:
            return "The project was saved by a newer version of Marvello (format " + text +
                   "). Update the program to open it.";
        case Reason::wrongKind:
            return "The file is damaged: " + place + " is not " + text + ".";
        case Reason::outOfRange:
            return "The file is damaged: " + place + " is not permitted; it may be " + text + ".";
        case Reason::unknownName:
            return "The file has \"" + place + "\", which this version of Marvello does not know.";
    }
    return {};
}

}  // namespace

template <>
struct FileWords<UnitSystem> {
    static constexpr std::array words{std::pair{UnitSystem::metric, "metric"},
                                      std::pair{UnitSystem::imperial, "imperial"}};
};
template <>
struct FileWords<FormKind> {
    static constexpr auto& words = formKindNames;
};
template <>
struct FileWords<CurveAxis> {
    static constexpr std::array words{std::pair{CurveAxis::evaporating, "evaporating"},
                                      std::pair{CurveAxis::condensing, "condensing"}};
};
template <>
struct FileWords<Severity> {
    static constexpr auto& words = severityNames;
};
template <>
struct FileWords<CataloguePart> {
    static constexpr auto& words = cataloguePartNames;
};

namespace {

/// The codes of the choices of a calculation, which any number may be.
template <class Archive, class Mode>
void code(Archive& archive, const char* name, Mode& mode) {
    int value = codeOf(mode);
    archive(name, value);
    mode = static_cast<Mode>(value);
}

}  // namespace

template <class Archive>
void describe(Archive& archive, ProjectDetails& details) {
    archive("name", details.name);
    archive("item", details.item);
    archive("customer", details.customer);
    archive("contact", details.contact);
    archive("engineer", details.engineer);
    archive("date", details.date);
    archive("remarks", details.remarks);
}

template <class Archive>
void describe(Archive& archive, CompressorName& name) {
    archive("refrigerant", name.refrigerant);
    archive("series", name.serie);
    archive("model", name.model);
}

template <class Archive>
void describe(Archive& archive, clsProjectConditions& conditions) {
    archive("evaporating", conditions.TEvaporatingDew);
    archive("condensing", conditions.TCondensationDew);
    archive("subcooling", conditions.SubCooling);
    code(archive, "superheatKind", conditions.SuperHeatType);
    archive("superheat", conditions.SuperHeat);
    archive("step", conditions.StepCapacity);
    code(archive, "motor", conditions.MotorSize);
    archive("voltage", conditions.MotorVoltage);
    archive("mains", conditions.MotorHz);
    archive("speed", conditions.MotorRPM);
    code(archive, "economizerMode", conditions.EcoCalculateMode);
    archive("economizer", conditions.Eco);
    code(archive, "oilCoolingMode", conditions.OilCoolingCalculateMode);
    archive("oilCooling", conditions.OilCooling);
    archive("frequency", conditions.InverterFrequency);
}

template <class Archive>
void describe(Archive& archive, InputState& inputs) {
    archive("units", inputs.units);
    archive("choices", inputs.keys);
    archive("numbers", inputs.values);
    std::vector<std::string> leaders = inputs.leaders.names();
    archive("leading", leaders);
    inputs.leaders = CoupleLeaders::named(leaders);
}

template <class Archive>
void describe(Archive& archive, ListState& list) {
    archive("widths", list.widths);
    archive("switched", list.switched);
    archive("sortedBy", list.sortedBy);
    archive("descending", list.isDescending);
    archive("filters", list.filters);
    archive("page", list.page);
    archive("map", list.map);
}

template <class Archive>
void describe(Archive& archive, SavedSelection& selection) {
    archive("form", selection.form);
    archive("inputs", selection.inputs);
    archive("list", selection.list);
    archive("chosen", selection.chosen);
}

template <class Archive>
void describe(Archive& archive, ComparedChoice& choice) {
    archive("refrigerant", choice.refrigerant);
    archive("series", choice.serie);
    archive("model", choice.model);
    archive("conditions", choice.conditions);
    archive("machines", choice.machines);
}

template <class Archive>
void describe(Archive& archive, SavedComparison& comparison) {
    archive("choices", comparison.choices);
    archive("samePoint", comparison.isAtSamePoint);
    archive("reference", comparison.reference);
    archive("axis", comparison.axis);
    archive("units", comparison.units);
}

template <class Archive>
void describe(Archive& archive, PromiseBasis& basis) {
    archive("program", basis.program);
    archive("catalogue", basis.catalogue);
}

template <class Archive>
void describe(Archive& archive, PromisedMessage& message) {
    archive("severity", message.severity);
    archive("key", message.key);
}

template <class Archive>
void describe(Archive& archive, PromisedResult& result) {
    archive("compressor", result.compressor);
    archive("conditions", result.conditions);
    archive("values", result.values);
    archive("messages", result.messages);
    archive("fingerprints", result.fingerprints);
}

template <class Archive>
void describe(Archive& archive, Promise& promise) {
    archive("date", promise.date);
    archive("basis", promise.basis);
    archive("results", promise.results);
}

template <class Archive>
void describe(Archive& archive, ProjectItem& item) {
    archive("title", item.title);
    if constexpr (Archive::isReading) {
        std::optional<SavedSelection> selection;
        std::optional<SavedComparison> comparison;
        archive("selection", selection);
        archive("comparison", comparison);
        if (selection.has_value() == comparison.has_value())
            archive.refuse("an item with one of selection and comparison");
        if (selection)
            item.content = *std::move(selection);
        else
            item.content = *std::move(comparison);
    } else if (const auto* const selection = std::get_if<SavedSelection>(&item.content)) {
        archive("selection", *selection);
    } else {
        archive("comparison", std::get<SavedComparison>(item.content));
    }
    archive("promised", item.promise);
}

template <class Archive>
void describe(Archive& archive, Project& project) {
    archive("program", project.program);
    archive("details", project.details);
    archive("items", project.items);
}

namespace {

std::string lineAt(std::string_view text, std::size_t position) {
    return std::to_string(1 + std::ranges::count(text.substr(0, position), '\n'));
}

/// Follows the parser: refuses a name that an object has twice, and too many levels.
class Watch {
  public:
    bool operator()(int, Json::parse_event_t event, const Json& parsed) {
        using Event = Json::parse_event_t;
        switch (event) {
            case Event::key:
                levels_.back().name = parsed.get<std::string>();
                if (!levels_.back().names.insert(levels_.back().name).second)
                    throw ProjectFault(Reason::repeatedName, place());
                break;
            case Event::object_start:
            case Event::array_start:
                count();
                levels_.push_back({.isList = event == Event::array_start});
                if (std::ssize(levels_) > maxDepth) throw ProjectFault(Reason::tooDeep, place());
                break;
            case Event::object_end:
            case Event::array_end:
                levels_.pop_back();
                break;
            case Event::value:
                count();
                break;
        }
        return true;
    }

  private:
    struct Level {
        bool isList = false;
        std::string name{};
        std::set<std::string> names{};
        std::size_t entries = 0;
    };

    void count() {
        if (!levels_.empty() && levels_.back().isList) ++levels_.back().entries;
    }
    std::string place() const {
        std::string place;
        for (const Level& level : levels_)
            if (level.isList)
                place += '[' + std::to_string(level.entries) + ']';
            else
                place += (place.empty() ? "" : ".") + level.name;
        return place;
    }

    std::vector<Level> levels_;
};

Json parsed(std::string_view text) try {
    Watch watch;
    return Json::parse(text.begin(), text.end(), std::ref(watch));
} catch (const Json::parse_error& fault) {
    throw ProjectFault(Reason::notJson, lineAt(text, std::min(fault.byte, text.size())));
} catch (const Json::out_of_range&) {
    throw ProjectFault(Reason::outOfRange, "a number", "one that is not as large");
}

}  // namespace

ProjectFault::ProjectFault(Reason reason, std::string place, std::string text)
    : std::runtime_error(sentenceOf(reason, place, text)),
      reason(reason),
      place(std::move(place)),
      text(std::move(text)) {}

std::string projectText(const Project& project) {
    Json file{{"format", formatName}, {"version", projectFileVersion}};
    file.update(JsonWriter::jsonOf(project));
    constexpr int indent = 2;
    return file.dump(indent, ' ', false, Json::error_handler_t::replace) + '\n';
}

Project projectIn(std::string_view text) {
    if (text.size() > maxProjectBytes) throw ProjectFault(Reason::tooLarge, {});
    Json file = parsed(text);
    const auto format = file.find("format");
    if (!file.is_object() || format == file.end() || *format != formatName)
        throw ProjectFault(Reason::notProject, {});
    int version = 0;
    if (const auto found = file.find("version"); found != file.end())
        JsonReader::read(*found, "version", version);
    if (version > projectFileVersion) throw ProjectFault(Reason::newerVersion, {}, std::to_string(version));
    if (version < 1) throw ProjectFault(Reason::outOfRange, "version", "1");
    file.erase("format");
    file.erase("version");
    Project project;
    JsonReader::read(file, {}, project);
    return project;
}

}  // namespace marvello
