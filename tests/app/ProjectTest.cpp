// Projects in the window: saved and opened through real dialogs, dropped, and done again by the command line.
#include <map>
#include <QMimeData>
#include <QProcess>

#include "Hand.h"

namespace corvan {
namespace {

using test::By;
using test::Hand;
using test::Window;

/// The outputs in a folder by their names, a .bin without its header, which holds the time of writing.
std::map<std::string, std::string> Outputs(const test::TempFolder& folder) {
  std::map<std::string, std::string> all;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
    const std::string name = entry.path().filename().string();
    if (!name.starts_with("north")) continue;
    all[name] = test::Slurp(entry.path());
    if (name.ends_with(".bin")) all[name].erase(0, 60);
  }
  return all;
}

TEST(Projects, OfTheWindowAreDoneAgainByTheCommandLineAndByAnotherWindow) {
  Window w;
  w.readPlan();
  w.section("4", "2");
  w.key("Ctrl+Y");
  w.enter("MinPotentialTxt", "0.25");
  w.tick("DespikeChk");
  w.session().escludi({3, 7});
  w.dialogs.answers[Question::UtmZone] = {"31"};
  w.key("Ctrl+U");
  w.key("Ctrl+S");
  for (const char* box : {"BinChk", "TxtChk", "EchoZChk", "KMLchk", "ErtChk", "BottomChk", "Res2dinvChk", "GeojsonChk",
                          "VtuChk", "Ert3DChk", "TruePosChk"}) {
    w.tick(box, true);
  }
  w.get<QComboBox>("CableCmbx")->setFocus();
  QTest::keyClick(w.get<QComboBox>("CableCmbx"), Qt::Key_Down);
  w.dialogs.answers[Question::CableOffset] = {"8.5"};
  w.dialogs.answers[Question::EchoOffset] = {"1.25"};
  w.dialogs.answers[Question::KmlOffset] = {"3"};
  w.enter("FileOutTxt", "north");
  const auto written = Outputs(w.folder);
  EXPECT_EQ(written.size(), 10U);
  {
    Hand hand({{By::Ok, "run"}});
    w.key("Ctrl+Shift+J");
  }
  ASSERT_TRUE(std::filesystem::exists(w.folder / "run.corvan")) << "with the ending that was not typed";
  for (const auto& [name, bytes] : written) std::filesystem::remove(w.folder / name);
  QProcess program;
  program.setWorkingDirectory(QString::fromStdString(w.folder.path().string()));
  program.start(CORVAN_CLI, {"process", "--project", "run.corvan"});
  ASSERT_TRUE(program.waitForFinished(30000));
  for (const auto& [name, bytes] : Outputs(w.folder)) {
    ASSERT_TRUE(written.contains(name)) << name;
    EXPECT_TRUE(bytes == written.at(name)) << name;
  }
  EXPECT_EQ(Outputs(w.folder).size(), written.size());

  Window other;
  std::filesystem::current_path(w.folder.path());
  {
    Hand hand({{By::Ok, "run.corvan"}});
    other.key("Ctrl+J");
  }
  EXPECT_EQ(other.session().survey.dati().NumMisure(), 5);
  EXPECT_EQ(other.session().survey.dati().settings.ZonaUTM, 31);
  EXPECT_EQ(other.text("E1Txt") + "-" + other.text("E2txt"), "4-2");
  EXPECT_EQ(other.session().survey.qualita().limiti().potenziale, 0.25);
  EXPECT_EQ(other.session().survey.dati().qualita.aMano.size(), 1U);
  other.key("Ctrl+S");
  EXPECT_TRUE(other.get<QCheckBox>("VtuChk")->isChecked());
  EXPECT_FALSE(other.get<QCheckBox>("GpkgChk")->isChecked());
  EXPECT_EQ(other.get<QComboBox>("CableCmbx")->currentIndex(), 1);
  EXPECT_FALSE(other.get<QAction>("Undo")->isEnabled());
}

TEST(Projects, AreOpenedWhereTheyAreDroppedAndTellOfFilesBesideThem) {
  Window made;
  made.readPlan();
  {
    Hand hand({{By::Ok, "run.corvan"}});
    made.choose("SaveProject");
  }
  Window w;
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString((made.folder / "plan.bin").string())),
                QUrl::fromLocalFile(QString::fromStdString((made.folder / "run.corvan").string()))});
  QDragEnterEvent enter(QPoint(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&w.window, &enter);
  QDropEvent drop(QPointF(300, 300), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&w.window, &drop);
  EXPECT_EQ(w.session().survey.dati().NumMisure(), 5);
  ASSERT_TRUE(w.session().findings().anyFault());
  const Finding& told = w.session().findings().entries().back();
  EXPECT_EQ(told.file, "1 other file");
  {
    Hand hand({{By::Escape, nullptr}});
    w.choose("OpenProject");
  }
  EXPECT_EQ(w.session().survey.dati().NumMisure(), 5);
}

}  // namespace
}  // namespace corvan
