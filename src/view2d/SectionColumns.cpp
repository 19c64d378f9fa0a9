#include "view2d/SectionColumns.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace corvan {
namespace {

constexpr double FarthestJoin = 2.5;  // steps of the line

/// Measurements of a line, as indices from..to - 1, that lie between two places along the track.
struct Stretch {
  std::size_t from = 0, to = 0;
};

/// Those within the window, widened by a margin to both sides.
Stretch Visibili(const SectionModel& model, const SectionLayout& layout, const SectionBlock& block,
                 const SectionLine& line, double behind, double margin) {
  const auto begin = model.distance.begin();
  const auto first = begin + static_cast<std::ptrdiff_t>(line.first - 1);
  const auto last = begin + static_cast<std::ptrdiff_t>(line.last);
  const double from = block.origin + layout.window.from + behind - margin;
  const double to = block.origin + layout.window.to + behind + margin;
  const auto low = std::lower_bound(first, last, from), high = std::upper_bound(low, last, to);
  return {static_cast<std::size_t>(low - begin), static_cast<std::size_t>(high - begin)};
}

/// Walks the readings of a channel in one line along with the columns.
class CellWalk {
 public:
  /// @param start index from which on readings may show
  CellWalk(const SectionModel& model, std::span<const float> values, const SectionLine& line, std::size_t start)
      : model_(model), values_(values), half_(line.step / 2.0), end_(line.last), before_(line.last) {
    for (std::size_t i = start; i > line.first - 1 && before_ == end_;) {
      if (std::isfinite(values_[--i])) before_ = i;
    }
    next_ = prossimo(start);
  }

  /// The measurement that shows in the column from..to, which follow each other; 0 for none.
  std::uint32_t mostra(double from, double to) {
    const double middle = (from + to) / 2.0;
    while (next_ < end_ && model_.distance[next_] <= middle) {
      before_ = next_;
      next_ = prossimo(next_ + 1);
    }
    const double reach = before_ < end_ && next_ < end_ ? Portata(model_, before_, next_) : half_;
    if (before_ < end_ && middle < model_.distance[before_] + reach) return numero(before_);
    if (next_ < end_ && middle >= model_.distance[next_] - reach) return numero(next_);
    std::size_t last = end_;
    for (std::size_t i = next_; i < end_ && model_.distance[i] < to; i = prossimo(i + 1)) last = i;
    if (last < end_) return numero(last);
    return before_ < end_ && model_.distance[before_] >= from ? numero(before_) : 0U;
  }

 private:
  /// Index of the first value from i on; the line's end where there is none.
  std::size_t prossimo(std::size_t i) const {
    while (i < end_ && !std::isfinite(values_[i])) ++i;
    return i;
  }
  static std::uint32_t numero(std::size_t i) { return static_cast<std::uint32_t>(i + 1); }

  const SectionModel& model_;
  std::span<const float> values_;
  double half_;
  std::size_t end_;
  std::size_t before_;    // the last reading up to the column's middle; the line's end for none
  std::size_t next_ = 0;  // the one behind it, likewise
};

/// Puts values and the lines between them into columns.
class CurveColumns {
 public:
  CurveColumns(std::vector<ColumnValues>& columns, double scale) : columns_(columns), scale_(scale) {}

  /// A value at a place, m from the window's left edge. @param joined to the value before it
  void value(double place, float v, bool joined) {
    const double width = static_cast<double>(columns_.size()) / scale_;
    if (joined) edges(place, v, width);
    if (place >= 0.0 && place <= width) add(place, v, joined && lastPlace_ >= 0.0);
    lastPlace_ = place;
    lastValue_ = v;
  }

 private:
  /// Where the line from the value before to this one crosses the window's edges.
  void edges(double place, float v, double width) {
    const auto at = [&](double x) {
      const double rise = static_cast<double>(v) - lastValue_;
      return static_cast<float>(lastValue_ + rise * (x - lastPlace_) / (place - lastPlace_));
    };
    if (lastPlace_ < 0.0 && place >= 0.0) {
      add(0.0, at(0.0), false);
      lastPlace_ = 0.0;
      lastValue_ = columns_.front().last;
    }
    if (lastPlace_ <= width && place > width) add(width, at(width), true);
  }

  void add(double place, float v, bool joined) {
    const auto last = static_cast<std::ptrdiff_t>(columns_.size()) - 1;
    const auto x = std::clamp<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(place * scale_), 0, last);
    ColumnValues& column = columns_[static_cast<std::size_t>(x)];
    if (!column.any) {
      column = {v, v, v, v, true, joined};
      return;
    }
    column.last = v;
    column.low = std::min(column.low, v);
    column.high = std::max(column.high, v);
  }

  std::vector<ColumnValues>& columns_;
  double scale_;
  double lastPlace_ = 0;
  float lastValue_ = 0;
};

}  // namespace

void CelleDi(const SectionModel& model, const SectionLayout& layout, const SectionBlock& block, std::size_t channel,
             std::vector<std::uint32_t>& shown) {
  shown.assign(static_cast<std::size_t>(block.plot.width()), 0);
  if (model.lines.empty()) return;
  const double pixel = layout.window.width() / block.plot.width(), behind = model.behind.at(channel);
  const double zero = block.origin + layout.window.from + behind;
  for (std::size_t k = block.firstLine; k <= block.lastLine; ++k) {
    const SectionLine& line = model.lines[k];
    const Stretch seen = Visibili(model, layout, block, line, behind, 1.25 * line.step + pixel);
    if (seen.from == seen.to) continue;
    CellWalk walk(model, model.celle(channel), line, seen.from);
    for (std::size_t x = 0; x < shown.size(); ++x) {
      const double from = zero + static_cast<double>(x) * pixel;
      const std::uint32_t measurement = walk.mostra(from, from + pixel);
      if (measurement != 0) shown[x] = measurement;
    }
  }
}

void ColonneDi(const SectionModel& model, const SectionLayout& layout, const SectionBlock& block,
               std::span<const float> values, double behind, std::vector<ColumnValues>& columns) {
  columns.assign(static_cast<std::size_t>(block.plot.width()), {});
  if (model.lines.empty()) return;
  CurveColumns curve(columns, block.plot.width() / layout.window.width());
  const double zero = block.origin + layout.window.from + behind;
  for (std::size_t k = block.firstLine; k <= block.lastLine; ++k) {
    const SectionLine& line = model.lines[k];
    const Stretch seen = Visibili(model, layout, block, line, behind, FarthestJoin * line.step);
    std::size_t previous = seen.to;  // none yet
    for (std::size_t i = seen.from; i < seen.to; ++i) {
      if (!std::isfinite(values[i])) continue;
      const bool joined = previous + 1 == i && model.distance[i] - model.distance[previous] <= FarthestJoin * line.step;
      curve.value(model.distance[i] - zero, values[i], joined);
      previous = i;
    }
  }
}

}  // namespace corvan
