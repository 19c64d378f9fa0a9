// Writes a KML 2.2 document: points, lines, polygons and a ground overlay.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/File.h"

namespace corvan {

/// Longitude and latitude in degrees, altitude in metres.
struct KmlPoint {
  double x = 0;
  double y = 0;
  double z = 0;
};

/// Set FileName, OpenKml, then any sequence of blocks, then CloseKml. Lines end in CR LF, but for bare CRs inside the
/// prologue and the epilogue. Names and descriptions are escaped as XML wants them.
/// Errors: blocks outside OpenKml..CloseKml and failures of the file throw FileError.
class KmlGoogle {
 public:
  KmlGoogle();

  /// Reading the name appends ".Kml" to one that does not end in ".KML" in any case, and keeps the longer name.
  std::string FileName();
  void FileName(std::string name) { fileName_ = std::move(name); }
  /// Who is told how far the writing is; see FileWriter.
  void progresso(FileWriter::Progress progress) { progress_ = std::move(progress); }

  void OpenKml();
  void CloseKml();

  /// Bounding box of the ground overlay, degrees.
  void North(double degrees) { north_ = degrees; }
  void South(double degrees) { south_ = degrees; }
  void East(double degrees) { east_ = degrees; }
  void West(double degrees) { west_ = degrees; }
  void GroundOverlayImage(std::string_view image);

  /// Colours have red in the low byte; opacity is 0..255.
  void LineColour(std::int32_t colour) { lineColour_ = colour; }
  void PointColour(std::int32_t colour) { pointColour_ = colour; }
  void PolygonColour(std::int32_t colour) { polygonColour_ = colour; }
  void LineWidth(std::int16_t width) { lineWidth_ = width; }
  void LineName(std::string name) { lineName_ = std::move(name); }
  void Extrude(std::int16_t extrude) { extrude_ = extrude; }
  void Tessellate(std::int16_t tessellate) { tessellate_ = tessellate; }
  void AltitudeMode(std::string mode) { altitudeMode_ = std::move(mode); }
  const std::string& AltitudeMode() const { return altitudeMode_; }
  std::int16_t Opacity() const { return opacity_; }

  /// Stores one point of a buffer, which grows to hold it and never shrinks. @param Pindex from 1
  /// @throws RunTimeError for an index below 1
  void SetPoints(double px, double Py, double Pz, std::int32_t Pindex);
  void SetLines(double px, double Py, double Pz, std::int32_t Pindex);
  /// @param vertices the ring, its first vertex repeated at its end
  void SetPolygon(std::string name, std::string description, std::span<const KmlPoint> vertices);

  void PointsToKml();  ///< one placemark per buffered point
  void LinesToKml();   ///< the buffered points as one line
  void PolygonToKml();
  /// Any number of polygons at once. @param composed by AggiungiPoligono, with this document's opacity and mode
  void PolygonsToKml(std::string_view composed);
  void SetOverlay();  ///< the ground-overlay folder

  /// "googleearth.exe" when it stood in the current folder at construction, else empty.
  std::string GoogleEarth_Path() const { return viewer_; }

 private:
  void line(std::string_view text);
  void flush();
  FileWriter& fileOpen() const;

  std::string fileName_;
  std::unique_ptr<FileWriter> file_;
  FileWriter::Progress progress_;
  std::string block_;
  double north_ = 1.0, south_ = -1.0, east_ = -1.0, west_ = 1.0, rotation_ = 0.0;
  std::string image_;
  std::int32_t lineColour_ = 65535, pointColour_ = 255, polygonColour_ = 16711680;
  std::int16_t lineWidth_ = 4, extrude_ = 1, tessellate_ = 1, opacity_ = 200;
  std::string lineName_;
  std::string altitudeMode_ = "relativeToGround";
  std::vector<KmlPoint> points_;
  std::vector<KmlPoint> lines_;
  std::string polygonName_;
  std::string polygonDescription_;
  std::vector<KmlPoint> polygon_;
  std::string viewer_;
};

}  // namespace corvan
