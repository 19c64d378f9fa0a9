// What the panels of the window show: the choices and texts of the desks behind them.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "export/Section.h"
#include "survey/Survey.h"

namespace corvan {

/// Entries of the list of coordinate formats.
enum class CoordinateEntry { DDMMSS, DDMM, DD, UTM };

/// "File In": what is read and how.
struct InputPanel {
  bool visible = false;
  CoordinateEntry LatLonCmbx = CoordinateEntry::DDMM;
  BadGps filter = BadGps::NoFilter;          ///< "No Filter", "Skip bad GPS", "Interpolate bad GPS"
  bool pastGaps = false;                     ///< "Read past lost fixes"
  bool south = false;                        ///< UTM files only: the southern hemisphere
  std::string spacing;                       ///< column texts: m from electrode to electrode; empty: asked for
  std::filesystem::path Dir1;                ///< current folder
  std::vector<std::filesystem::path> File1;  ///< the selected files in list order, relative to nothing: full names
  std::string Donelbl = "File Read";
  bool DonelblVisible = false;
};

/// The widest window that a sailed track may be smoothed over, m: no turn is left of a track after that.
inline constexpr double WidestSmoothing = 1000;

/// "File Out": what is written and under which name.
struct OutputPanel {
  bool visible = false;
  bool BinChk = false;
  bool TxtChk = false;
  bool EchoZChk = false;
  bool KMLchk = false;
  bool ErtChk = false;
  bool BottomChk = false;
  bool Res2dinvChk = false;
  bool GpkgChk = false;
  bool GeojsonChk = false;
  bool VtuChk = false;
  bool Ert3DChk = false;     ///< electrodes of the unified data file on the map
  bool KmlExactChk = false;  ///< coordinates of the .kml without the error of the given series
  bool TPGChk = false;       ///< has no effect
  bool ExtGPSChk = false;
  bool TruePosChk = false;
  CableShape cable = CableShape::Straight;
  std::string SmoothTxt;  ///< window over which the sailed track is smoothed, m; empty: one electrode spacing
  std::string FileOutTxt = "FileOut";  ///< root of the output names, may hold a folder
};

/// What the command line writes beside the section; the window keeps it for it.
struct OtherOutputs {
  bool csv = false;
  std::filesystem::path picture;  ///< empty: none
  std::filesystem::path section;  ///< of the section laid flat, likewise
  std::string size;               ///< of both in pixels, WxH; empty: as usual
  bool caption = true;
};

/// "Extrema": the two ends of the section.
struct ExtremaPanel {
  bool visible = false;
  std::string E1Txt;
  std::string E2txt;
  std::string PrimoLbl = "Extreme: 1";
  std::string SecondoLbl = "Extreme: 2";
};

/// "Quality": the limits stand with the survey; these are what its boxes show beside them.
struct QualityPanel {
  bool visible = false;
  Despike picchi;  ///< what ticking "Spikes" asks for
};

/// "View": the texts of its boxes and the angles that the mouse may turn.
struct ViewPanel {
  std::string Thetatxt = "90.";  ///< degrees
  std::string Phitxt = "0.";
  std::string GammaTxt = "0.";
  std::string Zoomtxt = "1.";
  bool ThetaChk = true;
  bool PhiChk = true;
  bool GammaChk = true;
  // Read-outs on the picture while the mouse turns or zooms.
  std::string thetalbl = "theta", philbl = "phi", gammalbl = "gamma", Zoomlbl = "zoom";
  bool angleLabelsVisible = false;
  bool ZoomlblVisible = false;
};

/// The texts of the two translation panels.
struct TranslationPanel {
  std::string TestTxt = "0.0";    ///< data, east, m
  std::string TnordTxt = "0.0";   ///< data, north, m
  std::string DTestTxt = "0.0";   ///< depth, east, m
  std::string DTnordTxt = "0.0";  ///< depth, north, m
};

}  // namespace corvan
