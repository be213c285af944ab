#include "engine/PlantText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

#include "catalogue/Globals.h"
#include "data/Session.h"

namespace marvello {
namespace {

using Reason = PlantTextFault::Reason;

/// On the catalogue that is shipped: TK-A has R134A, R290 and others; TK-D is on an inverter.
class PlantTextTest : public ::testing::Test {
  protected:
    PlantTextTest() : session_(MARVELLO_APP_FOLDER) {
        openCatalogue();
        catalogue_ = preparedCatalogue(gDatabase());
    }
    std::string read(const std::string& text, const std::string& usual = {}) {
        return textOf(plantOf(text, *catalogue_, usual));
    }
    PlantTextFault fault(const std::string& text, const std::string& usual = {}) {
        try {
            ADD_FAILURE() << read(text, usual);
        } catch (const PlantTextFault& fault) {
            return fault;
        }
        return {Reason::noMachine, ""};
    }

    Session session_;
    std::shared_ptr<const PreparedCatalogue> catalogue_;
};

TEST_F(PlantTextTest, NamesAreReadInAnyForm) {
    const std::string whole = "TK-A-120x2; TK-D-140 \u00B7 R134A";
    for (const char* text : {"TK-A-120x2; TK-D-140 \u00B7 R134A", "tk-a-120 X2 ;; tk-d-140 r134a",
                             " TK-A-120x2;TK-D-140\u00B7R134A ", "TK-A-120x2;TK-D-140\tR134A"})
        EXPECT_EQ(read(text), whole) << text;
    const Plant plant = plantOf(whole, *catalogue_);
    EXPECT_EQ(plant.refrigerant(), "R134A");
    EXPECT_EQ(plant.machines[0].count, 2);
    EXPECT_EQ(plant.machines[1].count, 1);
    EXPECT_TRUE(plant.machines[1].compressor->hasInvert);
}

TEST_F(PlantTextTest, TheRefrigerantIsTheUsualOneOrTheOnlyOne) {
    EXPECT_EQ(read("TK-A-120", "r290"), "TK-A-120 \u00B7 R290");
    EXPECT_EQ(read("TK-A-120 R134A", "R290"), "TK-A-120 \u00B7 R134A") << "the stated one counts";
    // A compressor that the catalogue has for one refrigerant alone.
    for (const PreparedCompressor& compressor : catalogue_->compressors()) {
        int refrigerants = 0;
        for (const PreparedCompressor& other : catalogue_->compressors())
            if (machineName(other) == machineName(compressor)) ++refrigerants;
        if (refrigerants != 1) continue;
        const std::string expected = machineName(compressor) + " \u00B7 " + compressor.Refrigerant;
        EXPECT_EQ(read(machineName(compressor)), expected);
        EXPECT_EQ(read(machineName(compressor), "R999"), expected) << "the usual one has it not";
        break;
    }
    const PlantTextFault several = fault("TK-A-120");
    EXPECT_EQ(several.reason, Reason::severalRefrigerants);
    EXPECT_NE(std::ranges::find(several.arguments, "R134A"), several.arguments.end());
    EXPECT_NE(std::ranges::find(several.arguments, "R290"), several.arguments.end());
}

TEST_F(PlantTextTest, SaysWhatIsWrong) {
    EXPECT_EQ(fault("").reason, Reason::noMachine);
    EXPECT_EQ(fault(" ; ").reason, Reason::noMachine);
    EXPECT_EQ(fault("\u00B7 R134A").reason, Reason::noMachine);
    EXPECT_EQ(fault("TK-A-120 \u00B7 R999").reason, Reason::unknownRefrigerant);
    EXPECT_EQ(fault("TK-A-120 \u00B7 R999").arguments.front(), "R999");
    EXPECT_EQ(fault("TK-A-121x2", "R134A").reason, Reason::unknownCompressor);
    EXPECT_EQ(fault("TK-A-120; TK-A-121x2 R134A").arguments.front(), "TK-A-121");
    EXPECT_EQ(fault("TK-A-120x0 R134A").arguments.front(), "0");
    EXPECT_EQ(fault("TK-A-120x99999999999999999999 R134A").reason, Reason::count);
    EXPECT_EQ(fault("TK-A-120x5; TK-A-140x4 R134A").reason, Reason::tooManyMachines);
    EXPECT_EQ(fault("TK-D-140x2 R134A").reason, Reason::severalInverters);
    EXPECT_EQ(fault("TK-D-140; TK-D-255 R134A").reason, Reason::severalInverters);
}

}  // namespace
}  // namespace marvello
