// The questions and their boxes: what stands in them, what each answer does, and that no answer does harm.
#include <QScreen>
#include <QStatusBar>
#include <QToolButton>
#include <set>

#include "app/QtDialogs.h"
#include "Hand.h"
#include "session/Controls.h"
#include "Window.h"

namespace corvan {
namespace {

using test::By;
using test::Hand;
using test::Reply;
using test::Track;
using test::Window;

QString Written(const Window& w, const char* name, const std::string& text) {
  return QString::fromStdString(w.folder.write(name, text).string());
}

std::string SixColumns(const char* ending) {
  std::string text;
  for (const char* minute : {"00", "01", "02", "03"}) {
    text += std::string("15/06/2026 06:") + minute + ":00 1 4524.5 900.5" + minute + " 3" + ending;
  }
  return text;
}

/// A file whose records all claim the fourth channel: how many there are is asked.
QString OneChannel(const Window& w) {
  auto records = test::Firings(3, 1);
  for (test::RecordValues& r : records) r.channel = 4;
  return Written(w, "one.bin", test::SyscalFile(records));
}

void Choose(Window& w, const char* first, const char* second) {
  w.key("Ctrl+1");
  w.enter("E1Txt", first);
  w.enter("E2txt", second);
}

/// Puts a question to the window, which is named "Corvan" and holds the plan of five measurements and a track.
struct Asked {
  Question question;
  std::function<void(Window&)> put;
  const char* details;
};

std::vector<Asked> AllQuestions() {
  const auto item = [](const char* name) { return [name](Window& w) { w.choose(name); }; };
  const auto save = [](const char* tick) {
    return [tick](Window& w) {
      Choose(w, "1", "4");
      w.key("Ctrl+S");
      w.tick("BinChk", false);
      w.tick(tick, true);
      w.press("SaveOutCmd");
    };
  };
  const auto track = [](const char* name, const std::string& text) {
    return [=](Window& w) { w.window.leggiTraccia(Written(w, name, text)); };
  };
  const auto columns = [](const char* name, const std::string& text) {
    return [=](Window& w) { w.window.leggi({Written(w, name, text)}); };
  };
  const std::string log =
      "$GPGGA,060000,4524.5,N,00900.5,E,1,9,1,0,M,0,M,,\r\n$GPGGA,060001,4524.6,N,00900.6,E,1,9,1,0,M,0,M,,\r\n";
  return {{Question::ChannelNumber, [](Window& w) { w.window.leggi({OneChannel(w)}); }, "one.bin"},
          {Question::ColumnNames, columns("columns.dat", "1 6 11 16 -0.24 288685.5 5030933.25\n"),
           "columns.dat names no columns. r in ohm, or u (mV)"},
          {Question::ElectrodeSpacing, columns("numbers.dat", "a b m n r x y\n1 2 3 4 -0.24 288685.5 5030933.25\n"),
           "numbers.dat: electrodes look like numbers. Metres from one to the next;"},
          {Question::CableConfiguration, item("CableConf"),
           "Names and places (m) of C1, C2, E1 to E11 by turns; for 1 file."},
          {Question::UtmZone, item("SetUtmZone"),
           "1 of 1 file does not state a zone: the eastings and northings there stay as they are."},
          {Question::TrackDate, track("log.nmea", log), "log.nmea"},
          {Question::BezierPoints, track("curve.sav", SixColumns("\r\n")),
           "curve.sav: 4 fixes. 2 or more points for each run of four; an empty answer keeps the fixes."},
          {Question::ClockOffset, item("LinkToGPST"), "track.csv"},
          {Question::ColourRange, item("SetRange"), "The data: "},
          {Question::MapLevel, item("MapLevel"), "Level 1 to 10, 0 for none. A width of 0 fits the picture."},
          {Question::Exaggeration, item("Exaggeration"), "1 shows the curtain as high as it is."},
          {Question::Connection,
           [](Window& w) { QTest::mouseClick(w.picture(), Qt::RightButton, Qt::ShiftModifier, w.place(5)); },
           "Number of the fix, 1 to 3 of track.csv"},
          {Question::CableOffset, save("TxtChk"), "Metres."},
          {Question::EchoOffset, save("TxtChk"), "Metres."},
          {Question::KmlOffset, save("KMLchk"), "An empty answer is 0."},
          {Question::FewFixes, track("few.gps", "15/06/2026 06:00:00 1 4524.5 900.5 3\r\n"),
           "few.gps: 1 fix for 5 measurements"},
          {Question::CorrectDepth,
           [](Window& w) {
             w.choose("SHelectrodes");
             w.choose("SHdepth");
             w.choose("SH2ndGps");
             QTest::mouseDClick(w.picture(), Qt::LeftButton, {}, w.place(5));
           },
           "Measurement 5 of plan.bin\n8 m becomes 7 m."}};
}

void Prepare(Window& w) {
  w.readPlan();
  w.window.leggiTraccia(Written(w, "track.csv", Track));
  w.dialogs.questions.clear();
  w.dialogs.messages.clear();
}

TEST(Questions, NameTheirFileOrMeasurement) {
  for (const Asked& asked : AllQuestions()) {
    Window w;
    Prepare(w);
    w.dialogs.messageAnswer = Answer::Cancel;
    w.dialogs.answers = {{Question::CableOffset, {"0"}}, {Question::EchoOffset, {"0"}}};
    asked.put(w);
    std::vector<test::Box> boxes = w.dialogs.questions;
    boxes.insert(boxes.end(), w.dialogs.messages.begin(), w.dialogs.messages.end());
    const auto found =
        std::find_if(boxes.begin(), boxes.end(), [&](const test::Box& b) { return b.question == asked.question; });
    const QuestionText& text = TestoDi(asked.question);
    ASSERT_NE(found, boxes.end()) << text.prompt;
    EXPECT_EQ(found->details.substr(0, std::string(asked.details).size()), asked.details) << text.prompt;
  }
}

TEST(Questions, OfZonesCountTheFilesThatStateNone) {
  Window w;
  w.readSample();
  w.choose("SetUtmZone");
  EXPECT_EQ(w.dialogs.questions.back().details, "All positions are converted into it.");
  w.chooseFormat(Qt::Key_End);
  const std::string plan = test::Slurp(w.plan());
  w.window.leggi({Written(w, "a.bin", plan), Written(w, "b.bin", plan)});
  w.choose("SetUtmZone");
  EXPECT_EQ(w.dialogs.questions.back().details,
            "2 of 2 files do not state a zone: the eastings and northings there stay as they are.");
}

// Texts that no box was made for. Where one is refused or read otherwise than typed, that is said.
const QString& LongText() {
  static const QString text(10000, QLatin1Char('9'));
  return text;
}
struct Nasty {
  QString text;
  bool said;
};
std::vector<Nasty> NastyTexts() {
  return {{"1e400", true},
          {"-1e400", true},
          {"nan", true},
          {"", false},
          {LongText(), true},
          {QString(10000, QLatin1Char('x')), true},
          {QString::fromUtf8("\u4e09\u5341 \u0663\u0662 \u202Eabc"), true},
          {"1\n2\r\n3", true},
          {"%s%n <b>&amp;</b> \\", true},
          {"99999999999999999999", false}};
}

TEST(TypedTexts, InEveryBoxAreAnsweredAndChangeNoSize) {
  Window w;
  Prepare(w);
  for (const char* key : {"Ctrl+1", "F8"}) w.key(key);
  QCoreApplication::processEvents();
  const QSize size = w.window.size(), bar = w.window.statusBar()->size(),
              least = w.window.statusBar()->minimumSizeHint();
  std::size_t boxes = 0;
  for (const Control& control : Controls()) {
    QString name = QLatin1String(control.name);
    if (!name.endsWith("_KeyPress")) continue;
    ++boxes;
    auto* box = w.get<QLineEdit>(name.chopped(9).toLatin1().constData());
    for (const Nasty& nasty : NastyTexts()) {
      w.enter("Phitxt", "0");  // a command that has nothing to say
      box->setFocus();
      box->selectAll();
      box->insert(nasty.text);
      box->setModified(true);
      QTest::keyClick(box, Qt::Key_Return);
      EXPECT_EQ(w.label("StatusNote") != "ready" || !nasty.said, true)
          << control.name << nasty.text.left(20).toStdString();
      EXPECT_LT(w.label("StatusNote").size(), 300U) << control.name;
      QCoreApplication::processEvents();
      EXPECT_EQ(w.window.size(), size) << control.name;
      EXPECT_EQ(w.window.statusBar()->size(), bar) << control.name;
      EXPECT_EQ(w.window.statusBar()->minimumSizeHint(), least) << control.name;
    }
  }
  EXPECT_EQ(boxes, 17U);
  EXPECT_FALSE(w.picture()->picture().isNull());
}

TEST(TypedTexts, AsAnswersToEveryQuestionAreAnsweredAndChangeNoSize) {
  std::set<Question> put;
  for (const Nasty& nasty : NastyTexts()) {
    for (const Asked& asked : AllQuestions()) {
      if (asked.question > Question::KmlOffset) continue;
      Window w;
      Prepare(w);
      w.dialogs.answers = {{Question::CableOffset, {"0"}}, {Question::EchoOffset, {"0"}}};
      w.dialogs.answers[asked.question] = {nasty.text.toStdString()};
      asked.put(w);
      QCoreApplication::processEvents();
      const char* prompt = TestoDi(asked.question).prompt;
      for (const test::Box& box : w.dialogs.questions) put.insert(box.question);
      const bool said = !w.session().findings().ultimi().empty();
      EXPECT_TRUE(said || !nasty.said) << prompt << nasty.text.left(20).toStdString();
      for (const Finding& f : w.session().findings().ultimi()) EXPECT_LT(f.reason.size(), 300U) << prompt;
      EXPECT_EQ(w.window.size(), QSize(1200, 800)) << prompt;
    }
  }
  // The zone of a track is asked for where a survey has none, which no survey of the window is without.
  EXPECT_EQ(put.size(), static_cast<std::size_t>(Question::KmlOffset)) << "all others were put";
}

TEST(RealBoxes, TakeTextsOfAnyKind) {
  QtDialogs real;
  Window w(&real);
  w.readPlan();
  for (const Nasty& nasty : NastyTexts()) {
    const std::string text = nasty.text.toStdString();
    Hand hand({{By::Ok, text.c_str()}});
    w.choose("SetUtmZone");
    EXPECT_EQ(w.label("StatusNote") != "ready" || text.empty(), true) << text.substr(0, 20);
    EXPECT_EQ(w.window.size(), QSize(1200, 800));
  }
}

// The plan's measurements are 4 s apart, the fixes 8 s: measurement 2 lies between fixes 1 and 2, and 4 s later on
// fix 2.
TEST(RealBoxes, OfTheClockOffsetLinkOrLeaveAll) {
  const struct {
    Reply reply;
    double east;
    const char* told;
  } cases[] = {{{By::Cancel, "4"}, 500002, "ready"},
               {{By::Escape, "4"}, 500002, "ready"},
               {{By::Ok, "1e400"}, 500002, "clock offset \"1e400\" is not "},
               {{By::Ok, "5000000000"}, 500002, "clock offset \"5000000000\" is"},
               {{By::Enter, ""}, 500001.5, "ready"},
               {{By::Ok, "soon"}, 500001.5, "clock offset is not a number f"},
               {{By::Enter, "4"}, 500003, "1 of 5 measurements"}};
  for (const auto& c : cases) {
    QtDialogs real;
    Window w(&real);
    w.readPlan();
    w.window.leggiTraccia(Written(w, "track.csv", Track));
    Hand hand({c.reply});
    w.key("Ctrl+L");
    EXPECT_EQ(hand.titles, std::vector<std::string>{"Link by Time"});
    EXPECT_EQ(hand.texts, std::vector<std::string>{"0"});
    EXPECT_NEAR(w.session().survey.dati().Misure(2).UTMx, c.east, 1e-6) << c.reply.text;
    EXPECT_EQ(w.label("StatusNote").substr(0, std::string(c.told).size()), c.told) << c.reply.text;
  }
}

TEST(RealBoxes, AskOnceBeforeFilesAreReplaced) {
  QtDialogs real;
  Window w(&real);
  w.readPlan();
  Choose(w, "1", "4");
  std::filesystem::create_directory(w.folder / "out");
  const Reply zero{By::Enter, "0"};
  const struct {
    std::vector<Reply> replies;
    bool replaced;
  } cases[] = {{{{By::Cancel}}, false},
               {{{By::Escape}}, false},
               {{{By::Enter}}, false},  // a hasty Enter replaces nothing
               {{{By::Ok}, zero, zero}, true}};
  for (const auto& c : cases) {
    w.folder.write("out/line.bin", "an older output");
    w.folder.write("out/line.ecst", "an older output");
    w.key("Ctrl+S");
    w.tick("EchoZChk", true);
    w.get<QLineEdit>("FileOutTxt")->setText("out/line");
    Hand hand(c.replies);
    hand.inspect = [](const QWidget& box) {
      EXPECT_FALSE(box.windowIcon().isNull());
      EXPECT_EQ(box.parentWidget()->objectName(), "Corvan");
    };
    w.press("SaveOutCmd");
    EXPECT_EQ(hand.titles.at(0), "Save File Out");
    EXPECT_EQ(hand.prompts.at(0), "Replace the files that are there?");
    EXPECT_EQ(hand.details.at(0), "In " + (w.folder / "out").string() + ":\nline.bin\nline.ecst");
    EXPECT_EQ(test::Slurp(w.folder / "out/line.bin") != "an older output", c.replaced);
    EXPECT_EQ(std::filesystem::exists(w.folder / "out/line.ecs"), c.replaced);
    EXPECT_EQ(w.label("StatusNote"),
              c.replaced ? "Written to " + (w.folder / "out").string() + ": line.bin, line.ecs, line.ecst"
                         : "nothing is written: the files that were there stay");
  }
}

TEST(RealBoxes, FitASmallScreenOverTheirWindowWhateverTheySay) {
  QtDialogs real;
  Window w(&real);
  w.window.resize(1024, 680);
  w.choose("ShowMessages");  // another window is the active one
  QCoreApplication::processEvents();
  std::string lines;
  for (int k = 0; k < 400; ++k) lines += "folder/with/a/name_" + std::to_string(k) + ".bin\n";
  for (const std::string& details : {std::string(10000, 'x'), lines, std::string("<b>one</b>.bin"), std::string()}) {
    const auto look = [&](QWidget& box) {
      QCoreApplication::processEvents();
      EXPECT_LE(box.width(), 1000);
      EXPECT_LE(box.height(), 640);
      EXPECT_EQ(box.parentWidget(), &w.window);
      const auto* text = box.findChild<QPlainTextEdit*>("BoxDetails");
      EXPECT_EQ(text == nullptr, details.empty());
      if (text == nullptr) return;
      const bool scrolls = details.size() > 1000;
      EXPECT_EQ(text->verticalScrollBarPolicy() == Qt::ScrollBarAsNeeded, scrolls);
      EXPECT_EQ(text->focusPolicy() == Qt::StrongFocus, scrolls) << "the keys scroll it";
      EXPECT_LE(text->document()->size().width(), text->viewport()->width());
    };
    Hand hand({{By::Escape}, {By::Escape}});
    hand.inspect = look;
    EXPECT_EQ(real.MsgBox({Question::ReplaceFiles, details}), Answer::Cancel);
    EXPECT_EQ(real.InputBox({.question = Question::Connection, .details = details, .number = 2, .measurement = 7}),
              std::nullopt);
    EXPECT_EQ(hand.titles, (std::vector<std::string>{"Save File Out", "Data n.7"}));
    EXPECT_EQ(hand.prompts[1], "Connection 2 (Data <--> GPS");
    EXPECT_EQ(hand.details[0], details);
  }
}

TEST(TargetFolder, IsShownChosenAndFollowsTheFolderOfFileIn) {
  QtDialogs real;
  Window w(&real);
  w.readPlan();
  Choose(w, "1", "4");
  w.key("Ctrl+S");
  const std::string here = w.folder.path().string();
  EXPECT_EQ(w.label("FolderLbl"), here);
  w.get<QLineEdit>("FileOutTxt")->setText("sub/line.v1");
  EXPECT_EQ(w.label("FolderLbl"), here + "/sub");
  w.get<QLineEdit>("FileOutTxt")->setText("line.v1");
  for (const char* name : {"in", "out"}) std::filesystem::create_directory(w.folder / name);
  w.key("Ctrl+O");
  auto* folders = w.get<QListWidget>("Dir1");
  static_cast<FrameFileIn*>(w.get<QGroupBox>("FrameFileIn"))->apriCartella(QString::fromStdString(here));
  for (int row = 0; row < folders->count(); ++row) {
    if (folders->item(row)->text().trimmed() == "in") folders->setCurrentRow(row);
  }
  QTest::keyClick(folders, Qt::Key_Return);
  EXPECT_EQ(w.label("FolderLbl"), here + "/in");
  const auto choose = [&](const Reply& reply) {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    Hand hand({reply});
    QTest::mouseClick(w.get<QToolButton>("FolderCmd"), Qt::LeftButton);
    EXPECT_EQ(hand.titles, std::vector<std::string>{"Folder of the outputs"});
  };
  const std::string out = (w.folder / "out").string();
  choose({By::Escape, out.c_str()});
  EXPECT_EQ(w.text("FileOutTxt"), "line.v1");
  choose({By::Enter, out.c_str()});
  EXPECT_EQ(w.text("FileOutTxt"), out + "/line.v1");
  EXPECT_EQ(w.label("FolderLbl"), out);
  Hand hand({{By::Enter, "0"}, {By::Enter, "0"}});
  w.press("SaveOutCmd");
  EXPECT_TRUE(std::filesystem::exists(w.folder / "out/line.v1.bin"));
}

TEST(Manual, ListsEveryQuestionWithItsTextAndTitle) {
  const std::string whole = test::Slurp(std::filesystem::path(CORVAN_SAMPLES).parent_path() / "docs/manual.md");
  const std::size_t from = whole.find("\n## Questions\n");
  ASSERT_NE(from, std::string::npos);
  const std::string section = whole.substr(from + 1, whole.find("\n## ", from + 1) - from);
  std::size_t rows = 0;
  for (std::size_t at = section.find("\n| `"); at != std::string::npos; at = section.find("\n| `", at + 1)) ++rows;
  EXPECT_EQ(rows, QuestionTable.size());
  for (const QuestionText& text : QuestionTable) {
    const auto quoted = [](std::string given) {
      given.erase(given.find_last_not_of(' ') + 1);
      return "`" + given + "`";
    };
    EXPECT_NE(section.find("\n| " + quoted(text.prompt)), std::string::npos) << text.prompt;
    if (*text.title != '\0') {
      EXPECT_NE(section.find(quoted(text.title)), std::string::npos) << text.title;
    }
  }
}

}  // namespace
}  // namespace corvan
