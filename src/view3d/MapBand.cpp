#include "view3d/MapBand.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "view3d/Projector.h"

namespace corvan {
namespace {

constexpr double UsualWidth = 10.0;  // pixels of a picture 800 pixels high

struct Vector {
  double x = 0, y = 0;
};

double Lunghezza(const Vector& v) { return std::hypot(v.x, v.y); }

/// A piece of the band before it has its width: the place of its two ends on the picture, and the way between them.
struct Piece {
  Vector from, to, way;  ///< way: of length 1
  bool present = false;
};

/// Where pieces meet the corners lie on the line that halves the bend; in bends of more than 120 degrees each keeps its
/// own end. @return from the middle to the corner on the right hand, for a half width of 1
Vector Giunto(const Vector& own, const Vector& next) {
  const Vector sum{own.x + next.x, own.y + next.y};
  const double square = sum.x * sum.x + sum.y * sum.y;
  if (square < 1.0) return {-own.y, own.x};
  return {-2.0 * sum.y / square, 2.0 * sum.x / square};
}

PuntoPixel Pixel(const Vector& at, const Vector& aside, double distance) {
  constexpr double far = 1e8;
  const auto whole = [far](double v) { return static_cast<std::int32_t>(ArrotondaPixel(std::clamp(v, -far, far))); };
  return {whole(at.x + aside.x * distance), whole(at.y + aside.y * distance)};
}

/// The pieces of all measurements. One without length runs on in the way of the one before it.
std::vector<Piece> Pezzi(const Curtain& cells, const ViewState& view) {
  const Projector projector(view);
  const auto at = [&](float x, float y) {
    const auto [across, down] = projector.reale(projector.ruota({x, y, 0.0F, 0.0F}));
    return Vector{across, down};
  };
  std::vector<Piece> pieces(cells.columns.size());
  Vector way{1.0, 0.0};
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const CellColumn& c = cells.columns(i + 1);
    Piece& piece = pieces[i];
    piece.present = c.present;
    if (!c.present) continue;
    piece.from = at(c.x1, c.y1);
    piece.to = at(c.x2, c.y2);
    const Vector along{piece.to.x - piece.from.x, piece.to.y - piece.from.y};
    const double length = Lunghezza(along);
    if (length > 0.0) way = {along.x / length, along.y / length};
    piece.way = way;
  }
  return pieces;
}

/// Neighbours of one line share an end.
bool Uniti(const Curtain& cells, std::size_t before, std::size_t behind) {
  const CellColumn &a = cells.columns(before + 1), &b = cells.columns(behind + 1);
  return a.present && b.present && a.x2 == b.x1 && a.y2 == b.y1;
}

}  // namespace

bool MostraBanda(const Curtain& cells, const ViewState& view) {
  if (view.mappa.livello < 1 || view.projection != Projection::Orthographic) return false;
  const Projector projector(view);
  const auto top = projector.reale(projector.ruota({})),
             bottom = projector.reale(projector.ruota({0.0F, 0.0F, cells.z.back(), 0.0F}));
  return std::abs(top.first - bottom.first) <= 1.0 && std::abs(top.second - bottom.second) <= 1.0;
}

std::int32_t LarghezzaBanda(const ViewState& view) {
  if (view.mappa.larghezza > 0) return view.mappa.larghezza;
  return static_cast<std::int32_t>(ArrotondaPixel(UsualWidth * std::max(1.0, view.AreaPixel.height() / 800.0)));
}

void MapBand::prepara(const Curtain& cells, const ViewState& view, const ColourScale& colours) {
  quads_.clear();
  owner_.clear();
  order_.clear();
  const auto level =
      static_cast<std::size_t>(std::clamp(view.mappa.livello, 1, static_cast<std::int32_t>(MaxChannels)));
  const ColourLookup scale(colours);
  // A band so many pixels wide covers the pixels from its left to its right edge, both included.
  const double half = (LarghezzaBanda(view) - 1) / 2.0;
  const std::vector<Piece> pieces = Pezzi(cells, view);
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const Piece& p = pieces[i];
    if (!p.present) continue;
    const CellColumn& column = cells.columns(i + 1);
    const float rho = column.rho.at(level - 1);
    const bool outlined = (column.escluse & BitDi(level)) != 0;
    if (!outlined && !std::isfinite(rho)) continue;
    const bool joinedBefore = i > 0 && Uniti(cells, i - 1, i),
               joinedBehind = i + 1 < pieces.size() && Uniti(cells, i, i + 1);
    const bool alone = !joinedBefore && !joinedBehind && p.from.x == p.to.x && p.from.y == p.to.y;
    const Vector back{alone ? p.from.x - half * p.way.x : p.from.x, alone ? p.from.y - half * p.way.y : p.from.y};
    const Vector front{alone ? p.to.x + half * p.way.x : p.to.x, alone ? p.to.y + half * p.way.y : p.to.y};
    const Vector first = Giunto(p.way, joinedBefore ? pieces[i - 1].way : p.way);
    const Vector second = Giunto(p.way, joinedBehind ? pieces[i + 1].way : p.way);
    const PixelQuad quad{
        {Pixel(back, first, half), Pixel(front, second, half), Pixel(front, second, -half), Pixel(back, first, -half)},
        outlined ? ExcludedOutline : scale(rho)};
    order_.push_back(quads_.size());
    quads_.push_back(quad);
    owner_.push_back(static_cast<std::uint32_t>(i + 1));
  }
}

void MapBand::dipingi(Canvas& canvas) const { canvas.Quadrilateri(quads_, order_); }

}  // namespace corvan
