// The cycles of the catalogue: their states are what plain selections say, and they close.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

#include "catalogue/Globals.h"
#include "catalogue/PreparedCatalogue.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "engine/Calculator.h"
#include "engine/Cycle.h"
#include "engine/clsSelections.h"
#include "tests/support/RandomConditions.h"

namespace marvello {
namespace {

/// A calculator's compressor at random, against a selection of the same.
TEST(CyclesOfTheCatalogue, StatesAreThoseOfPlainSelectionsAndClose) {
    Session session{MARVELLO_APP_FOLDER};
    openCatalogue();
    const auto catalogue = preparedCatalogue(gDatabase());
    testing::RandomConditions random(2126);
    const CollectedBoxes said;
    Calculator calculator;
    clsSelections selections;
    int cycles = 0;
    int economized = 0;
    while (cycles < 2000 && !HasFailure()) {
        const PreparedCompressor& compressor = random.compressorOf(*catalogue);
        const clsProjectConditions conditions = random.conditionsFor(compressor);
        const clsCompressor& calculated = calculator.calculate(compressor, conditions);
        const auto cycle = cycleOf(calculated, calculator.refprop(compressor.Refrigerant));
        if (!cycle) continue;
        ++cycles;
        if (cycle->economizer != EconomizerKind::none) ++economized;
        SCOPED_TRACE(compressor.Refrigerant + ' ' + compressor.Serie + '-' + compressor.Model + " at " +
                     std::to_string(conditions.TEvaporatingDew) + '/' +
                     std::to_string(conditions.TCondensationDew));
        selections.Selection(std::make_shared<clsProjectConditions>(conditions), compressor.Serie,
                             compressor.Model, compressor.Refrigerant,
                             static_cast<std::uint8_t>(compressor.Market));
        const clsVariables& v = selections.Item(1).Variables;
        for (const CycleState& state : cycle->states) {
            const auto expectThat = [&](const std::optional<var>& variable, double value) {
                if (!variable) return;
                EXPECT_EQ(value, v[*variable]) << nameOf(state.point) << ' ' << definitionOf(*variable).name;
            };
            expectThat(state.t, state.state.t);
            expectThat(state.p, state.state.p);
            expectThat(state.h, state.state.h);
        }
        for (const CycleBalance& balance : cycle->balances) {
            if (!balance.closes()) continue;
            EXPECT_NEAR(balance.states, balance.other, 1e-6 * std::abs(balance.other))
                << nameOf(balance.part);
        }
    }
    EXPECT_GT(economized, 100);
}

}  // namespace
}  // namespace marvello
