// Labels on the picture: which are painted and which lies under the pointer.
#include "view3d/PointLayer.h"

#include <gtest/gtest.h>

#include <random>

#include "Pictures.h"

namespace corvan {
namespace {

/// Index of the label that covers a pixel.
std::optional<std::int32_t> At(const PointLayer& layer, const PuntoPixel& place) {
  const auto hit = layer.cerca(place, 0);
  return hit ? std::optional(hit->index) : std::nullopt;
}

constexpr PixelArea Area{0, 200, 0, 120};

PointLabel Label(std::int32_t index, std::int32_t x, std::int32_t y, Colour colour = 0) {
  return {index, {x, y}, true, colour, 0};
}

TEST(Labels, UnderThePointerAreTheNearestAndOfOnesPixelTheTopmost) {
  PointLayer layer;
  PointLabel hidden = Label(9, 100, 100);
  hidden.visible = false;
  layer.assign({Label(1, 15, 15), Label(2, 17, 15), Label(3, 15, 15), hidden, Label(10, 250, 50)}, {}, Area);
  EXPECT_EQ(At(layer, {14, 14}), 3);
  EXPECT_EQ(At(layer, {17, 16}), 2) << "in the next cell of the grid";
  EXPECT_EQ(At(layer, {20, 18}), 2) << "the margin of one pixel";
  EXPECT_EQ(At(layer, {21, 15}), std::nullopt);
  EXPECT_EQ(At(layer, {100, 100}), std::nullopt);
  EXPECT_EQ(At(layer, {250, 50}), std::nullopt) << "outside the picture";
  layer.hide();
  EXPECT_EQ(At(layer, {14, 14}), std::nullopt);
}

TEST(Labels, AreFoundAsASearchThroughAllOfThemFindsThem) {
  std::mt19937 random(11);
  std::uniform_int_distribution<std::int32_t> x(-20, 220), y(-20, 140);
  std::vector<PointLabel> labels;
  for (std::int32_t k = 1; k <= 3000; ++k) labels.push_back(Label(k, x(random), y(random)));
  PointLayer layer;
  layer.assign(labels, {}, Area);
  for (int i = 0; i < 2000; ++i) {
    const PuntoPixel p{x(random), y(random)};
    std::int32_t best = 1000;
    for (const PointLabel& label : labels) {
      const std::int32_t dx = label.at.X - p.X, dy = label.at.Y - p.Y;
      const bool inside = label.at.X >= 0 && label.at.X < 200 && label.at.Y >= 0 && label.at.Y < 120;
      if (inside && std::abs(dx) <= 3 && std::abs(dy) <= 3) best = std::min(best, dx * dx + dy * dy);
    }
    const bool outside = p.X < 0 || p.X >= 200 || p.Y < 0 || p.Y >= 120;
    const std::optional<std::int32_t> found = At(layer, p);
    ASSERT_EQ(found.has_value(), best < 1000 && !outside) << p.X << " " << p.Y;
    if (!found) continue;
    const PuntoPixel at = labels[static_cast<std::size_t>(*found - 1)].at;
    ASSERT_EQ((at.X - p.X) * (at.X - p.X) + (at.Y - p.Y) * (at.Y - p.Y), best);
  }
}

TEST(Labels, WithAColourOfTheirOwnLieAboveAllOthers) {
  test::TestCanvas canvas(200, 120);
  PointLayer layer;
  layer.assign({Label(1, 50, 50, 0xFF0000), Label(2, 52, 50)}, {MarkerShape::Dot, 2, 0}, Area);
  layer.dipingi(canvas);
  EXPECT_EQ(canvas.at(52, 50), 0xFF0000U);
  EXPECT_EQ(canvas.at(46, 50), 0xFF0000U) << "two pixels larger on every side";
  EXPECT_EQ(At(layer, {50, 50}), 1);
}

}  // namespace
}  // namespace corvan
