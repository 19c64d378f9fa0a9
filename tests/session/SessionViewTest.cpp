// The view as its commands change it.
#include "SessionFixture.h"

#include <array>
#include <utility>

#include "picture/BufferCanvas.h"

namespace corvan {
namespace {

using Fixture = test::SessionFixture;

/// A canvas that only keeps what was asked of it last.
class ShallowCanvas : public BufferCanvas {
 public:
  ShallowCanvas() : BufferCanvas({pixels.data(), 40, 30, 40}) {}
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
  std::int32_t LarghezzaTesto(std::string_view) const override { return 0; }
  std::int32_t AltezzaTesto() const override { return 0; }

  std::array<std::uint32_t, 1200> pixels{};
  std::size_t cells = 0, marks = 0, red = 0, texts = 0, polygons = 0, repaints = 0;
  std::string last;
};

struct ViewFixture : Fixture {
  ShallowCanvas canvas;

  ViewFixture() {
    readFirings(12);
    session.Form_Resize(&canvas);
  }
};

TEST(View, IsPaintedAfterEveryCommandThatChangesIt) {
  ViewFixture f;
  Session& s = f.session;
  EXPECT_EQ(f.canvas.cells, 120U);
  EXPECT_EQ(f.canvas.last, "WGS 84 - UTM 33");
  using Command = void (Session::*)();
  const std::pair<const char*, Command> commands[] = {
      {"theta", &Session::LeftThetacmd_Click}, {"phi", &Session::RightPhicmd_Click},
      {"gamma", &Session::LeftGammaCmd_Click}, {"in", &Session::MinZoomcmd_Click},
      {"out", &Session::MaxZoomcmd_Click},     {"perspective", &Session::Popt_Click},
      {"map", &Session::Mopt_Click},           {"top", &Session::TopViewCmd_Click},
      {"centre", &Session::ResCmd_Click},      {"electrodes", &Session::SHelectrodes_Click},
      {"north", &Session::SHNord_Click},       {"east", &Session::EpCmd_Click},
      {"depth", &Session::DEpCmd_Click},       {"zone", &Session::SetUtmZone_Click},
      {"info", &Session::SHInfoLabel_Click}};
  f.dialogs.answers["UTM Zone n. "] = {"33"};
  for (const auto& [name, command] : commands) {
    const std::size_t before = f.canvas.repaints;
    (s.*command)();
    EXPECT_EQ(f.canvas.repaints, before + 1) << name;
  }
  EXPECT_EQ(f.canvas.polygons, 1U) << "the arrow is shown";
  EXPECT_EQ(f.canvas.marks, 0U) << "the electrodes are not";
  EXPECT_EQ(f.canvas.texts, 0U);
  EXPECT_EQ(s.view().projection, Projection::Orthographic);
  EXPECT_FALSE(f.faulty());
}

TEST(View, BoxesGiveAnglesAndZoomOnEnter) {
  ViewFixture f;
  Session& s = f.session;
  s.FrameView.Thetatxt = "45.5";
  s.Thetatxt_KeyPress('5');
  EXPECT_EQ(s.view().AngoloVista, Pi / 2) << "other keys do nothing";
  s.Thetatxt_KeyPress(EnterKey);
  EXPECT_DOUBLE_EQ(s.view().AngoloVista, 45.5 * Pi / 180);
  s.RightThetacmd_Click();
  EXPECT_EQ(s.FrameView.Thetatxt, "46.5");
  s.FrameView.Phitxt = "30";
  s.Phitxt_KeyPress(EnterKey);
  s.FrameView.Zoomtxt = "0.25";
  s.Zoomtxt_KeyPress(EnterKey);
  EXPECT_EQ(s.view().ZoomFattore, 0.25F);
  s.TopViewCmd_Click();
  EXPECT_EQ(s.FrameView.Thetatxt, "90.");
  EXPECT_EQ(s.FrameView.Zoomtxt, "1.");
  EXPECT_EQ(s.FrameView.Phitxt, "30.") << "the plan keeps its turn";
  EXPECT_FALSE(f.faulty());
  s.FrameView.Zoomtxt = "0";
  s.Zoomtxt_KeyPress(EnterKey);
  EXPECT_EQ(s.view().ZoomFattore, 1.0F);
  EXPECT_TRUE(f.faulty()) << "a zoom of 0 shows nothing";
}

TEST(View, StartsAnewWithEveryReading) {
  ViewFixture f;
  f.session.SHNord_Click();
  f.session.SHelectrodes_Click();
  f.session.LeftPhicmd_Click();
  f.readFirings(5);
  EXPECT_EQ(f.canvas.cells, 50U);
  EXPECT_EQ(f.session.FrameView.Phitxt, "0.");
  EXPECT_EQ(f.canvas.polygons, 0U);
  EXPECT_EQ(f.canvas.marks, 5U);
  f.read({});
  EXPECT_EQ(f.canvas.cells, 0U) << "an empty survey empties the picture";
}

TEST(View, ReddensTheExtremesUntilTheThirdClick) {
  ViewFixture f;
  f.session.ptlbl_Click(3);
  EXPECT_EQ(f.canvas.red, 1U);
  f.session.ptlbl_Click(9);
  EXPECT_EQ(f.canvas.red, 2U);
  f.session.ptlbl_Click(1);
  EXPECT_EQ(f.canvas.red, 0U);
}

TEST(SaveCurrentPicture, ReplacesTheOneBitmapOfTheFolder) {
  ViewFixture f;
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(f.folder.path());
  f.session.SaveCmd_Click();
  f.session.SaveCmd_Click();
  std::filesystem::current_path(before);
  EXPECT_EQ(test::Slurp(f.folder / "img0.bmp").size(), 54U + 40 * 30 * 3);
  EXPECT_FALSE(f.faulty());
}

}  // namespace
}  // namespace corvan
