#include "tools/catalogue/Program.h"

#include <algorithm>
#include <array>

#include "catalogue/Variables.h"
#include "data/Texts.h"
#include "tools/catalogue/Windows.h"

namespace marvello {

std::span<const AppliedSet> appliedSets() {
    static const std::vector<AppliedSet> all{
        {"MDIMain", "eng", true, {"MDIMain"}, true},
        {"frmSelection", "populate", true, {"frmSelection", "frmselectionInverter", "frmFind"}},
        {"frmSelection", "Init", true, {"frmselectionInverter"}},
        {"frmSelection", "refresh", false, {"frmSelection", "frmselectionInverter"}},
    };
    return all;
}

std::vector<std::string> CompletedKey::keys() const {
    std::vector<std::string> whole;
    for (const auto& ending : endings) {
        std::string key(pattern);
        const auto gap = key.find("%1");
        if (gap == std::string::npos)
            key += ending;
        else
            key.replace(gap, 2, ending);
        whole.push_back(key);
    }
    return whole;
}

namespace {

std::vector<std::string> namesOfVariables() {
    std::vector<std::string> names;
    for (const VariableDefinition& definition : variableDefinitions())
        names.push_back(lowered(definition.name));
    return names;
}

}  // namespace

std::span<const CompletedKey> completedKeys() {
    static const std::vector<CompletedKey> all{
        {"frmselection.tabstrip.tabs.", programWindows().pages},
        {"general.", programWindows().marks},
        {"variables.meaning.", namesOfVariables()},
        {"frmselection.help.%1.caption", programWindows().fields, false},
        // Those of content/year; one without a text shows its own title.
        {"frmyear.profile.", {"eu-mt", "eu-lt", "eu-chiller", "flat"}, false},
        {"help.", {}, false},  // the documents of thelp, whose names are the catalogue's own
    };
    return all;
}

}  // namespace marvello
