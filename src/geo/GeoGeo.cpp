#include "geo/GeoGeo.h"

#include <algorithm>

#include "base/Fields.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "geo/Utm.h"

namespace corvan {
GeoGeo::GeoGeo(Dialogs& dialogs) : dialogs_(&dialogs) { Reset(); }

void GeoGeo::Reset() {
  slot_ = 0;
  format_ = AngleFormat::DMM_MMM;
  lat_ = lon_ = 0.0;
  x_ = y_ = 0.0;
  zone_ = 0;
  nord_ = true;
}

void GeoGeo::UTMzone(std::int16_t zone) { zone_ = std::clamp<std::int16_t>(zone, 1, 60); }

std::string GeoGeo::LatLonFormat() const {
  if (!format_) return "";
  switch (*format_) {
    case AngleFormat::DMMSS:
      return "DMMSS";
    case AngleFormat::DMM_MMM:
      return "DMM.MMM";
    case AngleFormat::D_DDDD:
      return "D.DDDD";
  }
  return "";
}

void GeoGeo::LatLonFormat(std::string_view format) {
  const std::string name = Maiuscolo(Rifila(format));
  for (const AngleFormat known : {AngleFormat::DMMSS, AngleFormat::DMM_MMM, AngleFormat::D_DDDD}) {
    format_ = known;
    if (LatLonFormat() == name) return;
  }
  format_.reset();
  dialogs_->MsgBox({Question::WrongLayout, ""});
}

std::string GeoGeo::Datum() const { return std::string(Datums.at(slot_).Name); }

void GeoGeo::Datum(std::string_view name) {
  const std::string wanted = Maiuscolo(Rifila(name));
  const auto found = std::find_if(Datums.begin(), Datums.end(),
                                  [&wanted](const auto& datum) { return Maiuscolo(datum.Name) == wanted; });
  slot_ = found == Datums.end() ? 0 : static_cast<std::size_t>(found - Datums.begin());
  if (found == Datums.end()) dialogs_->MsgBox({Question::WrongDatum, ""});
}

std::string GeoGeo::Lat() const { return format_ ? TestoDaGradi(LatGradi(), *format_) : ""; }

void GeoGeo::Lat(std::string_view text) {
  if (format_) lat_ = GradiDaTesto(text, *format_);
}

std::string GeoGeo::Lon() const { return format_ ? TestoDaGradi(LonGradi(), *format_) : ""; }

void GeoGeo::Lon(std::string_view text) {
  if (!format_) return;
  lon_ = GradiDaTesto(text, *format_);
  if (zone_ == 0) zone_ = UTMZoneOf(ASingolo(lon_));
}

bool GeoGeo::Geo2UTM() {
  const std::optional<Grid> grid = VersoUTM({lat_, lon_}, {zone_, Emisfero()}, Datums.at(slot_));
  if (!grid) return false;
  x_ = grid->easting;
  y_ = grid->northing;
  return true;
}

bool GeoGeo::UTM2Geo() {
  const std::optional<Geographic> position = DaUTM({x_, y_, zone_, Emisfero()}, Datums.at(slot_));
  if (!position) return false;
  lat_ = position->latitude;
  lon_ = position->longitude;
  return true;
}

}  // namespace corvan
