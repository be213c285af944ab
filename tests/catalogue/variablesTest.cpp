#include "catalogue/Variables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

#include "catalogue/clsVariables.h"
#include "data/Csv.h"
#include "data/FileText.h"
#include "data/Texts.h"

namespace marvello {
namespace {

std::string row(const VariableDefinition& definition) {
    std::string name = "`" + std::string(definition.name) + "`";
    std::string shown(definition.shownUnit);
    if (!definition.description.empty())
        shown += (shown.empty() ? "" : ", ") + std::string(definition.description);
    std::string line = "|";
    for (const std::string_view cell : {std::string_view(name), definition.meaning, definition.unit,
                                        definition.formula, std::string_view(shown)})
        line += cell.empty() ? " |" : " " + std::string(cell) + " |";
    return line + "\n";
}

std::string page() {
    std::string text =
        "# Variables of the calculation\n\n"
        "Every value on the way of a calculation is a variable: for columns of the results list and for "
        "`marvello-select --format json`.\nThe table of the program, `catalogue/Variables.cpp`, gives this "
        "page; `tests/catalogue/variablesTest.cpp` compares them.\n\n"
        "Temperatures are in degrees Celsius, pressures in bar absolute. In a formula h, s, ρ and t are the "
        "enthalpy, entropy, density and\ntemperature of the state that the two values in brackets fix (T "
        "temperature, P pressure, H enthalpy, S entropy); pdew, pbub, tdew, tbub\nand ρdew are those of "
        "saturated vapour (dew) and liquid (bubble). i is the motor's current polynomial, cosφ the power "
        "factor, FLA and LRA\nthe rated currents at Vref: 400 V at 50 Hz, 460 V otherwise. KForo, KPerdita, "
        "Sez, K and ctsca are the compressor's own values, see\n[the catalogue](catalogue.md). The last "
        "column "
        "has what results carry as unit and description.\n";
    for (std::size_t i = 0; i < stageCount; ++i) {
        text += "\n## " + std::string(nameOf(static_cast<Stage>(i))) + "\n\n" +
                "| Name | Meaning | Unit | Formula | In results |\n|---|---|---|---|---|\n";
        for (const auto& definition : variableDefinitions())
            if (definition.stage == static_cast<Stage>(i)) text += row(definition);
    }
    return text;
}

TEST(Variables, ThePageIsThatOfTheTable) {
    const std::string file = MARVELLO_SOURCE_FOLDER "/docs/variables.md";
    if (fileText(file) == page()) return;
    std::ofstream("variables.md") << page();
    FAIL() << file << " differs from the table; copy variables.md from the folder of this run over it";
}

// The windows say meanings in the user's language; in English they are those of the table.
TEST(Variables, TheDictionaryHasTheirMeanings) {
    std::map<std::string, std::string> texts;
    const std::string file = MARVELLO_SOURCE_FOLDER "/content/tDictionary.en-EN.csv";
    Faults faults;
    for (const CsvRecord& record : readCsv(fileText(file).value(), file, faults))
        texts[record.fields.at(0)] = record.fields.at(1);
    for (const auto& definition : variableDefinitions())
        EXPECT_EQ(texts["variables.meaning." + lowered(definition.name)], definition.meaning);
}

TEST(Variables, NamesAreDistinctAndFoundInAnyCase) {
    std::set<std::string> names;
    for (const auto& definition : variableDefinitions()) {
        EXPECT_TRUE(names.insert(lowered(definition.name)).second) << definition.name;
        EXPECT_EQ(variableNamed(uppered(definition.name)), definition.id);
    }
    EXPECT_EQ(variableNamed("Q00"), std::nullopt);
}

// What looks like the name of a variable in a formula is one, in its spelling.
TEST(Variables, FormulasUseKnownNames) {
    const std::set<std::string> others{"h",    "s",     "ρ",    "t",        "i",   "min",  "pdew",
                                       "pbub", "tdew",  "tbub", "dew",      "FLA", "LRA1", "LRA2",
                                       "Vref", "KForo", "Sez",  "KPerdita", "K",   "cos",  "round"};
    const std::regex word("[A-Za-z][A-Za-z0-9]*");
    const std::regex nameLike("[A-Z][A-Za-z]*[0-9]+[A-Za-z]*|[A-Za-z]*[A-Z][A-Za-z]*");
    for (const auto& definition : variableDefinitions()) {
        const std::string formula(definition.formula);
        for (std::sregex_iterator found(formula.begin(), formula.end(), word), end; found != end; ++found) {
            const std::string name = found->str();
            if (!std::regex_match(name, nameLike) || others.contains(name) || name == "R407C") continue;
            const auto used = variableNamed(name);
            ASSERT_TRUE(used) << name << " in the formula of " << definition.name;
            EXPECT_EQ(definitionOf(*used).name, name) << definition.name;
        }
    }
}

TEST(Variables, SetMeansANumber) {
    clsVariables v;
    EXPECT_FALSE(v.isSet(var::Tsca));
    EXPECT_THROW(v[var::Tsca], VariableError);
    v.set(var::Mbase, 5.0);
    v.set(var::Tsca, "-");
    EXPECT_TRUE(v.Exist("TSCA"));
    EXPECT_FALSE(v.isSet(var::Tsca));
    EXPECT_THROW(v[var::Tsca], VariableError);
    v.set(var::Tsca, 80.0);
    v.set(var::Mbase, 6.0);  // in its place, as it was named and measured
    EXPECT_EQ(v.Item(1).Name(), "Mbase");
    EXPECT_EQ(v.Item(1).UnitMeasuretext(), "Kw");
    EXPECT_EQ(v("mBase"), 6.0);
    v.add("MBASE", 7.0);
    EXPECT_EQ(v[var::Mbase], 7.0);
    EXPECT_EQ(v.Item(2).Name(), "MBASE");
    const clsVariables moved = std::move(v);
    EXPECT_EQ(moved[var::Tsca], 80.0);
}

}  // namespace
}  // namespace marvello
