// The names of the electrodes on the picture.
#include <gtest/gtest.h>

#include <string>

#include "PlainCurtain.h"

namespace corvan {
namespace {

using test::Prepared;
using test::TestCanvas;

/// Names and their left edges, painted for a cable laid eastwards from the middle of a picture of 2 pixels a metre. It
/// has C2 at 60 m, C1 at 55 m, E1 at 50 m and so on by 5 m to E11.
std::string Names(float zoom) {
  Prepared p(test::SurveyOf({{299990, 5e6}, {300000, 5e6}, {300010, 5e6}}));
  p.view.ZoomFattore = zoom;
  p.update();
  GeneraCavoDiMisura(p.scene, p.survey, 2);
  TestCanvas canvas(300, 200);
  Renderer().DisegnaCavoG(p.scene, p.view, canvas);
  std::string all;
  for (const TestCanvas::Text& text : canvas.texts) {
    all += text.text + " " + std::to_string(text.place.X) + " " + std::to_string(text.place.Y) + ", ";
  }
  return all;
}

// Eight pixels a letter: at zoom 1 electrodes stand 10 pixels apart, at a quarter 40, at 10 the whole cable has 12. The
// surface is row 91, the marks reach 5 pixels up.
TEST(ElectrodeNames, AreThoseOfTheEndsWhereAllWouldTouch) {
  EXPECT_EQ(Names(1), "E11 138 72, C2 262 72, ");
  EXPECT_EQ(Names(0.25F), "E8 262 72, E9 222 72, E10 178 72, E11 138 72, ") << "the others lie outside the picture";
  EXPECT_EQ(Names(10), "E11 138 72, ");
}

}  // namespace
}  // namespace corvan
