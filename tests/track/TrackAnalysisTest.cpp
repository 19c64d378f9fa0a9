// The analysed track: what must hold whatever the fixes are, and however often it runs.
#include "track/TrackAnalysis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/NumberText.h"
#include "support/SurveyFiles.h"
#include "track/Cable.h"
#include "track/Profile.h"
#include "track/UtmZone.h"

namespace corvan {
namespace {

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

/// A survey in UTM coordinates: easting and northing of each measurement, 0 for none.
struct Fixture {
  test::ScriptedAnswers dialogs;
  GeoGeo geo{dialogs};
  Findings findings;
  Survey survey;

  explicit Fixture(const std::vector<std::pair<double, double>>& places = {}, BadGps filter = BadGps::NoFilter) {
    geo.UTMzone(33);
    survey.settings.filter = filter;
    survey.cavo.PosCavo = {0, 50, 45, 40, 35, 30, 25, 20, 15, 10, 5, 0, 55, 60};
    for (const auto& [x, y] : places) {
      Misura m;
      m.SorgenteUTM = true;
      ImpostaPosizione(m, y, x);
      m.Val180 = 1000;
      m.Val184 = -1000;
      m.CanaleA[1] = 10;
      m.CanaleB[1] = -10;
      m.Val12 = 3;
      m.Val60 = 55;
      m.Elettrodi[1] = 50;
      survey.Misure.append(m);
    }
  }
  TrackResult run() { return AnalisiFile(survey, geo, findings); }
  const Misura& m(std::size_t k) const { return survey.Misure(k); }
};

TEST(GeometricFactor, FollowsTheFormulaAndItsGuard) {
  EXPECT_FLOAT_EQ(FattoreGeometrico(55, 60, 50, 45),
                  static_cast<float>(6.2832 * 15));           // 1/5 - 1/10 - 1/10 + 1/15 = 1/15
  EXPECT_FLOAT_EQ(FattoreGeometrico(0, 10, 5, 10), 62.832F);  // B = N drops both its terms: 1/5 - 1/10
  EXPECT_FLOAT_EQ(FattoreGeometrico(5, 10, 5, 0), static_cast<float>(6.2832 / (-0.2 - 0.2 + 0.1)));  // A = M drops one
  EXPECT_EQ(FattoreGeometrico(0, 0, 0, 0), 0.0F);
  EXPECT_EQ(FattoreGeometrico(0, 30, 10, 20), static_cast<float>(6.2832 / (1 / 10.0 - 1 / 20.0 - 1 / 20.0 + 1 / 10.0)));
}

TEST(Resistivity, IsRecomputedWhereThereIsACurrent) {
  Fixture f({{300000, 5e6}, {300003, 5000004}});
  f.survey.Misure(2).Val184 = 0;
  f.survey.Misure(2).Rho[1] = 7;
  f.survey.Misure(1).CanaleA[2] = NaN;
  f.survey.Misure(1).Rho[2] = 5;
  f.run();
  EXPECT_FLOAT_EQ(f.m(1).Rho[1], static_cast<float>(0.01 * 94.248));
  EXPECT_EQ(f.m(1).Rho[2], 5) << "a reading that is not finite leaves the resistivity as read";
  EXPECT_EQ(f.m(2).Rho[1], 7) << "no current: as read";
  EXPECT_EQ(f.survey.traccia.RhoMax, 7);
  EXPECT_EQ(f.survey.traccia.RhoMin, 0);
  EXPECT_EQ(f.findings.entries().at(0).reason,
            "1 measurement(s) with a current of 0 keep the resistivities that were read, the first is measurement 2");
}

TEST(Resistivity, TellsWhichChannelsHaveCoincidingElectrodes) {
  Fixture f({{300000, 5e6}});
  for (std::size_t e = 8; e <= 11; ++e) f.survey.cavo.PosCavo.at(e) = 0;
  f.run();
  EXPECT_EQ(f.m(1).Rho[8], 0);
  EXPECT_EQ(f.findings.entries().at(0).reason,
            "electrodes coincide, geometric factor and resistivity are 0: channels 8, 9, 10");
}

TEST(Extent, IgnoresLostFixesAndNumbersThatAreNotFinite) {
  Fixture f({{0, 0}, {300000, 5e6}, {300030, 5000040}, {0, 0}, {300030, 5000100}});
  f.survey.Misure(2).Val12 = NaN;
  f.survey.Misure(3).Val12 = 9;
  f.survey.Misure(1).Rho[1] = NaN;
  f.run();
  const TrackExtent& t = f.survey.traccia;
  EXPECT_EQ(t.XMin, 300000);
  EXPECT_EQ(t.XMax, 300030);
  EXPECT_EQ(t.YMax, 5000100);
  EXPECT_EQ(t.CentroX, 300015);
  EXPECT_EQ(t.MaxVal12, 9);
  EXPECT_EQ(t.MinVal12, 3);
  EXPECT_EQ(t.CentroZ, 4.5F);
  EXPECT_TRUE(std::isfinite(t.RhoMin));
  // 3-4-5 triangle, then 60 m north over a lost fix, which repeats the distance before it.
  EXPECT_NEAR(f.m(3).Distanza, 50, 1e-4);
  EXPECT_EQ(f.m(4).Distanza, f.m(3).Distanza);
  EXPECT_NEAR(f.m(5).Distanza, 110, 1e-4);
  EXPECT_NEAR(t.PassoMedio, 110.0 / 4, 1e-4);
}

struct FilterCase {
  BadGps filter;
  std::size_t discarded, interpolated;
};

class LostFixes : public ::testing::TestWithParam<FilterCase> {};

// Lost: 1 (open start), 3 and 4 (a gap of 30 m east and 60 m north), 6 (open end).
TEST_P(LostFixes, AreTreatedAsChosenAndTheSameOnEveryRun) {
  Fixture f({{0, 0}, {300000, 5e6}, {0, 0}, {0, 0}, {300030, 5000060}, {0, 0}}, GetParam().filter);
  f.survey.Misure(2).Val60 = 100;
  const TrackResult first = f.run();
  const Array1<Misura> once = f.survey.Misure;
  const TrackResult second = f.run();
  EXPECT_EQ(first.bad, 4U);
  EXPECT_EQ(first.discarded, GetParam().discarded);
  EXPECT_EQ(first.interpolated, GetParam().interpolated);
  EXPECT_EQ(second.interpolated, first.interpolated);
  for (std::size_t k = 1; k <= 6; ++k) {
    EXPECT_EQ(f.m(k).UTMx, once(k).UTMx) << k;
    EXPECT_EQ(f.m(k).Lat, once(k).Lat) << k;
    EXPECT_EQ(f.m(k).Val60, once(k).Val60) << k;
    EXPECT_EQ(f.m(k).Scartata, once(k).Scartata) << k;
  }
  if (GetParam().interpolated == 0) {
    EXPECT_EQ(f.m(3).UTMx, 0);
    EXPECT_EQ(f.m(3).Lat, 0);
    return;
  }
  const double step = std::sqrt(30.0 * 30 + 60 * 60) / 3;
  EXPECT_NEAR(f.m(4).UTMx, 300020, 1e-9);
  EXPECT_NEAR(f.m(4).UTMy, 5000040, 1e-9);
  EXPECT_FLOAT_EQ(f.m(4).Passo, static_cast<float>(step));
  EXPECT_FLOAT_EQ(f.m(4).Val60, static_cast<float>(100 + 2 * step));
  EXPECT_EQ(f.survey.traccia.PuntiGPS(4).w, 0);
  EXPECT_TRUE(f.m(1).Scartata && f.m(6).Scartata && !f.m(3).Scartata);
  const double lat = f.geo.Gradi(f.m(2).Lat) + 2.0 / 3 * (f.geo.Gradi(f.m(5).Lat) - f.geo.Gradi(f.m(2).Lat));
  EXPECT_NEAR(f.geo.Gradi(f.m(4).Lat), lat, 1e-12);
}

INSTANTIATE_TEST_SUITE_P(Filters, LostFixes,
                         ::testing::Values(FilterCase{BadGps::NoFilter, 0, 0}, FilterCase{BadGps::Skip, 4, 0},
                                           FilterCase{BadGps::Interpolate, 2, 2}));

TEST(Sources, GiveTheOtherPairAndNeverDrift) {
  Fixture f;
  f.geo.Reset();
  f.geo.LatLonFormat("D.DDDD");
  for (const double lat : {-33.85, -33.86}) {
    Misura m;
    ImpostaPosizione(m, lat, 151.2);
    f.survey.Misure.append(m);
  }
  f.run();
  EXPECT_EQ(f.geo.UTMzone(), 56);
  EXPECT_FALSE(f.geo.Nord());
  EXPECT_NEAR(f.m(1).UTMx, 333471.8133, 1e-4);  // the series evaluated apart, in Python
  EXPECT_NEAR(f.m(1).UTMy, 6253018.0967, 1e-4);
  const double before = f.m(1).UTMy;
  for (int k = 0; k < 50; ++k) f.run();
  EXPECT_EQ(f.m(1).UTMy, before);
  EXPECT_EQ(f.m(1).Lat, -33.85);
}

TEST(Sources, ThatCannotBeConvertedCountAsLost) {
  Fixture f({{300000, 5e6}, {2e38, 5e6}});
  Misura far;
  ImpostaPosizione(far, 1e200, 1218);
  f.survey.Misure.append(far);
  EXPECT_EQ(f.run().bad, 2U);
  EXPECT_EQ(f.m(2).UTMx, 0);
  EXPECT_EQ(f.m(3).Lat, 0);
  EXPECT_TRUE(f.findings.anyFault());
}

TEST(OneMeasurement, ComesToItsEnd) {
  Fixture f({{300000, 5e6}});
  f.run();
  EXPECT_EQ(f.survey.traccia.PassoMedio, 0);
  EXPECT_EQ(f.survey.traccia.PuntiGPS.size(), 1U);
  EXPECT_FALSE(f.findings.anyFault());
}

TEST(Translation, MovesTheTracksPointsAndNoDistance) {
  Fixture f({{300000, 5e6}, {0, 0}, {300030, 5000040}}, BadGps::Interpolate);
  f.survey.settings.TraslDatiEst = 100;
  f.run();
  EXPECT_NEAR(f.m(3).Distanza, 50, 1e-4);
  EXPECT_EQ(f.survey.traccia.PuntiGPS(1).x, 85);
  EXPECT_EQ(f.survey.traccia.PuntiGPS(1).w, 3);
}

TEST(CableText, ReadsNumbersByPlaceWhateverTheLabels) {
  const auto p = LeggiStringaCavo("C1 60 C2 55.5 E1 1 E2 2 x 3 E4 -4 E5 5 E6 6 E7 7 E8 8 E9 9 E10 10 E11 11");
  EXPECT_EQ(p[12], 60);
  EXPECT_EQ(p[13], 55.5F);
  EXPECT_EQ(p[3], 3);
  EXPECT_EQ(p[4], -4);
  EXPECT_EQ(p[11], 11);
  EXPECT_EQ(LeggiStringaCavo(ComponiStringaCavo(p)), p);
  EXPECT_EQ(ComponiStringaCavo(p).substr(0, 33), "C1  60 C2  55.5 E1  1 E2  2 E3  3");
  EXPECT_EQ(LeggiStringaCavo("C1;60;C2;55;E1;50")[1], 50);
  EXPECT_EQ(LeggiStringaCavo("C1 60")[13], 0) << "missing tokens are 0";
}

TEST(CableFromData, SkipsAnEmptyFirstFiring) {
  Fixture f({{0, 0}, {300000, 5e6}});
  f.survey.Misure(1).Val60 = 0;
  f.survey.Misure(1).Elettrodi[1] = 0;
  f.survey.Misure(2).Elettrodi[2] = 45;
  f.survey.Misure(2).Elettrodi[3] = std::numeric_limits<float>::infinity();
  CreaCavoDaMisure(f.survey);
  EXPECT_EQ(f.survey.cavo.PosCavoRel[3], 0) << "no sum of our own is infinite";
  EXPECT_EQ(f.survey.cavo.PosCavo[12], 55);
  EXPECT_EQ(f.survey.cavo.PosCavoRel[1], 2.5);
}

TEST(DepthLookUp, IsThatOfAScanFromTheFirstPoint) {
  Profile profile(4, 9);
  const double distances[] = {0, 2, 2, 5, 5, 9};
  for (std::int32_t p = 4; p <= 9; ++p) profile(p) = {0, 0, static_cast<double>(p), distances[p - 4]};
  for (const double d : {-1.0, 0.0, 1.9, 2.0, 2.1, 5.0, 8.9, 9.0, 50.0}) {
    std::int32_t k = 4;  // the scan
    while (d >= 0 && k < 9 && d > profile(k).distanza) ++k;
    EXPECT_EQ(AssegnaZ(profile, 4, 9, d), static_cast<float>(k)) << d;
  }
  EXPECT_EQ(AssegnaZ(profile, 9, 4, 1.0), 0.0F);
}

TEST(SurveyZone, CountsFromTheDateLineAndUnpacksDddmm) {
  const std::pair<float, int> zones[] = {{-180.0F, 1}, {-0.1F, 30}, {0.0F, 31},
                                         {11.99F, 32}, {12.0F, 33}, {1218.0F, 33}};
  for (const auto& [longitude, zone] : zones) EXPECT_EQ(SelezionaZonaUTM(longitude), zone) << longitude;
}

}  // namespace
}  // namespace corvan
