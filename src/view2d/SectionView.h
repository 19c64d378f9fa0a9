// How the flat section is looked at: which lines, which part of the track, depths and curves.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace corvan {

enum class SectionLines : std::uint8_t {
  Stacked,  ///< each line a strip of its own, one under the other, from its own beginning
  Along,    ///< the whole track on one axis; where lines overlap the later one lies on top
  One       ///< one line alone
};

enum class DepthAxis : std::uint8_t { Metres, Levels };

enum class Curve : std::uint8_t { Current, Potential, Resistivity, Depth, Speed, Time };
inline constexpr std::size_t Curves = 6;

/// A stretch of the horizontal axis, m.
struct TrackWindow {
  double from = 0, to = 1;

  double width() const { return to - from; }
  friend bool operator==(const TrackWindow&, const TrackWindow&) = default;
};

struct SectionView {
  SectionLines lines = SectionLines::Stacked;
  std::size_t line = 1;  ///< of SectionLines::One, 1-based; beyond the last one it is the last
  DepthAxis depth = DepthAxis::Metres;
  std::array<bool, Curves> curves{};
  std::optional<TrackWindow> window;  ///< held to what there is; none: all of it

  bool mostra(Curve curve) const { return curves.at(static_cast<std::size_t>(curve)); }
};

/// A window a factor as wide (under 1: nearer), in which a place stays where it is; at least 1 m, never wider than the
/// whole, and held to it.
TrackWindow Ingrandisci(const TrackWindow& window, double place, double factor, const TrackWindow& whole);

/// A window moved along by metres, held to the whole.
TrackWindow Scorri(const TrackWindow& window, double metres, const TrackWindow& whole);

}  // namespace corvan
