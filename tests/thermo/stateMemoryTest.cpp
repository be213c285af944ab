#include "thermo/StateMemory.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <utility>

namespace marvello {
namespace {

using Function = StateCall::Function;

RefpropState stateOf(double t) {
    RefpropState state;
    state.t = t;
    return state;
}

// Next to a plain map, with so many states that it begins anew several times.
TEST(StateMemory, KeepsWhatItWasGivenLast) {
    StateMemory memory;
    std::map<std::pair<int, double>, double> kept;
    std::mt19937 random(3);
    int found = 0;
    for (int i = 0; i < 60000; ++i) {
        if (i % 20000 == 19999) {
            memory.clear();
            kept.clear();
        }
        const int side = static_cast<int>(random() % 2);
        const double value = static_cast<double>(random() % 1200);
        const StateCall call{Function::satp, side, value, -value};
        if (const RefpropState* state = memory.find(call, call.hash())) {
            ASSERT_EQ(state->t, kept.at({side, value}));
            ++found;
        } else {
            kept[{side, value}] = i;
            memory.keep(call, call.hash(), stateOf(i));
            ASSERT_EQ(memory.find(call, call.hash())->t, i);
        }
    }
    EXPECT_GT(found, 20000);
}

TEST(StateMemory, TellsCallsApart) {
    StateMemory memory;
    const StateCall call{Function::tpflsh, 0, 1, 2};
    EXPECT_EQ(memory.find(call, call.hash()), nullptr);
    memory.keep(call, call.hash(), stateOf(5));
    for (const StateCall& other :
         {StateCall{Function::phflsh, 0, 1, 2}, StateCall{Function::tpflsh, 1, 1, 2},
          StateCall{Function::tpflsh, 0, 2, 1}, StateCall{Function::tpflsh, 0, 1, 2.5}}) {
        EXPECT_NE(other.hash(), call.hash());
        EXPECT_EQ(memory.find(other, call.hash()), nullptr);  // as if the hashes met
    }
}

}  // namespace
}  // namespace marvello
