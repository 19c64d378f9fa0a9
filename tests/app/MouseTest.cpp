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
  EXPECT_EQ(w.session().StatoSelezione(), 2);
  EXPECT_EQ(w.text("E2txt"), "9");
  QTest::mouseClick(w.picture(), Qt::LeftButton, {}, w.place(5));
  EXPECT_EQ(w.session().StatoSelezione(), 0);
  EXPECT_EQ(w.text("E1Txt"), "");
  EXPECT_EQ(w.label("SecondoLbl"), "");
  w.enter("E1Txt", "77");
  EXPECT_EQ(w.session().StatoSelezione(), 0) << "no such measurement";
}

TEST(Cable, IsShownWhileTheRightButtonIsHeld) {
  Window w;
  w.readFirings(12);
  const QPoint at = w.place(6);
  const QImage before = w.picture()->picture().copy();
  QTest::mousePress(w.picture(), Qt::RightButton, {}, at);
  EXPECT_EQ(w.session().scene().cable.size(), 13U);
  EXPECT_NE(w.picture()->picture(), before);
  QTest::mouseRelease(w.picture(), Qt::RightButton, {}, at);
  EXPECT_EQ(w.session().scene().cable.size(), 0U);
  EXPECT_EQ(w.picture()->picture(), before);
  EXPECT_EQ(w.session().view().ZoomFattore, 1.0F);
}

TEST(Translations, MoveTheDataAndTheDepthWithTheQuirkOfItsBox) {
  Window w;
  w.readFirings(5);
  w.choose("SHtranslation");
  EXPECT_TRUE(w.shown("FrameDataMove"));
  EXPECT_TRUE(w.shown("FrameDepthMove"));
  w.press("EpCmd");
  w.press("EpCmd");
  w.press("NmCmd");
  EXPECT_EQ(w.text("TestTxt"), "0.2");
  EXPECT_EQ(w.text("TnordTxt"), "-0.1");
  w.enter("TestTxt", "12.5");
  EXPECT_EQ(w.session().survey().settings.TraslDatiEst, 12.5);
  w.press("DEpCmd");
  EXPECT_EQ(w.text("DTnordTxt"), "0.1") << "the east step shows in the north box";
  EXPECT_EQ(w.text("DTestTxt"), "0.0");
  w.enter("DTestTxt", "-3");
  EXPECT_EQ(w.session().survey().settings.TraslFondoEst, -3.0F);
  EXPECT_EQ(w.session().survey().settings.TraslFondoNord, 0.0F);
}

TEST(Menus, SwitchTheLayersAndShowTheirState) {
  Window w;
  w.readFirings(5);
  EXPECT_TRUE(w.get<QAction>("SHelectrodes")->isChecked());
  const char* names[] = {"SHelectrodes", "SHdepth", "SHcolour", "SHNord", "SHInfoLabel", "SH2ndGps"};
  for (const char* name : names) {
    const QImage before = w.picture()->picture().copy();
    const bool on = w.get<QAction>(name)->isChecked();
    w.choose(name);
    EXPECT_EQ(w.get<QAction>(name)->isChecked(), !on) << name;
    if (std::string(name) != "SH2ndGps") {
      EXPECT_NE(w.picture()->picture(), before) << name;
    }
    w.choose(name);
    EXPECT_EQ(w.picture()->picture(), before) << name;
  }
}

TEST(Drags, TurnByTwoPiAcrossThePicture) {
  Window w;
  w.readFirings(5);
  const double width = w.picture()->width(), height = w.picture()->height();
  w.drag(Qt::LeftButton, {}, {20, 500}, {120, 460});
  EXPECT_NEAR(w.session().view().AngoloVista, Pi / 2 + 40 / height * 2 * Pi, 1e-9) << "upwards increases theta";
  EXPECT_NEAR(w.session().view().AngoloPhi, 100 / width * 2 * Pi, 1e-9);
  EXPECT_EQ(w.session().view().AngoloGamma, 0);
  w.get<QCheckBox>("PhiChk")->setChecked(false);
  const double phi = w.session().view().AngoloPhi;
  w.drag(Qt::LeftButton, {}, {20, 500}, {120, 500});
  EXPECT_EQ(w.session().view().AngoloPhi, phi) << "a box that is not ticked holds its angle";
  EXPECT_FALSE(w.session().FrameView.angleLabelsVisible);
}

TEST(Drags, ZoomAHundredTimesFromTopToBottom) {
  Window w;
  w.readFirings(5);
  const double height = w.picture()->height();
  w.drag(Qt::RightButton, {}, {20, 100}, {20, 300});
  EXPECT_NEAR(w.session().view().ZoomFattore, std::pow(10.0, 400.0 / height), 1e-4);
  EXPECT_NE(w.text("Zoomtxt"), "1.");
  w.press("TopViewCmd");
  EXPECT_EQ(w.session().view().ZoomFattore, 1.0F);
}

TEST(Drags, WithControlMoveTheWindow) {
  Window w;
  w.readFirings(5);
  const ViewState before = w.session().view();
  const double width = w.picture()->width();
  w.drag(Qt::LeftButton, Qt::ControlModifier, {20, 100}, {70, 100});
  EXPECT_NEAR(w.session().view().FinestraBase.xmin, before.FinestraBase.xmin - 50 * before.Lato / width, 1e-6);
  EXPECT_EQ(w.session().view().AngoloPhi, 0);
  w.press("ResCmd");
  EXPECT_EQ(w.session().view().FinestraBase.xmin, before.FinestraBase.xmin);
}

TEST(Drags, WithShiftPlaceTheVanishingPointInPerspective) {
  Window w;
  w.readFirings(5);
  w.get<QRadioButton>("Popt")->click();
  const QImage before = w.picture()->picture().copy();
  w.drag(Qt::LeftButton, Qt::ShiftModifier, {20, 100}, {50, 200});
  const ViewState& view = w.session().view();
  const ViewWindow<float>& window = view.FinestraIniziale;
  EXPECT_NEAR(view.FugaX, window.xmin + (window.xmax - window.xmin) * 50.0 / w.picture()->width(), 1e-3);
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
  QPoint at;
  for (int y = 0; y < w.picture()->height(); ++y) {
    for (int x = 0; x < w.picture()->width(); ++x) {
      if (w.session().Suggerimento(x, y).find(" Dpt. 40.") != std::string::npos) at = {x, y};
    }
  }
  w.dialogs.messageAnswer = Answer::Cancel;
  QTest::mouseDClick(w.picture(), Qt::LeftButton, {}, at);
  EXPECT_EQ(w.session().survey().Misure(3).Val12, 40);
  w.dialogs.messageAnswer = Answer::Ok;
  QTest::mouseDClick(w.picture(), Qt::LeftButton, {}, at);
  EXPECT_EQ(w.session().survey().Misure(3).Val12, 4);
  EXPECT_EQ(w.dialogs.messages.at(0).text, "Correct Depth Value?");
}

}  // namespace
}  // namespace corvan
