// One firing of the current electrodes with its per-channel readings and its place along the track.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace corvan {

inline constexpr std::size_t MaxChannels = 10;          ///< channels stored per firing
inline constexpr std::size_t PotentialElectrodes = 11;  ///< E1 to E11; channel c measures between E c and E c+1
inline constexpr std::size_t CableElectrodes = 13;      ///< E1 to E11, then C1 (12) and C2 (13)

/// Per-channel arrays run 1..10 and electrodes 1..11; slot 0 is unused.
struct Misura {
  float Passo = 0;      ///< first column of a text export; for an interpolated position the step inside its gap, m
  double Distanza = 0;  ///< progressive distance along the track, m
  float Val12 = 0;      ///< water depth, m
  std::array<float, MaxChannels + 1> Rho{};                ///< apparent resistivity, ohm m
  float Val60 = 0;                                         ///< position of current electrode C1 along the cable, m
  float Val64 = 0;                                         ///< position of current electrode C2 along the cable, m
  std::array<float, PotentialElectrodes + 1> Elettrodi{};  ///< positions of E1..E11 along the cable, m
  double Lat = 0;                 ///< latitude in the layout of the file's coordinate format (e.g. DDMM.MMM)
  double Lon = 0;                 ///< longitude, likewise
  double UTMx = 0;                ///< easting, m
  double UTMy = 0;                ///< northing, m
  std::array<double, 5> Deriv{};  ///< working positions 1..4; 3 and 4 are the true easting and northing, m
  float Val180 = 0;               ///< injected current, mA
  float Val184 = 0;               ///< the current with the opposite sign, mA
  std::array<float, MaxChannels + 1> CanaleA{};  ///< potential difference, mV
  std::array<float, MaxChannels + 1> CanaleB{};  ///< the same with the opposite sign, mV
  std::int16_t NumFile = 0;                      ///< ordinal of the file in the batch, from 1
  bool Scartata = false;                         ///< no usable position: left out
  bool Interpolata = false;                      ///< the position was interpolated over a gap
  double Tempo = 0;                              ///< days since 1899-12-30; 0 where the file holds no time

  bool SenzaFix = false;     ///< as read, the firing has no position
  bool SorgenteUTM = false;  ///< the position was given as UTM, and latitude and longitude are derived from it
};

/// A latitude or northing of 0, a longitude or easting of 0, and any value that is not finite mean "no position".
bool PosizioneUsabile(double north, double east);

/// The firing has a position: its own or an interpolated one.
inline bool HaPosizione(const Misura& m) { return !m.SenzaFix || m.Interpolata; }

/// The firing takes part in sections and cells: it has a position and is not left out.
inline bool Tenuta(const Misura& m) { return HaPosizione(m) && !m.Scartata; }

/// Stores a position as read. Without a usable one all four coordinates stay 0 and SenzaFix is set.
/// @param north,east latitude and longitude in the file's layout, or northing and easting when m.SorgenteUTM
void ImpostaPosizione(Misura& m, double north, double east);

}  // namespace corvan
