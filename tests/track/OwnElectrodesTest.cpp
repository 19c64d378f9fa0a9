// Measurements that name their own electrodes: factors and cable follow from those.
#include <gtest/gtest.h>

#include "support/SurveyFiles.h"
#include "support/Surveys.h"
#include "track/Cable.h"
#include "track/FormatGuess.h"
#include "track/TrackAnalysis.h"

namespace corvan {
namespace {

/// Gives a measurement one channel between electrodes of its own.
void Own(Misura& m, float a, float b, float first, float second) {
  m.CavoProprio = true;
  m.letture = BitDi(1);
  m.Val60 = a;
  m.Val64 = b;
  m.Elettrodi.fill(second);
  m.Elettrodi[1] = first;
}

// Channel 1 reads 1 and -2 mV at 1000 and -1001 mA: (1/1000 + 2/1001) / 2 = 0.001499001 ohm; K of 1 6 11 16 is -94.248
// m.
TEST(OwnElectrodes, GiveTheFactorAndLeaveTheCableToTheOthers) {
  Survey survey = test::Measurements({{300000, 5e6}, {300005, 5e6}});
  Own(survey.Misure(1), 1, 6, 11, 16);
  Findings findings;
  CreaCavoDaMisure(survey);
  RilevaCavo(survey, findings);
  AnalisiFile(survey, findings);
  EXPECT_EQ(test::Told(findings), "");
  EXPECT_EQ(survey.cavo.PosCavo[12], 55.0F) << "the towed cable, though another stands first";
  EXPECT_NEAR(survey.Misure(1).Rho[1], -0.001499001 * 94.248, 1e-6);
  EXPECT_EQ(survey.Misure(1).Rho[2], 2.0F / 100 + 1) << "not computed";
  EXPECT_FLOAT_EQ(FattoreDi(survey.Misure(1), 1, survey.traccia), -94.248F);
  EXPECT_EQ(FattoreDi(survey.Misure(2), 1, survey.traccia), survey.traccia.FattoreK[1]);
}

TEST(OwnElectrodes, AreTheCableWhereThereIsNoOther) {
  Survey survey = test::Measurements({{300000, 5e6}, {300005, 5e6}});
  Own(survey.Misure(1), 1, 6, 11, 16);
  Own(survey.Misure(2), 1, 6, 16, 21);
  survey.files[0].channels = 1;
  Findings findings;
  CreaCavoDaMisure(survey);
  RilevaCavo(survey, findings);
  AnalisiFile(survey, findings);
  EXPECT_EQ(test::Told(findings), "") << "neither other cables nor channels that nobody measured";
  EXPECT_EQ(LunghezzaCavo(survey.cavo), 15.0) << "electrodes that do not exist do not stand at 0";
}

TEST(OwnElectrodes, StayWhereAPositionIsInterpolated) {
  Survey survey = test::Measurements({{300000, 5e6}, {0, 0}, {300030, 5e6}});
  for (Misura& m : survey.Misure) Own(m, 1, 6, 11, 16);
  Own(survey.Misure(2), 2, 7, 16, 21);
  survey.settings.filter = BadGps::Interpolate;
  Findings findings;
  AnalisiFile(survey, findings);
  const Misura& between = survey.Misure(2);
  EXPECT_TRUE(between.Interpolata);
  EXPECT_EQ(std::tuple(between.Val60, between.Val64, between.Elettrodi[1], between.Elettrodi[11]),
            std::tuple(2.0F, 7.0F, 16.0F, 21.0F));
}

TEST(OwnElectrodes, FarApartAreNoOtherCoordinateFormat) {
  Survey survey = test::Measurements({{300000, 5e6}, {300400, 5e6}});
  for (Misura& m : survey.Misure) Own(m, 1, 6, 11, 16);
  Findings findings;
  CreaCavoDaMisure(survey);
  AnalisiFile(survey, findings);
  RilevaFormato(survey, findings);
  EXPECT_EQ(test::Told(findings),
            "-the measurements lie 400 m apart in the mean, over 20 cable lengths: are the units of positions and "
            "electrodes right?\n");
}

}  // namespace
}  // namespace corvan
