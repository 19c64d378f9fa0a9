// The cell under a pixel, against a picture whose colours are the numbers of the cells.
#include <gtest/gtest.h>

#include <random>

#include "PlainCurtain.h"
#include "view3d/Picking.h"

namespace corvan {
namespace {

using test::Prepared;
using test::TestCanvas;

struct ViewCase {
  double theta, phi, gamma;
  float zoom;
  Projection projection;
};

class CellUnder : public ::testing::TestWithParam<ViewCase> {};

TEST_P(CellUnder, ThePixelIsTheOnePaintedThere) {
  Prepared p(test::Winding());
  p.view.AngoloVista = InRadianti(GetParam().theta);
  p.view.AngoloPhi = InRadianti(GetParam().phi);
  p.view.AngoloGamma = InRadianti(GetParam().gamma);
  p.view.ZoomFattore = GetParam().zoom;
  p.view.projection = GetParam().projection;
  p.update();
  TestCanvas plain(300, 200);
  for (test::PlainCell& cell : test::PlainCells(p)) {
    cell.quad.colour = static_cast<Colour>(cell.number);
    const DepthKey key = 0;
    plain.Quadrilateri({&cell.quad, 1}, {&key, 1});
  }
  std::mt19937 random(20261121);
  std::uniform_int_distribution<std::int32_t> x(0, 299), y(0, 199);
  std::size_t covered = 0;
  for (int i = 0; i < 20000; ++i) {
    const PuntoPixel pixel{x(random), y(random)};
    const std::optional<CellaVista> cell = CellaSotto(p.scene, p.view, pixel);
    const auto painted = static_cast<std::int32_t>(plain.at(pixel.X, pixel.Y));
    ASSERT_EQ(cell.has_value(), painted != 0xFFFFFF) << pixel.X << " " << pixel.Y;
    if (!cell) continue;
    ++covered;
    ASSERT_EQ(10 * (cell->misura - 1) + cell->livello, painted) << pixel.X << " " << pixel.Y;
    // The builder gives each reading measurement + level / 100 ohm m.
    ASSERT_EQ(cell->resistivita, static_cast<float>(cell->misura + cell->livello / 100.0));
  }
  EXPECT_GT(covered, 30U);
}

INSTANTIATE_TEST_SUITE_P(Views, CellUnder,
                         ::testing::Values(ViewCase{90, 0, 0, 1, Projection::Orthographic},
                                           ViewCase{125, 15, 0, 1, Projection::Orthographic},
                                           ViewCase{180, 0, 0, 1, Projection::Orthographic},
                                           ViewCase{180, 90, 0, 0.4F, Projection::Orthographic},
                                           ViewCase{-20, 130, 77, 0.13F, Projection::Orthographic},
                                           ViewCase{125, 15, 10, 0.02F, Projection::Orthographic},
                                           ViewCase{120, 30, 5, 1.3F, Projection::Perspective},
                                           ViewCase{180, 0, 0, 1, Projection::Perspective},
                                           ViewCase{-60, 200, 0, 0.3F, Projection::Perspective},
                                           ViewCase{90, 0, 0, 0.2F, Projection::Perspective}));

TEST(CellUnderThePointer, OfAPixelOutsideThePictureOrOfNoSurveyIsNone) {
  Prepared p(test::Winding());
  EXPECT_FALSE(CellaSotto(p.scene, p.view, {-1, 100}));
  EXPECT_FALSE(CellaSotto(p.scene, p.view, {150, 200}));
  const Prepared empty{Survey{}};
  EXPECT_FALSE(CellaSotto(empty.scene, empty.view, {150, 100}));
}

}  // namespace
}  // namespace corvan
