// What the page of the flat section shows: every change, what its bar chooses, and the pictures that leave it.
#include <QClipboard>
#include <QToolButton>

#include "FlatPage.h"

namespace corvan {
namespace {

using test::By;
using test::Flat;
using test::Hand;
using test::Window;

TEST(FlatPage, FollowsEveryChange) {
  Flat w;
  w.dialogs.answers = {{Question::CableConfiguration,
                        {"C1 110 C2 120 E1 100 E2 90 E3 80 E4 70 E5 60 E6 50 E7 40 E8 30 E9 20 E10 10 E11 0"}},
                       {Question::ColourRange, {"1;9"}},
                       {Question::ClockOffset, {"0", "0"}},
                       {Question::CableOffset, {"12.5"}},
                       {Question::EchoOffset, {"0"}}};
  const std::pair<const char*, std::function<void()>> steps[] = {
      {"colours", [&] { w.choose("PaletteViridis"); }},
      {"logarithm", [&] { w.choose("LogColours"); }},
      {"range", [&] { w.choose("SetRange"); }},
      {"cable", [&] { w.choose("CableConf"); }},
      {"undone", [&] { w.choose("Undo"); }},
      {"extremes", [&] { w.section("2", "4"); }},
      {"offset", [&] { (w.choose("SaveFileOut"), w.Window::press("SaveOutCmd")); }},
      {"levels", [&] { QTest::keyClick(w.get<QComboBox>("SectionDepth"), Qt::Key_Down); }},
      {"curve", [&] { w.choose("CurveCurrent"); }},
      {"track",
       [&] {
         w.window.leggiTraccia(QString::fromStdString(w.folder.write("track.csv", test::Track).string()));
         w.choose("LinkToGPST");
       }},
      {"link undone", [&] { w.choose("Undo"); }},
      {"empty track",
       [&] {
         const std::string none = std::string(test::Track).substr(0, std::string(test::Track).find('\n') + 1);
         w.window.leggiTraccia(QString::fromStdString(w.folder.write("none.csv", none).string()));
         w.choose("LinkToGPST");
       }},
      {"survey", [&] { w.readFirings(3); }}};
  for (const auto& [name, step] : steps) {
    QCoreApplication::processEvents();
    const QImage before = w.pic()->picture().copy();
    step();
    QCoreApplication::processEvents();
    EXPECT_NE(w.pic()->picture(), before) << name;
    EXPECT_EQ(w.pic()->picture(), w.fresh()) << name;
  }
  w.readPlan();
  w.move(w.logical(w.block().plot.right - 20, (w.block().air.top + w.block().air.bottom) / 2.0));
  EXPECT_EQ(w.label("StatusReading").substr(0, 14), "Measurement 5,") << "another survey under the pointer";
}

TEST(FlatPage, HasABarOfLinesDepthsAndCurves) {
  Flat w;
  const auto second = w.folder.write("other.bin", test::Slurp(w.plan()));
  w.window.leggi({QString::fromStdString(w.plan().string()), QString::fromStdString(second.string())});
  QCoreApplication::processEvents();
  auto* lines = w.get<QComboBox>("SectionLines");
  QStringList offered;
  for (int k = 0; k < lines->count(); ++k) offered << lines->itemText(k);
  EXPECT_EQ(offered.join(", ").toStdString(), "One under the other, All along one axis, plan.bin, other.bin");
  const auto choose = [&](const char* list, int index) {
    auto* box = w.get<QComboBox>(list);
    QTest::keyClick(box, Qt::Key_Home);
    for (int k = 0; k < index; ++k) QTest::keyClick(box, Qt::Key_Down);
    QCoreApplication::processEvents();
  };
  const auto blocks = [&] {
    std::string all;
    for (const SectionBlock& b : w.layout().blocks) {
      all += std::to_string(b.firstLine) + std::to_string(b.lastLine) + " ";
    }
    return all;
  };
  EXPECT_EQ(blocks(), "00 11 ");
  choose("SectionLines", 1);
  EXPECT_EQ(blocks(), "01 ");
  choose("SectionLines", 3);
  EXPECT_EQ(blocks(), "11 ");
  choose("SectionLines", 2);
  EXPECT_EQ(blocks(), "00 ");
  EXPECT_FALSE(w.layout().levels);
  choose("SectionDepth", 1);
  EXPECT_TRUE(w.layout().levels);
  choose("SectionDepth", 0);
  EXPECT_FALSE(w.layout().levels);
  const char* items[] = {"CurveCurrent", "CurvePotential", "CurveResistivity", "CurveDepth", "CurveSpeed", "CurveTime"};
  for (std::size_t k = 0; k < Curves; ++k) {
    w.choose(items[k]);
    QCoreApplication::processEvents();
    ASSERT_EQ(w.block().curves.size(), 1U) << items[k];
    EXPECT_EQ(static_cast<std::size_t>(w.block().curves[0].curve), k);
    w.choose(items[k]);
  }
  EXPECT_EQ(w.get<QToolButton>("SectionCurves")->menu()->actions().size(), 6);
  w.readPlan();
  QCoreApplication::processEvents();
  EXPECT_EQ(lines->count(), 3) << "the lines of another survey";
  EXPECT_EQ(lines->currentIndex(), 0) << "all of it is shown";
  QTest::keyClick(w.pic(), Qt::Key_Backtab);
  for (const char* name : {"SectionCurves", "SectionDepth", "SectionLines"}) {
    EXPECT_EQ(QApplication::focusWidget(), w.get<QWidget>(name)) << "reached by Tab alone";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
  }
}

// What cannot be shown is told in the window as soon as it was painted.
TEST(FlatPage, TellsWhatItCannotShow) {
  Flat w;
  for (const char* item : {"CurveCurrent", "CurvePotential", "CurveResistivity", "CurveDepth", "CurveSpeed"}) {
    w.choose(item);
  }
  w.section("2", "4");  // a command that has nothing to tell
  w.window.resize(900, 340);
  const auto tells = [](const std::string& text) {
    return text.find("flat section: no room for") != std::string::npos;
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return tells(w.label("StatusNote")); }, 20000));  // however late it is painted
  EXPECT_TRUE(tells(test::Told(w.session().findings())));
}

TEST(FlatPage, IsThePictureThatIsSavedAndCopied) {
  Flat w;
  w.dialogs.answers = {{Question::CableOffset, {"8"}}, {Question::EchoOffset, {"0"}}};
  w.section("2", "4");
  w.choose("SaveFileOut");
  w.Window::press("SaveOutCmd");
  w.key("Ctrl+1");
  w.choose("SelFirst");
  QCoreApplication::processEvents();
  w.move(w.air(1));
  w.choose("CurveDepth");
  QCoreApplication::processEvents();
  const QImage seen = w.pic()->picture().copy();
  const SectionLayout places = w.layout();
  const std::string file = (w.folder / "flat.png").string();
  {
    Hand hand({{By::Ok, file.c_str()}});
    w.choose("SavePictureAs");
  }
  EXPECT_EQ(w.layout().legend.Y, places.legend.Y) << "the mouse finds what is seen, not what was saved";
  EXPECT_EQ(w.pic()->picture(), seen);
  const std::string size = std::to_string(seen.width()) + "x" + std::to_string(seen.height());
  const std::string command = "cd '" + w.folder.path().string() +
                              "' && '" CORVAN_CLI "' process plan.bin --coords utm" +
                              " --from 2 --to 4 --cable-offset 8 --curves depth --out cli --section-picture cli.png" +
                              " --size " + size + " >out 2>err";
  ASSERT_EQ(std::system(command.c_str()), 0) << test::Slurp(w.folder / "err");
  EXPECT_EQ(test::Slurp(file), test::Slurp(w.folder / "cli.png")) << "byte for byte the command line's";
  w.pic()->setFocus();
  w.key("Ctrl+C");
  EXPECT_EQ(QApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), w.saved("flat.png"));
  w.Window::press("SaveCmd");
  EXPECT_EQ(w.saved("img0.bmp"), seen) << "the screen's own dots";
  w.key("F9");
  w.Window::press("SaveCmd");
  EXPECT_EQ(w.saved("img0.bmp"), w.picture()->picture()) << "the other page again";
}

}  // namespace
}  // namespace corvan
