// What the commands told: the line in the status bar and the list of all messages.
#include <QClipboard>
#include <QTableWidget>

#include "app/StatusText.h"
#include "Hand.h"
#include "session/Controls.h"
#include "Window.h"

namespace corvan {
namespace {

using test::By;
using test::Hand;
using test::Window;

ElidedLabel* Note(const Window& w) { return static_cast<ElidedLabel*>(w.get<QLabel>("StatusNote")); }

/// A file of six firings whose first has no fix: it is left out.
QString Hole(const Window& w, const std::string& name) {
  auto records = test::Firings(6, 10);
  for (std::size_t r = 0; r < 10; ++r) records[r].east = records[r].north = 0;
  return QString::fromStdString(w.folder.write(name, test::SyscalFile(records)).string());
}

/// The rows of the list: command, severity, file and the first words of the message.
std::vector<std::string> Rows(const Window& w) {
  const auto* table = w.get<QTableWidget>("MessagesTable");
  std::vector<std::string> rows;
  for (int row = 0; row < table->rowCount(); ++row) {
    const auto text = [&](int column) { return table->item(row, column)->text(); };
    rows.push_back((text(0) + "|" + text(1) + "|" + text(2) + "|" + text(3).left(24)).toStdString());
  }
  return rows;
}

TEST(Messages, LineTellsTheGravestOfTwoFilesAndTheListAll) {
  Window w;
  w.window.leggi({Hole(w, "a.bin"), QString::fromStdString((w.folder / "gone.bin").string()), Hole(w, "b.bin")});
  EXPECT_EQ(w.label("StatusNote"), "gone.bin: No such file or directory and 2 more");
  EXPECT_EQ(Note(w)->tinta(), Tone::Fault);
  EXPECT_NE(Note(w)->toolTip().indexOf(QString::fromStdString((w.folder / "gone.bin").string())), -1) << "its folder";
  QTest::mouseClick(Note(w), Qt::LeftButton);
  auto* list = w.get<QDialog>("Messages");
  ASSERT_TRUE(list->isVisible());
  EXPECT_EQ(Rows(w), (std::vector<std::string>{"Read File|Note|a.bin|10 records before the fi",
                                               "Read File|Fault|gone.bin|No such file or director",
                                               "Read File|Note|b.bin|10 records before the fi"}));
  w.window.leggi({Hole(w, "c.bin")});
  EXPECT_EQ(w.label("StatusNote"), "c.bin: 10 records before the first position left out");
  EXPECT_EQ(Note(w)->tinta(), Tone::Note);
  ASSERT_EQ(Rows(w).size(), 4U) << "the open list follows";
  EXPECT_EQ(Rows(w)[0].substr(0, 20), "Read File|Note|c.bin");
}

TEST(Messages, ListIsOpenedCopiedAndClosedByKeys) {
  Window w;
  w.window.leggi({Hole(w, "a.bin")});
  w.key("Ctrl+1");
  w.enter("E1Txt", "77");
  w.key("Ctrl+M");
  QCoreApplication::processEvents();
  auto* list = w.get<QDialog>("Messages");
  ASSERT_TRUE(list->isVisible());
  auto* table = w.get<QTableWidget>("MessagesTable");
  EXPECT_TRUE(table->hasFocus());
  EXPECT_EQ(Rows(w)[0], "Select First Data|Fault||extreme 77 is not 1 to 5") << "the newest command first";
  QTest::keyClick(table, Qt::Key_Down);
  EXPECT_EQ(table->currentRow(), 1);
  const int before = table->height();
  list->resize(list->size() + QSize(60, 90));
  QCoreApplication::processEvents();
  EXPECT_EQ(table->height(), before + 90);
  QTest::keyClick(w.get<QPushButton>("MessagesCopy"), Qt::Key_Space);
  const QStringList lines = QGuiApplication::clipboard()->text().split('\n');
  ASSERT_EQ(lines.size(), 4) << "headings, two messages, the last line end";
  EXPECT_EQ(lines[1], "Select First Data\tFault\t\textreme 77 is not 1 to 5");
  const QString file = QString::fromStdString((w.folder / "a.bin").string());
  EXPECT_EQ(lines[2].left(file.size() + 25), "Read File\tNote\t" + file + "\t10 record");
  QTest::keyClick(table, Qt::Key_Escape);
  EXPECT_FALSE(list->isVisible());
}

// A refusal is told as often as it happens; what was told by one command is gone with the next.
TEST(Messages, BelongToTheirOwnCommand) {
  Window w;
  w.window.leggi({Hole(w, "a.bin")});
  const std::string refused = "extreme 77 is not 1 to 5";
  const std::function<void()> bad = [&] { w.enter("E1Txt", "77"); }, good = [&] { w.enter("E1Txt", "1"); },
                              pick =
                                  [&] {
                                    QCoreApplication::processEvents();
                                    QTest::mouseClick(w.picture(), Qt::LeftButton, {}, w.place(2));
                                  },
                              look = [&] { w.key("F5"); };
  w.key("Ctrl+1");
  const struct {
    const std::function<void()>& act;
    std::string told;
  } steps[] = {{bad, refused},  {look, refused}, {bad, refused}, {good, "ready"}, {bad, refused},
               {pick, "ready"}, {bad, refused},  {bad, refused}, {good, "ready"}};
  int number = 0;
  for (const auto& [act, told] : steps) {
    act();
    EXPECT_EQ(w.label("StatusNote"), told) << "step " << number;
    ++number;
  }
  w.dialogs.answers[Question::ColourRange] = {"5;", "5;"};
  for (int k = 0; k < 2; ++k) {
    w.choose("SetRange");
    EXPECT_EQ(w.label("StatusNote").substr(0, 30), "range \"5;\" is not two numbers ") << k;
  }
  w.choose("ShowMessages");
  EXPECT_EQ(Rows(w).size(), 8U);
}

TEST(Messages, OfTracksDropsAndUndoneStepsStandUnderTheirOwnNames) {
  Window w;
  w.window.leggi({Hole(w, "a.bin")});
  w.window.leggiTraccia(QString::fromStdString((w.folder / "gone.csv").string()));
  EXPECT_EQ(w.label("StatusNote"), "gone.csv: No such file or directory");
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(Hole(w, "b.bin")), QUrl("https://example.org/c.bin")});
  QDragEnterEvent enter(QPoint(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&w.window, &enter);
  QDropEvent drop(QPointF(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&w.window, &drop);
  EXPECT_EQ(w.label("StatusNote").substr(0, 9), "b.bin: 10");
  EXPECT_EQ(w.label("StatusNote").substr(w.label("StatusNote").size() - 11), " and 1 more");
  w.dialogs.answers[Question::UtmZone] = {"99"};
  w.choose("SetUtmZone");
  EXPECT_EQ(w.label("StatusNote"), "zone 99 is not 1 to 60: positions are computed in zone 60");
  EseguiControllo(w.session(), "Undo_Click");
  EXPECT_TRUE(w.session().findings().ultimi().empty());
  w.choose("ShowMessages");
  const std::vector<std::string> rows = Rows(w);
  ASSERT_EQ(rows.size(), 5U);
  EXPECT_EQ(rows[0].substr(0, 18), "Set UTM Zone|Fault");
  EXPECT_EQ(rows[1].substr(0, 20), "Read File|Note|b.bin");
  EXPECT_NE(rows[2].find("is no file of this mach"), std::string::npos) << rows[2];
  EXPECT_EQ(rows[3].substr(0, 32), "Load External GPS|Fault|gone.csv");
  EXPECT_EQ(rows[4].substr(0, 20), "Read File|Note|a.bin");
}

TEST(Messages, NameEveryFileOfACommandAndNeverHideThatOneFailed) {
  Window w;
  w.readPlan();
  w.key("Ctrl+1");
  w.section("1", "4");
  const std::string root = w.folder.path().string();
  w.folder.write("FileOut.txt", test::Slurp(test::Samples.toStdString() + "/lagoon_1.txt"));  // an original
  const auto save = [&](std::initializer_list<const char*> ticks) {
    w.key("Ctrl+S");
    w.tick("BinChk", false);
    for (const char* name : ticks) w.tick(name);
    w.dialogs.answers = {{Question::CableOffset, {"0"}}, {Question::EchoOffset, {"0"}}};
    w.press("SaveOutCmd");
  };
  save({"BinChk", "EchoZChk"});
  EXPECT_EQ(w.label("StatusNote"), "Written to " + root + ": FileOut.bin, FileOut.ecs, FileOut.ecst");
  EXPECT_EQ(Note(w)->tinta(), Tone::Success);
  save({"BinChk"});
  EXPECT_EQ(w.label("StatusNote"), "Written to " + root + ": FileOut.bin") << "written once more";
  save({"BinChk", "TxtChk"});
  EXPECT_EQ(w.label("StatusNote"),
            "FileOut.txt: is an instrument's text export and is not overwritten; written to " + root + ": FileOut.bin");
  EXPECT_EQ(Note(w)->tinta(), Tone::Fault);
  save({"TxtChk"});
  EXPECT_EQ(w.label("StatusNote"), "FileOut.txt: is an instrument's text export and is not overwritten")
      << "told again";
  w.choose("SHcolour");
  EXPECT_EQ(w.label("StatusNote"), "FileOut.txt: is an instrument's text export and is not overwritten")
      << "looking changes nothing";
  save({});
  EXPECT_EQ(w.label("StatusNote"), "no format is ticked: nothing is written");
}

TEST(Messages, TellOfAMissingFolderBeforeAnythingCloses) {
  Window w;
  w.readPlan();
  w.key("Ctrl+1");
  w.section("1", "4");
  w.key("Ctrl+S");
  w.get<QLineEdit>("FileOutTxt")->setText("nowhere/line");
  for (int k = 0; k < 2; ++k) {
    w.press("SaveOutCmd");
    EXPECT_TRUE(w.shown("FrameFileOut"));
    EXPECT_TRUE(w.dialogs.questions.empty());
    EXPECT_EQ(w.label("StatusNote"), "nowhere: the folder is not there: nothing is written") << k;
    w.enter("E1Txt", "2");
  }
}

/// WCAG contrast of two colours.
double Contrast(const QColor& a, const QColor& b) {
  const auto luminance = [](const QColor& c) {
    const auto linear = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
  };
  const double high = std::max(luminance(a), luminance(b)), low = std::min(luminance(a), luminance(b));
  return (high + 0.05) / (low + 0.05);
}

TEST(Messages, AreReadableOnLightAndDarkWindows) {
  for (const auto& [ground, text] :
       {std::pair(QColor(0xEFEFEF), QColor(0x101010)), {QColor(0x2B2B2B), QColor(0xF0F0F0)}}) {
    Window w;
    QPalette palette = w.window.palette();
    palette.setColor(QPalette::Window, ground);
    palette.setColor(QPalette::WindowText, text);
    w.window.setPalette(palette);
    w.window.leggi({QString::fromStdString((w.folder / "gone.bin").string())});
    EXPECT_EQ(w.label("StatusNote"), "gone.bin: No such file or directory");
    double seen = 0;
    const QImage painted = Note(w)->grab().toImage();
    for (int y = 0; y < painted.height(); ++y) {
      for (int x = 0; x < painted.width(); ++x) seen = std::max(seen, Contrast(painted.pixelColor(x, y), ground));
    }
    EXPECT_GE(seen, 4.5);
    for (const Tone tone : {Tone::Plain, Tone::Success, Tone::Note, Tone::Fault}) {
      EXPECT_GE(Contrast(ColoreDi(tone, palette), ground), 4.5) << static_cast<int>(tone);
    }
    EXPECT_NE(ColoreDi(Tone::Note, palette), ColoreDi(Tone::Fault, palette));
  }
}

}  // namespace
}  // namespace corvan
