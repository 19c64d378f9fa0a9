// Each control, moved by mouse and keys, changes what it stands for and nothing else.
#include "base/NumberText.h"
#include "Window.h"

namespace corvan {
namespace {

using test::Window;

struct Step {
  const char* control;
  const char* typed;  ///< followed by Enter; none: a click
  const char* changes;
};

void Do(Window& w, const Step& step) {
  EXPECT_EQ(w.changes([&] {
    if (step.typed != nullptr) {
      w.enter(step.control, step.typed);
    } else if (qobject_cast<QPushButton*>(w.get<QAbstractButton>(step.control)) != nullptr) {
      w.press(step.control);
    } else {
      w.tick(step.control);
    }
  }),
            step.changes)
      << step.control;
}

// The angles lose and gain a degree; zoom 2 becomes 10^(log 2 + 0.1) = 2.51785; translations step by 0.1 m, and the
// depth's all show in the north box.
TEST(Wiring, OfBoxesAndStepButtonsGivesEachItsOwnValue) {
  Window w;
  w.readPlan();
  w.key("F4");
  w.key("F8");
  const Step steps[] = {{"Thetatxt", "80", "Thetatxt=80 theta=80 picture"},
                        {"Phitxt", "20", "Phitxt=20 phi=20 picture"},
                        {"GammaTxt", "-30", "GammaTxt=-30 gamma=-30 picture"},
                        {"Zoomtxt", "2", "Zoomtxt=2 zoom=2 picture"},
                        {"TestTxt", "1.5", "TestTxt=1.5 dataEast=1.5 picture"},
                        {"TnordTxt", "2.5", "TnordTxt=2.5 dataNorth=2.5 picture"},
                        {"DTestTxt", "3.5", "DTestTxt=3.5 depthEast=3.5 picture"},
                        {"DTnordTxt", "4.5", "DTnordTxt=4.5 depthNorth=4.5 picture"},
                        {"LeftThetacmd", nullptr, "Thetatxt=79. theta=79 picture"},
                        {"RightThetacmd", nullptr, "Thetatxt=80. theta=80 picture"},
                        {"RightPhicmd", nullptr, "Phitxt=21. phi=21 picture"},
                        {"LeftPhicmd", nullptr, "Phitxt=20. phi=20 picture"},
                        {"LeftGammaCmd", nullptr, "GammaTxt=-31. gamma=-31 picture"},
                        {"RightGammaCmd", nullptr, "GammaTxt=-30. gamma=-30 picture"},
                        {"MaxZoomcmd", nullptr, "Zoomtxt=2.52 zoom=2.51785 picture"},
                        {"MinZoomcmd", nullptr, "Zoomtxt=2. zoom=2 picture"},
                        {"EmCmd", nullptr, "TestTxt=1.4 dataEast=1.4 picture"},
                        {"EpCmd", nullptr, "TestTxt=1.5 dataEast=1.5 picture"},
                        {"NpCmd", nullptr, "TnordTxt=2.6 dataNorth=2.6 picture"},
                        {"NmCmd", nullptr, "TnordTxt=2.5 dataNorth=2.5 picture"},
                        {"DEmCmd", nullptr, "DTnordTxt=3.4 depthEast=3.4 picture"},
                        {"DEpCmd", nullptr, "DTnordTxt=3.5 depthEast=3.5 picture"},
                        {"DNpCmd", nullptr, "DTnordTxt=4.6 depthNorth=4.6 picture"},
                        {"DNmCmd", nullptr, "DTnordTxt=4.5 depthNorth=4.5 picture"}};
  for (const Step& step : steps) Do(w, step);
}

TEST(Wiring, OfProjectionsTopViewAndCentre) {
  Window w;
  w.readPlan();
  Do(w, {"Popt", nullptr, "Oopt=0 Popt=1 perspective=1 picture"});
  Do(w, {"Oopt", nullptr, "Oopt=1 Popt=0 perspective=0 picture"});
  Do(w, {"Popt", nullptr, "Oopt=0 Popt=1 perspective=1 picture"});
  w.enter("Thetatxt", "60");
  w.enter("GammaTxt", "15");
  w.enter("Phitxt", "20");
  w.enter("Zoomtxt", "2");
  Do(w, {"Mopt", nullptr,
         "GammaTxt=0. Oopt=1 Phitxt=20. Popt=0 Thetatxt=90. Zoomtxt=2. gamma=0 perspective=0 theta=90 picture"});
  w.enter("Thetatxt", "60");
  w.enter("GammaTxt", "15");
  w.get<QLineEdit>("Phitxt")->setText("35");  // without Enter
  Do(w,
     {"TopViewCmd", nullptr, "GammaTxt=0. Phitxt=35. Thetatxt=90. Zoomtxt=1. gamma=0 phi=35 theta=90 zoom=1 picture"});
  const QImage centred = w.picture()->picture().copy();
  EXPECT_EQ(w.changes([&] { w.drag(Qt::LeftButton, Qt::ControlModifier, {20, 100}, {90, 160}); }), "picture");
  Do(w, {"ResCmd", nullptr, "picture"});
  EXPECT_EQ(w.picture()->picture(), centred);
  Do(w, {"SaveCmd", nullptr, "outputs=1"});
  EXPECT_EQ(QImage("img0.bmp").convertToFormat(QImage::Format_RGB32), centred.convertToFormat(QImage::Format_RGB32));
}

TEST(Wiring, OfTheExtremes) {
  Window w;
  w.readPlan();
  w.key("Ctrl+1");
  Do(w, {"E1Txt", "2", "E1Txt=2 PrimoLbl=Prog. 2.5 picture"});
  Do(w, {"E2txt", "4", "E2txt=4 SecondoLbl=Prog. 7.5 picture"});
}

// A tick lets the mouse turn its angle: by 360 degrees across the picture, theta upwards, gamma (with Ctrl) downwards.
TEST(Wiring, OfTheAnglesTicksHoldsTheirAngleInADrag) {
  Window w;
  w.readPlan();
  const auto degrees = [&] {
    const ViewState& view = w.session().view.state();
    return std::array{InGradi(view.AngoloVista), InGradi(view.AngoloPhi), InGradi(view.AngoloGamma)};
  };
  const double phi = 100 * 360.0 / w.picture()->width(), up = 40 * 360.0 / w.picture()->height();
  const struct {
    const char* held;
    Qt::KeyboardModifier key;
    std::array<double, 3> turned;
  } cases[] = {{nullptr, Qt::NoModifier, {up, phi, 0}},    {nullptr, Qt::ControlModifier, {0, phi, -up}},
               {"ThetaChk", Qt::NoModifier, {0, phi, 0}},  {"ThetaChk", Qt::ControlModifier, {0, phi, -up}},
               {"PhiChk", Qt::NoModifier, {up, 0, 0}},     {"PhiChk", Qt::ControlModifier, {0, 0, -up}},
               {"GammaChk", Qt::NoModifier, {up, phi, 0}}, {"GammaChk", Qt::ControlModifier, {0, phi, 0}},
               {"ZoomChk", Qt::NoModifier, {up, phi, 0}}};
  for (const auto& c : cases) {
    if (c.held != nullptr) w.tick(c.held);
    const auto before = degrees();
    QTest::mousePress(w.picture(), Qt::LeftButton, {}, {20, 500});
    w.point({120, 460}, Qt::LeftButton, c.key);
    EXPECT_EQ(w.text("Thetatxt"), FormattaNumero(degrees()[0], "##0.#")) << "shown while it turns";
    QTest::mouseRelease(w.picture(), Qt::LeftButton, c.key, {120, 460});
    const char* held = c.held == nullptr ? "" : c.held;
    for (std::size_t k = 0; k < 3; ++k) EXPECT_NEAR(degrees()[k] - before[k], c.turned[k], 1e-9) << held << k;
    if (c.held != nullptr) w.tick(c.held);
  }
}

// The same numbers in the four formats: seconds 45.5 and 12.25, minutes, degrees, metres. Eastings and northings are
// those of a Krueger series of its own.
TEST(Wiring, OfTheFormatsListChangesWhatIsRead) {
  const struct {
    int entry;
    const char* name;
    double east, north;
    int zone;
  } cases[] = {{0, "DDMMSS", 166400.62, 1398.90, 31},
               {1, "DDMM:MMM", 188796.50, 83919.22, 31},
               {2, "DD.DDDDD", 285152.63, 5042175.41, 33},
               {3, "UTM", 12.25, 45.5, 32}};
  auto records = test::Firings(1, 10);
  for (auto& r : records) r.north = 45.5F, r.east = 12.25F;
  for (const auto& c : cases) {
    Window w;
    w.key("Ctrl+O");
    EXPECT_EQ(w.get<QComboBox>("LatLonCmbx")->currentText(), "DDMM:MMM") << "to begin with";
    w.chooseFormat(Qt::Key_Down, c.entry);
    EXPECT_EQ(w.get<QComboBox>("LatLonCmbx")->currentText(), c.name);
    w.window.leggi({QString::fromStdString(w.folder.write("one.bin", test::SyscalFile(records)).string())});
    const Misura& m = w.session().survey.dati().Misure(1);
    EXPECT_NEAR(m.UTMx, c.east, 0.5) << c.name;
    EXPECT_NEAR(m.UTMy, c.north, 0.5) << c.name;
    EXPECT_EQ(w.session().survey.dati().settings.ZonaUTM, c.zone) << c.name;
    EXPECT_EQ(w.get<QComboBox>("LatLonCmbx")->currentText(), c.name) << "stays";
  }
}

TEST(Wiring, OfFiltersAndPastGapsDecidesWhatAHoleBecomes) {
  const struct {
    const char* option;
    bool pastGaps;
    int read, discarded, interpolated;
  } cases[] = {{"Option1", false, 2, 0, 0},
               {"Option1", true, 6, 0, 0},
               {"Option2", true, 6, 1, 0},
               {"Option3", true, 6, 0, 1},
               {"Option3", false, 2, 0, 0}};
  auto records = test::Firings(6, 10);
  for (std::size_t r = 20; r < 30; ++r) records[r].east = records[r].north = 0;
  Window w;
  const auto file = QString::fromStdString(w.folder.write("hole.bin", test::SyscalFile(records)).string());
  for (const auto& c : cases) {
    w.key("Ctrl+O");
    w.tick(c.option);
    w.tick("PastGapsChk", c.pastGaps);
    w.window.leggi({file});
    EXPECT_EQ(w.session().survey.dati().NumMisure(), c.read) << c.option << c.pastGaps;
    EXPECT_EQ(w.session().survey.fixes().discarded, static_cast<std::size_t>(c.discarded)) << c.option;
    EXPECT_EQ(w.session().survey.fixes().interpolated, static_cast<std::size_t>(c.interpolated)) << c.option;
  }
}

TEST(Wiring, OfVolumesFoldersAndFiles) {
  Window w;
  std::filesystem::create_directory(w.folder / "inner");
  const std::string bytes = test::Slurp(w.plan());
  for (const char* name : {"inner/b.bin", "inner/a.bin", "inner/c.bin"}) w.folder.write(name, bytes);
  w.key("Ctrl+O");
  auto* volumes = w.get<QComboBox>("Drive1");
  auto* folders = w.get<QListWidget>("Dir1");
  auto* files = w.get<QListWidget>("File1");
  volumes->showPopup();
  QTest::keyClick(volumes->view(), Qt::Key_Home);
  QTest::keyClick(volumes->view(), Qt::Key_Return);
  EXPECT_EQ(QDir::currentPath(), volumes->itemData(0).toString());
  static_cast<FrameFileIn*>(w.get<QGroupBox>("FrameFileIn"))
      ->apriCartella(QString::fromStdString(w.folder.path().string()));
  const auto middle = [](QListWidget* list, int row) { return list->visualItemRect(list->item(row)).center(); };
  const int inner = folders->count() - 1;
  folders->scrollToItem(folders->item(inner));
  QTest::mouseClick(folders->viewport(), Qt::LeftButton, {}, middle(folders, inner));
  QTest::mouseDClick(folders->viewport(), Qt::LeftButton, {}, middle(folders, inner));
  EXPECT_EQ(std::filesystem::current_path().filename(), "inner") << "outputs go beside the data";
  w.tick("Option2");
  w.chooseFormat(Qt::Key_End);
  QTest::mouseClick(files->viewport(), Qt::LeftButton, {}, middle(files, 2));
  QTest::mouseClick(files->viewport(), Qt::LeftButton, Qt::ControlModifier, middle(files, 0));
  QTest::keyClick(files, Qt::Key_Return);
  ASSERT_EQ(w.session().survey.dati().files.size(), 2U);
  EXPECT_EQ(w.session().survey.dati().files[0].path.filename(), "a.bin") << "in the list's order";
  EXPECT_EQ(w.session().survey.dati().files[1].path.filename(), "c.bin");
  EXPECT_EQ(w.changes([&] { w.key("Ctrl+O"); }), "FrameFileIn=1");
  EXPECT_EQ(w.label("Donelbl"), "Read  10 meas.");
  Do(w, {"CancCmd", nullptr, "FrameFileIn=0"});
}

/// The latitude of the curtain's first corner.
double FirstLatitude(const std::string& kml) {
  const std::size_t at = kml.find("<coordinates>");
  return at == std::string::npos ? 0.0 : std::stod(kml.substr(kml.find(',', at) + 1));
}

// 2.7 degrees from the middle of zone 33 the given series loses 5.4 m of latitude (cs2cs), 4.9e-5 degrees.
TEST(Wiring, OfTheExactTickMovesTheCurtainToWhereItIs) {
  Window w;
  w.window.leggi({test::Samples + "/lagoon_1.bin"});
  w.section("1", "4");
  std::array<double, 2> latitudes{};
  for (const bool exact : {false, true}) {
    w.key("Ctrl+S");
    w.tick("BinChk", false);
    w.tick("KMLchk", true);
    w.tick("KmlExactChk", exact);
    w.dialogs.answers = {{Question::CableOffset, {"0"}}, {Question::EchoOffset, {"0"}}, {Question::KmlOffset, {"0"}}};
    w.enter("FileOutTxt", (w.folder / (exact ? "exact" : "given")).string().c_str());
    latitudes.at(exact ? 1 : 0) = FirstLatitude(test::Slurp(w.folder / (exact ? "exact.kml" : "given.kml")));
  }
  EXPECT_NEAR(latitudes[1] - latitudes[0], 4.9e-5, 0.3e-5);
  EXPECT_NEAR(latitudes[1], 45.4003662, 1e-6) << "as the file tells it";
}

// The lag of the true position is 2.5 m to the middle of the current dipole and the 7.5 m typed: 8 m west and 6 m south
// of the first firing. Electrodes stand on the cable's 5 m grid and 7.5 m further.
TEST(Wiring, OfTheOutputTicksDecidesWhichFilesAppearAndWhatTheyHold) {
  using Files = std::map<std::string, const char*>;
  const char* place = "\t500000.0\t5030000.0\r\n";
  const char* bottom = " 1            500000.0      5030000.0     4.0           0.0\r\n";
  const struct {
    std::vector<const char*> ticks;
    Files files;
  } cases[] = {{{}, {}},
               {{"BinChk"}, {{".bin", "myseq"}}},
               {{"TxtChk"}, {{".txt", place}}},
               {{"TxtChk", "ExtGPSChk"}, {{".txt", place}}},
               {{"TxtChk", "TruePosChk"}, {{".txt", "\t499992.0\t5029994.0\r\n"}}},
               {{"TxtChk", "TruePosChk", "ExtGPSChk"}, {{".txt", place}}},
               {{"EchoZChk"}, {{".ecs", bottom}, {".ecst", " 1            500000.0      5030000.0     "}}},
               {{"KMLchk"}, {{".kml", "UTMx: 500000.0 UTMy: 5030000.0 "}}},
               {{"ErtChk"}, {{".ohm", "# x z\n"}}},
               {{"ErtChk", "Ert3DChk"}, {{".ohm", "# x y z\n"}}},
               {{"BottomChk"}, {{"_bottom.csv", ",500000.0,5030000.0,"}}},
               {{"Res2dinvChk"}, {{".dat", "\r\n4 62.5 0.0 67.5 0.0 57.5 0.0 52.5 0.0 "}}},
               {{"GpkgChk"}, {{".gpkg", "SQLite format 3"}}},
               {{"GeojsonChk"}, {{".geojson", "\"layer\":\"section\""}}},
               {{"VtuChk"}, {{".vtu", "<UnstructuredGrid>"}}},
               {{"TPGChk"}, {}}};
  int number = 0;
  Window w;
  w.readPlan();
  w.key("Ctrl+1");
  w.section("1", "4");
  for (const auto& c : cases) {
    w.key("Ctrl+S");
    w.tick("BinChk", false);
    for (const char* name : c.ticks) w.tick(name);
    const std::string root = "line" + std::to_string(++number);
    auto* box = w.get<QLineEdit>("FileOutTxt");
    box->selectAll();
    QTest::keyClicks(box, QString::fromStdString(root));
    w.dialogs.answers = {{Question::CableOffset, {"7.5"}}, {Question::EchoOffset, {"0"}}, {Question::KmlOffset, {"0"}}};
    w.press("SaveOutCmd");
    EXPECT_FALSE(w.shown("FrameFileOut"));
    Files found;
    for (const auto& entry : std::filesystem::directory_iterator(w.folder.path())) {
      const std::string name = entry.path().filename().string(),
                        ending = name.substr(std::min(name.size(), root.size()));
      if (name.rfind(root, 0) == 0 && (ending[0] == '.' || ending[0] == '_')) found[ending] = "";
    }
    EXPECT_EQ(found.size(), c.files.size()) << root;
    for (const auto& [extension, held] : c.files) {
      const std::string text = test::Slurp(w.folder / (root + extension));
      EXPECT_NE(text.find(held), std::string::npos) << root << extension << ": " << text.substr(0, 300);
      EXPECT_NE(w.label("StatusNote").find(root + extension), std::string::npos) << w.label("StatusNote");
    }
    for (const char* name : c.ticks) w.tick(name, false);
  }
}

}  // namespace
}  // namespace corvan
