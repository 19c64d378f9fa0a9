// The quadrupoles of a section: what written records hold beside their constants.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/Array1.h"
#include "survey/Misura.h"

namespace corvan {

/// One reading between four electrodes, in the order A, B, M, N. They lie on one line, so their y is 0; chargeability
/// and quality are 0 in files of our own.
struct Quadrupole {
  std::array<float, 4> x{};  ///< place along the section, m
  std::array<float, 4> z{};  ///< water depth under the electrode, m
  float potential = 0;       ///< mV
  float current = 0;         ///< mA
  float resistivity = 0;     ///< ohm m
  float nord = 0;            ///< true northing, m
  float est = 0;             ///< true easting, m
  std::int16_t channel = 0;  ///< 1..10
};

/// One firing of a section: its electrodes, which the ten quadrupoles share, the readings of its channels and its true
/// place.
struct SectionPoint {
  std::int32_t misura = 0;                            ///< number of the measurement
  std::int16_t file = 0;                              ///< ordinal of its file
  std::int32_t linea = 0;                             ///< survey line within the file
  ReadingSet letture = AllReadings;                   ///< channels whose reading exists
  ReadingSet inUso = AllReadings;                     ///< those of them that are not excluded
  bool posta = true;                                  ///< it has a position; else it repeats that of another point
  double estVero = 0;                                 ///< true easting, m
  double nordVero = 0;                                ///< true northing, m
  std::array<float, CableElectrodes + 1> x{};         ///< of electrodes 1..13 along the section, m
  std::array<float, CableElectrodes + 1> z{};         ///< water depth under them, m
  std::array<float, MaxChannels + 1> potential{};     ///< of channels 1..10, mV
  std::array<float, MaxChannels + 1> resistivity{};   ///< of channels 1..10, ohm m
  std::array<float, MaxChannels + 1> caricabilita{};  ///< of channels 1..10, mV/V
  std::array<float, MaxChannels + 1> deviazione{};    ///< of channels 1..10, %
  bool conQualita = false;                            ///< chargeability and deviation were stored
  float current = 0;                                  ///< mA
  float nord = 0;                                     ///< true northing as files hold it, m
  float est = 0;                                      ///< true easting, likewise
};

/// Ten quadrupoles a point, put together when asked for: a section of 100,000 firings has a million of them.
class SectionRecords {
 public:
  void reserve(std::size_t points) { points_.reserve(points); }
  void append(const SectionPoint& point) { points_.append(point); }
  std::size_t size() const { return MaxChannels * points_.size(); }
  const Array1<SectionPoint>& points() const { return points_; }

  /// @param k 1 to size(); any other index throws RunTimeError
  Quadrupole operator()(std::size_t k) const {
    const SectionPoint& p = points_((k + MaxChannels - 1) / MaxChannels);
    const std::size_t c = (k - 1) % MaxChannels + 1;
    constexpr std::size_t A = 12;
    constexpr std::size_t B = 13;
    return {{p.x[A], p.x[B], p.x.at(c), p.x.at(c + 1)},
            {p.z[A], p.z[B], p.z.at(c), p.z.at(c + 1)},
            p.potential.at(c),
            p.current,
            p.resistivity.at(c),
            p.nord,
            p.est,
            static_cast<std::int16_t>(c)};
  }

 private:
  Array1<SectionPoint> points_;
};

}  // namespace corvan
