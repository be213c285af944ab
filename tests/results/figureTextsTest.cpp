#include "results/FigureTexts.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "data/DictionaryTexts.h"
#include "data/Session.h"

namespace marvello {
namespace {

const clsOutput* columnOf(const clsOutputs& columns, const std::string& key) {
    for (int i = 1; i <= columns.Count(); ++i)
        if (columns.Item(i).Key == key) return &columns.Item(i);
    return nullptr;
}

// What a table says of a point is what the list says of it: unit, decimals and value, in both systems.
TEST(FigureTexts, AreThoseOfTheList) {
    const Session session(MARVELLO_APP_FOLDER);
    openCatalogue();
    gApplication().populateDictionary(defaultLanguage, defaultLanguage);
    const clsOutputs columns = catalogueColumns();
    Calculator calculator;
    std::mt19937 random(5);
    const auto catalogue = preparedCatalogue(gDatabase());
    int compared = 0;
    for (const PreparedCompressor& compressor : catalogue->compressors()) {
        if (random() % 10 != 0) continue;
        clsProjectConditions conditions = conditionsAt(-3, 38);
        const bool isEconomized = compressor.Economizer.hasPort() && random() % 2 == 0;
        if (isEconomized) conditions.EcoCalculateMode = EconomizerMode::approach;
        const clsCompressor& calculated = calculator.calculate(compressor, conditions);
        const Performance performance = performanceOf(calculated);
        if (!performance.hasValues()) continue;
        const bool isTotal = performance.economized.has_value();
        std::map<Figure, std::string> keys{{Figure::capacity, isTotal ? "Qeco" : "Q0"},
                                           {Figure::power, isTotal ? "PtaEco" : "Pta"},
                                           {Figure::cop, isTotal ? "CopEco" : "COP"},
                                           {Figure::current, isTotal ? "CAECO" : "CA"},
                                           {Figure::massFlow, "mBase"}};
        // The list's discharge temperature is that without the economizer.
        if (!isTotal) keys[Figure::dischargeTemperature] = "Tsca";
        for (const UnitSystem units : {UnitSystem::metric, UnitSystem::imperial}) {
            for (const auto& [figure, key] : keys) {
                const clsOutput* column = columnOf(columns, key);
                ASSERT_NE(column, nullptr) << key;
                EXPECT_EQ(unitOf(figure, units), unitText(*column, units)) << key;
                const ShownValue shown = shownFigure(figure, valueOf(performance, figure), units);
                const ShownValue listed = valueIn(calculated, *column, units);
                EXPECT_EQ(shown.text, listed.text) << key << compressor.Model;
                EXPECT_EQ(shown.number, listed.number) << key;
                ++compared;
            }
        }
    }
    EXPECT_GT(compared, 300);
    EXPECT_EQ(dictionaryText(textOf(Figure::capacity).name), "Capacity");
    EXPECT_EQ(shownFigure(Figure::current, std::nullopt, UnitSystem::metric).text, "-");
}

}  // namespace
}  // namespace marvello
