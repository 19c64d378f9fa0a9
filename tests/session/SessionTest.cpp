// The program's commands from files to written section, as an operator would press them.
#include "session/Session.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "support/SurveyFiles.h"
#include "view3d/BufferCanvas.h"

namespace corvan {
namespace {

const std::filesystem::path Samples = CORVAN_SAMPLES;

struct Fixture {
  test::TempFolder folder;
  test::ScriptedAnswers dialogs;
  Session session{dialogs, [] { return DateTime{2026, 6, 15, 12, 0, 0}; }};

  Fixture() { session.FrameFileOut.FileOutTxt = (folder / "section").string(); }

  void read(const std::vector<std::filesystem::path>& files) {
    session.FrameFileIn.File1 = files;
    session.ConvertAsciiCmd_Click();
  }
  void readSample(const char* extension = ".bin") {
    session.FrameFileIn.pastGaps = true;
    read({Samples / (std::string("lagoon_1") + extension), Samples / (std::string("lagoon_2") + extension)});
  }
  void readFirings(std::size_t count) {
    read({folder.write("survey.bin", test::SyscalFile(test::Firings(count, 10)))});
  }
  const Misura& m(std::size_t k) const { return session.survey().Misure(k); }
  std::string output(const char* extension) const { return test::Slurp(folder / (std::string("section") + extension)); }
  bool faulty() const { return session.diagnostics().anyFault(); }
};

TEST(ReadFile, GivesTheSampleSurveyWithItsLostFixesTreated) {
  Fixture f;
  f.session.FrameFileIn.Option1 = false;
  f.session.FrameFileIn.Option3 = true;
  f.readSample();
  EXPECT_EQ(f.session.survey().NumMisure(), 438);  // two lines of 220 but for the two firings before the first fix
  EXPECT_EQ(f.session.fixes().interpolated, 5U);
  EXPECT_FALSE(f.faulty());
  EXPECT_EQ(f.session.FrameFileIn.Donelbl, "Read  438 meas.");
  EXPECT_EQ(f.session.FrameExtrema.E1Txt, "1");
  EXPECT_EQ(f.session.FrameExtrema.E2txt, "438");
  EXPECT_EQ(f.session.FrameExtrema.PrimoLbl.Caption, "Extreme 1");
  EXPECT_EQ(f.session.StatoSelezione(), 0) << "preset extremes select nothing yet";
  EXPECT_EQ(f.session.InfoLbl.Caption, "WGS 84 - UTM 33");
  EXPECT_EQ(f.session.survey().settings.ZonaUTM, 33);
  EXPECT_TRUE(f.session.FrameFileIn.Option3) << "the choice survives the reset";
  // Where the water is deep the cable sees water only: 0.42 ohm m within the 2 % noise that was put in.
  for (std::size_t k = 1; k <= 438; ++k) {
    if (f.m(k).Val12 < 11.9F) continue;
    EXPECT_NEAR(f.m(k).Rho[1], 0.42, 0.42 * 0.1) << k;
  }
}

TEST(ReadFile, GivesTheSameFromBothFormsOfTheSample) {
  Fixture bin;
  Fixture text;
  bin.readSample(".bin");
  text.readSample(".txt");
  ASSERT_EQ(bin.session.survey().NumMisure(), text.session.survey().NumMisure());
  for (std::size_t k = 1; k <= 438; ++k) {
    const Misura& a = bin.m(k);
    const Misura& b = text.m(k);
    ASSERT_EQ(a.Rho, b.Rho) << k;
    ASSERT_EQ(a.Elettrodi, b.Elettrodi) << k;
    ASSERT_EQ(a.CanaleB, b.CanaleB) << k;
    ASSERT_EQ(a.UTMx, b.UTMx) << k;
    ASSERT_EQ(a.Val12, b.Val12) << k;
  }
}

TEST(ReadFile, StartsFromTheSameStateEveryTime) {
  Fixture f;
  f.readFirings(5);
  f.dialogs.answers["UTM Zone n. "] = {"31"};
  f.session.SetUtmZone_Click();
  EXPECT_EQ(f.session.survey().settings.ZonaUTM, 31);
  f.session.EpCmd_Click();
  f.session.ptlbl_Click(1);
  f.readFirings(3);
  EXPECT_EQ(f.session.survey().NumMisure(), 3);
  EXPECT_EQ(f.session.survey().settings.ZonaUTM, 33);
  EXPECT_EQ(f.session.survey().settings.TraslDatiEst, 0);
  EXPECT_EQ(f.session.StatoSelezione(), 0);
}

TEST(ReadFile, GoesOnWithTheNextFileAfterABadOne) {
  Fixture f;
  const auto good = f.folder.write("good.bin", test::SyscalFile(test::Firings(4, 10)));
  f.read({f.folder / "missing.bin", good, f.folder.write("empty.bin", ""), good});
  EXPECT_EQ(f.session.survey().NumMisure(), 8);
  EXPECT_EQ(f.m(8).NumFile, 4) << "a file keeps its place in the batch";
  ASSERT_EQ(f.session.diagnostics().entries().size(), 2U);
  EXPECT_NE(f.session.diagnostics().entries()[0].reason.find("missing.bin: No such file"), std::string::npos);
}

TEST(ReadFile, OfNothingLeavesNothingAndDoesNotFail) {
  Fixture f;
  f.readFirings(3);
  f.read({});
  EXPECT_EQ(f.session.survey().NumMisure(), 0);
  EXPECT_EQ(f.session.FrameFileIn.Donelbl, "Read  0 meas.");
  EXPECT_EQ(f.session.FrameExtrema.E2txt, "0");
  EXPECT_FALSE(f.faulty());
}

TEST(ReadFile, TellsOfBadPositionsOnlyWithoutAFilter) {
  auto records = test::Firings(3, 10);
  for (std::size_t k = 10; k < 20; ++k) records[k].east = 0;
  Fixture f;
  const auto file = f.folder.write("gap.bin", test::SyscalFile(records));
  f.read({file});
  EXPECT_EQ(f.session.InfoLbl.Caption, "Some Data have incorrect GPS position");
  f.session.FrameFileIn.Option1 = false;
  f.session.FrameFileIn.Option2 = true;
  f.read({file});
  EXPECT_EQ(f.session.InfoLbl.Caption, "WGS 84 - UTM 33");
  EXPECT_TRUE(f.m(2).Scartata);
}

TEST(UtmFiles, KeepTheirPlanePositionsInEveryZone) {
  auto records = test::Firings(2, 10);
  for (std::size_t k = 0; k < records.size(); ++k) {
    records[k].north = 5030000.5F + static_cast<float>(k / 10);
    records[k].east = 292000.25F;
  }
  Fixture f;
  f.session.FrameFileIn.LatLonCmbx = CoordinateEntry::UTM;
  f.session.FrameFileIn.south = true;
  f.read({f.folder.write("utm.bin", test::SyscalFile(records))});
  EXPECT_EQ(f.session.survey().settings.ZonaUTM, 32) << "stated by the user, not guessed";
  const double lon = f.m(1).Lon;
  EXPECT_LT(f.m(1).Lat, 0) << "southern hemisphere";
  f.dialogs.answers["UTM Zone n. "] = {"33"};
  f.session.SetUtmZone_Click();
  EXPECT_NEAR(f.m(1).Lon - lon, 600, 1e-4) << "six degrees, as DDDMM";
  EXPECT_EQ(f.m(1).UTMy, 5030000.5);
  f.session.SetUtmZone_Click();  // Cancel
  EXPECT_EQ(f.session.survey().settings.ZonaUTM, 32);
  EXPECT_EQ(f.m(1).Lon, lon);
}

TEST(Boxes, AskWithTheirTextsAndDefaults) {
  Fixture f;
  f.readFirings(3);
  f.session.CableConf_Click();
  f.session.SetUtmZone_Click();
  f.session.SetRange_Click();
  ASSERT_EQ(f.dialogs.questions.size(), 3U);
  EXPECT_EQ(f.dialogs.questions[0].prompt, "Set String");
  EXPECT_EQ(f.dialogs.questions[0].title, "Cable Configuration");
  EXPECT_EQ(f.dialogs.questions[0].defaultAnswer.substr(0, 18), "C1  55 C2  60 E1  ");
  EXPECT_EQ(f.dialogs.questions[1].prompt, "UTM Zone n. ");
  EXPECT_EQ(f.dialogs.questions[1].title, "Set Universal Trasverse Mercatore Zone");
  EXPECT_EQ(f.dialogs.questions[1].defaultAnswer, "33");
  EXPECT_EQ(f.dialogs.questions[2].prompt, "Scale (Min; Max)");
  EXPECT_EQ(f.dialogs.questions[2].title, "Set Colour Scale Range");
}

TEST(CableConfiguration, ChangesFactorsAndResistivities) {
  Fixture f;
  f.readFirings(3);
  const float before = f.m(1).Rho[1];
  f.dialogs.answers["Set String"] = {
      "C1 110 C2 120 E1 100 E2 90 E3 80 E4 70 E5 60 E6 50 E7 40 E8 30 E9 20 E10 10 E11 0"};
  f.session.CableConf_Click();
  EXPECT_FLOAT_EQ(f.m(1).Rho[1], 2 * before) << "twice the cable, twice the factor";
  EXPECT_EQ(f.session.survey().cavo.PosCavo[12], 110);
  f.dialogs.answers["Set String"] = {"C1 1e99"};
  f.session.CableConf_Click();
  EXPECT_EQ(f.session.survey().cavo.PosCavo[12], 110) << "an answer that cannot be read changes nothing";
  EXPECT_TRUE(f.faulty());
}

TEST(ColourRange, IsTakenOnlyWithItsSemicolon) {
  Fixture f;
  f.readFirings(3);
  f.dialogs.answers["Scale (Min; Max)"] = {"7 9", "10;", "2.5 m; 1"};
  const float max = f.session.colours().ScalaMax;
  f.session.SetRange_Click();
  EXPECT_EQ(f.session.colours().ScalaMax, max);
  f.session.SetRange_Click();
  EXPECT_EQ(f.session.colours().ScalaMin, 10);
  EXPECT_EQ(f.session.colours().ScalaMax, 0);
  f.session.SetRange_Click();
  EXPECT_EQ(f.session.colours().ScalaMin, 2.5F);
}

TEST(Selection, ClearsOnTheThirdClickAndIgnoresWhatIsNoMeasurement) {
  Fixture f;
  f.readFirings(5);
  for (const std::int32_t none : {0, -3, 6}) f.session.ptlbl_Click(none);
  EXPECT_EQ(f.session.StatoSelezione(), 0);
  f.session.ptlbl_Click(4);
  EXPECT_EQ(f.session.FrameExtrema.E1Txt, "4");
  EXPECT_EQ(f.session.FrameExtrema.PrimoLbl.Tag, "4");
  EXPECT_EQ(f.session.FrameExtrema.PrimoLbl.Caption.substr(0, 47), "File.survey.bin Data. 15/06/2026 06:00:00 Lg.12");
  f.session.FrameExtrema.E2txt = "2 ";
  f.session.E2txt_KeyPress('2');
  EXPECT_EQ(f.session.StatoSelezione(), 1);
  f.session.E2txt_KeyPress(EnterKey);
  EXPECT_EQ(f.session.StatoSelezione(), 2);
  f.session.ptlbl_Click(1);
  EXPECT_EQ(f.session.StatoSelezione(), 0);
  EXPECT_EQ(f.session.FrameExtrema.E1Txt, "");
  EXPECT_EQ(f.session.FrameExtrema.SecondoLbl.Caption, "");
}

TEST(DepthCorrection, TakesTheNeighboursDepth) {
  auto records = test::Firings(3, 10);
  for (std::size_t k = 0; k < 30; ++k) records[k].depth = static_cast<float>(k / 10 * k / 10 + 1);
  Fixture f;
  f.read({f.folder.write("survey.bin", test::SyscalFile(records))});
  const float first = f.m(1).Val12;
  const float second = f.m(2).Val12;
  const float third = f.m(3).Val12;
  f.session.dptlbl_DblClick(2);
  EXPECT_EQ(f.m(2).Val12, (first + third) / 2);
  f.session.dptlbl_DblClick(3);
  EXPECT_EQ(f.m(3).Val12, f.m(2).Val12);
  f.dialogs.messageAnswer = Answer::Cancel;
  f.session.dptlbl_DblClick(1);
  EXPECT_EQ(f.m(1).Val12, first);
  EXPECT_NE(f.m(2).Val12, second);
  EXPECT_EQ(f.dialogs.messages.at(0).text, "Correct Depth Value?");
  EXPECT_EQ(f.dialogs.messages.at(0).buttons, Buttons::OkCancel);
}

TEST(Translations, ShowTheirValueInTheBoxesTheyAlwaysDid) {
  Fixture f;
  f.readFirings(3);
  f.session.EpCmd_Click();
  f.session.EpCmd_Click();
  f.session.NmCmd_Click();
  EXPECT_EQ(f.session.FrameDataMove.TestTxt, "0.2");
  EXPECT_EQ(f.session.FrameDataMove.TnordTxt, "-0.1");
  f.session.DEpCmd_Click();
  EXPECT_EQ(f.session.FrameDataMove.DTnordTxt, "0.1") << "the east button shows its value in the north box";
  EXPECT_EQ(f.session.FrameDataMove.DTestTxt, "0.0");
  EXPECT_FLOAT_EQ(f.session.survey().settings.TraslFondoEst, 0.1F);
  f.session.FrameDataMove.TnordTxt = "12.5 m";
  f.session.TnordTxt_KeyPress(EnterKey);
  EXPECT_EQ(f.session.survey().settings.TraslDatiNord, 12.5);
}

TEST(SaveSection, NeedsTwoExtremes) {
  Fixture f;
  f.readFirings(3);
  f.session.FrameFileOut.BinChk = true;
  f.session.ptlbl_Click(1);
  f.session.SaveOutCmd_Click();
  ASSERT_EQ(f.dialogs.messages.size(), 1U);
  EXPECT_EQ(f.dialogs.messages[0].text, "No points selected");
  EXPECT_TRUE(f.session.outputs().empty());
}

TEST(SaveSection, WritesWhatIsTickedTheSameEveryTimeAndInEitherOrder) {
  Fixture f;
  f.readSample();
  OutputPanel& out = f.session.FrameFileOut;
  f.session.SaveEcho_Click();
  EXPECT_TRUE(out.EchoZChk && !out.BinChk && out.visible);
  out.BinChk = out.TxtChk = out.KMLchk = out.TruePosChk = true;
  f.session.ptlbl_Click(30);
  f.session.ptlbl_Click(12);
  const std::vector<std::string> offset{"4.5", "4.5"};
  f.dialogs.answers["Distance of the first floating Electrode from Syscal"] = offset;
  f.session.SaveOutCmd_Click();
  EXPECT_EQ(f.session.outputs().size(), 5U);
  EXPECT_FALSE(out.visible);
  ASSERT_TRUE(f.session.section());
  EXPECT_EQ(f.session.section()->from, 12);
  EXPECT_EQ(f.session.section()->points, 19);
  const std::string once =
      f.output(".bin") + f.output(".txt") + f.output(".ecs") + f.output(".ecst") + f.output(".kml");
  EXPECT_EQ(f.output(".bin").size(), 1029U + 280 * 190);
  f.session.SaveOutCmd_Click();
  EXPECT_EQ(f.output(".bin") + f.output(".txt") + f.output(".ecs") + f.output(".ecst") + f.output(".kml"), once);
  EXPECT_EQ(f.dialogs.questions.at(0).title, "Set Cable Offset Value ");
  EXPECT_EQ(f.dialogs.questions.at(1).prompt, "Distance of EchoSounder from Syscal");
  EXPECT_EQ(f.dialogs.questions.at(1).title, "Set EchoSounder Offset Value ");
  EXPECT_EQ(f.dialogs.questions.at(3).defaultAnswer, "4.5") << "the last answer is the next default";
}

TEST(SaveSection, WritesTheOtherFormatsWhenOneCannotBe) {
  Fixture f;
  f.readFirings(3);
  std::filesystem::create_directory(f.folder / "section.txt");
  f.session.FrameFileOut.BinChk = f.session.FrameFileOut.TxtChk = f.session.FrameFileOut.KMLchk = true;
  f.session.ptlbl_Click(1);
  f.session.ptlbl_Click(3);
  f.session.SalvaEstrattoFile();
  EXPECT_EQ(f.session.outputs().size(), 2U);
  ASSERT_TRUE(f.faulty());
  EXPECT_NE(f.session.diagnostics().entries().back().reason.find("section.txt: Is a directory"), std::string::npos);
}

TEST(SaveSection, NeverReplacesAFileThatWasRead) {
  Fixture f;
  f.readFirings(3);
  const std::string before = test::Slurp(f.folder / "survey.bin");
  f.session.FrameFileOut.FileOutTxt = (f.folder / "survey").string();
  f.session.FrameFileOut.BinChk = true;
  f.session.ptlbl_Click(1);
  f.session.ptlbl_Click(3);
  f.session.SalvaEstrattoFile();
  EXPECT_EQ(test::Slurp(f.folder / "survey.bin"), before);
  EXPECT_TRUE(f.faulty());
}

// A written section is a survey again: read back as UTM it holds the same readings at the same places.
TEST(SaveSection, GivesAFileThatReadsBack) {
  Fixture f;
  f.readSample();
  f.session.FrameFileOut.BinChk = true;
  f.session.ptlbl_Click(5);
  f.session.ptlbl_Click(24);
  f.session.SalvaEstrattoFile();
  Fixture back;
  back.session.FrameFileIn.LatLonCmbx = CoordinateEntry::UTM;
  back.dialogs.answers["Set Channel Number"] = {"10"};
  back.read({f.folder / "section.bin"});
  ASSERT_EQ(back.session.survey().NumMisure(), 20);
  for (std::size_t k = 1; k <= 20; ++k) {
    EXPECT_EQ(back.m(k).UTMx, static_cast<double>(static_cast<float>(std::round(f.m(k + 4).UTMx * 100) / 100)));
    EXPECT_EQ(back.m(k).CanaleA[3], f.m(k + 4).CanaleA[3]);
    EXPECT_EQ(back.m(k).Val180, f.m(k + 4).Val180);
  }
}

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

struct TrackFixture : Fixture {
  TrackFixture() { readSample(); }
  void load(const char* ending) { session.LeggiGPSEsterno(Samples / (std::string("lagoon_track.") + ending)); }
};

/// How far a measurement lies from the leg of the track at its time, m.
double DistanceToTrack(const Survey& survey, std::size_t k) {
  const Misura& m = survey.Misure(k);
  const auto& fixes = survey.tracciaEst.PuntiGPSEst;
  std::size_t j = 1;
  while (j + 2 < fixes.size() && fixes(j + 1).DataOra < m.Tempo) ++j;
  const double dx = fixes(j + 1).X - fixes(j).X, dy = fixes(j + 1).Y - fixes(j).Y;
  return std::abs((m.UTMx - fixes(j).X) * dy - (m.UTMy - fixes(j).Y) * dx) / std::hypot(dx, dy);
}

TEST(ExternalTracks, GiveTheMeasurementsTheirPlaceInEveryForm) {
  for (const char* ending : {"csv", "nav", "sav", "gps"}) {
    TrackFixture f;
    const std::size_t notes = f.session.diagnostics().entries().size();
    std::vector<std::pair<double, double>> before;
    for (std::size_t k = 1; k <= 438; ++k) before.emplace_back(f.m(k).UTMx, f.m(k).UTMy);
    f.load(ending);
    EXPECT_TRUE(f.session.view().MostraGPS2) << ending;
    EXPECT_EQ(f.session.scene().gps.size(), 795U) << ending;
    f.session.LinkDataGPST();
    EXPECT_FALSE(f.session.view().MostraGPS2) << "the link hides the track";
    ASSERT_TRUE(f.session.timeLink());
    EXPECT_EQ(f.session.timeLink()->exact + f.session.timeLink()->between, 438U);
    // The antenna stands 2 m east and 1 m north of the instrument's; on the grid of zone 33 that arm is turned by the
    // convergence of 1.92 degrees at 12.3 E. The instrument's latitudes are rounded to 0.9 m as singles.
    const double east = 2.0 * std::cos(0.0335) + 1.0 * std::sin(0.0335);
    const double north = -2.0 * std::sin(0.0335) + 1.0 * std::cos(0.0335);
    double sumEast = 0, sumNorth = 0;
    std::size_t compared = 0;
    for (std::size_t k = 1; k <= 438; ++k) {
      EXPECT_LT(DistanceToTrack(f.session.survey(), k), 1e-6) << ending << " " << k;
      if (before[k - 1].first == 0.0) continue;
      sumEast += f.m(k).UTMx - before[k - 1].first;
      sumNorth += f.m(k).UTMy - before[k - 1].second;
      ++compared;
    }
    EXPECT_EQ(compared, 433U);
    EXPECT_NEAR(sumEast / 433, east, 0.03) << ending;
    EXPECT_NEAR(sumNorth / 433, north, 0.06) << ending;
    EXPECT_TRUE(f.m(61).SorgenteUTM) << "measurements without a fix of their own have one now";
    EXPECT_NE(f.m(61).UTMx, 0.0);
    EXPECT_EQ(f.session.fixes().bad, 0U);
    const double x = f.m(200).UTMx;
    f.session.LinkDataGPST();
    EXPECT_EQ(f.m(200).UTMx, x) << "linking again moves nothing";
    EXPECT_EQ(f.session.diagnostics().entries().size(), notes) << ending;
  }
}

TEST(ExternalTracks, OfAnotherDayAreTold) {
  TrackFixture f;
  f.load("nav");
  f.session.LinkDataGPST(3 * 86400.0);
  EXPECT_EQ(f.session.timeLink()->outside, 438U);
  EXPECT_TRUE(f.faulty());
  EXPECT_NE(f.session.diagnostics().entries().back().reason.find("by up to 3. days"), std::string::npos)
      << f.session.diagnostics().entries().back().reason;
}

TEST(ExternalTracks, ThatHoldNothingDiscardEveryMeasurement) {
  TrackFixture f;
  f.session.LinkDataGPST();
  EXPECT_FALSE(f.session.timeLink()) << "nothing was ever loaded";
  f.session.LeggiGPSEsterno(f.folder.write("empty.csv", "header\n"));
  f.session.LinkDataGPST();
  EXPECT_TRUE(f.m(5).Scartata);
  EXPECT_FALSE(f.session.scene().cells.columns(5).present);
}

TEST(ExternalTracks, WithTooFewLinesAskAndCancelLeavesAllAsItWas) {
  TrackFixture f;
  f.load("gps");
  const auto few = f.folder.write("few.gps", "15/06/2026 08:00:00 1 4524.5 1218.5 3\r\n");
  f.dialogs.messageAnswer = Answer::Cancel;
  f.session.LeggiGPSEsterno(few);
  EXPECT_EQ(f.session.survey().tracciaEst.NumGPSEst(), 795);
  f.dialogs.messageAnswer = Answer::Ok;
  f.session.LeggiGPSEsterno(few);
  EXPECT_EQ(f.session.survey().tracciaEst.NumGPSEst(), 1);
  EXPECT_EQ(f.dialogs.messages.back().text, "not enough GPS points");
  f.session.LeggiGPSEsterno("");
  EXPECT_EQ(f.session.survey().tracciaEst.NumGPSEst(), 1);
}

TEST(ExternalTracks, FarFromTheSurveyAreTold) {
  TrackFixture f;
  f.dialogs.answers["UTM Zone n. "] = {"32"};
  f.session.SetUtmZone_Click();
  f.load("csv");  // eastings of zone 33
  EXPECT_NE(f.session.diagnostics().entries().back().reason.find("km from the survey (is the UTM zone right?)"),
            std::string::npos);
}

TEST(ExternalTracks, AreSeenWithoutASurvey) {
  Fixture f;
  f.session.LeggiGPSEsterno(Samples / "lagoon_track.nav");
  EXPECT_GT(f.session.view().Lato, 800.0F);
  EXPECT_LT(std::abs(f.session.scene().gps(1).x), 1000.0F);
}

TEST(ExternalTracks, MoveWithTheZoneOfTheSurvey) {
  Fixture f;
  f.session.LeggiGPSEsterno(Samples / "lagoon_track.nav");
  f.readSample();
  const PuntoGPSEst first = f.session.survey().tracciaEst.PuntiGPSEst(1);
  EXPECT_NEAR(first.X, f.m(3).UTMx, 50);
  f.dialogs.answers["UTM Zone n. "] = {"32"};
  f.session.SetUtmZone_Click();
  EXPECT_NEAR(f.session.survey().tracciaEst.PuntiGPSEst(1).X, f.m(3).UTMx, 50) << "in the other zone, too";
  EXPECT_GT(f.m(3).UTMx, 700000);
}

TEST(Connections, ArePickedTwiceAndClearedByTheThirdPick) {
  TrackFixture f;
  f.session.ptlbl_Collega(10);
  EXPECT_TRUE(f.dialogs.questions.empty()) << "no track is shown";
  f.load("nav");
  f.session.LinkDataGPSP();
  EXPECT_EQ(f.dialogs.messages.back().text, "You must define two connection before link data and gps");
  f.session.ptlbl_Collega(10);
  EXPECT_EQ(f.session.NumCollegamenti(), 0) << "cancelled";
  EXPECT_EQ(f.dialogs.questions.back().prompt, "Connection 1 (Data <--> GPS");
  EXPECT_EQ(f.dialogs.questions.back().title, "Data n.10");
  f.dialogs.answers = {{"Connection 1 (Data <--> GPS", {"20"}}, {"Connection 2 (Data <--> GPS", {"20", "9999"}}};
  f.session.ptlbl_Collega(10);
  f.session.ptlbl_Collega(200);
  f.session.LinkDataGPSP();
  EXPECT_EQ(f.dialogs.messages.back().text, "Something wrong");
  f.session.ptlbl_Collega(10);
  EXPECT_EQ(f.session.NumCollegamenti(), 0) << "the third pick";
  f.dialogs.answers["Connection 1 (Data <--> GPS"] = {"20"};
  f.session.ptlbl_Collega(10);
  f.session.ptlbl_Collega(200);
  const double outside = f.m(300).UTMx;
  f.session.LinkDataGPSP();
  const auto& fixes = f.session.survey().tracciaEst.PuntiGPSEst;
  EXPECT_NEAR(f.m(10).UTMx, fixes(20).X, 1e-6);
  EXPECT_NEAR(f.m(200).UTMx, fixes(795).X, 1e-6) << "a number past the end is the last fix";
  EXPECT_EQ(f.m(300).UTMx, outside);
  EXPECT_TRUE(f.session.view().MostraGPS2);
}

TEST(Fixes, ChooseTheNearestMeasurementAsAnExtreme) {
  TrackFixture f;
  f.load("nav");
  f.session.gpslbl_Click(100);  // 08:04:55, between the firings of 08:04:52 and 08:04:56
  EXPECT_EQ(f.session.StatoSelezione(), 1);
  EXPECT_EQ(f.session.FrameExtrema.PrimoLbl.Caption.substr(0, 11), " GPS: 100 L");
  const int first = std::stoi(f.session.FrameExtrema.E1Txt);
  EXPECT_NEAR(f.m(static_cast<std::size_t>(first)).Tempo * 86400,
              f.session.survey().tracciaEst.PuntiGPSEst(100).DataOra * 86400, 3.1);
  f.session.ptlbl_Click(5);
  EXPECT_EQ(f.session.StatoSelezione(), 2);
  f.session.gpslbl_Click(50);
  EXPECT_EQ(f.session.StatoSelezione(), 0);
  EXPECT_EQ(f.session.FrameExtrema.E2txt, "");
}

}  // namespace
}  // namespace corvan
