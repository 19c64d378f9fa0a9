// One firing of the current electrodes with its per-channel readings and its place along the track.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/Position.h"

namespace corvan {

inline constexpr std::size_t MaxChannels = 10;          ///< channels stored per firing
inline constexpr std::size_t PotentialElectrodes = 11;  ///< E1 to E11; channel c measures between E c and E c+1
inline constexpr std::size_t CableElectrodes = 13;      ///< E1 to E11, then C1 (12) and C2 (13)

/// Channels of a firing as bits 1..10.
using ReadingSet = std::uint16_t;
inline constexpr ReadingSet AllReadings = 0x7FE;
constexpr ReadingSet BitDi(std::size_t channel) { return static_cast<ReadingSet>(1U << channel); }

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
  std::array<float, MaxChannels + 1> CanaleA{};       ///< potential difference, mV
  std::array<float, MaxChannels + 1> CanaleB{};       ///< the same with the opposite sign, mV
  std::array<float, MaxChannels + 1> Caricabilita{};  ///< chargeability, mV/V
  std::array<float, MaxChannels + 1> Deviazione{};    ///< standard deviation of the stacked potentials, %
  std::int16_t NumFile = 0;                           ///< ordinal of the file in the batch, from 1
  std::int32_t Linea = 0;    ///< survey line within its file, from 1; 0 where the file names none
  bool Scartata = false;     ///< no usable position: left out
  bool Interpolata = false;  ///< the position was interpolated over a gap
  double Tempo = 0;          ///< days since 1899-12-30; 0 where the file holds no time

  /// The position as read, or as a link to an external track gave it; of an interpolated one that between its
  /// neighbours', which the next analysis takes away again.
  PositionSource sorgente;
  bool SenzaFix = true;              ///< the firing has no position of its own, or none that can be converted
  ReadingSet letture = AllReadings;  ///< channels whose reading was stored
  ReadingSet escluse = 0;            ///< channels whose reading stands but is taken as bad
  bool ConQualita = false;   ///< the instrument stored chargeability and deviation; else both are 0 and say nothing
  bool CavoProprio = false;  ///< factors and places follow from its own electrodes, not from the survey's cable
};

/// A latitude or northing of 0, a longitude or easting of 0, and any value that is not finite mean "no position".
bool PosizioneUsabile(double north, double east);

/// The reading of a channel (1..10) was stored. One that was not has resistivity and potential 0 and takes no part in
/// extremes, colours and cells.
inline bool HaLettura(const Misura& m, std::size_t channel) { return (m.letture & BitDi(channel)) != 0; }

/// The readings that colours, cells and open formats take: stored and not excluded.
inline ReadingSet InUso(const Misura& m) { return static_cast<ReadingSet>(m.letture & ~m.escluse); }
inline bool InUso(const Misura& m, std::size_t channel) { return (InUso(m) & BitDi(channel)) != 0; }

/// None of the firing's readings was stored: it is left out of everything, whatever the filter.
inline bool Vuota(const Misura& m) { return m.letture == 0; }

/// The firing has a position: its own or an interpolated one.
inline bool HaPosizione(const Misura& m) { return !m.SenzaFix || m.Interpolata; }

/// Nothing is joined or interpolated from one survey line to another.
inline bool StessaLinea(const Misura& a, const Misura& b) { return a.NumFile == b.NumFile && a.Linea == b.Linea; }

/// The firing takes part in sections and cells: it has a position and is not left out.
inline bool Tenuta(const Misura& m) { return HaPosizione(m) && !m.Scartata; }

/// Stores a geographic position as read. Without a usable one all stays 0 and there is no source.
/// @param latitude,longitude in the file's layout, which Lat and Lon keep @param degrees the same in decimal degrees
void ImpostaGeografica(Misura& m, double latitude, double longitude, const Geographic& degrees);

/// Stores a position on a grid of no stated zone, likewise.
void ImpostaUTM(Misura& m, double northing, double easting);

}  // namespace corvan
