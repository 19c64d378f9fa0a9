#include "view3d/PointLayer.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace corvan {
namespace {

constexpr std::int32_t CellSize = 16;

bool Dentro(const PuntoPixel& p, const PixelArea& area) {
  return p.X >= area.left && p.X < area.right && p.Y >= area.top && p.Y < area.bottom;
}

/// The pixels of an area that were seen, a bit each.
class SeenPixels {
 public:
  explicit SeenPixels(const PixelArea& area)
      : area_(area),
        width_(static_cast<std::size_t>(area.right - area.left)),
        bits_((width_ * static_cast<std::size_t>(area.bottom - area.top) + 63) / 64) {}

  /// @return true when the pixel is new
  bool add(const PuntoPixel& p) {
    const std::size_t i =
        static_cast<std::size_t>(p.Y - area_.top) * width_ + static_cast<std::size_t>(p.X - area_.left);
    const std::uint64_t bit = std::uint64_t{1} << (i % 64);
    const bool fresh = (bits_[i / 64] & bit) == 0;
    bits_[i / 64] |= bit;
    return fresh;
  }

 private:
  PixelArea area_;
  std::size_t width_;
  std::vector<std::uint64_t> bits_;
};

}  // namespace

void PointLayer::assign(std::vector<PointLabel> labels, const LabelStyle& style, const PixelArea& area) {
  labels_ = std::move(labels);
  style_ = style;
  area_ = area;
  gridValid_ = false;
  topmost_.clear();
  if (labels_.empty() || area.width() <= 0.0 || area.height() <= 0.0) return;
  SeenPixels seen(area);
  const auto collect = [&](bool own) {
    for (std::size_t i = labels_.size(); i-- > 0;) {
      const PointLabel& label = labels_[i];
      if (!label.visible || (label.colour != style.colour) != own || !Dentro(label.at, area)) continue;
      if (seen.add(label.at)) topmost_.push_back(static_cast<std::uint32_t>(i));
    }
  };
  collect(true);
  collect(false);
}

void PointLayer::dipingi(Canvas& canvas) const {
  std::vector<PuntoPixel> common;
  common.reserve(topmost_.size());
  for (const std::uint32_t i : topmost_) {
    if (labels_[i].colour == style_.colour) common.push_back(labels_[i].at);
  }
  if (!style_.crowded && style_.cased) canvas.Marcatori(common, style_.shape, style_.radius + 1, qbcolor::White);
  if (!style_.crowded) canvas.Marcatori(common, style_.shape, style_.radius, style_.colour);
  for (auto i = topmost_.rbegin(); i != topmost_.rend(); ++i) {
    const PointLabel& label = labels_[*i];
    if (label.colour == style_.colour) continue;
    canvas.Marcatori({&label.at, 1}, style_.shape, style_.radius + 4, qbcolor::White);
    canvas.Marcatori({&label.at, 1}, style_.shape, style_.radius + 2, label.colour);
  }
}

std::size_t PointLayer::cellOf(const PuntoPixel& p) const {
  return static_cast<std::size_t>((p.Y - area_.top) / CellSize) * static_cast<std::size_t>(grid_.columns) +
         static_cast<std::size_t>((p.X - area_.left) / CellSize);
}

void PointLayer::buildGrid() const {
  grid_.columns = (area_.right - area_.left + CellSize - 1) / CellSize;
  grid_.rows = (area_.bottom - area_.top + CellSize - 1) / CellSize;
  grid_.start.assign(static_cast<std::size_t>(grid_.columns) * static_cast<std::size_t>(grid_.rows) + 1, 0);
  grid_.label.resize(topmost_.size());
  for (const std::uint32_t i : topmost_) ++grid_.start[cellOf(labels_[i].at) + 1];
  for (std::size_t c = 1; c < grid_.start.size(); ++c) grid_.start[c] += grid_.start[c - 1];
  std::vector<std::uint32_t> next(grid_.start.begin(), grid_.start.end() - 1);
  for (const std::uint32_t i : topmost_) grid_.label[next[cellOf(labels_[i].at)]++] = i;
  gridValid_ = true;
}

std::optional<PointLayer::Hit> PointLayer::cerca(const PuntoPixel& place, std::int32_t reach) const {
  if (topmost_.empty() || !Dentro(place, area_)) return std::nullopt;
  if (!gridValid_) buildGrid();
  const std::int32_t margin = style_.radius + 1;
  const std::int32_t far = std::max(reach, margin);
  const auto cell = [](std::int32_t p, std::int32_t from, std::int32_t count) {
    return std::clamp((p - from) / CellSize, 0, count - 1);
  };
  std::optional<Hit> found;
  std::int32_t best = std::numeric_limits<std::int32_t>::max();
  const std::int32_t left = cell(place.X - far, area_.left, grid_.columns);
  const std::int32_t right = cell(place.X + far, area_.left, grid_.columns);
  const std::int32_t bottom = cell(place.Y + far, area_.top, grid_.rows);
  for (std::int32_t row = cell(place.Y - far, area_.top, grid_.rows); row <= bottom; ++row) {
    const auto base = static_cast<std::size_t>(row) * static_cast<std::size_t>(grid_.columns);
    const std::uint32_t first = grid_.start[base + static_cast<std::size_t>(left)];
    const std::uint32_t end = grid_.start[base + static_cast<std::size_t>(right) + 1];
    for (std::uint32_t k = first; k < end; ++k) {
      const PointLabel& label = labels_[grid_.label[k]];
      const std::int32_t dx = label.at.X - place.X, dy = label.at.Y - place.Y;
      const std::int32_t distance2 = dx * dx + dy * dy;
      const bool covered = std::max(std::abs(dx), std::abs(dy)) <= margin;
      if ((!covered && distance2 > reach * reach) || distance2 >= best) continue;
      best = distance2;
      found = Hit{label.index, distance2, label.at};
    }
  }
  return found;
}

}  // namespace corvan
