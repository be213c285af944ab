// How the fluid library is called, seen by a library that notes it.

#include <gtest/gtest.h>

#include <string>
#include <tuple>

#include "data/Session.h"
#include "platform/SharedLibrary.h"
#include "tests/support/SmallCatalogue.h"
#include "thermo/clsRefprop.h"

namespace marvello {
namespace {

class refpropCalls : public ::testing::Test {
  protected:
    refpropCalls() {
        catalogue.session.applicationFolder = MARVELLO_RECORDING_FOLDER;
        catalogue.exec(
            "insert into tRefrigeranti values('RM');"
            "insert into tFluidi values('RM','A.FLD',0.6),('RM',' B.FLD ',0.4)");
    }

    /// What the library noted since the last call.
    std::string noted() {
        const auto read = reinterpret_cast<const char* (*)()>(library.function("recordedCalls"));
        std::string notes = read();
        reinterpret_cast<void (*)()>(library.function("forgetCalls"))();
        return notes;
    }

    testing::SmallCatalogue catalogue;
    SharedLibrary library{MARVELLO_RECORDING_FOLDER "/libRefprop.so"};
};

TEST_F(refpropCalls, SetUpOfAPureFluidAndOfABlend) {
    noted();
    InitRefprop("R134A");
    EXPECT_EQ(noted(),
              "SETUP 1 Fluids/R134A.FLD Fluids/hmx.bnc DEF 10000 255\n"
              "XMOLE 1.0000 0.0000\nWMOL 0.7500\nSETREF DEF 1 0.2500 255\n");
    EXPECT_EQ(GetRefprop("R134A").Convert.wm, 100);  // that of the mole fractions

    InitRefprop("RM");
    EXPECT_EQ(noted(),
              "SETUP 2 Fluids/A.FLD|Fluids/B.FLD| Fluids/hmx.bnc DEF 10000 255\n"
              "XMOLE 0.6000 0.4000\nWMOL 0.7500\nSETREF DEF 2 0.2500 255\n");
}

TEST_F(refpropCalls, EachPairOfCodesReachesItsCall) {
    clsRefprop& r = GetRefprop("R134A");
    noted();
    // 2 and 3 stand for whatever the code says: 275.15 K, 200 kPa, 200 J/mol with 100 g/mol, 200 J/mol-K.
    r.Pressure(2, 1);
    r.Pressure(2, 2);
    EXPECT_EQ(noted(), "SATT 275.15 1\nSATT 275.15 2\n");
    r.Temperature(2, 1, 1, 0, -1);
    r.Temperature(2, 1, 2, 0, -1);
    r.Temperature(2, 1, 2, 3, 4);
    r.Temperature(3.5, 4, 2, 2, 1);
    r.Temperature(2, 1, 2, 3, 3);
    r.Temperature(3.5, 3, 2, 2, 1);
    EXPECT_EQ(noted(),
              "SATP 200.00 1\nSATP 200.00 2\nPS 200.00 300.00\nPS 200.00 350.00\n"
              "PH 200.00 300.00 173\nPH 200.00 350.00 173\n");
    r.Enthalpy(2, 0, 3, 1);
    r.Enthalpy(4, 1, 2, 0);
    r.Enthalpy(2, 1, 4, 4);
    r.Enthalpy(5, 4, 2, 1);
    r.Enthalpy(2, 0, 3, 4);
    r.Enthalpy(4, 4, 2, 0);
    EXPECT_EQ(noted(),
              "TP 275.15 300.00\nTP 275.15 400.00\nPS 200.00 400.00\nPS 200.00 500.00\n"
              "TS 275.15 300.00 0\nTS 275.15 400.00 0\n");
    r.Entropy(7, 0, 3, 1);
    r.Entropy(4, 1, 7, 0);
    r.Entropy(2, 1, 4, 3);
    r.Entropy(5, 3, 2, 1);
    EXPECT_EQ(noted(), "TP 280.15 300.00\nTP 280.15 400.00\nPH 200.00 400.00 255\nPH 200.00 500.00 255\n");
    r.Density(8, 0, 2, 3.0, 1);
    r.Density(4, 1, 2, 8.0, 0);
    r.Density(3, 1, 1);
    r.Density(8, 0, 2);  // a temperature goes in as a pressure
    EXPECT_EQ(noted(), "TP 281.15 300.00\nTP 281.15 400.00\nSATP 300.00 1\nSATP 281.15 2\n");
}

}  // namespace
}  // namespace marvello
