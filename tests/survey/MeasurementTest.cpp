// Measurements as plain data: what they hold, how they are told, and the records of a section put together from them.
#include <gtest/gtest.h>

#include "base/OleDate.h"
#include "support/Surveys.h"
#include "survey/MeasurementText.h"
#include "survey/Quadrupole.h"

namespace corvan {
namespace {

TEST(Positions, WithoutOneCoordinateAreNone) {
  const std::pair<double, double> lost[] = {{0, 12.5}, {45.5, 0}, {0, 0}, {1.0 / 0.0, 12.5}};
  for (const auto& [lat, lon] : lost) {
    Misura m;
    ImpostaGeografica(m, lat, lon, {lat, lon});
    EXPECT_TRUE(m.SenzaFix && !HaSorgente(m.sorgente)) << lat << " " << lon;
    EXPECT_EQ(m.Lat + m.Lon, 0);
  }
  Misura m;
  ImpostaUTM(m, 5030000.5, 288000.25);
  EXPECT_EQ(std::get<Grid>(m.sorgente), (Grid{288000.25, 5030000.5, 0, Hemisphere::North}));
  EXPECT_EQ(m.UTMy, 5030000.5);
}

TEST(Readings, AreKnownOneByOne) {
  Misura m;
  for (std::size_t c = 1; c <= MaxChannels; ++c) EXPECT_TRUE(HaLettura(m, c)) << c;
  EXPECT_FALSE(HaLettura(m, 11));
  m.letture = BitDi(10);
  EXPECT_TRUE(HaLettura(m, 10) && !HaLettura(m, 9) && !Vuota(m));
  m.letture = 0;
  EXPECT_TRUE(Vuota(m));
}

TEST(Labels, TellFileTimePlaceAndDistance) {
  Survey s = test::GeographicMeasurements({{12.25, 45.5}, {12.5, 45.75, 2, 7.125F}});
  s.Misure(2).Tempo = AGiorni({2026, 6, 15, 8, 7, 6});
  s.Misure(2).Distanza = 1234.56;
  EXPECT_EQ(DescriviMisura(s, 2), "File.b.bin Data. 15/06/2026 08:07:06 Lg.12.5 Lt.45.75 D.Prog. 1234.6");
  EXPECT_EQ(DescriviFondo(s, 2), "File.b.bin Data. 15/06/2026 08:07:06 Lg.12.5 Lt.45.75 Dpt. 7.13");
  EXPECT_EQ(DescriviMisura(s, 1).substr(0, 27), "File.a.bin Data.  Lg.12.25 ") << "no time told where there is none";
  s.Misure(1).NumFile = 0;
  EXPECT_EQ(FileDi(s, s.Misure(1)), "");
  PuntoGPSEst fix;
  fix.GeoA = 4530.5, fix.GeoB = 1215.25, fix.Progressiva = 17.25, fix.Prof = 3.5;
  s.tracciaEst.PuntiGPSEst.append(fix);
  EXPECT_EQ(DescriviFix(s, 1), " GPS: 1 Lg.1215.25 Lt.4530.5 D.Prog. 17.3 Depth: 3.5");
}

TEST(SectionRecords, ShareTheElectrodesOfTheirFiring) {
  SectionRecords records;
  for (const float base : {100.0F, 200.0F}) {
    SectionPoint p;
    for (std::size_t e = 1; e <= CableElectrodes; ++e) {
      p.x.at(e) = base + static_cast<float>(e);
      p.z.at(e) = base / 10 + static_cast<float>(e);
    }
    for (std::size_t c = 1; c <= MaxChannels; ++c) {
      p.potential.at(c) = base + 20 + static_cast<float>(c);
      p.resistivity.at(c) = base + 40 + static_cast<float>(c);
    }
    p.current = base + 60, p.nord = base + 61, p.est = base + 62;
    records.append(p);
  }
  ASSERT_EQ(records.size(), 20U);
  const Quadrupole q = records(17);  // channel 7 of the second: E7 and E8, C1 is 12, C2 13
  EXPECT_EQ(q.x, (std::array<float, 4>{212, 213, 207, 208}));
  EXPECT_EQ(q.z, (std::array<float, 4>{32, 33, 27, 28}));
  EXPECT_EQ((std::array{q.potential, q.resistivity, q.current, q.nord, q.est}),
            (std::array<float, 5>{227, 247, 260, 261, 262}));
  EXPECT_EQ(q.channel, 7);
}

}  // namespace
}  // namespace corvan
