// The text of KML pieces, apart from the document that they go into.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvan {

/// The text as the content of an XML element.
std::string TestoXml(std::string_view text);

/// Alpha, blue, green, red, two capital hexadecimal digits each. @param colour red in the low byte @param opacity
/// 0..255
void AggiungiColoreKml(std::string& out, std::int16_t opacity, std::int32_t colour);

/// A corner of a polygon is its place ("longitude,latitude,", degrees) and its altitude (metres, with the line's end):
/// corners of one place or of one altitude share the text.
void AggiungiPosto(std::string& out, double longitude, double latitude);
void AggiungiQuota(std::string& out, double altitude);

/// What differs from one filled polygon to the next.
struct PolygonText {
  std::string_view name;         ///< as TestoXml gives it
  std::string_view description;  ///< likewise
  std::string_view altitudeMode;
  std::string_view ring;  ///< places and altitudes of the corners, the first repeated at the end
  std::int32_t colour = 0;
  std::int16_t opacity = 0;
};

/// Appends the placemark of a polygon; lines end in CR LF.
void AggiungiPoligono(std::string& out, const PolygonText& polygon);

}  // namespace corvan
