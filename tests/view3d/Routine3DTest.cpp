// Rotations, the way to pixels, crossing lines; and the view state that they serve.
#include "view3d/Routine3D.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/Errors.h"
#include "Pictures.h"
#include "view3d/ViewState.h"

namespace corvan {
namespace {

using test::ExpectPoint;

constexpr Punto3D Origin{};

TEST(Rotations, TurnTheSameWayAboutEveryAxis) {
  const Punto3D p{1, 2, 3, 7};
  // A quarter turn takes the first of the two coordinates to the second with a minus, the second to the first.
  ExpectPoint(RuotaX(p, Origin, Pi / 2), 1, 3, -2, "X");
  ExpectPoint(RuotaY(p, Origin, Pi / 2), 3, 2, -1, "Y");
  ExpectPoint(RuotaZ(p, Origin, Pi / 2), 2, -1, 3, "Z");
  EXPECT_EQ(RuotaZ(p, Origin, Pi / 2).w, 7) << "the value is carried along";
  ExpectPoint(RuotaZ({5, 1, 0, 0}, {4, 1, 0, 0}, Pi / 2), 4, 0, 0, "about another point");
}

TEST(Pixels, AreRoundedHalvesToEvenAndHeldToTheirRange) {
  struct Case {
    double v, w1, w2;
    std::int32_t p1, p2, pixel;
  };
  // Halves: 2.5, 3.5, -2.5, 12.5 and 1 + 0.5; without width the middle, 639.5.
  const Case cases[] = {{0.5, 0, 1, 0, 5, 2},
                        {0.7, 0, 1, 0, 5, 4},
                        {-0.5, 0, 1, 0, 5, -2},
                        {0.5, 0, 1, 10, 15, 12},
                        {0.25, 0, 1, 1, 3, 1},
                        {7, 3, 3, 0, 1279, 640},
                        {1, 0, 1, 800, 0, 0},
                        {1e30, 0, 1, 0, 100, 2147483647},
                        {-1e30, 0, 1, 0, 100, -2147483647 - 1},
                        {1e300, 0, 1e-300, 0, 100, 2147483647}};
  for (const Case& c : cases) EXPECT_EQ(MappaPixelX(c.v, c.w1, c.w2, c.p1, c.p2), c.pixel) << c.v;
}

TEST(Lines, CrossWhateverTheirSlopes) {
  const auto crossing = [](Punto3D a, Punto3D b, Punto3D c, Punto3D d) { return IntersecaRette(a, b, c, d); };
  // Line P1-P3 with line P2-P4.
  ExpectPoint(crossing({0, 0}, {0, 2}, {2, 2}, {2, 0}), 1, 1, 0, "plain");
  ExpectPoint(crossing({3, 0}, {0, 1}, {3, 5}, {2, 5}), 3, 7, 0, "the first is vertical");
  ExpectPoint(crossing({0, 1}, {3, 0}, {2, 5}, {3, 5}), 3, 7, 0, "the second is vertical");
  ExpectPoint(crossing({0, 1}, {4, 3}, {0, 5}, {4, 7}), 2, 4, 0, "both are vertical");
  // Parallel, slopes 0: tilted to y 0.1 -> -0.1 over 2 and 1.1 -> 0.9 over 4, slopes -0.1 and -0.05.
  Punto3D a{0, 0}, b{0, 1}, c{2, 0}, d{4, 1};
  const Punto3D tilted = IntersecaRette(a, b, c, d);
  EXPECT_NEAR(tilted.x, -20, 1e-4);
  EXPECT_NEAR(tilted.y, 2.1, 1e-5);
  EXPECT_FLOAT_EQ(a.y, 0.1F) << "the caller's points are tilted too";
  EXPECT_THROW(crossing({0, 0}, {0, 0}, {2, 0}, {2, 0}), RunTimeError) << "one and the same";
}

TEST(Vectors, HaveProductsAndAngles) {
  const Punto3D n = ProdottoVettore({1, 2, 3, 9}, {4, 5, 6, 9});
  ExpectPoint(n, -3, 6, -3, "product");
  EXPECT_EQ(n.w, 0);
  EXPECT_DOUBLE_EQ(CosenoAngolo({0, 2, 0, 0}, {0, 3, 4, 0}), 0.6);
  EXPECT_EQ(CosenoAngolo({}, {0, 3, 4, 0}), 1.0);
}

ViewState View(double east, double north) {
  ViewState view;
  view.AreaPixel = {0, 1200, 0, 800};
  TrackExtent extent;
  extent.EstensioneX = east;
  extent.EstensioneY = north;
  ImpostaFinestra(view, extent);
  AggiornaZoom(view);
  return view;
}

TEST(Window, HoldsTheSurveyWithSquarePixelsAndABandBelow) {
  ViewState view = View(100, 300);
  // 1.15 times the 300 m high; 1200 to 800 wide, and a tenth more since the lower edge makes it a tenth higher.
  EXPECT_NEAR(view.FinestraBase.xmin, -284.625, 1e-9);
  EXPECT_NEAR(view.FinestraBase.xmax, 284.625, 1e-9);
  EXPECT_FLOAT_EQ(view.Finestra.zmin, -172.5F);
  EXPECT_FLOAT_EQ(view.Finestra.zmax, 207) << "1.2 times as far below the middle";
  view.ZoomFattore = 2;
  AggiornaZoom(view);
  EXPECT_FLOAT_EQ(view.Finestra.xmax, 569.25F);
  EXPECT_FLOAT_EQ(view.Finestra.zmax, 414);
  EXPECT_EQ(View(0, 0).Lato, 10) << "a survey of one place";
}

TEST(Window, HasItsVanishingPointUnderTheMarker) {
  ViewState view = View(100, 300);
  EXPECT_EQ(view.marker.FugaX, 0) << "without a marker in the middle";
  EXPECT_FLOAT_EQ(view.marker.DistanzaFuga, 284.625F);
  EXPECT_FLOAT_EQ(view.marker.OrizzonteZ, 0.005F);
  view.marker.posto = true;
  view.marker.MarcatoreX = UnitaMarcatore(300, 1200);
  view.marker.MarcatoreY = UnitaMarcatore(800, 800);
  ImpostaProspettiva(view);
  EXPECT_FLOAT_EQ(view.marker.FugaX, -142.3125F);
  EXPECT_FLOAT_EQ(view.marker.OrizzonteZ, 0.01F);
}

TEST(Zoom, MovesByTenthsOfADecadeBetweenATenthAndTen) {
  ViewState view;
  PassoZoom(view, 0.1);
  EXPECT_FLOAT_EQ(view.ZoomFattore, 1.2589254F);
  for (int i = 0; i < 12; ++i) PassoZoom(view, 0.1);
  EXPECT_EQ(view.ZoomFattore, 10.0F);
  for (int i = 0; i < 30; ++i) PassoZoom(view, -0.1);
  EXPECT_EQ(view.ZoomFattore, 0.1F);
  view.ZoomFattore = 40;
  PassoZoom(view, -0.1);
  EXPECT_EQ(view.ZoomFattore, 10.0F) << "a button brings a dragged zoom back inside";

  ViewState drag = View(1, 1);
  drag.drag.YZoomDown = -50;  // above the picture counts as its edge
  drag.drag.YZoomNow = 800;
  CalcolaZoom(drag);
  EXPECT_FLOAT_EQ(drag.ZoomFattore, 100);
}

TEST(Angles, FollowADragAcrossThePicture) {
  struct Case {
    DragAxis axis;
    FreeAngles free;
    double theta, phi, gamma;
  };
  const Case cases[] = {{DragAxis::Theta, {}, 1 + Pi / 2, 2 + Pi, 3},
                        {DragAxis::Gamma, {}, 1, 2 + Pi, 3 - Pi / 2},
                        {DragAxis::None, {}, 1, 2, 3},
                        {DragAxis::Theta, {false, true, true}, 1, 2 + Pi, 3},
                        {DragAxis::Gamma, {true, false, false}, 1, 2, 3}};
  for (const Case& c : cases) {
    ViewState view = View(1, 1);
    view.AngoloVista = view.drag.AngoloVista0 = 1;
    view.AngoloPhi = view.drag.AngoloPhi0 = 2;
    view.AngoloGamma = view.drag.AngoloGamma0 = 3;
    view.drag.XDown = 100;
    view.drag.YDown = 500;
    view.drag.XNow = 700;  // half the width to the right: pi
    view.drag.YNow = 300;  // a quarter of the height up: pi / 2
    CalcolaThetaPhi(view, c.axis, c.free);
    EXPECT_NEAR(view.AngoloVista, c.theta, 1e-12);
    EXPECT_NEAR(view.AngoloPhi, c.phi, 1e-12);
    EXPECT_NEAR(view.AngoloGamma, c.gamma, 1e-12);
  }
  double angle = InRadianti(179.5);
  PassoAngolo(angle, 1);
  EXPECT_EQ(angle, Pi) << "no turning over";
}

}  // namespace
}  // namespace corvan
