#include "track/SailedLines.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvan {
namespace {

const Misura& Di(const Survey& survey, std::int32_t p) { return survey.Misure(static_cast<std::size_t>(p)); }

std::size_t PrimaNonSotto(const std::vector<std::int32_t>& fixes, std::int32_t p) {
  return static_cast<std::size_t>(std::lower_bound(fixes.begin(), fixes.end(), p) - fixes.begin());
}

/// Fixes of first to last.
bool FixTra(const SailedLine& line, std::int32_t first, std::int32_t last) {
  const std::size_t i = PrimaNonSotto(line.fixes(), first);
  return i < line.fixes().size() && line.fixes()[i] <= last;
}

}  // namespace

SailedLine::SailedLine(const Survey& survey, std::int32_t first, std::int32_t last, double window) {
  std::vector<PlanPoint> places;
  for (std::int32_t p = first; p <= last; ++p) {
    const Misura& m = Di(survey, p);
    if (!Tenuta(m)) continue;
    fixes_.push_back(p);
    places.push_back({m.UTMx, m.UTMy});
  }
  path_ = SailedPath(std::move(places), window);
  for (std::size_t i = 0; i < fixes_.size(); ++i) {
    const float depth = Di(survey, fixes_[i]).Val12;
    if (!std::isfinite(depth)) continue;
    soundedAt_.push_back(path_.lunghezza(i));
    depths_.push_back(std::abs(depth));
  }
}

double SailedLine::profondita(double length, double echoOffset, std::size_t near) const {
  if (depths_.empty()) return 0.0;
  const double antenna = length + echoOffset;
  const std::size_t i = UltimoNonOltre(soundedAt_, antenna, near);
  const double here = depths_[i];
  if (i + 1 == depths_.size() || antenna <= soundedAt_[i]) return here;
  const double t = (antenna - soundedAt_[i]) / (soundedAt_[i + 1] - soundedAt_[i]);
  return here + t * (static_cast<double>(depths_[i + 1]) - here);
}

SailedLines::SailedLines(const Survey& survey, std::int32_t E1, std::int32_t E2, double window) {
  const auto same = [&survey](std::int32_t p, std::int32_t q) { return StessaLinea(Di(survey, p), Di(survey, q)); };
  std::int32_t first = E1;
  while (first > 1 && same(first - 1, E1)) --first;
  while (first <= E2) {
    std::int32_t last = first;
    while (last < survey.NumMisure() && same(last + 1, first)) ++last;
    SailedLine line(survey, first, last, window);
    if (FixTra(line, E1, E2)) lines_.push_back(std::move(line));
    first = last + 1;
  }
  if (lines_.empty()) return;
  firstFix_ = PrimaNonSotto(lines_.front().fixes(), E1);
  origins_.push_back(-lines_.front().path().lunghezza(firstFix_));
  for (std::size_t k = 1; k < lines_.size(); ++k) {
    const SailedPath& before = lines_[k - 1].path();
    const PlanPoint end = before.luogo(before.lunghezza(), before.size());
    const PlanPoint start = lines_[k].path().luogo(0.0, 0);
    origins_.push_back(origins_.back() + before.lunghezza() + dist(end.est, end.nord, start.est, start.nord));
  }
}

LineFix SailedLines::fix(std::int32_t p) const {
  const auto behind =
      std::upper_bound(lines_.begin(), lines_.end(), p,
                       [](std::int32_t number, const SailedLine& line) { return number < line.fixes().front(); });
  if (behind == lines_.begin()) return {&lines_.front(), firstFix_, origins_.front()};
  const auto k = static_cast<std::size_t>(behind - lines_.begin()) - 1;
  const auto& fixes = lines_[k].fixes();
  const auto after = static_cast<std::size_t>(std::upper_bound(fixes.begin(), fixes.end(), p) - fixes.begin());
  return {&lines_[k], std::max(after - 1, k == 0 ? firstFix_ : 0), origins_[k]};
}

}  // namespace corvan
