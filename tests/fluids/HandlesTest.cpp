// Sessions next to each other: with handles of their own in threads, and by turns where a library keeps one
// set-up.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "data/FileText.h"
#include "tests/fluids/FluidCalls.h"
#include "tests/support/TemporaryFolder.h"

namespace marvello::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// The bytes of all numbers of states over the range of a refrigerant.
using Bytes = std::vector<std::uint64_t>;

void add(Bytes& bytes, const RefpropState& state, const RefpropSession& session) {
    for (const double number :
         {state.t, state.p, state.D, state.Dl, state.Dv, state.q, state.e, state.h, state.s, state.cv,
          state.cp, state.w, session.liquid()[0], session.vapour()[1]})
        bytes.push_back(std::bit_cast<std::uint64_t>(number));
    bytes.push_back(static_cast<std::uint64_t>(state.answer.code));
}

void setUp(RefpropSession& session, const Refrigerant& refrigerant) {
    const RefpropAnswer answer = session.setUp(refrigerant.files, refrigerant.massFractions);
    ASSERT_EQ(answer.code, 0) << answer.sentence();
}

/// Liquid, two phases, vapour and what is refused, each by each call.
void walk(RefpropSession& session, Bytes& bytes, int first, int end) {
    for (int i = first; i < end; ++i) {
        const double t = 230 + 2.3 * i;
        const double p = 80 + 37.0 * i;
        add(bytes, session.saturationAtT(t, 1 + i % 2), session);
        add(bytes, session.saturationAtP(p, 1 + i % 2), session);
        const RefpropState state = session.atTP(t, p);
        add(bytes, state, session);
        add(bytes, session.atPH(p, state.h + 400), session);
        add(bytes, session.atPH(p, 25000.0 + 150 * i), session);
        add(bytes, session.atPS(p, state.s), session);
        add(bytes, session.atTS(t, state.s + 3), session);
    }
}

constexpr int states = 60;

Bytes alone(const Refrigerant& refrigerant) {
    RefpropSession session(linkedRefprop());
    setUp(session, refrigerant);
    Bytes bytes;
    walk(session, bytes, 0, states);
    return bytes;
}

const std::vector<std::string> names{"R134a", "R404A", "R404A", "R407C", "R448A", "R290"};

TEST(Handles, ThreadsGetTheBytesOfOneThread) {
    std::vector<Bytes> found(names.size());
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < names.size(); ++i)
        threads.emplace_back([i, &found] { found[i] = alone(refrigerant(names[i])); });
    for (std::thread& thread : threads) thread.join();
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(found[i], alone(refrigerant(names[i]))) << names[i];
}

/// Each call of one finds the set-up of the other in the library.
TEST(Handles, SessionsTakeTurnsInALibraryWithOneSetUp) {
    RefpropSession one(tenFunctions());
    RefpropSession other(tenFunctions());
    RefpropSession withHandle(linkedRefprop());
    EXPECT_FALSE(one.isConcurrent());
    EXPECT_TRUE(withHandle.isConcurrent());
    setUp(one, refrigerant("R404A"));
    setUp(other, refrigerant("R134a"));
    setUp(withHandle, refrigerant("R407C"));
    Bytes ofOne;
    Bytes ofOther;
    Bytes ofHandle;
    for (int i = 0; i < states; ++i) {
        walk(one, ofOne, i, i + 1);
        walk(other, ofOther, i, i + 1);
        walk(withHandle, ofHandle, i, i + 1);
    }
    EXPECT_EQ(ofOne, alone(refrigerant("R404A")));
    EXPECT_EQ(ofOther, alone(refrigerant("R134a")));
    EXPECT_EQ(ofHandle, alone(refrigerant("R407C")));
}

TEST(Handles, SessionsInThreadsShareALibraryWithOneSetUp) {
    std::vector<Bytes> found(3);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < found.size(); ++i) {
        threads.emplace_back([i, &found] {
            RefpropSession session(tenFunctions());
            setUp(session, refrigerant(names[i]));
            walk(session, found[i], 0, states);
        });
    }
    for (std::thread& thread : threads) thread.join();
    for (std::size_t i = 0; i < found.size(); ++i)
        EXPECT_EQ(found[i], alone(refrigerant(names[i]))) << names[i];
}

TEST(Handles, ASetUpThatFailsLeavesOthersAlone) {
    const Refrigerant& r134a = refrigerant("R134a");
    for (const SharedRefpropFunctions& functions : {linkedRefprop(), tenFunctions()}) {
        RefpropSession sound(functions);
        RefpropSession broken(functions);
        setUp(sound, r134a);
        EXPECT_THAT(broken.setUp({"NOSUCH.FLD"}, {1}).sentence(), HasSubstr("NOSUCH.FLD"));
        EXPECT_EQ(broken.atTP(300, 100).answer.code, 1);
        EXPECT_EQ(sound.atTP(300, 100).answer.code, 0);
        EXPECT_EQ(broken.atTP(300, 100).answer.sentence(), "No fluid has been set up.");
        setUp(broken, r134a);
        EXPECT_EQ(broken.atTP(300, 100).h, sound.atTP(300, 100).h);
        broken.setUp({"NOSUCH.FLD"}, {1});
        EXPECT_EQ(broken.atTP(300, 100).h, undefined);
    }
    double molarMass = 0;
    FLUIDHANDLESdll()->WMOLdll(nullptr, &molarMass, &molarMass);
    EXPECT_EQ(molarMass, undefined);
    FLUIDHANDLESdll()->close(nullptr);
}

/// A file of the same length, written within the same moment.
TEST(Handles, AChangedFileIsRead) {
    const TemporaryFolder folder{"marvello-handles"};
    const std::string file = (folder / "R134A.FLD").string();
    const std::string text = *fileText(std::string(MARVELLO_SOURCE_FOLDER) + "/fluids/files/R134A.FLD");
    const auto molarMassOf = [&](const std::string& content) {
        std::ofstream(file, std::ios::binary) << content;
        RefpropSession session(linkedRefprop());
        session.setUp({file}, {1}, "");
        return session.molarMass();
    };
    std::string changed = text;
    changed.replace(changed.find("102.032"), 7, "103.032");
    EXPECT_EQ(molarMassOf(text), 102.032);
    EXPECT_EQ(molarMassOf(changed), 103.032);
    EXPECT_EQ(molarMassOf(text), 102.032);
}

}  // namespace
}  // namespace marvello::test
