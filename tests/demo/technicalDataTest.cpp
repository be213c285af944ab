#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "demo/generate/TechnicalData.h"
#include "tests/support/TemporaryFolder.h"

namespace marvello::generate {
namespace {

using testing::AllOf;
using testing::HasSubstr;

SeriesPlan tkA() {
    SeriesPlan series;
    series.serie = "TK-A";
    series.lowestRatio = series.highestRatio = 2.6;
    series.rows = {100, 75, 50, 25};
    series.portRatio = 1.5;
    for (const auto& [code, displacement] :
         {std::pair{"120", 120.0}, {"140", 140.0}, {"190", 190.0}, {"220", 220.0}}) {
        ModelPlan model;
        model.code = code;
        model.displacement = displacement;
        series.models.push_back(model);
    }
    return series;
}

class TechnicalDataTest : public testing::Test {
  protected:
    TechnicalDataTest() {
        writeBodies(
            "TK-A,TK1,190,\"2 1/8\"\"\",\"1 3/8\"\"\",\"7/8\"\"\",11,286,340\n"
            "TK-A,TK2,300,\"2 5/8\"\"\",\"1 5/8\"\"\",,15,412,470\n");
    }

    void writeBodies(const std::string& rows) {
        std::ofstream(folder_ / "bodies.csv")
            << "serie,body,displacement_to,suction,discharge,economizer,oil,weight_from,weight_to\n"
            << rows;
    }
    std::string messageOf(const SeriesPlan& series) const {
        try {
            technicalData({series}, folder_);
        } catch (const std::exception& reason) {
            return reason.what();
        }
        return "nothing";
    }

    const test::TemporaryFolder folder_{"marvello-bodies"};
};

TEST_F(TechnicalDataTest, GivesEachModelItsBodyAndWeightOnce) {
    SeriesPlan other = tkA();
    other.refrigerant = "R290";  // the data are those of the compressor, whatever it runs on
    const TechnicalData made = technicalData({tkA(), other}, folder_);
    ASSERT_EQ(made.heads.rows.size(), 4U);
    ASSERT_EQ(made.rows.rows.size(), 4U);
    EXPECT_THAT(made.heads.rows[1], testing::ElementsAre("catalog", "TK-A-140", "eng", made.rows.rows[1][0]));
    // 286 + (140 - 120) / (190 - 120) * (340 - 286) = 301.4
    EXPECT_THAT(made.rows.rows[1][3],
                AllOf(HasSubstr("}|140 m³/h;"), HasSubstr("}|100 / 75 / 50 / 25 %;"), HasSubstr("}|2.6;"),
                      HasSubstr("}|2 1/8\";"), HasSubstr("}|11 l;"), HasSubstr("}|301 kg")));
    EXPECT_THAT(made.rows.rows[2][3], HasSubstr("}|340 kg"));
    EXPECT_THAT(made.rows.rows[3][3], AllOf(HasSubstr("}|15 l;"), HasSubstr("}|412 kg")));
}

TEST_F(TechnicalDataTest, NamesWhatDoesNotFit) {
    SeriesPlan series = tkA();
    series.models.back().displacement = 301;
    EXPECT_EQ(messageOf(series), "bodies.csv has no body large enough for model 220");
    series.serie = "TK-X";
    EXPECT_EQ(messageOf(series), "bodies.csv has no body of TK-X");
    writeBodies("TK-A,TK1,190,1,1,1,11,286,340\nTK-A,TK2,190,1,1,1,15,412,470\n");
    EXPECT_THAT(messageOf(tkA()), HasSubstr("bodies.csv:3: displacement_to"));
}

}  // namespace
}  // namespace marvello::generate
