#include "export/KmlText.h"

#include <array>
#include <cstddef>

#include "base/NumberText.h"

namespace corvan {
namespace {

constexpr Mask Degrees = "##0.00000000000000";
constexpr Mask Metres = "##0.00000";

}  // namespace

std::string TestoXml(std::string_view text) {
  std::string out;
  for (const char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

void AggiungiColoreKml(std::string& out, std::int16_t opacity, std::int32_t colour) {
  constexpr std::size_t digits = 8;
  const std::uint32_t value =
      static_cast<std::uint32_t>(opacity) << 24U | (static_cast<std::uint32_t>(colour) & 0xFFFFFFU);
  std::array<char, digits> text{};
  for (std::size_t k = 0; k < digits; ++k) text.at(k) = "0123456789ABCDEF"[value >> (4 * (digits - 1 - k)) & 0xFU];
  out.append(text.data(), digits);
}

void AggiungiPosto(std::string& out, double longitude, double latitude) {
  AggiungiNumero(out, longitude, Degrees);
  out += ',';
  AggiungiNumero(out, latitude, Degrees);
  out += ',';
}

void AggiungiQuota(std::string& out, double altitude) {
  AggiungiNumero(out, altitude, Metres);
  out += "\r\n";
}

void AggiungiPoligono(std::string& out, const PolygonText& polygon) {
  out += "<Placemark>\r\n<name>";
  out += polygon.name;
  out += "</name>\r\n<description>";
  out += polygon.description;
  out +=
      "</description>\r\n"
      "<Style>\r\n"
      "  <PolyStyle>\r\n"
      "    <outline>0</outline>\r\n"
      "    <color>";
  AggiungiColoreKml(out, polygon.opacity, polygon.colour);
  out +=
      "</color>\r\n"
      "    <fill>1</fill>\r\n"
      "  </PolyStyle>\r\n"
      "</Style>\r\n"
      "  <Polygon>\r\n"
      "    <altitudeMode>";
  out += polygon.altitudeMode;
  out +=
      "</altitudeMode>\r\n"
      "    <outerBoundaryIs>\r\n"
      "       <LinearRing>\r\n"
      "          <coordinates>\r\n";
  out += polygon.ring;
  out +=
      "          </coordinates>\r\n"
      "       </LinearRing>\r\n"
      "    </outerBoundaryIs>\r\n"
      "  </Polygon>\r\n"
      "</Placemark>\r\n";
}

}  // namespace corvan
