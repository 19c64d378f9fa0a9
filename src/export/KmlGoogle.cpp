#include "export/KmlGoogle.h"

#include <array>
#include <cstddef>
#include <system_error>
#include <utility>

#include "base/Errors.h"
#include "base/Fields.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "export/KmlText.h"

namespace corvan {
namespace {

constexpr const char* Viewer = "googleearth.exe";
constexpr Mask OverlayMask = "##0.00000000000000";

std::string Colore(std::int16_t opacity, std::int32_t colour) {
  std::string text;
  AggiungiColoreKml(text, opacity, colour);
  return text;
}

std::string NumeroConSegno(std::int16_t value) { return TestoConSegno(static_cast<double>(value)); }

std::string Terna(const KmlPoint& p, Mask place, Mask altitude) {
  std::string text;
  AggiungiNumero(text, p.x, place);
  text += ',';
  AggiungiNumero(text, p.y, place);
  text += ',';
  AggiungiNumero(text, p.z, altitude);
  return text;
}

void Metti(std::vector<KmlPoint>& buffer, const KmlPoint& point, std::int32_t index) {
  if (index < 1) throw RunTimeError("index " + std::to_string(index) + " is not 1 or more");
  const auto place = static_cast<std::size_t>(index);
  if (place > buffer.size()) buffer.resize(place);
  buffer[place - 1] = point;
}

}  // namespace

KmlGoogle::KmlGoogle() {
  std::error_code ignored;
  if (std::filesystem::exists(Viewer, ignored)) viewer_ = Viewer;
}

std::string KmlGoogle::FileName() {
  constexpr std::string_view ending = ".KML";
  const std::string upper = Maiuscolo(fileName_);
  const bool ends =
      upper.size() >= ending.size() && upper.compare(upper.size() - ending.size(), ending.size(), ending) == 0;
  if (!ends) fileName_ += ".Kml";
  return fileName_;
}

void KmlGoogle::OpenKml() {
  file_ = std::make_unique<FileWriter>(FileName(), progress_);
  line(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?> \r"
      "<kml xmlns=\"http://www.opengis.net/kml/2.2\" xmlns:gx=\"http://www.google.com/kml/ext/2.2\">\r"
      "<Document>");
  line("");
  flush();
}

void KmlGoogle::CloseKml() {
  line("");
  line("</Document> \r </kml>");
  flush();
  file_->close();
  file_.reset();
}

void KmlGoogle::GroundOverlayImage(std::string_view image) { image_ = Rifila(image); }

void KmlGoogle::SetPoints(double px, double Py, double Pz, std::int32_t Pindex) {
  Metti(points_, {px, Py, Pz}, Pindex);
}

void KmlGoogle::SetLines(double px, double Py, double Pz, std::int32_t Pindex) { Metti(lines_, {px, Py, Pz}, Pindex); }

void KmlGoogle::SetPolygon(std::string name, std::string description, std::span<const KmlPoint> vertices) {
  polygonName_ = std::move(name);
  polygonDescription_ = std::move(description);
  polygon_.assign(vertices.begin(), vertices.end());
}

void KmlGoogle::PointsToKml() {
  for (const KmlPoint& p : points_) {
    line("<Placemark>");
    line("  <Point>");
    line("    <coordinates>" + Terna(p, "##0.0######", "##0.0##"));
    line("    </coordinates> ");
    line("  </Point>");
    line("</Placemark>");
  }
  flush();
}

void KmlGoogle::LinesToKml() {
  line("<name>" + TestoXml(lineName_) + "</name>");  // before the placemark, so that it names the document
  line("<Placemark>");
  line("  <visibility>1</visibility>");
  line("  <Style>");
  line("    <LineStyle id=\"khLineStyle989\">");
  line("      <color>" + Colore(opacity_, lineColour_) + "</color>");
  line("      <width>" + NumeroConSegno(lineWidth_) + "</width>");
  line("    </LineStyle>");
  line("  </Style>");
  line("  <LineString>");
  line("    <extrude>" + NumeroConSegno(extrude_) + "</extrude>");
  line("    <tessellate>" + NumeroConSegno(tessellate_) + " </tessellate>");
  line("    <altitudeMode>clampToGround</altitudeMode>");
  line("    <coordinates>");
  for (const KmlPoint& p : lines_) line(Terna(p, "##0.0#########", "#####0.0##"));
  line("    </coordinates>");
  line("  </LineString>");
  line("</Placemark>");
  flush();
}

void KmlGoogle::PolygonToKml() {
  std::string ring;
  for (const KmlPoint& p : polygon_) {
    AggiungiPosto(ring, p.x, p.y);
    AggiungiQuota(ring, p.z);
  }
  AggiungiPoligono(
      block_, {TestoXml(polygonName_), TestoXml(polygonDescription_), altitudeMode_, ring, polygonColour_, opacity_});
  flush();
}

void KmlGoogle::PolygonsToKml(std::string_view composed) { fileOpen().write(composed); }

void KmlGoogle::SetOverlay() {
  const auto side = [](double degrees) { return FormattaNumero(degrees, OverlayMask); };
  line("<Folder>");
  line("  <name> ground Overlays </name>");
  line("  <description> ground overlays </description>");
  line("  <GroundOverlay>");
  line("     <name> overlay on terrain </name>");
  line("     <description> Overlay </description>");
  line("     <Icon>");
  line("        <href>" + TestoXml(image_) + "</href>");
  line("     </Icon>");
  line("     <LatLonBox>");
  line("        <north>" + side(north_) + "</north>");
  line("        <south>" + side(south_) + " </south>");
  line("        <east>" + side(east_) + "</east>");
  line("        <west>" + side(west_) + "</west>");
  line("        <rotation>" + side(rotation_) + "</rotation>");
  line("     </LatLonBox>");
  line("  </GroundOverlay>");
  line("</Folder>");
  flush();
}

void KmlGoogle::line(std::string_view text) {
  block_ += text;
  block_ += "\r\n";
}

/// Hands the composed block to the file.
void KmlGoogle::flush() {
  const std::string block = std::exchange(block_, {});
  fileOpen().write(block);
}

FileWriter& KmlGoogle::fileOpen() const {
  if (file_ == nullptr) throw FileError(fileName_, "is not open");
  return *file_;
}

}  // namespace corvan
