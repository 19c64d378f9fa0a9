#include "picture/Legend.h"

#include <array>
#include <string>

#include "base/NumberText.h"
#include "picture/Palette.h"

namespace corvan {
namespace {

constexpr double BarTop = 0.91;     // of the picture's height
constexpr double BarBottom = 0.93;  // likewise
constexpr double TextLine = 0.95;   // likewise
constexpr double BarWidth = 0.3;    // of the picture's width

std::int32_t Pixel(double place) { return static_cast<std::int32_t>(ArrotondaPixel(place)); }

}  // namespace

void DisegnaScalaColori3D(const ColourRange& colours, Canvas& canvas) {
  const PixelArea area = canvas.area();
  const double W = area.width(), H = area.height();
  const auto across = [&](double index) {
    return Pixel(area.left + W / 2.0 + (index / 256.0 * BarWidth - BarWidth / 2.0) * W);
  };
  const std::int32_t top = Pixel(area.top + BarTop * H), bottom = Pixel(area.top + BarBottom * H);
  // Each colour reaches back to the line of the one before it, so that wide pictures show no gaps.
  for (std::size_t i = 1; i <= 256; ++i) {
    const auto index = static_cast<double>(i);
    canvas.Riquadro({across(index - 1) + (i == 1 ? 0 : 1), across(index) + 1, top, bottom + 1}, PaletteRgb[i - 1]);
  }
  const std::int32_t left = across(1), right = across(256);
  const std::array frame{PuntoPixel{left, top}, PuntoPixel{right, top}, PuntoPixel{right, bottom},
                         PuntoPixel{left, bottom}, PuntoPixel{left, top}};
  canvas.Linea(frame, qbcolor::DarkBlue);

  const double low = colours.ScalaMin, high = colours.ScalaMax, quarter = (high - low) / 4.0;
  const std::int32_t line = Pixel(area.top + TextLine * H);
  struct Value {
    double index, value;
  };
  for (const auto& [index, value] : {Value{1, low}, Value{64, low + quarter}, Value{128, (low + high) / 2.0},
                                     Value{192, low + 3.0 * quarter}, Value{256, high}}) {
    const std::string text = FormattaNumero(value, "######0.#");
    canvas.Testo({across(index) - canvas.LarghezzaTesto(text) / 2, line}, text, qbcolor::DarkBlue);
  }
  const std::string unit = "[Ohm * m]";
  canvas.Testo({left - canvas.LarghezzaTesto(unit) * 3 / 2, line}, unit, qbcolor::DarkBlue);
  canvas.Testo({right + canvas.LarghezzaTesto(unit) / 2, line}, "Resistivity", qbcolor::DarkBlue);
}

}  // namespace corvan
