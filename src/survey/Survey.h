// The survey of one reading: its measurements, the files they came from, the settings and what the analysis derived.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "base/Array1.h"
#include "survey/ExternalTrack.h"
#include "survey/Misura.h"
#include "survey/Punto3D.h"
#include "survey/Quality.h"

namespace corvan {

inline constexpr std::size_t TimedRecord = 304;  ///< bytes; shorter records hold no time

/// What one file of the batch gave.
struct FileSummary {
  std::filesystem::path path;
  std::string format;  ///< "syscal", "text" or "columns"; empty when the file could not be read
  std::uintmax_t bytes = 0;
  std::size_t recordLength = 0;  ///< bytes; 0 for a text
  std::size_t records = 0;       ///< records, or lines of a text
  std::int32_t channels = 0;     ///< records of a firing
  std::size_t firings = 0;       ///< measurements that the file added
  bool rowsTimed = false;        ///< rows of a column text that tell a time

  bool timed() const { return recordLength >= TimedRecord || rowsTimed; }
};

/// The file being read.
struct CurrentFile {
  std::filesystem::path NomeFile;  ///< full path
  std::string TitoloFile;          ///< name without folder
  std::int16_t NumFile = 0;        ///< ordinal in the batch, from 1
  std::int16_t LungRecord = 0;     ///< record length of the last binary file, bytes; kept, nothing needs it
  std::int32_t NumCanali = 0;      ///< channels per firing
  std::string HeaderBin;           ///< the 1030-character header of the last binary file; kept, nothing needs it
};

enum class BadGps { NoFilter, Skip, Interpolate };

struct Settings {
  bool CoordUTM = false;                      ///< the files carry UTM coordinates
  AngleFormat layout = AngleFormat::DMM_MMM;  ///< of latitudes and longitudes
  BadGps filter = BadGps::NoFilter;           ///< the treatment of bad fixes
  std::int16_t ZonaUTM = 32;                  ///< UTM zone of the survey, as typed or chosen
  GridZone griglia{32, Hemisphere::North};    ///< the one grid that all positions stand on: ZonaUTM held to 1..60
  double TraslDatiEst = 0;                    ///< data translation of the view, m
  double TraslDatiNord = 0;
  float TraslFondoEst = 0;  ///< depth translation of the view, m
  float TraslFondoNord = 0;
};

/// Positions of the thirteen electrodes along the cable: E1..E11 in 1..11, C1 in 12, C2 in 13.
struct Cable {
  std::array<float, CableElectrodes + 1> PosCavo{};      ///< m, as the instrument numbers them
  std::array<double, CableElectrodes + 1> PosCavoRel{};  ///< m, from the midpoint of E1 and E2
  std::string StringaCavo;                               ///< the configuration as the user sees and edits it
};

/// What the analysis derives from all measurements together.
struct TrackExtent {
  std::array<float, MaxChannels + 1> FattoreK{};  ///< geometric factor of channels 1..10, m
  float MaxVal12 = 0, MinVal12 = 0;               ///< water depth, m
  float RhoMin = 0, RhoMax = 0;                   ///< apparent resistivity, ohm m
  double XMin = 0, XMax = 0, YMin = 0, YMax = 0;  ///< bounding box of the positions, m
  float CentroX = 0, CentroY = 0, CentroZ = 0;    ///< scene origin, m
  double EstensioneX = 0, EstensioneY = 0;        ///< m
  double Lunghezza = 0;                           ///< track length, m
  float PassoMedio = 0;                           ///< mean spacing of the measurements, m
  double AltezzaCella = 1;                        ///< height of one level of the curtain, m
  Array1<Punto3D> PuntiGPS;   ///< per measurement, relative to the origin, translated; w is the depth
  Array1<Punto3D> PuntiGPS0;  ///< the same with z = 0
};

struct Survey {
  Array1<Misura> Misure;  ///< in the order of the files and, within a file, of its records
  std::vector<FileSummary> files;
  CurrentFile file;
  Settings settings;
  Cable cavo;
  TrackExtent traccia;
  Quality qualita;
  ExternalTrack tracciaEst;  ///< kept from one reading to the next

  std::int32_t NumMisure() const { return static_cast<std::int32_t>(Misure.size()); }
  /// The file that a measurement came from; none where it names none.
  const FileSummary* fileDi(const Misura& m) const {
    const bool named = m.NumFile >= 1 && static_cast<std::size_t>(m.NumFile) <= files.size();
    return named ? &files[static_cast<std::size_t>(m.NumFile) - 1] : nullptr;
  }
};

}  // namespace corvan
