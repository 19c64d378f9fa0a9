#include "picture/ScaleBar.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "picture/Pixels.h"
#include "picture/Ticks.h"

namespace corvan {

std::string TestoLunghezza(double metres) {
  constexpr double kilometre = 1000.0;
  if (metres < kilometre) return TestoTacca(metres, metres) + " m";
  return TestoTacca(metres / kilometre, metres / kilometre) + " km";
}

void DisegnaScala(double metresPerPixel, const PuntoPixel& corner, Canvas& canvas, TextLayout& texts) {
  const double room = canvas.area().width() / 6.0;
  // The largest round number that fits: from the next one above the room down, one round number at a time.
  double metres = PassoTacche(room * metresPerPixel, 1.0);
  if (!(metres > 0.0) || !(metresPerPixel > 0.0)) return;
  while (metres > room * metresPerPixel * (1.0 + 1e-9)) metres = PassoTacche(metres * 0.99, 2.5);
  const auto length = static_cast<std::int32_t>(ArrotondaPixel(metres / metresPerPixel));
  const std::int32_t text = canvas.AltezzaTesto(), high = std::max(3, text / 4), left = corner.X - length;
  const std::string written = TestoLunghezza(metres);
  const std::int32_t wide = std::max(length, canvas.LarghezzaTesto(written) + 4) + 2 * high;
  const PixelArea plate{corner.X - (length + wide) / 2, corner.X + (wide - length) / 2 + 1, corner.Y - high - text - 4,
                        corner.Y + 3};
  if (length < 2 || !texts.libero(plate)) return;
  canvas.Velo(plate, qbcolor::White, PlateOpacity);
  const std::array bar{PuntoPixel{left, corner.Y - high}, PuntoPixel{left, corner.Y}, corner,
                       PuntoPixel{corner.X, corner.Y - high}};
  canvas.Tratto(bar, std::max(1, text / 10), InkColour);
  texts.scriviCentrato(left + length / 2, plate.top + 1, written, InkColour, Ground::Bare);
  texts.occupa(plate);
}

}  // namespace corvan
