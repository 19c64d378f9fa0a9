// The paths behind a section: one for each line of a file that it has measurements of, with the depths sounded along
// it, and the axis that counts path length over all of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "geo/Plane.h"
#include "survey/Survey.h"
#include "track/SailedPath.h"

namespace corvan {

/// The path of one file, whole: what was sailed before a section lies under its first cable.
class SailedLine {
 public:
  /// @param first,last measurement numbers of the file's run @param window of the smoothing, m
  SailedLine(const Survey& survey, std::int32_t first, std::int32_t last, double window);

  /// Measurement numbers of the fixes: those with a position that are not left out.
  const std::vector<std::int32_t>& fixes() const { return fixes_; }
  const SailedPath& path() const { return path_; }
  /// Water depth at a path length as an echo sounder some metres astern of the antenna saw it, between two soundings
  /// on the straight line from one to the other, beyond the ends that of the end; a depth that is not finite is none.
  /// Without any, 0. m, never negative.
  double profondita(double length, double echoOffset, std::size_t near) const;

 private:
  std::vector<std::int32_t> fixes_;
  SailedPath path_;
  std::vector<double> soundedAt_;  ///< path lengths of the antenna
  std::vector<float> depths_;
};

/// A measurement's fix on its line.
struct LineFix {
  const SailedLine* line = nullptr;
  std::size_t index = 0;
  double origin = 0;  ///< x of the line's path length 0, m

  double lunghezza() const { return line->path().lunghezza(index); }
  double x() const { return origin + lunghezza(); }
  /// The place whose x on the axis of the section is this, on the line or its prolonged courses.
  PlanPoint luogo(double at) const { return line->path().luogo(at - origin, index); }
  double profondita(double at, double echoOffset) const { return line->profondita(at - origin, echoOffset, index); }
};

/// The lines of a section. Their common axis is 0 at the section's first fix and counts metres of path; from one file
/// to the next it goes on by the straight distance between the end of the one path and the start of the other.
class SailedLines {
 public:
  SailedLines() = default;
  /// @param E1,E2 the section's extremes, E1 not greater than E2, both measurements of the survey
  SailedLines(const Survey& survey, std::int32_t E1, std::int32_t E2, double window);

  /// No measurement of the section has a fix: nothing can be asked.
  bool empty() const { return lines_.empty(); }
  /// The fix of a measurement of the section; of one without a fix that of the one before it in the section, at its
  /// start that of the first. Valid as long as this is.
  LineFix fix(std::int32_t p) const;
  std::size_t size() const { return lines_.size(); }
  const SailedLine& line(std::size_t i) const { return lines_.at(i); }

 private:
  std::vector<SailedLine> lines_;
  std::vector<double> origins_;
  std::size_t firstFix_ = 0;  ///< on the first line: earlier ones lie before the section
};

}  // namespace corvan
