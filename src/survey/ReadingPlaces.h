// Where the readings of each channel lie: how far behind the boat, how deep below the water's surface.
#pragma once

#include <array>
#include <optional>

#include "survey/Misura.h"

namespace corvan {

struct ReadingPlace {
  std::optional<double> dietro;      ///< m behind the GPS antenna; none where an electrode has no position
  std::optional<double> profondita;  ///< pseudo-depth, m, over 0; none where the electrodes give none
};

/// The places of channels 1..10, the same for every firing of one cable; slot 0 is unused.
using ReadingPlaces = std::array<ReadingPlace, MaxChannels + 1>;

}  // namespace corvan
