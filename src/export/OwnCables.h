// The electrodes of firings that name their own: where they lie behind the boat.
#pragma once

#include <cstddef>
#include <map>

#include "survey/Survey.h"

namespace corvan {

/// All rows of one file count their electrodes from one place, so the largest of the file is the head that trails
/// nearest to the boat, also where a row alone does not reach it.
class OwnCables {
 public:
  explicit OwnCables(const Survey& survey);

  /// Position of an electrode along the cable minus the head's, m, never positive. @param e 1..11, C1 in 12, C2 in 13
  double dietro(const Misura& m, std::size_t e) const;
  /// Distance from the head to the middle of the current dipole, m.
  double lag(const Misura& m) const;

 private:
  std::map<std::int16_t, double> heads_;  // by file
};

}  // namespace corvan
