// Grid places over the globe to latitude and longitude, against PROJ.
#include "geo/ExactUtm.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace corvan {
namespace {

constexpr Hemisphere N = Hemisphere::North;
constexpr Hemisphere S = Hemisphere::South;

// Made by cs2cs 9.1.1: +proj=utm +datum=WGS84 to +proj=longlat. Surveys keep the zone of their first fix, so some lie
// four to eight degrees outside theirs. The series of older files misses the second by 5 m.
TEST(ExactPositions, AgreeWithProjWithinAMillimetre) {
  const struct {
    Grid place;
    double longitude, latitude;
  } cases[] = {{{288685.5, 5030933, 33, N}, 12.29999960927, 45.39999668720},
               {{758239.38, 5034000, 32, N}, 12.30026464390, 45.41182329253},
               {{166021.44, 0, 33, N}, 11.99999997235, 0},
               {{833978.5, 9999000, 1, S}, -174.00000047373, -0.00903483105},
               {{800000, 2000000, 60, N}, 179.83400839315, 18.06789834287},
               {{250000.25, 4000000.5, 19, S}, -72.82279539983, -54.08735197496},
               {{500000, 9300000, 31, N}, 3, 83.74834535719},
               {{1200000, 5030000, 33, N}, 23.89343536903, 45.07586825519},
               {{-150000.5, 5030000, 33, N}, 6.73493261239, 45.12342890472},
               {{700000, 7000000, 1, N}, -173.03964799684, 63.07399660288},
               {{720000, 1500000, 60, S}, -174.56752985374 + 360, -76.43953069},
               {{612340.75, 150, 48, N}, 106.00952536862, 0.00135688499},
               {{350000, 6252000, 29, S}, -10.62158677352, -33.86165824504}};
  for (const auto& c : cases) {
    const auto found = DaUTMEsatto(c.place);
    ASSERT_TRUE(found) << c.place.easting;
    constexpr double metresADegree = 111320;
    const double turn = std::remainder(found->longitude - c.longitude, 360.0);
    EXPECT_NEAR(turn * metresADegree * std::cos(c.latitude * std::acos(-1.0) / 180), 0, 1e-3) << c.place.easting;
    EXPECT_NEAR((found->latitude - c.latitude) * metresADegree, 0, 1e-3) << c.place.easting;
    EXPECT_TRUE(std::abs(found->longitude) <= 180) << found->longitude;
  }
}

TEST(ExactPositions, AreNoneWithoutAZoneOrANumber) {
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  for (const Grid& place :
       {Grid{5e5, 5e6, 0, N}, Grid{5e5, 5e6, 61, N}, Grid{none, 5e6, 33, N}, Grid{5e5, none, 33, N}})
    EXPECT_FALSE(DaUTMEsatto(place)) << place.zone;
}

}  // namespace
}  // namespace corvan
