// The view as its commands change it.
#include "SessionFixture.h"

#include <utility>
#include <vector>

#include "picture/BufferCanvas.h"

namespace corvan {
namespace {

using Fixture = test::SessionFixture;

/// A canvas that only keeps what was asked of it last.
struct Pixels {
  std::vector<std::uint32_t> pixels = std::vector<std::uint32_t>(400 * 300);
};

class ShallowCanvas : private Pixels, public BufferCanvas {
 public:
  ShallowCanvas() : BufferCanvas({pixels.data(), 400, 300, 400}) {}
  void Quadrilateri(std::span<const PixelQuad>, std::span<const DepthKey> order) override {
    cells = order.size();
    ++repaints;
  }
  void Marcatori(std::span<const PuntoPixel> points, MarkerShape, std::int32_t, Colour colour) override {
    (colour == PickedColour ? red : marks) += points.size();
  }
  void Riquadro(const PixelArea& box, Colour colour) override {
    marks = red = texts = polygons = 0;
    BufferCanvas::Riquadro(box, colour);
  }
  void Poligono(std::span<const PuntoPixel>, Colour) override { ++polygons; }
  void Testo(const PuntoPixel&, std::string_view text, Colour) override { ++texts, last = text; }
  std::int32_t LarghezzaTesto(std::string_view) const override { return 20; }
  std::int32_t AltezzaTesto() const override { return 10; }

  std::size_t cells = 0, marks = 0, red = 0, texts = 0, polygons = 0, repaints = 0;
  std::string last;
};

struct ViewFixture : Fixture {
  ShallowCanvas canvas;

  ViewFixture() {
    readFirings(12);
    session.view.picture().tela(&canvas);
    paint();
  }
  void paint() { session.view.picture().dipingi(); }
  /// The curtain, its dots and the line of information alone.
  void plain() {
    session.view.mostraBanda({0, 0});
    for (const auto layer : {&Layers::MostraNomi, &Layers::MostraGriglia, &Layers::MostraAsse, &Layers::MostraScala}) {
      session.view.mostra(layer, false);
    }
    paint();
  }
};

TEST(View, IsPaintedAfterEveryCommandThatChangesIt) {
  ViewFixture f;
  Session& s = f.session;
  f.plain();
  EXPECT_EQ(f.canvas.cells, 120U);
  EXPECT_EQ(f.canvas.last, "WGS 84 - UTM 33");
  const char* commands[] = {"LeftThetacmd_Click", "RightPhicmd_Click",  "LeftGammaCmd_Click", "MinZoomcmd_Click",
                            "MaxZoomcmd_Click",   "Popt_Click",         "Mopt_Click",         "TopViewCmd_Click",
                            "ResCmd_Click",       "SHelectrodes_Click", "SHNord_Click",       "EpCmd_Click",
                            "DEpCmd_Click",       "SetUtmZone_Click",   "SHInfoLabel_Click"};
  f.dialogs.answers[Question::UtmZone] = {"33"};
  for (const char* command : commands) {
    const std::size_t before = f.canvas.repaints;
    f.press(command);
    f.paint();
    f.paint();
    EXPECT_EQ(f.canvas.repaints, before + 1) << command;
  }
  EXPECT_EQ(f.canvas.polygons, 1U) << "the arrow is shown";
  EXPECT_EQ(f.canvas.marks, 0U) << "the electrodes are not";
  EXPECT_EQ(f.canvas.texts, 1U) << "its letter";
  EXPECT_EQ(s.view.state().projection, Projection::Orthographic);
  EXPECT_FALSE(f.faulty());
}

TEST(View, BoxesGiveAnglesAndZoomOnEnter) {
  ViewFixture f;
  Session& s = f.session;
  f.press("Thetatxt_KeyPress", "45.5");
  EXPECT_DOUBLE_EQ(s.view.state().AngoloVista, 45.5 * Pi / 180);
  f.press("RightThetacmd_Click");
  EXPECT_EQ(s.view.FrameView.Thetatxt, "46.5");
  f.press("Phitxt_KeyPress", "30");
  f.press("Zoomtxt_KeyPress", "0.25");
  EXPECT_EQ(s.view.state().ZoomFattore, 0.25F);
  f.press("TopViewCmd_Click");
  EXPECT_EQ(s.view.FrameView.Thetatxt, "90.");
  EXPECT_EQ(s.view.FrameView.Zoomtxt, "1.");
  EXPECT_EQ(s.view.FrameView.Phitxt, "30.") << "the plan keeps its turn";
  EXPECT_FALSE(f.faulty());
  f.press("Zoomtxt_KeyPress", "0");
  EXPECT_EQ(s.view.state().ZoomFattore, 1.0F);
  EXPECT_TRUE(f.faulty()) << "a zoom of 0 shows nothing";
}

TEST(View, StartsAnewWithEveryReading) {
  ViewFixture f;
  f.press("SHNord_Click");
  f.press("SHelectrodes_Click");
  f.press("LeftPhicmd_Click");
  f.readFirings(5);
  f.plain();
  EXPECT_EQ(f.canvas.cells, 50U);
  EXPECT_EQ(f.session.view.FrameView.Phitxt, "0.");
  EXPECT_EQ(f.canvas.polygons, 0U);
  EXPECT_EQ(f.canvas.marks, 5U);
  f.read({});
  f.paint();
  EXPECT_EQ(f.canvas.cells, 0U) << "an empty survey empties the picture";
}

TEST(View, ReddensTheExtremesUntilTheThirdClick) {
  ViewFixture f;
  f.session.selection.scegli(3);
  f.paint();
  EXPECT_EQ(f.canvas.red, 1U);
  f.session.selection.scegli(9);
  f.paint();
  EXPECT_EQ(f.canvas.red, 2U);
  f.session.selection.scegli(1);
  f.paint();
  EXPECT_EQ(f.canvas.red, 0U);
}

TEST(SaveCurrentPicture, ReplacesTheOneBitmapOfTheFolder) {
  ViewFixture f;
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(f.folder.path());
  f.press("SaveCmd_Click");
  f.press("SaveCmd_Click");
  std::filesystem::current_path(before);
  EXPECT_EQ(test::Slurp(f.folder / "img0.bmp").size(), 54U + 400 * 300 * 3);
  EXPECT_FALSE(f.faulty());
}

// The sides of a column stand half-way to its neighbours: firing 6 of 12 hangs in the picture's middle when seen from
// the side.
TEST(Cells, AreToldUnlessADragHidesThem) {
  ViewFixture f;
  f.press("Thetatxt_KeyPress", "180");
  f.paint();
  std::optional<CellaVista> cell;
  for (std::int32_t y = 0; y < 300 && !cell; ++y) cell = f.session.mouse.cella(200, y);
  ASSERT_TRUE(cell);
  EXPECT_TRUE(cell->misura == 6 || cell->misura == 7) << cell->misura;
  EXPECT_EQ(cell->resistivita,
            f.m(static_cast<std::size_t>(cell->misura)).Rho[static_cast<std::size_t>(cell->livello)]);
  f.session.mouse.premi({MouseButton::Left, false, false, 1, 29});
  for (std::int32_t y = 0; y < 300; ++y) EXPECT_FALSE(f.session.mouse.cella(200, y));
  f.session.mouse.rilascia({MouseButton::Left, false, false, 1, 29});
  EXPECT_TRUE([&] {
    for (std::int32_t y = 0; y < 300; ++y) {
      if (f.session.mouse.cella(200, y)) return true;
    }
    return false;
  }());
}

}  // namespace
}  // namespace corvan
