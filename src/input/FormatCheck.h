// Whether the positions of a file look like the coordinate format that it is read in.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "base/Findings.h"
#include "base/Position.h"
#include "input/FileRead.h"
#include "survey/Misura.h"

namespace corvan {

/// Takes every position of one file as it was read and says at the end which format the numbers look like, if it is
/// another one. The numbers themselves stay as read.
class FormatCheck {
 public:
  /// Says nothing where nobody chose the layout.
  explicit FormatCheck(const ReadOptions& options) : layout_(options.layout), chosen_(options.layoutChosen) {}

  /// @param m a firing; one without position is passed over @param place its first record or its line, from 1
  void prendi(const Misura& m, std::size_t place);

  /// A fault when a latitude is over 90 or a longitude over 180 degrees, when numbers read with minutes are all under
  /// 91 and 181 (they are degrees), or when northings, or latitudes read with seconds, are all under 9,000 and eastings
  /// or longitudes under 18,000.
  /// @param placeName what a place is: "record", "line"
  void rilievi(const std::string& procedure, const std::string& placeName, Findings& out) const;

 private:
  void prendiOltre(double north, double east);
  std::string probabile() const;
  std::string estremi(const std::string& likely) const;
  std::string ovunque() const;

  std::optional<AngleFormat> layout_;  // of latitudes and longitudes; none: eastings and northings
  bool chosen_;
  std::size_t positions_ = 0;
  double north_ = 0;  // largest without sign
  double east_ = 0;
  std::size_t beyond_ = 0;  // positions that lie nowhere on the earth, and what their numbers allow
  std::size_t firstBeyond_ = 0;
  bool minutes_ = true;  // minutes run together with degrees
  bool seconds_ = true;  // minutes and seconds likewise
  bool metres_ = true;   // eastings and northings of a zone
};

}  // namespace corvan
