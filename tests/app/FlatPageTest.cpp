// The page of the flat section under real mouse and keys. Also run on a screen of doubled scale. In the plan of
// Window::readPlan the boat is at 0, 2.5, 5, 7.5 and 10 m, and channel c lies 5 + 2.5 c m behind it: what is shown
// reaches from half a step before the first reading of channel 10, -31.25 m, to half a step behind the last boat,
// 11.25 m.
#include <QClipboard>
#include <QHelpEvent>
#include <QToolButton>
#include <QToolTip>
#include <QWheelEvent>

#include "Hand.h"
#include "paint/ImageCanvas.h"

namespace corvan {
namespace {

using test::By;
using test::Hand;
using test::Window;

constexpr double First = -31.25, Last = 11.25;

struct Flat : Window {
  Flat() {
    readPlan();
    key("F9");
    QCoreApplication::processEvents();
  }
  SectionPic* pic() const { return static_cast<SectionPic*>(get<QWidget>("SectionPic")); }
  const SectionLayout& layout() { return session().section.disposta(); }
  const SectionBlock& block() { return layout().blocks.at(0); }
  QPoint logical(double X, double Y) const {
    const double scale = pic()->devicePixelRatioF();
    return {static_cast<int>(X / scale), static_cast<int>(Y / scale)};
  }
  /// A place along the track, as long as all of it is shown, in pixels of the picture.
  double column(double metres) {
    const PixelArea& plot = block().plot;
    return plot.left + (metres - First) / (Last - First) * plot.width();
  }
  QPoint air(double metres) { return logical(column(metres), (block().air.top + block().air.bottom) / 2.0); }
  QPoint cell(int measurement, std::size_t channel) {
    for (const SectionRow& row : session().section.modello().metres) {
      const double middle = (row.top + row.bottom) / 2 / layout().deepest * block().plot.height();
      if (row.channel == channel) {
        return logical(column(2.5 * (measurement - static_cast<int>(channel)) - 7.5), block().plot.top + middle);
      }
    }
    ADD_FAILURE() << channel;
    return {};
  }
  /// Inside the plot, where no cell is: above the first row, near its left end.
  QPoint empty() { return logical(column(-25), block().plot.top + 3); }
  void click(QPoint at) {
    QTest::mouseClick(pic(), Qt::LeftButton, {}, at);
    QCoreApplication::processEvents();
  }
  void move(QPoint at, Qt::MouseButton held = Qt::NoButton) const {
    QMouseEvent event(QEvent::MouseMove, at, pic()->mapToGlobal(at), Qt::NoButton, held, {});
    QApplication::sendEvent(pic(), &event);
  }
  void draw(QPoint from, QPoint to) const {
    QTest::mousePress(pic(), Qt::LeftButton, {}, from);
    move(to, Qt::LeftButton);
  }
  void drop(QPoint to) const {
    QTest::mouseRelease(pic(), Qt::LeftButton, {}, to);
    QCoreApplication::processEvents();
  }
  void wheel(QPoint at, int notches) const {
    QWheelEvent event(at, pic()->mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(pic(), &event);
    QCoreApplication::processEvents();
  }
  void press(int key, Qt::KeyboardModifiers keys = {}) const {
    QTest::keyClick(pic(), static_cast<Qt::Key>(key), keys);
    QCoreApplication::processEvents();
  }
  using Window::press;
  /// "2-4", "2-", "-": the extremes, as session, boxes and picture of the section have them.
  std::string picked() {
    const auto& selection = session().selection;
    const std::string one = selection.primo() ? std::to_string(*selection.primo()) : "";
    const std::string two = selection.secondo() ? std::to_string(*selection.secondo()) : "";
    EXPECT_TRUE(one.empty() || text("E1Txt") == one) << text("E1Txt");
    EXPECT_TRUE(two.empty() || text("E2txt") == two) << text("E2txt");
    for (const auto& k : {selection.primo(), selection.secondo()}) {
      if (!k) continue;
      const int x = static_cast<int>(column(2.5 * (*k - 1)));
      EXPECT_TRUE(red(x) || red(x - 1)) << "the pole of " << *k;
    }
    return one + "-" + two;
  }
  /// The pole of an extreme stands in this column, above the deepest row.
  bool red(int x) {
    const QImage& seen = pic()->picture();
    return (seen.pixel(x, block().plot.bottom - 3) & 0xFFFFFF) == 0xC00020;
  }
  QImage saved(const char* name) const {
    return QImage(QString::fromStdString((folder / name).string())).convertToFormat(QImage::Format_RGB32);
  }
  /// The same picture from a desk that has forgotten all that it had worked out.
  QImage fresh() {
    QImage image = CreaImmagine(pic()->picture().width(), pic()->picture().height());
    ImageCanvas canvas(image);
    session().section.rifai();
    session().section.dipingiCopia(canvas, {});
    return image;
  }
};

TEST(FlatPage, ShowsByItsKeyAndPaintsOnlyWhileShown) {
  Window w;
  w.readPlan();
  auto* pic = w.get<QWidget>("SectionPic");
  EXPECT_FALSE(pic->isVisible());
  EXPECT_EQ(w.session().section.tela(), nullptr);
  for (const bool shown : {true, false, true, false}) {
    w.key("F9");
    EXPECT_EQ(pic->isVisible(), shown);
    EXPECT_EQ(w.picture()->isVisible(), !shown);
    EXPECT_EQ(w.get<QAction>("ShowSection")->isChecked(), shown);
    EXPECT_EQ(QApplication::focusWidget(), shown ? pic : w.picture());
    EXPECT_EQ(w.get<QWidget>("StatusReading")->isVisible(), shown);
    EXPECT_EQ(w.get<QWidget>("StatusPlace")->isVisible(), !shown);
  }
  w.window.resize(1000, 700);
  w.readFirings(7);
  QCoreApplication::processEvents();
  EXPECT_EQ(w.session().section.disposta().blocks.at(0).lastLine, 0U);
  EXPECT_NEAR(w.session().section.disposta().whole.to, Last, 1e-3) << "not painted while it is hidden";
  w.key("F9");
  QCoreApplication::processEvents();
  // Seven firings 1/64 m to the east and 1/128 m to the north of each other: 6.5 steps of 0.01747 m.
  EXPECT_NEAR(w.session().section.disposta().whole.to, 0.1136, 1e-3) << "nor stale when it is shown";
  const QSize size = static_cast<SectionPic*>(pic)->picture().size();
  EXPECT_EQ(size.width(), static_cast<int>(pic->width() * pic->devicePixelRatioF()));
  EXPECT_EQ(size.height(), static_cast<int>(pic->height() * pic->devicePixelRatioF()));
}

TEST(FlatPage, ChoosesTheSameExtremesAsThePicture) {
  Flat w;
  EXPECT_NEAR(w.layout().whole.from, First, 1e-3);
  EXPECT_NEAR(w.layout().whole.to, Last, 1e-3);
  w.choose("SelFirst");  // the panel takes room: places are asked for anew
  QCoreApplication::processEvents();
  w.choose("CurveDepth");
  QCoreApplication::processEvents();
  const auto curve = [&] {
    const PixelArea& plot = w.block().curves.at(0).plot;
    return w.logical(w.column(4.6), (plot.top + plot.bottom) / 2.0);
  };
  w.click(w.cell(2, 1));
  EXPECT_EQ(w.picked(), "2-");
  w.click(w.cell(4, 10));
  EXPECT_EQ(w.picked(), "2-4");
  w.click(w.cell(1, 3));
  EXPECT_EQ(w.picked(), "-") << "the third clears";
  w.click(w.air(8.6));
  EXPECT_EQ(w.picked(), "4-") << "nearest on the track";
  w.click(curve());
  EXPECT_EQ(w.picked(), "4-3");
  w.click(w.empty());
  EXPECT_EQ(w.picked(), "4-3") << "empty";
  EXPECT_EQ(w.session().findings().commands().back().name, "Select Data");
  w.key("F9");
  QTest::mouseClick(w.picture(), Qt::LeftButton, {}, w.place(5));
  EXPECT_EQ(w.session().selection.StatoSelezione(), 0) << "and clears from the other page";
  QTest::mouseClick(w.picture(), Qt::LeftButton, {}, w.place(5));
  w.key("F9");
  QCoreApplication::processEvents();
  EXPECT_EQ(w.picked(), "5-");
}

TEST(FlatPage, ChoosesAStretchByADragAlongTheAxis) {
  const struct {
    double from, to;
    const char* picked;
  } cases[] = {{2.4, 7.6, "2-4"}, {7.6, 2.4, "2-4"}, {-25, 3, "1-2"}, {4, 60, "3-5"}};
  for (const auto& c : cases) {
    for (const bool below : {false, true}) {
      Flat w;
      const auto at = [&](double metres) {
        const QPoint air = w.air(metres);
        return below ? QPoint(air.x(), w.logical(0, w.block().plot.bottom + 3).y()) : air;
      };
      w.draw(at(c.from), at(c.to));
      EXPECT_EQ(w.session().selection.StatoSelezione(), 0) << "not before the release";
      w.drop(at(c.to));
      EXPECT_EQ(w.layout().window, w.layout().whole) << "nothing is moved";
      EXPECT_EQ(w.picked(), c.picked) << c.from << " " << below;
    }
  }
  Flat w;
  const QImage plain = w.pic()->grab().toImage();
  w.draw(w.air(0), w.air(8));
  EXPECT_NE(w.pic()->grab().toImage(), plain) << "the stretch is seen";
  QTest::keyClick(w.pic(), Qt::Key_Escape);
  w.drop(w.air(8));
  EXPECT_EQ(w.session().selection.StatoSelezione(), 0) << "given up";
  w.draw(w.air(5), w.air(5) + QPoint(3, 2));
  w.drop(w.air(5) + QPoint(3, 2));
  EXPECT_EQ(w.picked(), "3-") << "a hand that shakes clicks";
  w.draw(w.air(4.5), w.air(5.5));
  w.drop(w.air(5.5));
  EXPECT_EQ(w.picked(), "3-") << "both ends at one measurement choose nothing";
}

TEST(FlatPage, MovesAndZoomsAlongTheTrack) {
  Flat w;
  const auto window = [&] { return w.layout().window; };
  const auto near = [&](double from, double to, const char* what) {
    QCoreApplication::processEvents();
    EXPECT_NEAR(window().from, from, 0.06) << what;
    EXPECT_NEAR(window().to, to, 0.06) << what;
  };
  const double width = Last - First;
  const QPoint at = w.logical(w.column(-10), w.block().plot.top + 40);
  w.wheel(at, 2);
  near(-10 - (-10 - First) / 1.44, -10 + (Last + 10) / 1.44, "the place under the pointer stays");
  w.press(Qt::Key_Home);
  near(First, Last, "Home");
  EXPECT_FALSE(w.session().section.view().window);
  w.press(Qt::Key_Plus);
  w.press(Qt::Key_Plus);
  const double middle = (First + Last) / 2, half = width / 1.44 / 2;
  near(middle - half, middle + half, "twice +");
  w.press(Qt::Key_Right);
  near(middle - half + 0.2 * half, middle + half + 0.2 * half, "a tenth to the right");
  w.press(Qt::Key_Left, Qt::ShiftModifier);
  near(First, First + 2 * half, "half to the left, held to the beginning");
  const double wide = w.pic()->width() * 0.9;
  const double metres = 100 * w.pic()->devicePixelRatioF() / w.block().plot.width() * 2 * half;
  w.draw(w.empty(), w.empty() - QPoint(100, 0));
  near(First + metres, First + metres + 2 * half, "drawn by 100 dots");
  w.move(w.empty() - QPoint(60, 0), Qt::LeftButton);
  near(First + 0.6 * metres, First + 0.6 * metres + 2 * half, "60 from the press");
  QTest::keyClick(w.pic(), Qt::Key_Escape);
  QCoreApplication::processEvents();
  near(First, First + 2 * half, "given up");
  w.drop(w.empty());
  w.draw(w.empty() - QPoint(0, 0), w.empty() - QPoint(static_cast<int>(wide) / 20, 0));
  w.drop(w.empty() - QPoint(static_cast<int>(wide) / 20, 0));
  EXPECT_GT(window().from, First + 0.5) << "kept";
  EXPECT_EQ(w.session().selection.StatoSelezione(), 0) << "a drag chooses nothing";
  w.press(Qt::Key_Minus);
  w.press(Qt::Key_Minus);
  w.press(Qt::Key_Minus);
  near(First, Last, "no wider than all");
  w.wheel(at, 1);
  const auto twice = [&](QPoint place) {
    QTest::mouseDClick(w.pic(), Qt::LeftButton, {}, place);
    w.drop(place);
  };
  twice(w.empty());
  near(First, Last, "double click on empty");
  w.wheel(at, 1);
  const TrackWindow before = window();
  twice(w.cell(2, 1));
  EXPECT_EQ(window(), before) << "on a cell";
}

TEST(FlatPage, TellsWhatLiesUnderThePointer) {
  Flat w;
  const auto tip = [&](QPoint at) {
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (top->objectName() == "qtooltip_label") top->hide();  // one that goes takes its time
    }
    QHelpEvent help(QEvent::ToolTip, at, w.pic()->mapToGlobal(at));
    QApplication::sendEvent(w.pic(), &help);
    return QToolTip::isVisible() ? QToolTip::text().toStdString() : std::string();
  };
  // Channel 2 on electrodes 10, 15, 15 and 20 m apart: K is 6.2832 times 60, and 10 mV at 1000 mA give 3.77 Ohm m.
  const std::string head = "Measurement 3, channel 2: 3.77 Ohm\u00B7m at -5.0 m, pseudo-depth ";
  const std::string volts = "V 10.0 mV, I 1000 mA, K 377 m", boat = "boat at 500004.0 E, 5030003.0 N";
  w.move(w.cell(3, 2));
  const std::string text = w.label("StatusReading");
  EXPECT_EQ(text.substr(0, head.size()), head);
  EXPECT_EQ(text.substr(text.find("; ")), "; " + volts + "; " + boat);
  EXPECT_EQ(w.pic()->cursor().shape(), Qt::PointingHandCursor);
  const std::string shown = tip(w.cell(3, 2));
  EXPECT_NE(shown.find(volts + "\n" + boat), std::string::npos) << shown;
  w.choose("SH2ndGps");
  EXPECT_EQ(w.label("StatusReading"), text) << "it stays with the pointer";
  for (int k = 0; k < 3; ++k) w.press(Qt::Key_Plus);
  EXPECT_NE(w.label("StatusReading"), text) << "and follows what lies there";
  w.press(Qt::Key_Home);
  EXPECT_EQ(w.label("StatusReading"), text);
  w.move(w.air(7.4));
  EXPECT_EQ(w.label("StatusReading").substr(0, 29), "Measurement 4, File.plan.bin ");
  EXPECT_EQ(w.pic()->cursor().shape(), Qt::SizeHorCursor);
  w.move({2, 2});
  EXPECT_EQ(w.label("StatusReading"), "");
  EXPECT_EQ(tip({2, 2}), "");
  w.move(w.cell(3, 2));
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(w.pic(), &leave);
  EXPECT_EQ(w.label("StatusReading"), "");
  QTest::mousePress(w.pic(), Qt::LeftButton, {}, w.cell(3, 2));
  EXPECT_EQ(tip(w.cell(3, 2)), "") << "not while a button is held";
  w.drop(w.cell(3, 2));
}

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
  QTest::qWait(20);
  EXPECT_NE(test::Told(w.session().findings()).find("flat section: no room for"), std::string::npos);
  EXPECT_NE(w.label("StatusNote").find("flat section: no room for"), std::string::npos);
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
