// Converts one point at a time, typed as text, between geographic and UTM coordinates on eleven datums.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/Dialogs.h"
#include "geo/AngleText.h"
#include "geo/Datum.h"

namespace corvan {

/// Order of use: Datum, LatLonFormat, a fixed UTMzone where there is one, Nord; then for each point Lat, Lon, Geo2UTM,
/// UTMx, UTMy, or the other way UTMx, UTMy, UTM2Geo, Lat, Lon. The first longitude fixes the zone for all later points:
/// a survey is kept in one zone.
///
/// The state and the texts around the functions of geo/Utm.h, for those who convert what people type. Inside the
/// program positions are values and need neither.
class GeoGeo {
 public:
  /// @param dialogs where "Wrong Datum Name" and the format warning are shown; must outlive this object
  explicit GeoGeo(Dialogs& dialogs);

  /// Everything back to the state after construction: WGS84, "DMM.MMM", zone 0, north.
  void Reset();

  /// 0 means not yet fixed. Setting clamps to 1..60.
  std::int16_t UTMzone() const { return zone_; }
  void UTMzone(std::int16_t zone);

  /// "DMMSS", "DMM.MMM" or "D.DDDD"; empty after a rejected assignment, which shows a message box.
  std::string LatLonFormat() const;
  void LatLonFormat(std::string_view format);

  /// The layout of the current format; that of "DMM.MMM" when there is none.
  AngleFormat Layout() const { return format_.value_or(AngleFormat::DMM_MMM); }

  /// Name of the current datum. An unknown name shows a message box and selects WGS84.
  std::string Datum() const;
  void Datum(std::string_view name);

  /// Latitude and longitude as text in the current format; without a format the text is empty and an assignment
  /// leaves the angle as it was. Setting the longitude fixes a zone that is still 0 and the central meridian.
  /// @throws RunTimeError for a number too large to read or a longitude that has no zone
  std::string Lat() const;
  void Lat(std::string_view text);
  std::string Lon() const;
  void Lon(std::string_view text);

  /// The same in decimal degrees.
  double LatGradi() const { return lat_; }
  double LonGradi() const { return lon_; }

  /// Easting and northing, m.
  double UTMx() const { return x_; }
  void UTMx(double easting) { x_ = easting; }
  double UTMy() const { return y_; }
  void UTMy(double northing) { y_ = northing; }

  /// True for the northern hemisphere; false adds 10,000,000 m to northings.
  bool Nord() const { return nord_; }
  void Nord(bool north) { nord_ = north; }

  /// VersoUTM and DaUTM of geo/Utm.h on the state above. An arithmetic fault leaves their targets as they were.
  /// @return false after such a fault
  bool Geo2UTM();
  bool UTM2Geo();

 private:
  Hemisphere Emisfero() const { return nord_ ? Hemisphere::North : Hemisphere::South; }

  Dialogs* dialogs_;
  std::size_t slot_ = 0;
  std::optional<AngleFormat> format_;
  double lat_ = 0, lon_ = 0;  // decimal degrees
  double x_ = 0, y_ = 0;      // m
  std::int16_t zone_ = 0;
  bool nord_ = true;
};

}  // namespace corvan
