// The picture under the mouse: picking, turning, moving, zooming.
#include "Window.h"

namespace corvan {
namespace {

using test::Window;

TEST(Extremes, ArePickedByClickAndByEnterAndClearedByTheThirdClick) {
  Window w;
  w.readFirings(12);
  w.choose("SelFirst");
  EXPECT_TRUE(w.shown("FrameExtrema"));
  EXPECT_EQ(w.label("PrimoLbl"), "Extreme 1");
  QTest::mouseClick(w.picture(), Qt::LeftButton, {}, w.place(3));
  EXPECT_EQ(w.text("E1Txt"), "3");
  EXPECT_EQ(w.label("PrimoLbl").substr(0, 15), "File.survey.bin");
  w.enter("E2txt", "9");
  EXPECT_EQ(w.session().selection.StatoSelezione(), 2);
  EXPECT_EQ(w.text("E2txt"), "9");
  QTest::mouseClick(w.picture(), Qt::LeftButton, {}, w.place(5));
  EXPECT_EQ(w.session().selection.StatoSelezione(), 0);
  EXPECT_EQ(w.text("E1Txt"), "");
  EXPECT_EQ(w.label("SecondoLbl"), "");
  w.enter("E1Txt", "77");
  EXPECT_EQ(w.session().selection.StatoSelezione(), 0) << "no such measurement";
}

TEST(Cable, IsShownWhileTheRightButtonIsHeld) {
  Window w;
  w.readFirings(12);
  const QPoint at = w.place(6);
  const QImage before = w.picture()->picture().copy();
  QTest::mousePress(w.picture(), Qt::RightButton, {}, at);
  EXPECT_EQ(w.session().view.picture().scene().cable.size(), 13U);
  EXPECT_NE(w.picture()->picture(), before);
  QTest::mouseRelease(w.picture(), Qt::RightButton, {}, at);
  EXPECT_EQ(w.session().view.picture().scene().cable.size(), 0U);
  EXPECT_EQ(w.picture()->picture(), before);
  EXPECT_EQ(w.session().view.state().ZoomFattore, 1.0F);
}

TEST(Drags, ZoomAHundredTimesFromTopToBottom) {
  Window w;
  w.readFirings(5);
  const double height = w.picture()->height();
  w.drag(Qt::RightButton, {}, {20, 100}, {20, 300});
  EXPECT_NEAR(w.session().view.state().ZoomFattore, std::pow(10.0, 400.0 / height), 1e-4);
  EXPECT_NE(w.text("Zoomtxt"), "1.");
  w.press("TopViewCmd");
  EXPECT_EQ(w.session().view.state().ZoomFattore, 1.0F);
}

TEST(Drags, WithControlMoveTheWindow) {
  Window w;
  w.readFirings(5);
  const ViewState before = w.session().view.state();
  const double metres = (static_cast<double>(before.Finestra.xmax) - before.Finestra.xmin) / w.picture()->width();
  QTest::mousePress(w.picture(), Qt::LeftButton, Qt::ControlModifier, {20, 100});
  EXPECT_EQ(w.picture()->cursor().shape(), Qt::SizeAllCursor);
  w.point({70, 100}, Qt::LeftButton, Qt::ControlModifier);
  QTest::mousePress(w.picture(), Qt::RightButton, {}, {70, 100});
  QTest::mouseRelease(w.picture(), Qt::RightButton, {}, {70, 100});
  EXPECT_EQ(w.session().mouse.dragging(), Dragging::Move) << "the other button takes nothing over";
  QTest::mouseRelease(w.picture(), Qt::LeftButton, Qt::ControlModifier, {70, 100});
  EXPECT_EQ(w.picture()->cursor().shape(), Qt::CrossCursor);
  EXPECT_NEAR(w.session().view.state().FinestraBase.xmin, before.FinestraBase.xmin - 50 * metres, 1e-4);
  EXPECT_EQ(w.session().view.state().AngoloPhi, 0);
  w.press("ResCmd");
  EXPECT_EQ(w.session().view.state().FinestraBase.xmin, before.FinestraBase.xmin);
}

TEST(Drags, WithShiftPlaceTheVanishingPointInPerspective) {
  Window w;
  w.readFirings(5);
  w.get<QRadioButton>("Popt")->click();
  const QImage before = w.picture()->picture().copy();
  w.drag(Qt::LeftButton, Qt::ShiftModifier, {20, 100}, {50, 200});
  const ViewState& view = w.session().view.state();
  const ViewWindow<float>& window = view.FinestraIniziale;
  EXPECT_NEAR(view.marker.FugaX, window.xmin + (window.xmax - window.xmin) * 50.0 / w.picture()->width(), 1e-3);
  EXPECT_NE(w.picture()->picture(), before);
  EXPECT_EQ(view.AngoloVista, Pi / 2);
  w.get<QRadioButton>("Mopt")->click();
  EXPECT_EQ(view.projection, Projection::Orthographic);
  EXPECT_TRUE(w.get<QRadioButton>("Oopt")->isChecked());
}

TEST(Drags, PaintTheOutlineUntilTheRelease) {
  Window w;
  w.readFirings(30);
  const QImage before = w.picture()->picture().copy();
  QTest::mousePress(w.picture(), Qt::LeftButton, {}, {20, 500});
  EXPECT_NE(w.picture()->picture(), before);
  QTest::mouseRelease(w.picture(), Qt::LeftButton, {}, {20, 500});
  EXPECT_EQ(w.picture()->picture(), before) << "a click without a move changes nothing";
}

TEST(Depth, IsCorrectedOnDoubleClick) {
  Window w;
  auto firings = test::Firings(5, 10);
  for (std::size_t r = 20; r < 30; ++r) firings[r].depth = 40;
  const auto file = w.folder.write("survey.bin", test::SyscalFile(firings));
  w.window.leggi({QString::fromStdString(file.string())});
  w.choose("SHelectrodes");
  w.choose("SHdepth");
  const QPoint at = w.place(3);  // from above a point of the bottom lies under its measurement
  w.dialogs.messageAnswer = Answer::Cancel;
  w.doubleClick(at);
  EXPECT_EQ(w.session().survey.dati().Misure(3).Val12, 40);
  w.dialogs.messageAnswer = Answer::Ok;
  w.doubleClick(at);
  EXPECT_EQ(w.session().survey.dati().Misure(3).Val12, 4);
  EXPECT_EQ(w.dialogs.messages.at(0).prompt, "Correct Depth Value?");
}

}  // namespace
}  // namespace corvan
