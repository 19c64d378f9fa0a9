#include "view2d/SectionView.h"

#include <algorithm>

namespace corvan {

TrackWindow Ingrandisci(const TrackWindow& window, double place, double factor, const TrackWindow& whole) {
  if (!(window.width() > 0.0) || !(factor > 0.0)) return window;
  const double widest = std::max(whole.width(), 0.0);
  const double width = std::clamp(window.width() * factor, std::min(1.0, widest), widest);
  const double share = (place - window.from) / window.width();
  const double from = place - share * width;
  return Scorri({from, from + width}, 0.0, whole);
}

TrackWindow Scorri(const TrackWindow& window, double metres, const TrackWindow& whole) {
  const double width = window.width();
  if (width >= whole.width()) return whole;
  const double from = std::clamp(window.from + metres, whole.from, whole.to - width);
  return {from, from + width};
}

}  // namespace corvan
