#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "engine/Performance.h"
#include "engine/clsSelections.h"

namespace marvello::testing {

/// Expects what a selection of the same model at the same conditions says, exactly.
inline void expectPlainSelection(const PreparedCompressor& compressor, const clsProjectConditions& conditions,
                                 const Performance& found) {
    clsSelections selections;
    selections.Selection(std::make_shared<clsProjectConditions>(conditions), compressor.Serie,
                         compressor.Model, compressor.Refrigerant, 0);
    ASSERT_EQ(selections.Count(), 1);
    const clsCompressor& selected = selections.Item(1);
    ASSERT_EQ(found.hasValues(), selected.Messages.Error.Count() == 0) << selected.Key();
    if (!found.hasValues()) {
        EXPECT_EQ(found.error, selected.Messages.Error.Item(1).Name);
        return;
    }
    const auto number = [&](const char* name) { return selected.Variables.Item(name).number(); };
    const bool isEconomized = selected.Variables.Exist("CopEco");
    EXPECT_EQ(valueOf(found, Figure::capacity), isEconomized ? number("Q0") + number("Qeco") : number("Q0"));
    EXPECT_EQ(valueOf(found, Figure::power), number(isEconomized ? "PtaEco" : "Pta"));
    EXPECT_EQ(valueOf(found, Figure::cop), number(isEconomized ? "CopEco" : "COP"));
    EXPECT_EQ(valueOf(found, Figure::massFlow), number("Mbase"));
    EXPECT_EQ(found.state == PointState::warning, selected.Messages.Attention.Count() > 0);
}

}  // namespace marvello::testing
