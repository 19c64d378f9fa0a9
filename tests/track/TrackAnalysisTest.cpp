// The analysed track: what must hold whatever the fixes are, and however often it runs.
#include "track/TrackAnalysis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "geo/AngleText.h"
#include "support/SurveyFiles.h"
#include "support/Surveys.h"
#include "track/Cable.h"
#include "track/FormatGuess.h"
#include "track/Profile.h"

namespace corvan {
namespace {

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

using test::Firing;

struct Fixture {
  Findings findings;
  Survey survey;

  explicit Fixture(const std::vector<Firing>& firings = {}, BadGps filter = BadGps::NoFilter)
      : survey(test::Measurements(firings)) {
    survey.settings.filter = filter;
  }
  TrackResult run() { return AnalisiFile(survey, findings); }
  const Misura& m(std::size_t k) const { return survey.Misure(k); }
  std::string told() const { return test::Told(findings); }
  /// Decimal degrees of a measurement.
  double lat(std::size_t k) const { return GradiDaNumero(m(k).Lat, survey.settings.layout); }
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
  f.survey.Misure(2).Rho[1] = 7000;
  f.survey.Misure(1).CanaleA[2] = NaN;
  f.survey.Misure(1).Rho[2] = -5;
  f.run();
  // Channel 1: K = 94.248 m, (1 / 1000 + -2 / -1001) / 2.
  EXPECT_FLOAT_EQ(f.m(1).Rho[1], static_cast<float>((1 / 1000.0 + 2 / 1001.0) * 94.248 / 2));
  EXPECT_EQ(f.m(1).Rho[2], -5) << "a reading that is not finite leaves the resistivity as read";
  EXPECT_EQ(f.m(2).Rho[1], 7000) << "no current: as read";
  EXPECT_EQ(f.survey.traccia.RhoMax, 7000) << "one that was kept takes part in the extremes";
  EXPECT_EQ(f.survey.traccia.RhoMin, -5);
  EXPECT_EQ(f.told(),
            "-1 measurement with a current of 0 keeps the resistivities that were read, it is measurement 2\n");
  EXPECT_EQ(f.findings.entries()[0].file, "a.bin");
}

// Extremes of what stands after the computation, in readings that exist: neither what was stored nor zeros of nothing.
TEST(Resistivity, OfReadingsThatDoNotExistIsZeroAndNoExtreme) {
  Fixture f({{300000, 5e6}, {300003, 5000004}});
  for (std::size_t k : {1U, 2U}) {
    Misura& m = f.survey.Misure(k);
    m.letture = k == 1 ? BitDi(3) | BitDi(4) : ReadingSet{0};
    for (std::size_t c = 1; c <= MaxChannels; ++c) m.Rho.at(c) = k == 1 && HaLettura(m, c) ? 1e9F : 0.0F;
  }
  f.survey.Misure(1).CanaleA[7] = -1;
  f.run();
  const TrackExtent& t = f.survey.traccia;
  // K of channel 3: 1/15 - 1/20 - 1/20 + 1/25 -> 942.48; of channel 4: 1/20 - 1/25 - 1/25 + 1/30 -> 1884.96.
  EXPECT_FLOAT_EQ(t.RhoMin, static_cast<float>((3 / 1000.0 + 4 / 1001.0) * 942.48 / 2));
  EXPECT_FLOAT_EQ(t.RhoMax, static_cast<float>((4 / 1000.0 + 5 / 1001.0) * 1884.96 / 2));
  EXPECT_FALSE(std::signbit(f.m(1).Rho[7])) << "not even -0";
  EXPECT_EQ(f.m(1).Rho[7], 0);
  EXPECT_TRUE(f.m(2).Scartata) << "an empty firing is left out under every filter";
}

TEST(Resistivity, TellsWhichChannelsHaveCoincidingElectrodesOrNegativeFactors) {
  Fixture f({{300000, 5e6}});
  for (std::size_t e = 8; e <= 11; ++e) f.survey.cavo.PosCavo.at(e) = 0;
  f.run();
  EXPECT_EQ(f.m(1).Rho[8], 0);
  EXPECT_EQ(f.told(), "-electrodes coincide, geometric factor and resistivity are 0: channels 8, 9, 10\n");
  Fixture reversed({{300000, 5e6}});
  std::swap(reversed.survey.cavo.PosCavo[12], reversed.survey.cavo.PosCavo[13]);
  reversed.run();
  EXPECT_EQ(reversed.told(),
            "-geometric factors are negative (C1 and C2 in reverse order?): channels 1, 2, 3, 4, 5, 6, 7, 8, 9, 10\n");
}

TEST(Extent, IgnoresLostFixesAndNumbersThatAreNotFinite) {
  Fixture f({{0, 0}, {300000, 5e6}, {300030, 5000040}, {0, 0}, {300030, 5000100}});
  f.survey.Misure(2).Val12 = NaN;
  f.survey.Misure(3).Val12 = 9;
  f.survey.Misure(1).Rho[1] = NaN;
  f.run();
  const TrackExtent& t = f.survey.traccia;
  EXPECT_EQ((std::array{t.XMin, t.XMax, t.YMin, t.YMax}), (std::array{300000.0, 300030.0, 5e6, 5000100.0}));
  EXPECT_EQ((std::array{t.CentroX, t.MinVal12, t.MaxVal12, t.CentroZ}), (std::array{300015.0F, 3.0F, 9.0F, 4.5F}));
  EXPECT_TRUE(std::isfinite(t.RhoMin));
  // 3-4-5 triangle, then 60 m north over a lost fix, which repeats the distance before it.
  EXPECT_NEAR(f.m(3).Distanza, 50, 1e-4);
  EXPECT_EQ(f.m(4).Distanza, f.m(3).Distanza);
  EXPECT_NEAR(f.m(5).Distanza, 110, 1e-4);
  EXPECT_NEAR(t.PassoMedio, 110.0 / 4, 1e-4);
  EXPECT_EQ(t.AltezzaCella, static_cast<double>(t.PassoMedio)) << "of one file, to the bit";
}

// A jump from one line to the next is no step of the curtain.
TEST(CellHeight, IsTheMeanStepWithinTheLines) {
  Fixture f({{300000, 5e6}, {300010, 5e6}, {300020, 5e6, 2}, {300020, 5009020, 2}, {0, 0, 2}, {300020, 5009050, 2}});
  f.run();
  EXPECT_NEAR(f.survey.traccia.AltezzaCella, (10 + 9020 + 30) / 4.0, 1e-3) << "six measurements of two files";
  EXPECT_NEAR(f.survey.traccia.PassoMedio, (10 + 10 + 9020 + 30) / 5.0, 1e-3);
  Fixture one({{300000, 5e6}});
  one.run();
  EXPECT_EQ(one.survey.traccia.AltezzaCella, 5) << "the electrode spacing";
  EXPECT_TRUE(one.survey.traccia.PassoMedio == 0 && !one.findings.anyFault());
  Fixture each({{300000, 5e6}, {300700, 5e6, 2}});
  each.survey.cavo.PosCavo[13] = 55;
  each.run();
  EXPECT_EQ(each.survey.traccia.AltezzaCella, 1);
}

TEST(Depths, OfEmptyFiringsAreNone) {
  Fixture f({{300000, 5e6, 1, 7}, {300010, 5e6, 1, 0}, {300020, 5e6, 1, 8}});
  f.survey.Misure(2).letture = 0;
  f.run();
  EXPECT_EQ(std::pair(f.survey.traccia.MinVal12, f.survey.traccia.MaxVal12), std::pair(7.0F, 8.0F));
}

// Lost: 1 (open start), 3 and 4 (a gap of 30 m east and 60 m north), 6 (open end).
TEST(LostFixes, AreTreatedAsChosenAndTheSameOnEveryRun) {
  const std::tuple<BadGps, std::size_t, std::size_t> filters[] = {
      {BadGps::NoFilter, 0, 0}, {BadGps::Skip, 4, 0}, {BadGps::Interpolate, 2, 2}};
  for (const auto& [filter, discarded, interpolated] : filters) {
    SCOPED_TRACE(discarded);
    Fixture f({{0, 0}, {300000, 5e6}, {0, 0}, {0, 0}, {300030, 5000060}, {0, 0}}, filter);
    f.survey.Misure(2).Val60 = 100;
    const TrackResult first = f.run();
    const Array1<Misura> once = f.survey.Misure;
    EXPECT_EQ(first.bad, 4U);
    EXPECT_EQ(std::pair(first.discarded, first.interpolated), std::pair(discarded, interpolated));
    EXPECT_EQ(f.run().interpolated, interpolated);
    for (std::size_t k = 1; k <= 6; ++k) {
      const auto kept = [](const Misura& m) { return std::tuple(m.UTMx, m.Lat, m.Val60, m.Scartata); };
      EXPECT_EQ(kept(f.m(k)), kept(once(k))) << k;
    }
    if (interpolated == 0) {
      EXPECT_TRUE(f.m(3).UTMx == 0 && f.m(3).Lat == 0);
      continue;
    }
    const double step = std::sqrt(30.0 * 30 + 60 * 60) / 3;
    EXPECT_NEAR(f.m(4).UTMx, 300020, 1e-9);
    EXPECT_NEAR(f.m(4).UTMy, 5000040, 1e-9);
    EXPECT_FLOAT_EQ(f.m(4).Passo, static_cast<float>(step));
    EXPECT_FLOAT_EQ(f.m(4).Val60, static_cast<float>(100 + 2 * step));
    EXPECT_EQ(f.survey.traccia.PuntiGPS(4).w, 0);
    EXPECT_TRUE(f.m(1).Scartata && f.m(6).Scartata && !f.m(3).Scartata);
    EXPECT_NEAR(f.lat(4), f.lat(2) + 2.0 / 3 * (f.lat(5) - f.lat(2)), 1e-12);
  }
}

TEST(Gaps, DoNotReachFromOneFileIntoTheNext) {
  Fixture f({{300000, 5e6}, {0, 0}, {0, 0, 2}, {300030, 5e6, 2}, {0, 0, 2}, {300050, 5e6, 2}}, BadGps::Interpolate);
  const TrackResult r = f.run();
  EXPECT_TRUE(r.discarded == 2 && r.interpolated == 1);
  EXPECT_TRUE(f.m(2).Scartata && f.m(3).Scartata && !f.m(5).Scartata);
  EXPECT_EQ(f.m(5).UTMx, 300040);
}

TEST(Gaps, DoNotReachFromOneLineOfAFileIntoTheNext) {
  Fixture f({{300000, 5e6}, {300010, 5e6}, {0, 0}, {0, 0}, {300110, 5e6}, {300116, 5e6}}, BadGps::Interpolate);
  for (std::size_t k = 1; k <= 6; ++k) f.survey.Misure(k).Linea = k < 4 ? 1 : 2;
  EXPECT_EQ(f.run().interpolated, 0U);
  // Steps of 10 and 6 m in two lines of six measurements; the 100 m between the lines are none.
  EXPECT_EQ(f.survey.traccia.AltezzaCella, 4.0);
}

TEST(Gaps, LeaveEmptyFiringsEmpty) {
  for (const BadGps filter : {BadGps::NoFilter, BadGps::Skip, BadGps::Interpolate}) {
    Fixture f({{300000, 5e6}, {0, 0}, {0, 0}, {300030, 5e6}}, filter);
    f.survey.Misure(2).letture = 0;
    f.run();
    f.run();
    EXPECT_TRUE(f.m(2).Scartata && !f.m(2).Interpolata);
    EXPECT_EQ(f.m(3).UTMx, filter == BadGps::Interpolate ? 300020 : 0) << "its step counts";
  }
}

TEST(Sources, GiveBothFormsAndNeverDrift) {
  Fixture f;
  f.survey = test::GeographicMeasurements({{151.2, -33.85}, {151.2, -33.86}});
  const std::optional<GridZone> grid = GrigliaDelPrimoFix(f.survey);
  ASSERT_EQ(grid, (GridZone{56, Hemisphere::South}));
  f.survey.settings.griglia = *grid;
  f.run();
  EXPECT_NEAR(f.m(1).UTMx, 333471.8133, 1e-4);  // the series evaluated apart, in Python
  EXPECT_NEAR(f.m(1).UTMy, 6253018.0967, 1e-4);
  const double before = f.m(1).UTMy;
  for (int k = 0; k < 50; ++k) f.run();
  EXPECT_EQ(f.m(1).UTMy, before);
  EXPECT_EQ(f.m(1).Lat, -33.85);
}

// The way back from the grid loses metres: a survey that goes to another zone and back must have its numbers again.
TEST(Sources, ComeBackFromAnotherZoneToTheBit) {
  for (const std::int16_t stated : {std::int16_t{0}, std::int16_t{33}}) {
    Fixture f({{288652.25, 5030933.5}, {0, 0}, {288700.75, 5030999}}, BadGps::Interpolate);
    for (const std::size_t k : {1U, 3U}) std::get<Grid>(f.survey.Misure(k).sorgente).zone = stated;
    f.run();
    const Array1<Misura> first = f.survey.Misure;
    f.survey.settings.griglia.zone = 32;
    f.run();
    // Easting 288652.25 of zone 33 is 758239.38 of zone 32 (cs2cs); numbers of no stated zone stay.
    EXPECT_NEAR(f.m(1).UTMx, stated == 0 ? 288652.25 : 758239.38, 6) << stated;
    f.survey.settings.griglia.zone = 33;
    f.run();
    for (std::size_t k = 1; k <= 3; ++k) {
      EXPECT_EQ(std::pair(f.m(k).UTMx, f.m(k).Lon), std::pair(first(k).UTMx, first(k).Lon)) << k;
    }
  }
}

TEST(Sources, OfAPositionBetweenAreTheGridWhereOneEndHasIt) {
  Fixture f({{300000, 5e6}, {0, 0}, {300030, 5e6}}, BadGps::Interpolate);
  f.run();
  EXPECT_EQ(std::get<Grid>(f.m(2).sorgente), (Grid{300015, 5e6, 0, Hemisphere::North}));
  f.survey.Misure(1).sorgente = Geographic{45.1, 12.5};
  std::get<Grid>(f.survey.Misure(3).sorgente).zone = 33;
  f.run();
  EXPECT_EQ(std::get<Grid>(f.m(2).sorgente).zone, 33);
  f.survey.settings.layout = AngleFormat::D_DDDD;
  ImpostaGeografica(f.survey.Misure(1), 45.1, 12.5, {45.1, 12.5});
  ImpostaGeografica(f.survey.Misure(3), 45.2, 12.5, {45.2, 12.5});
  f.run();
  EXPECT_NEAR(std::get<Geographic>(f.m(2).sorgente).latitude, 45.15, 1e-12);
}

TEST(Sources, ThatCannotBeConvertedCountAsLost) {
  Fixture f({{300000, 5e6}, {2e38, 5e6}});
  Misura far;
  ImpostaGeografica(far, 1e200, 1218, {1e198, 12.3});
  f.survey.Misure.append(far);
  EXPECT_EQ(f.run().bad, 2U);
  EXPECT_TRUE(f.m(2).UTMx == 0 && f.m(3).Lat == 0 && f.findings.anyFault());
}

TEST(Translation, MovesTheTracksPointsAndNoDistance) {
  Fixture f({{300000, 5e6}, {0, 0}, {300030, 5000040}}, BadGps::Interpolate);
  f.survey.settings.TraslDatiEst = 100;
  f.run();
  EXPECT_NEAR(f.m(3).Distanza, 50, 1e-4);
  EXPECT_TRUE(f.survey.traccia.PuntiGPS(1).x == 85 && f.survey.traccia.PuntiGPS(1).w == 3);
}

TEST(CableText, ReadsNumbersByPlaceWhateverTheLabels) {
  const auto p = LeggiStringaCavo("C1 60 C2 55.5 E1 1 E2 2 x 3 E4 -4 E5 5 E6 6 E7 7 E8 8 E9 9 E10 10 E11 11");
  EXPECT_EQ(p, (std::array<float, 14>{0, 1, 2, 3, -4, 5, 6, 7, 8, 9, 10, 11, 60, 55.5F}));
  EXPECT_EQ(LeggiStringaCavo(ComponiStringaCavo(p)), p);
  EXPECT_EQ(ComponiStringaCavo(p).substr(0, 33), "C1  60 C2  55.5 E1  1 E2  2 E3  3");
  EXPECT_EQ(LeggiStringaCavo("C1;60;C2;55;E1;50")[1], 50);
  EXPECT_EQ(LeggiStringaCavo("C1 60")[13], 0) << "missing tokens are 0";
}

TEST(CableFromData, IsThatOfTheFirstWholeFiringOfTheFilesWithMostChannels) {
  Fixture f({{300000, 5e6}, {300010, 5e6}, {300020, 5e6, 2}, {300030, 5e6, 2}});
  f.survey.files[0].channels = 4;  // a short file first
  for (const std::size_t k : {1U, 2U}) f.survey.Misure(k).letture = BitDi(1) | BitDi(2) | BitDi(3) | BitDi(4);
  f.survey.Misure(3).letture = AllReadings & ~BitDi(10);
  f.survey.Misure(3).Elettrodi[11] = 0;
  f.survey.Misure(3).Val60 = 54;
  f.survey.Misure(4).Val60 = 56;
  f.survey.Misure(4).Elettrodi[3] = std::numeric_limits<float>::infinity();
  CreaCavoDaMisure(f.survey);
  EXPECT_EQ(f.survey.cavo.PosCavo[12], 56);
  EXPECT_EQ(f.survey.cavo.PosCavoRel[1], 2.5);
  EXPECT_EQ(f.survey.cavo.PosCavoRel[3], 0) << "no sum of our own is infinite";
  Fixture zeros({{300000, 5e6}, {300010, 5e6}});
  Misura& empty = zeros.survey.Misure(1);
  empty.Val60 = empty.Val64 = 0;
  empty.Elettrodi = {};
  CreaCavoDaMisure(zeros.survey);
  EXPECT_EQ(zeros.survey.cavo.PosCavo[12], 55) << "an empty first firing is passed over";
}

// Two lines, the second with a change of its cable.
TEST(OtherCables, AreToldWithTheirFileAndFirstMeasurement) {
  struct Case {
    const char* what;
    bool other;
    void (*change)(Misura&);
  };
  const Case cases[] = {{"the same", false, [](Misura&) {}},
                        {"moved as a whole", false,
                         [](Misura& m) {
                           m.Val60 += 7, m.Val64 += 7;
                           for (float& e : m.Elettrodi) e += 7;
                         }},
                        {"C2 by 2 cm", true, [](Misura& m) { m.Val64 += 0.02F; }},
                        {"C2 by 5 mm", false, [](Misura& m) { m.Val64 += 0.005F; }},
                        {"E1", true, [](Misura& m) { m.Elettrodi[1] -= 1; }},
                        {"E11", true, [](Misura& m) { m.Elettrodi[11] = 2.5F; }},
                        {"E11 without a reading", false, [](Misura& m) {
                           m.Elettrodi[11] = 2.5F;
                           m.letture &= static_cast<ReadingSet>(~BitDi(10));
                         }}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Fixture f({{300000, 5e6}, {300010, 5e6}, {300020, 5e6, 2}, {300030, 5e6, 2}});
    for (const std::size_t k : {3U, 4U}) c.change(f.survey.Misure(k));
    RilevaCavo(f.survey, f.findings);
    ASSERT_EQ(f.findings.entries().size(), c.other ? 1U : 0U);
    if (!c.other) continue;
    EXPECT_EQ(f.findings.entries()[0].file, "b.bin");
    EXPECT_TRUE(f.told().starts_with('!') && f.told().find("the first is measurement 3") != std::string::npos);
  }
}

TEST(CoordinateFormats, ThatScatterTheTrackAreNamed) {
  Fixture f({{300000, 5e6}, {301500, 5e6}});  // 1.5 km apart on a cable of 60 m
  f.run();
  RilevaFormato(f.survey, f.findings);
  EXPECT_TRUE(f.findings.anyFault());
  // 4524.5 and 1218 make a track as degrees and minutes.
  Fixture minutes;
  minutes.survey = test::GeographicMeasurements({{12.18, 45.245}, {12.1801, 45.2451}, {12.1802, 45.2453}});
  for (Misura& m : minutes.survey.Misure) ImpostaGeografica(m, 100 * m.Lat, 100 * m.Lon, {m.Lat, m.Lon});
  minutes.run();
  minutes.survey.traccia.AltezzaCella = 60000;
  RilevaFormato(minutes.survey, minutes.findings);
  EXPECT_NE(minutes.told().find("--coords ddmm)"), std::string::npos) << minutes.told();
  // 60 times shorter as degrees, minutes and seconds, but no survey has such small numbers of them.
  minutes.findings = {};
  minutes.survey.settings.layout = AngleFormat::DMM_MMM;
  RilevaFormato(minutes.survey, minutes.findings);
  EXPECT_NE(minutes.told().find("look like another coordinate format or zone"), std::string::npos);
  Fixture good({{300000, 5e6}, {301100, 5e6}});
  good.run();
  RilevaFormato(good.survey, good.findings);
  EXPECT_TRUE(good.findings.empty()) << "1100 m on a cable of 60 m";
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

// Two cores share a long survey: nothing depends on which of them a measurement falls to.
TEST(LongSurveys, AreAnalysedAsShortOnesAre) {
  constexpr std::size_t count = 20'000;
  Survey survey;
  survey.settings.griglia = {33, Hemisphere::North};
  for (std::size_t k = 1; k <= count; ++k) {
    Misura m;
    ImpostaUTM(m, 5030000.0 + static_cast<double>(k), k == 3 || k == count - 2 ? 1e300 : 290000.0);
    m.Val60 = 55;
    m.Val64 = 60;
    for (std::size_t e = 1; e <= PotentialElectrodes; ++e) m.Elettrodi.at(e) = 50.0F - 5.0F * static_cast<float>(e - 1);
    m.Val180 = 1000;
    m.Val184 = -1000;
    m.NumFile = 1;
    m.CanaleA.at(1) = 1.0F + static_cast<float>(k % 977);
    m.CanaleB.at(1) = -m.CanaleA.at(1);
    m.letture = BitDi(1);
    survey.Misure.append(m);
  }
  survey.Misure(7000).CanaleA.at(1) = survey.Misure(7000).CanaleB.at(1) = 0.0F;
  survey.Misure(count - 1).CanaleA.at(1) = 5000.0F;
  survey.Misure(count - 1).CanaleB.at(1) = -5000.0F;
  CreaCavoDaMisure(survey);
  Findings findings;
  AnalisiFile(survey, findings);
  EXPECT_EQ(findings.entries().at(0).reason, "positions that cannot be converted count as lost: 2");
  const float factor = survey.traccia.FattoreK.at(1);
  ASSERT_NE(factor, 0.0F);
  for (const std::size_t k : {std::size_t{1}, std::size_t{9999}, std::size_t{10000}, std::size_t{10001}, count}) {
    EXPECT_FLOAT_EQ(survey.Misure(k).Rho.at(1), (1.0F + static_cast<float>(k % 977)) / 1000.0F * factor) << k;
    EXPECT_EQ(survey.Misure(k).UTMy, 5030000.0 + static_cast<double>(k)) << k;
  }
  EXPECT_EQ(survey.traccia.RhoMin, std::min(0.0F, 5.0F * factor));
  EXPECT_FLOAT_EQ(survey.traccia.RhoMax, std::max(0.0F, 5.0F * factor));
}

}  // namespace
}  // namespace corvan
