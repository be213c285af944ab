#include "engine/LoadProfile.h"

#include <gtest/gtest.h>

#include <string>

namespace marvello {
namespace {

using Reason = LoadProfileFault::Reason;

std::string refusalOf(const std::string& text) {
    try {
        loadProfileIn(text, "year.csv");
    } catch (const LoadProfileFault& fault) {
        return fault.what();
    }
    return "accepted";
}

TEST(LoadProfile, ReadsBinsTheColdestFirst) {
    const LoadProfile profile = loadProfileIn("outdoor,hours,load\n30,100,1\n-5,200,0.4\n\n30,50,0.5\n", "f");
    const std::vector<LoadBin> expected{{-5, 200, 0.4}, {30, 100, 1}, {30, 50, 0.5}};
    EXPECT_EQ(profile.bins, expected);
    EXPECT_EQ(profile.hours(), 350);
    EXPECT_EQ(profile.fullLoadHours(), 80 + 100 + 25);
}

TEST(LoadProfile, ReadsWhatSpreadsheetsWrite) {
    const LoadProfile expected{{{-5, 200.5, 0.4}, {30, 100, 1}}};
    for (const std::string text :
         {// a decimal comma, a mark of UTF-8, units and CRLF
          "\xEF\xBB\xBFoutdoor \u00b0C;hours h;load %\r\n-5;200,5;40\r\n30;100;100\r\n",
          // tabs, other columns in another order, empty rows at the end
          "Load\tnote\tHours\tOutdoor\n0,4\tnight\t200,5\t-5\n1\t\t100\t30\n\t\t\t\n",
          // Fahrenheit: 23 F are -5 C, 86 F are 30 C
          "# measured by \"us\", 25\" pipe\n\noutdoor [F],hours (h),load [%]\n23,200.5,40\n86,100,100\n",
          // a comma as mark in a quoted field, and a sign of typographers
          "outdoor (deg C),hours,load\n\u22125,\"200,5\",\"0,4\"\n30,100,1\n"}) {
        SCOPED_TRACE(text);
        const LoadProfile profile = loadProfileIn(text, "f");
        ASSERT_EQ(profile.bins.size(), 2U);
        for (std::size_t i = 0; i < 2; ++i) {
            EXPECT_NEAR(profile.bins[i].outdoor, expected.bins[i].outdoor, 1e-12);
            EXPECT_EQ(profile.bins[i].hours, expected.bins[i].hours);
            EXPECT_EQ(profile.bins[i].load, expected.bins[i].load);
        }
    }
}

TEST(LoadProfile, WithoutLoadsTheDesignLoadIsNeeded) {
    EXPECT_EQ(loadProfileIn("outdoor,hours\n3,5\n", "f", false), (LoadProfile{{{3, 5, 1}}}));
}

TEST(LoadProfile, RefusesWithTheLine) {
    const std::string heading = "outdoor,hours,load\n";
    for (const auto& [text, sentence] :
         {std::pair{std::string(), "year.csv: there are no bins below the heading"},
          {heading, "year.csv: there are no bins below the heading"},
          {"outdoor,hours\n1,2\n",
           "year.csv:1: the heading has no column \"load\"; it is such as outdoor,hours,load"},
          {"#\"\noutdoor,hours,load,hours h\n", "year.csv:2: the heading has the column \"hours\" twice"},
          {"outdoor K,hours,load\n",
           "year.csv:1: \"outdoor K\" has a unit that is not known; outdoor may "
           "have C or F, hours h and load %"},
          {heading + "1,2,1\n1,5,2,1\n",
           "year.csv:3: the line has not as many fields as the heading; with decimal commas the columns are "
           "separated by semicolons"},
          {heading + "1,,1\n", "year.csv:2: hours is missing"},
          {heading + "1,2,x\n", "year.csv:2: \"x\" is not a number"},
          {heading + "nan,2,1\n", "year.csv:2: \"nan\" is not a number"},
          {"outdoor;hours;load\n1;1.234,5;1\n", "year.csv:2: \"1.234,5\" is not a number"},
          {heading + "95,2,1\n",
           "year.csv:2: \"95\" is not an outdoor temperature from -80 to 70 degrees Celsius"},
          {heading + "5,2,1\n5,-2,1\n", "year.csv:3: the hours \"-2\" are negative"},
          {heading + "5,8785,1\n", "year.csv:2: the hours \"8785\" are more than a year has"},
          {heading + "5,2,-0.1\n", "year.csv:2: the load \"-0.1\" is negative"},
          {heading + "5,2,80\n",
           "year.csv:2: the load \"80\" is above the design load; it is a share from 0 to 1, or percent if "
           "the heading says load %"},
          {"outdoor,hours,load %\n5,2,100.5\n",
           "year.csv:2: the load \"100.5\" is above the design load; it is a share from 0 to 1, or percent "
           "if the heading says load %"},
          {heading + "5,\"2,1\n", "year.csv:2: a field in quotes has no end"},
          {heading + "5,2,\xB0\n", "year.csv:2: the text is not valid UTF-8"}})
        EXPECT_EQ(refusalOf(text), sentence);
    std::string many = heading;
    for (int i = 0; i < 8785; ++i) many += "1,1,1\n";
    EXPECT_EQ(refusalOf(many), "year.csv:8786: there are more than 8784 bins, the hours of a year");
}

TEST(LoadProfile, AFaultSaysItsReasonAndPlace) {
    try {
        loadProfileIn("outdoor,hours,load\n\n5,-2,1\n", "f");
        FAIL();
    } catch (const LoadProfileFault& fault) {
        EXPECT_EQ(fault.reason, Reason::negativeHours);
        EXPECT_EQ(fault.line, 3);
        EXPECT_EQ(fault.text, "-2");
    }
}

}  // namespace
}  // namespace marvello
