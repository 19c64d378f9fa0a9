#include "view2d/CurvePainter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "view2d/ColumnPath.h"
#include "view2d/ValueAxis.h"

namespace corvan {
namespace {

constexpr Colour FrameColour = 0xB8B8B8;
constexpr Colour GridColour = 0xE4E4E4;

struct CurveText {
  const char* title;
  const char* missing;  ///< written where the window holds no value
};

CurveText Testi(Curve curve) {
  switch (curve) {
    case Curve::Current:
      return {"Current [mA]", "no current in this part"};
    case Curve::Potential:
      return {"Potential, size [mV]", "no potential in this part"};
    case Curve::Resistivity:
      return {"Apparent resistivity [Ohm\u00B7m]", "no resistivity in this part"};
    case Curve::Depth:
      return {"Water depth [m]", "no depth in this part"};
    case Curve::Speed:
      return {"Speed over ground [m/s]", "no times in this part, so no speed"};
    case Curve::Time:
      return {"Time since the first firing [h]", "no times in this part"};
  }
  return {"", ""};
}

/// A line of a plot, in columns.
struct Series {
  std::size_t channel = 0;  ///< 0: of the firing
  std::vector<ColumnValues> columns;
};

std::span<const float> ValoriDi(const SectionModel& model, Curve curve, std::size_t channel) {
  switch (curve) {
    case Curve::Current:
      return model.current;
    case Curve::Potential:
      return model.potential.at(channel);
    case Curve::Resistivity:
      return model.rho.at(channel);
    case Curve::Depth:
      return model.depth;
    case Curve::Speed:
      return model.speed;
    case Curve::Time:
      return model.hours;
  }
  return {};
}

std::vector<Series> Serie(const SectionModel& model, const SectionLayout& layout, const SectionBlock& block,
                          Curve curve) {
  const bool each = curve == Curve::Potential || curve == Curve::Resistivity;
  std::vector<Series> all;
  if (!each) {
    all.emplace_back();
    ColonneDi(model, layout, block, ValoriDi(model, curve, 0), 0.0, all.back().columns);
  }
  for (std::size_t i = 0; each && i < model.levels.size(); ++i) {
    const std::size_t channel = model.levels[i].channel;
    all.push_back({channel, {}});
    ColonneDi(model, layout, block, ValoriDi(model, curve, channel), model.behind.at(channel), all.back().columns);
  }
  return all;
}

struct Extremes {
  double low = std::numeric_limits<double>::infinity(), high = -low;

  void take(float value) {
    low = std::min(low, static_cast<double>(value));
    high = std::max(high, static_cast<double>(value));
  }
  bool any() const { return low <= high; }
};

/// The axis of what is shown. A logarithmic one begins at the smallest value over 0 that a column ends at; without any
/// it is linear.
ValueAxis AsseDi(const std::vector<Series>& all, bool logarithmic, Extremes& found) {
  Extremes positive;
  for (const Series& series : all) {
    for (const ColumnValues& c : series.columns) {
      if (!c.any) continue;
      for (const float v : {c.low, c.high, c.first, c.last}) {
        found.take(v);
        if (v > 0.0F) positive.take(v);
      }
    }
  }
  if (logarithmic && positive.any()) return {positive.low, positive.high, true};
  return found.any() ? ValueAxis(found.low, found.high, false) : ValueAxis(0.0, 1.0, false);
}

void DisegnaSerie(const PixelArea& plot, const Series& series, const ValueAxis& axis, std::int32_t width,
                  Canvas& canvas) {
  const double height = plot.height() - 1.0 - width;
  const auto row = [&](float value) {
    return plot.bottom - 1 - width / 2 - static_cast<std::int32_t>(std::lround(axis.posto(value) * height));
  };
  TracciaColonne(plot, series.columns, row, width, CurveColours.at(series.channel), canvas);
}

/// Squares in the channels' colours with their numbers, from the right.
void SpiegaCanali(const std::vector<Series>& all, std::int32_t right, std::int32_t top, std::int32_t free,
                  Canvas& canvas, TextLayout& texts) {
  const std::int32_t text = canvas.AltezzaTesto(), side = text / 2;
  std::int32_t x = right;
  for (auto series = all.rbegin(); series != all.rend(); ++series) {
    const std::string number = std::to_string(series->channel);
    const std::int32_t width = canvas.LarghezzaTesto(number) + 4;
    x -= width + side + text / 3;
    if (x < free || !texts.scrivi({x + side, top}, number, InkColour, Ground::Bare)) return;
    canvas.Riquadro({x, x + side, top + text / 2 - side / 2, top + text / 2 - side / 2 + side},
                    CurveColours.at(series->channel));
  }
}

void DisegnaAsse(const PixelArea& plot, const ValueAxis& axis, Canvas& canvas, TextLayout& texts) {
  const std::int32_t text = canvas.AltezzaTesto(), tick = text / 3;
  const auto most = static_cast<std::size_t>(std::clamp(plot.height() / (1.2 * text), 1.0, 4.0));
  for (const ValueAxis::Tick& t : axis.tacche(most)) {
    const auto y =
        plot.bottom - 1 - static_cast<std::int32_t>(std::lround(axis.posto(t.value) * (plot.height() - 1.0)));
    canvas.Linea(std::array{PuntoPixel{plot.left, y}, PuntoPixel{plot.right - 1, y}}, GridColour);
    canvas.Linea(std::array{PuntoPixel{plot.left - tick, y}, PuntoPixel{plot.left, y}}, InkColour);
    const std::int32_t top = std::clamp(y - text / 2, plot.top - text / 4, plot.bottom - text + text / 4);
    texts.scrivi({plot.left - tick - 4 - canvas.LarghezzaTesto(t.text), top}, t.text, InkColour, Ground::Bare);
  }
}

}  // namespace

void DisegnaCurve(const SectionModel& model, const SectionLayout& layout, const SectionBlock& block,
                  const ColourScale& colours, Canvas& canvas, TextLayout& texts) {
  const std::int32_t text = canvas.AltezzaTesto(), width = std::max(1, text / 12);
  for (const CurvePlot& place : block.curves) {
    const PixelArea& plot = place.plot;
    if (plot.height() < 4.0) continue;
    const std::vector<Series> all = Serie(model, layout, block, place.curve);
    const bool logarithmic =
        place.curve == Curve::Potential || (place.curve == Curve::Resistivity && Logaritmica(colours));
    Extremes found;
    const ValueAxis axis = AsseDi(all, logarithmic, found);
    const CurveText written = Testi(place.curve);
    if (found.any()) DisegnaAsse(plot, axis, canvas, texts);
    for (const Series& series : all) DisegnaSerie(plot, series, axis, width, canvas);
    canvas.Linea(std::array{PuntoPixel{plot.left - 1, plot.top}, PuntoPixel{plot.left - 1, plot.bottom}}, InkColour);
    canvas.Linea(std::array{PuntoPixel{plot.left - 1, plot.bottom}, PuntoPixel{plot.right - 1, plot.bottom}},
                 FrameColour);
    const std::string title = Accorcia(canvas, written.title, plot.right - plot.left - 4);
    texts.scrivi({plot.left, place.title}, title, InkColour, Ground::Bare);
    if (!found.any()) {
      texts.scriviCentrato((plot.left + plot.right) / 2, (plot.top + plot.bottom - text) / 2,
                           Accorcia(canvas, written.missing, static_cast<std::int32_t>(plot.width()) - 4));
    } else if (all.size() > 1) {
      SpiegaCanali(all, plot.right, place.title, plot.left + canvas.LarghezzaTesto(title) + text, canvas, texts);
    }
  }
}

}  // namespace corvan
