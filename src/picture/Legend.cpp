#include "picture/Legend.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <string>

#include "base/NumberText.h"
#include "picture/Pixels.h"

namespace corvan {
namespace {

constexpr double BarShare = 0.3;  // of the picture's width
constexpr std::size_t Values = 5;
constexpr const char* Title = "Apparent resistivity [Ohm\u00B7m]";
constexpr const char* Unit = "[Ohm\u00B7m]";

std::int32_t Spazio(std::int32_t textHeight) { return textHeight / 4 + 1; }
std::int32_t AltezzaBarra(std::int32_t textHeight) { return std::max(6, textHeight * 2 / 3); }

/// The values with so many decimals.
std::array<std::string, Values> Testi(const std::array<double, Values>& values, int decimals) {
  std::string mask = decimals > 0 ? "0." : "0";
  mask.append(static_cast<std::size_t>(decimals), '0');
  std::array<std::string, Values> texts;
  for (std::size_t i = 0; i < Values; ++i) texts.at(i) = FormattaNumero(values.at(i), Mask(mask.c_str()));
  return texts;
}

/// The values with the fewest decimals that tell them apart: none for whole numbers, else at least one.
std::array<std::string, Values> TestiDiversi(const std::array<double, Values>& values) {
  constexpr int most = 9;
  const bool whole = std::all_of(values.begin(), values.end(), [](double v) { return v == std::round(v); });
  for (int decimals = whole ? 0 : 1; decimals < most; ++decimals) {
    const auto texts = Testi(values, decimals);
    if (std::set(texts.begin(), texts.end()).size() == Values) return texts;
  }
  return Testi(values, values.front() == values.back() ? 1 : most);
}

}  // namespace

std::int32_t AltezzaLegenda(std::int32_t textHeight) {
  return 2 * textHeight + AltezzaBarra(textHeight) + 3 * Spazio(textHeight);
}

PixelArea DisegnaScalaColori3D(const ColourScale& colours, const PuntoPixel& foot, Canvas& canvas, TextLayout& texts) {
  const std::int32_t text = canvas.AltezzaTesto(), gap = Spazio(text);
  const auto width = static_cast<std::int32_t>(canvas.area().width());
  const std::int32_t bar = std::min(std::max(static_cast<std::int32_t>(BarShare * width), 12 * text), width - 6 * text);
  const std::int32_t title = canvas.LarghezzaTesto(Title) + 2 * gap;
  std::array<double, Values> values{};
  for (std::size_t i = 0; i < Values; ++i) values.at(i) = ValoreScala(colours, static_cast<double>(i) / (Values - 1));
  const std::array<std::string, Values> written = TestiDiversi(values);
  const std::int32_t ends =
      bar + (canvas.LarghezzaTesto(written.front()) + canvas.LarghezzaTesto(written.back())) / 2 + 4 * gap;
  const std::int32_t plateWidth = std::min(std::max(ends, title), std::max(ends, width - 2 * gap));
  const PixelArea plate{foot.X - plateWidth / 2, foot.X - plateWidth / 2 + plateWidth, foot.Y - AltezzaLegenda(text),
                        foot.Y};
  if (bar < 3 * text || !texts.libero(plate)) return {};
  const std::int32_t left = foot.X - bar / 2, top = plate.top + gap + text + gap / 2;
  const std::int32_t bottom = top + AltezzaBarra(text);
  canvas.Velo(plate, qbcolor::White, PlateOpacity);
  for (std::int32_t x = 0; x < bar; ++x) {
    const auto index = static_cast<std::size_t>(static_cast<std::int64_t>(x) * 256 / bar) + 1;
    canvas.Riquadro({left + x, left + x + 1, top, bottom}, ColoreScala(colours, index));
  }
  const std::array frame{PuntoPixel{left - 1, top - 1}, PuntoPixel{left + bar, top - 1}, PuntoPixel{left + bar, bottom},
                         PuntoPixel{left - 1, bottom}, PuntoPixel{left - 1, top - 1}};
  canvas.Linea(frame, qbcolor::DarkBlue);
  texts.scriviCentrato(foot.X, plate.top + gap / 2, title <= plateWidth ? Title : Unit, qbcolor::DarkBlue,
                       Ground::Bare);
  const auto value = [&](std::size_t i) {
    const auto at = left + static_cast<std::int32_t>(static_cast<std::size_t>(bar) * i / (Values - 1));
    canvas.Linea(std::array{PuntoPixel{at, bottom}, PuntoPixel{at, bottom + gap / 2}}, qbcolor::DarkBlue);
    texts.scriviCentrato(at, bottom + gap / 2 + 1, written.at(i), qbcolor::DarkBlue, Ground::Bare);
  };
  for (const std::size_t i : std::array<std::size_t, Values>{0, 4, 2, 1, 3}) {
    if (i == 0 || written.at(i) != written.front()) value(i);
  }
  texts.occupa(plate);
  return plate;
}

}  // namespace corvan
