// What the user did to a survey, as it can be done again: the commands whose order decides what the survey becomes.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "base/Question.h"
#include "session/Panels.h"
#include "track/TrackLink.h"

namespace corvan {

/// An answer that a command was given while it ran.
struct GivenAnswer {
  Question question = Question::ChannelNumber;
  std::optional<std::string> text;  ///< none: Cancel; of a box with two buttons "ok"
  friend bool operator==(const GivenAnswer&, const GivenAnswer&) = default;
};

/// "Read File".
struct ReadAct {
  InputPanel in;  ///< the choices with which it was read
  std::vector<GivenAnswer> answers;
};
/// "Load External GPS file".
struct TrackAct {
  std::filesystem::path file;
  std::vector<GivenAnswer> answers;
};
struct CableAct {
  std::string text;
};
struct ZoneAct {
  std::int16_t zone = 0;
};
struct TimeLinkAct {
  double clockOffset = 0;  ///< s
};
struct PlaceLinkAct {
  Collegamenti connections;
};
/// "Correct Depth": the mean of the neighbours as they were then.
struct DepthAct {
  std::int32_t measurement = 0;
};

using Act = std::variant<ReadAct, TrackAct, CableAct, ZoneAct, TimeLinkAct, PlaceLinkAct, DepthAct>;

}  // namespace corvan
