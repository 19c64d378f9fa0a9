// Which readings of a section go to the inversion toolkits, and what keeps the others out.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/Findings.h"
#include "export/CablePlaces.h"
#include "export/Section.h"
#include "survey/Survey.h"

namespace corvan {

/// Electrodes of a firing as bits 1..13.
using ElectrodeSet = std::uint16_t;
constexpr ElectrodeSet BitElettrodo(std::size_t electrode) { return static_cast<ElectrodeSet>(1U << electrode); }

/// The electrodes that these readings need: both current electrodes and those of each channel.
constexpr ElectrodeSet ElettrodiDi(ReadingSet readings) {
  constexpr unsigned current = BitElettrodo(12) | BitElettrodo(13);
  return readings == 0 ? ElectrodeSet{0} : static_cast<ElectrodeSet>(readings | (readings << 1U) | current);
}

/// Where a reading lies in plan and along the section: the mean of its four electrodes' places and depths of water.
ElectrodePlace Mezzo(const ElectrodePlaces& at, std::size_t channel);

/// A toolkit takes a reading that is in use and finite, with a current, of a measurement that has a position, between
/// four electrodes at four places.
class ToolkitReadings {
 public:
  /// @param section of this survey @param places of the same section
  ToolkitReadings(const Survey& survey, const Section& section, const CablePlaces& places);

  /// Channels taken of a point. @param i from 1, in the order of the section's points
  ReadingSet di(std::size_t i) const { return taken_[i - 1]; }
  std::size_t readings() const { return readings_; }
  std::size_t electrodes() const { return electrodes_; }

  /// Tells what is left out.
  void rileva(const char* procedure, Findings& findings) const;
  /// The same, and which electrodes lie where no water is.
  /// @throws RunTimeError when no reading is taken: an empty file would only fail later, in the toolkit
  void esigi(const char* procedure, Findings& findings) const;

 private:
  enum Reason : std::uint8_t { Excluded, Unplaced, NoCurrent, NotFinite, Coinciding, ReasonCount };

  ReadingSet scegli(const Misura& m, const SectionPoint& point, const ElectrodePlaces& at);
  std::string motivi() const;

  std::vector<ReadingSet> taken_;
  std::array<std::size_t, ReasonCount> left_{};
  std::size_t readings_ = 0;
  std::size_t electrodes_ = 0;
  std::size_t dry_ = 0;          ///< electrodes over no water
  std::int32_t firstPoint_ = 0;  ///< measurement of the first reading with two electrodes at one place
  std::size_t firstChannel_ = 0;
};

}  // namespace corvan
