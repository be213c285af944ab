#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>

#include "tests/engine/EngineFixture.h"

namespace marvello {
namespace {

using testing::keys;

// Whole compressors worked by a second program, with its own evaluation of R134a (Tillner-Roth and Baehr,
// J. Phys. Chem. Ref. Data 23 (1994) 657), of the cycle and of the searches. Pressures in bar, h in kJ/kg,
// s in kJ/(kg K), rho in kg/m^3, flows in kg/h.
class wholeCompressors : public testing::EngineFixture {
  protected:
    using Values = std::map<std::string, double>;

    void expectValues(const Values& expected) {
        constexpr double relative = 1e-7;
        const clsVariables& v = selections.Item(1).Variables;
        for (const auto& [name, value] : expected) {
            EXPECT_NEAR(v(name), value, relative * std::abs(value)) << name;
        }
    }
};

// clang-format off
// -10/40 degC, superheat 12 K, subcooling 4 K (each with its 0.0001 K), 380 V 50 Hz.
//   pe = 2.0060330747, pc = 10.165930221
//   h(2.0001, pe) = 402.88325518, s = 1.7713226601, rho = 9.4848254190
//   h(0, pe) = 401.18079337, rho = 9.5716469540
//   h(35.9999, pc) = 250.46476197 = H3;  h(35, pc) = 248.99344042
// Surfaces at x = -10, y = 40:
//   Q0: 100 - 30 - 48 + 3 + 8 + 3.2 - 0.2 - 0.4 - 0.8 - 0.64 = 34.16 kW;  Pta: 5 - 1 + 10 = 14 kW
//   M010 = 34.16 / (401.18079337 - 248.99344042) * 3600 = 808.05663295
//   Mbase = M010 / 9.5716469540 * 9.4848254190 = 800.72699390
//   Q0 = Mbase * (402.88325518 - 250.46476197) / 3600 = 33.901556079 kW
//   Mev = Q0 * 3600 / (402.88325518 - 250.46476197) = 800.72699390
// The compression:
//   h(pc, s) = 438.82400194 at 57.727718174 degC, so 35.940746756 kJ/kg
//   EtaIso = Mev * 35.940746756 / (14 * 3600) = 0.57100647040
//   T21 = 60 + 5 + 12 + 12.0001 - 10 = 79.0001 (no correction), H21 = 461.12779315
//   EtaComp = EtaIso * (H21 - 402.88325518) / 35.940746756 = 0.92535662287;  EtaComp1 = 0.97162445401
// The port at 1.7 pe:
//   P9 = 3.4102562270, h(P9, s) = 414.31852672, dew 4.2830445877 degC, rho'' = 16.720230162
//   H9 = 402.88325518 + 11.435271534 * EtaComp / EtaIso = 421.41492653 at 26.720676901 degC
// The injected gas at a flow m: P7 = P9 + 0.9 / 280 (D7 / D9D) m, until P7 moves by less than 1e-5 bar.
class economizedCompressor : public wholeCompressors {
  protected:
    economizedCompressor() {
        catalogue.compressor({{"fKForo", "1.7"}, {"fKPerdita", "0.9"}, {"fSez", "280"},
                              {"fValue1", "1.05"}, {"fCtsca", "1.5"}});
        catalogue.completeDefault();
        catalogue.exec("update tPolynomials set fC1=60, fC2=-0.5, fC3=0, fC4=0.3, fC5=0, fC6=0 where fType=3");
        conditions.TEvaporatingDew = -10;
        conditions.TCondensationDew = 40;
        conditions.SuperHeat = 12;
        conditions.SubCooling = 4;
        conditions.EcoCalculateMode = EconomizerMode::approach;
    }

    void expectCompressionAndPort() {
        expectValues({{"Q0", 33.90155607881715}, {"Pta", 14}, {"Mbase", 800.7269939020778},
                      {"Mev", 800.7269939020778}, {"T2Iso", 57.72771817354557}, {"H2Iso", 438.824001940205},
                      {"EtaIso", 0.571006470402334}, {"T21", 79.0001}, {"H21", 461.12779314529985},
                      {"EtaComp", 0.9253566228681119}, {"EtaComp1", 0.9716244540115175},
                      {"P9", 3.4102562270356556}, {"H9Iso", 414.31852671840284}, {"H9", 421.4149265344413},
                      {"T9", 26.720676901129572}, {"T9D", 4.283044587693325}, {"D9D", 16.720230162473122},
                      {"Qc", 47.90155607881715}});
    }
};

// An approach of 8 K. At 1 kg/h the liquid is 31.55 K above the bubble point at the port, so a plate is tried:
//   0.01 Mev = 8.0073 has an approach of 30.414 K, and 8.0073 (30.414 / 8 - 1) = 22.434 is the start;
//   each trial goes on by 1 + 0.1 e / 10: 27.463 (27.215 K), 32.740 (26.340), 38.744 (25.339), ...
//   138.786 (8.0107), 138.80070824 (8.0081): found by 36 trials, the error never turning its sign
// The gas: dew 8.0812352091, T7 = 20.081335209, D7 = 17.860067840, H7 = 414.34290128, P7 = 3.8868155971
// Mixed:   H71 = (138.80070824 H7 + 800.72699390 H9) / 939.52770214 = 420.37014402, P71 = 3.4806605141,
//          T71 = 25.725684661, S71 = 1.7902675021, h(pc, S71) = 445.14886182
//          h2 = H71 + 24.778717801 * EtaComp1 / EtaIso = 462.53360346 at 80.350188361 degC
// Liquid:  Qeco = 138.80070824 * (H7 - H3) / 3600 = 6.3184449448 kW
//          H31 = H3 - 138.80070824 * 163.87813930 / 800.72699390 = 222.05757454 at 16.089301695 degC
// Power:   PtaEco = 1.05 * (14 + 138.80070824 * (h2 - H71) / (3600 * EtaComp1)) = 16.456775558 kW
//          CAECO = (2 + 1.8 PtaEco + 0.01 PtaEco^2) * 400 / 380 = 36.137316445 A
// Oil:     h(70, pc) = 451.74040960, Pcool = 939.52770214 * (h2 - 451.74040960) / 3600 = 2.8168068409 kW
TEST_F(economizedCompressor, WithAPlate) {
    conditions.Eco = 8;
    conditions.OilCoolingCalculateMode = OilCoolingMode::givenLimit;
    conditions.OilCooling = 70;
    const clsCompressor& c = select();
    EXPECT_EQ(names(c.Messages.Error), keys({}));
    EXPECT_EQ(c.Variables.Item("EcoModel").text(), "Piastra");
    EXPECT_EQ(c.Variables("EcoOK"), 0);
    EXPECT_EQ(c.Variables.Item("CAECO").UnitMeasuretext(), "A");
    expectCompressionAndPort();
    expectValues({{"meco", 138.80070824429947}, {"T7D", 8.081235209103}, {"T7", 20.081335209103},
                  {"D7", 17.860067840272304}, {"H7", 414.342901277598}, {"P7", 3.886815597094104},
                  {"Peco", 3.886815597094104}, {"H71", 420.3701440207071}, {"P71", 3.480660514140182},
                  {"T71", 25.72568466122319}, {"S71", 1.7902675020671088}, {"H7Iso", 445.1488618217478},
                  {"h2", 462.5336034602785}, {"T2", 80.35018836085914}, {"T6", 8.081309535587309},
                  {"Qeco", 6.318444944758898}, {"H31", 222.057574537387}, {"T31", 16.08930169544155},
                  {"SCeco", 19.91059830455839}, {"PtaEco", 16.456775558385758}, {"CAECO", 36.13731644514231},
                  {"H2cool", 451.7404095990453}, {"Pcool", 2.8168068409069056}, {"Pra", 2.8168068409069056},
                  {"CopEco", 2.4439782192375734}, {"TSat", 8.081309535587309}, {"QcEco", 56.20497279934417},
                  {"Tsca", 70}});
}

// An approach of 60 K is wider than those 31.55 K: a tank, from 5 * 0.01 Mev = 40.036. Each trial is followed by
// the factor 1 + s d, d being the liquid above the bubble point at P7:
//   40.04 (25.12 K), 140.62 (7.68), 248.63 (-12.49: s goes from 0.1 to 0.05, and the flow below 0, to 1),
//   1 (31.55), 2.578 (31.30), 6.612 (30.64), 16.74 (28.98), 41.00 (24.96), 92.18 (16.24), 167.02 (2.89),
//   191.18 (-1.57: s = 0.025), 176.19 (1.21), 181.51 (0.226), 182.54 (0.0362), 182.70240174 (0.0056222): found,
//   and left at 182.70240174 (1 + 0.025 * 0.0056222) = 182.72808151
// The states are those of 182.70240174; power, oil load and QcEco go by the flow as it was left.
TEST_F(economizedCompressor, WithATank) {
    conditions.Eco = 60;
    conditions.OilCoolingCalculateMode = OilCoolingMode::none;
    conditions.OilCooling = 110;
    const clsCompressor& c = select();
    EXPECT_EQ(names(c.Messages.Error), keys({"25"}));  // of course not at 60 K
    EXPECT_EQ(c.Variables.Item("EcoModel").text(), "Tank");
    EXPECT_EQ(c.Variables.Item("Tsca").text(), "-");
    expectCompressionAndPort();
    expectValues({{"meco", 182.72808150881642}, {"T7D", 9.412907365849719}, {"D7", 18.652885122071748},
                  {"H7", 415.1633334391537}, {"P7", 4.065393786703736}, {"H71", 420.2534999203361},
                  {"P71", 3.5319682748450387}, {"T71", 25.713718548630887}, {"S71", 1.7887727964371356},
                  {"H7Iso", 444.64570826500346}, {"h2", 461.7592749745547}, {"T2", 79.60651574429505},
                  {"T6", 9.412965655052403}, {"Qeco", 8.358562380358261}, {"H31", 212.8853812379366},
                  {"T31", 9.418587862916269}, {"SCeco", 26.58131213708367}, {"PtaEco", 16.976681005332804},
                  {"CAECO", 37.30537135701823}, {"CopEco", 2.4893039131677415}, {"QcEco", 58.83282167898706},
                  {"Pcool", 0}, {"Pra", 0}});
    EXPECT_FALSE(c.Variables.Exist("H2cool"));
}

// TK-D on an inverter at 62.3 Hz from a supply of 440 V 60 Hz, -7.3/41.7 degC, superheat 14 K, subcooling 6 K.
// The ratio is chosen in single precision: r = 62.3 / 50 = 1.2459999323, x = -7.3000001907, y = 41.700000763, and
// 1.2000000477 for the 60 Hz:
//   kQ = (0.02 r^2 - 0.05 r + 0.01 + 1) r = 1.2195228325;  kP = (0.03 r^2 - 0.02 r + 1) r = 1.2729826543
//   2.2: 53.389929682 / 21.998042639 = 2.4270309208
//   2.6: 53.660663678 / 21.535186095 = 2.4917668898, the best
//   3.2: 52.467970217 / 27.182646535 = 1.9302009519
// The cycle, with the surfaces of 2.6 in double precision:
//   pe = 2.2288724162, pc = 10.637405664, h(-7.3, pe) = 394.28733932
//   h(6.7001, pe) = 406.34951517, s = 1.7757277057, rho = 10.389279856
//   h(2.7, pe) = 402.90588768, rho = 10.580157291
//   h(35.6999, pc) = 250.01756007 = H3;  h(36.7, pc) = 251.49229645
//   Q010 = 53.660665312, Pta = 21.535185900, M010 = 1275.8325958, Mbase = 1252.8152013, Q0 = 54.404180498 kW
//   power factor 0.0004 Pta^2 + 0.012 Pta + 0.55 = 0.99392792351
//   CA = 21535.185900 / (sqrt(3) * 0.99392792351 * 440) = 28.430233682 A, and 15 % more is below the 65 A
//   T21 = 62 + 3.65 + 0.10658 + 13.344 - 0.30441 + 14.0001 - 8 = 84.79627, H21 = 466.53126353
//   h(82.5, pc) = 464.12524799, Pra = Mbase * 2.4060155 / 3600 = 0.83730356780 kW before the economizer
// The wanted 62 kW (at most 104.61 can be had) from 0.01 Mev, by 1 + 0.25 e / 10 a trial:
//   14.728 (6.924 kW missing), 17.278 (6.808), 20.219 (6.674), ... 164.278 (0.0522), 164.49183690 (0.0423)
//   h(pc, s) = 441.32168315, EtaIso = 0.56514311909, EtaComp = 0.97252480887, EtaComp1 = 1.0211510493
//   P9 = 3.4547522451, H9Iso = 415.89420284, H9 = 422.77446178, dew 4.6542909292, rho'' = 16.931858827
//   P7 = 3.7116125833, H7 = 415.33176308, H71 = 421.91066646, P71 = 3.4845633077, S71 = 1.7953225160
//   h(pc, S71) = 447.92762077, h2 = 468.92042256 at 87.076869303 degC
//   Qeco = 164.49183690 * (H7 - H3) / 3600 = 7.5535658106 kW
//   H31 = 228.31217456 at 20.572142796 degC, 13.84 K above the bubble point: a tank, as 13.84 is less than 62
//   PtaEco = Pta + 164.49183690 * (h2 - H71) / (3600 * EtaComp1) = 23.638673033 kW
//   CAECO = (2 + 1.8 t + 0.01 t^2) * 460 / 440 = 43.217495414 A with t = PtaEco * 50 / 60
//   Pcool = (164.49183690 + Mev) * (h2 - 464.12524799) / 3600 = 1.8878429637 kW
TEST_F(wholeCompressors, AnInverterWithAChoiceOfVolumeRatios) {
    catalogue.compressor({{"fSerieID", "'TK-D'"}, {"fhasInverter", "1"}, {"fFla", "65"},
                          {"fInverterQ0C1", "0.02"}, {"fInverterQ0C2", "-0.05"}, {"fInverterQ0C3", "0.01"},
                          {"fInverterPtaC1", "0.03"}, {"fInverterPtaC2", "-0.02"},
                          {"fInverterCaC1", "0.0004"}, {"fInverterCaC2", "0.012"}, {"fInverterCaC3", "0.55"},
                          {"fKForo", "1.55"}, {"fKPerdita", "0.5"}, {"fSez", "320"}});
    catalogue.surfaces(22, {92, 3.1, -0.9, 0.03, -0.01}, {6, -0.05, 0.2, 0, 0.001});
    catalogue.surfaces(26, {95, 3.2, -0.95, 0.03, -0.01}, {7, -0.1, 0.16, 0, 0.001});
    catalogue.surfaces(32, {97, 3.3, -1, 0.03, -0.01}, {12, -0.15, 0.12, 0, 0.001});
    catalogue.surface("S", 3, 8, {62, -0.5, 0.002, 0.32, 0, 0.001});
    catalogue.motor(1, {2, 1.8, 0.01, 0, 0});
    catalogue.limit("E", 0, "-20,20;15,20;15,60;-20,60;-20,20");
    conditions = conditionsAt(-7.3, 41.7);
    conditions.SuperHeat = 14;
    conditions.SubCooling = 6;
    conditions.MotorVoltage = 440;
    conditions.MotorHz = 60;
    conditions.InverterFrequency = 62.3F;
    conditions.OilCoolingCalculateMode = OilCoolingMode::givenLimit;
    conditions.OilCooling = 82.5;
    select("R134A", "TK-D");
    expectValues({{"Pra", 0.8373035678010724}, {"QcEco", 54.40418049753062 + 21.53518590036074}});

    conditions.EcoCalculateMode = EconomizerMode::capacity;
    conditions.Eco = 62;
    const clsCompressor& c = select("R134A", "TK-D");
    EXPECT_EQ(names(c.Messages.Error), keys({}));
    EXPECT_EQ(c.VI, "2.6");
    EXPECT_EQ(c.Variables.Item("EcoModel").text(), "Tank");
    EXPECT_EQ(c.Variables("EcoOK"), 0);
    EXPECT_EQ(c.Variables("InverterFrequency"), static_cast<double>(62.3F));
    expectValues({{"Q010", 53.66066531163944}, {"Pta", 21.53518590036074}, {"M010", 1275.8325957533332},
                  {"V010", 120.58729947154796}, {"Mbase", 1252.8152012592172}, {"Q0", 54.40418049753062},
                  {"COP", 54.4 / 21.5}, {"CA", 28.43023368224563}, {"Fla", 65 * 460.0 / 440},
                  {"Lra1", 300 * 460.0 / 440}, {"T21", 84.79627}, {"Tsca", 82.5},
                  {"EtaIso", 0.5651431190894459}, {"EtaComp", 0.9725248088655383},
                  {"EtaComp1", 1.0211510493088152}, {"H9Iso", 415.89420284405765}, {"H9", 422.77446177559386},
                  {"D9D", 16.931858826537287}, {"meco", 164.49183689522664}, {"P7", 3.7116125833176454},
                  {"H7", 415.3317630826974}, {"H71", 421.91066646060943}, {"P71", 3.4845633076713423},
                  {"S71", 1.795322515983388}, {"H7Iso", 447.9276207685531}, {"h2", 468.92042256306553},
                  {"T2", 87.0768693034718}, {"T6", 6.728607777018794}, {"Qeco", 7.553565810610466},
                  {"H31", 228.31217455974758}, {"T31", 20.572142796111542}, {"PtaEco", 23.638673032880792},
                  {"CAECO", 43.21749541373959}, {"Pcool", 1.8878429636932708}, {"Pra", 1.8878429636932708},
                  {"CopEco", 2.621033178214337}, {"QcEco", 85.91003554278484}});
}
// clang-format on

}  // namespace
}  // namespace marvello
