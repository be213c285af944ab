#include "tools/catalogue/Windows.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "data/Texts.h"

namespace marvello {

namespace {

ValueKind kindNamed(const std::string& name) {
    static const std::map<std::string, ValueKind> kinds{{"boolean", ValueKind::boolean},
                                                        {"whole", ValueKind::whole},
                                                        {"real", ValueKind::real},
                                                        {"colour", ValueKind::colour},
                                                        {"text", ValueKind::text}};
    return kinds.at(name);
}

ProgramWindows read(const nlohmann::json& described) {
    static std::map<std::string, ProgramWindows::Properties> classes;
    for (const auto& [name, properties] : described.at("classes").items())
        for (const auto& [property, kind] : properties.items())
            classes[name].emplace(property, kindNamed(kind));
    ProgramWindows all;
    for (const auto& [window, controls] : described.at("windows").items())
        for (const auto& [control, name] : controls.items()) {
            all.controls[lowered(window)].emplace(lowered(control), &classes.at(name));
            if (name == "marvello::AdvanceText") all.fields.push_back(lowered(control));
        }
    for (const auto& [field, key] : described.at("neutral").items()) all.neutralKeys.emplace(field, key);
    all.pages = described.at("pages").get<std::vector<std::string>>();
    all.marks = described.at("marks").get<std::vector<std::string>>();
    return all;
}

}  // namespace

const ProgramWindows& programWindows() {
    static const ProgramWindows all = read(nlohmann::json::parse(windowsText()));
    return all;
}

}  // namespace marvello
