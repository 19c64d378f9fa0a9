// An external track on the survey's grid, in whichever order the two come and however often the grid changes.
#include "track/TrackGrid.h"

#include <gtest/gtest.h>

#include "support/Surveys.h"

namespace corvan {
namespace {

/// Grid numbers of no stated zone, as a table of positions gives them: 45.4 N 12.3 E in zone 33 (cs2cs).
constexpr double East = 288685.52, North = 5030933.45;

Survey With(Survey survey, const PositionSource& source) {
  PuntoGPSEst fix;
  fix.sorgente = source;
  for (const double step : {0.0, 30.0}) {
    if (auto* grid = std::get_if<Grid>(&fix.sorgente)) grid->northing += step;
    if (auto* degrees = std::get_if<Geographic>(&fix.sorgente)) degrees->latitude += step / 111200;
    survey.tracciaEst.PuntiGPSEst.append(fix);
  }
  survey.tracciaEst.loaded = true;
  return survey;
}

const PuntoGPSEst& First(const Survey& s) { return s.tracciaEst.PuntiGPSEst(1); }

TEST(GridTracks, WaitForTheZoneOfTheirSurvey) {
  Survey s = With(Survey{}, Grid{East, North});
  s.settings.griglia = {32, Hemisphere::North};  // of the start
  CollocaTraccia(s);
  EXPECT_EQ(First(s).X, East);
  s.Misure = test::GeographicMeasurements({{12.3, 45.4}}).Misure;
  s.settings.griglia = {33, Hemisphere::North};
  CollocaTraccia(s);
  EXPECT_EQ(First(s).X, East) << "read first, they lie on the grid of the survey that came";
  EXPECT_NEAR(First(s).GeoB, 1218.0, 0.001);
  s.settings.griglia.zone = 32;
  CollocaTraccia(s);
  EXPECT_NEAR(First(s).X, 758272.57, 6) << "then they are converted (cs2cs; the way back is good to metres)";
  s.settings.griglia.zone = 33;
  CollocaTraccia(s);
  EXPECT_TRUE(First(s).X == East && First(s).Y == North) << "and back to the bit";
  EXPECT_EQ(s.tracciaEst.PuntiGPSEst(2).Progressiva, 30);
}

TEST(GridTracks, StandWithASurveyOfNoStatedZone) {
  Survey s = With(test::Measurements({{288600, 5030900}}), Grid{East, North});
  for (const int zone : {32, 33, 34}) {
    s.settings.griglia.zone = static_cast<std::int16_t>(zone);
    CollocaTraccia(s);
    EXPECT_EQ(First(s).X, East) << zone;
  }
}

TEST(GeographicTracks, AreProjectedIntoTheSurveysZone) {
  Survey s = With(test::GeographicMeasurements({{12.3, 45.4}}), Geographic{45.4, 12.3});
  s.tracciaEst.PuntiGPSEst(1).GeoA = 4524;
  s.tracciaEst.layout = s.settings.layout = AngleFormat::DMM_MMM;
  CollocaTraccia(s);
  EXPECT_NEAR(First(s).X, East, 0.05);
  EXPECT_NEAR(First(s).Y, North, 0.05);
  EXPECT_EQ(First(s).GeoA, 4524) << "as read";
  s.settings.layout = AngleFormat::D_DDDD;
  CollocaTraccia(s);
  EXPECT_DOUBLE_EQ(First(s).GeoA, 45.4) << "in the layout of another survey";
}

TEST(GeographicTracks, WithoutASurveyStandOnTheirOwnGrid) {
  Survey s = With(Survey{}, Geographic{-33.85, 151.2});
  CollocaTraccia(s);
  EXPECT_NEAR(First(s).X, 333471.8133, 1e-3);  // the series evaluated apart, in Python
  EXPECT_NEAR(First(s).Y, 6253018.0967, 1e-3);
  EXPECT_EQ(s.tracciaEst.griglia, (GridZone{56, Hemisphere::South}));
}

TEST(Tracks, LoseFixesThatCannotBeConverted) {
  Survey s = With(test::GeographicMeasurements({{12.3, 45.4}}), Grid{East, North});
  s.tracciaEst.PuntiGPSEst(2).sorgente = Grid{1e200, 5};
  EXPECT_EQ(CollocaTraccia(s), 1U);
  EXPECT_EQ(s.tracciaEst.NumGPSEst(), 1);
}

}  // namespace
}  // namespace corvan
