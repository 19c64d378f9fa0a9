// Pseudo-depths of the readings of each firing.
#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "survey/Survey.h"

namespace corvan {

/// Of channels 1..10, m; slot 0 is unused. None where the electrodes give no depth.
using ChannelDepths = std::array<std::optional<double>, MaxChannels + 1>;

/// Median depths of investigation: of the survey's cable, or of a firing's own electrodes where these made its factors.
class ReadingDepths {
 public:
  explicit ReadingDepths(const Survey& survey);
  ChannelDepths operator()(const Misura& m) const;

 private:
  ChannelDepths common_;
};

}  // namespace corvan
