// The program's commands from files to written section, as an operator would press them.
#include "SessionFixture.h"

#include <cmath>

namespace corvan {
namespace {

using Fixture = test::SessionFixture;

TEST(ReadFile, GivesTheSampleSurveyWithItsLostFixesTreated) {
  Fixture f;
  f.session.survey.FrameFileIn.filter = BadGps::Interpolate;
  f.readSample();
  EXPECT_EQ(f.session.survey.dati().NumMisure(), 438);  // two lines of 220 but for the two firings before the first fix
  EXPECT_EQ(f.session.survey.fixes().interpolated, 5U);
  EXPECT_FALSE(f.faulty());
  EXPECT_EQ(f.session.survey.FrameFileIn.Donelbl, "Read  438 meas.");
  EXPECT_EQ(f.session.selection.FrameExtrema.E1Txt, "1");
  EXPECT_EQ(f.session.selection.FrameExtrema.E2txt, "438");
  EXPECT_EQ(f.session.selection.FrameExtrema.PrimoLbl, "Extreme 1");
  EXPECT_EQ(f.session.selection.StatoSelezione(), 0) << "preset extremes select nothing yet";
  EXPECT_EQ(f.session.view.info(), "WGS 84 - UTM 33");
  EXPECT_EQ(f.session.survey.dati().settings.ZonaUTM, 33);
  EXPECT_EQ(f.session.survey.FrameFileIn.filter, BadGps::Interpolate) << "the choice survives the reset";
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
  ASSERT_EQ(bin.session.survey.dati().NumMisure(), text.session.survey.dati().NumMisure());
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
  f.dialogs.answers[Question::UtmZone] = {"31"};
  f.press("SetUtmZone_Click");
  EXPECT_EQ(f.session.survey.dati().settings.ZonaUTM, 31);
  f.press("EpCmd_Click");
  f.session.selection.scegli(1);
  f.readFirings(3);
  EXPECT_EQ(f.session.survey.dati().NumMisure(), 3);
  EXPECT_EQ(f.session.survey.dati().settings.ZonaUTM, 33);
  EXPECT_EQ(f.session.survey.dati().settings.TraslDatiEst, 0);
  EXPECT_EQ(f.session.selection.StatoSelezione(), 0);
}

TEST(ReadFile, GoesOnWithTheNextFileAfterABadOne) {
  Fixture f;
  const auto good = f.folder.write("good.bin", test::SyscalFile(test::Firings(4, 10)));
  f.read({f.folder / "missing.bin", good, f.folder.write("empty.bin", ""), good});
  EXPECT_EQ(f.session.survey.dati().NumMisure(), 8);
  EXPECT_EQ(f.m(8).NumFile, 4) << "a file keeps its place in the batch";
  ASSERT_EQ(f.session.findings().entries().size(), 2U);
  EXPECT_NE(f.session.findings().entries()[0].detto().find("missing.bin: No such file"), std::string::npos);
}

TEST(ReadFile, OfNothingLeavesNothingAndDoesNotFail) {
  Fixture f;
  f.readFirings(3);
  f.read({});
  EXPECT_EQ(f.session.survey.dati().NumMisure(), 0);
  EXPECT_EQ(f.session.survey.FrameFileIn.Donelbl, "Read  0 meas.");
  EXPECT_EQ(f.session.selection.FrameExtrema.E2txt, "0");
  EXPECT_FALSE(f.faulty());
}

TEST(ReadFile, TellsOfBadPositionsOnlyWithoutAFilter) {
  auto records = test::Firings(3, 10);
  for (std::size_t k = 10; k < 20; ++k) records[k].east = 0;
  Fixture f;
  const auto file = f.folder.write("gap.bin", test::SyscalFile(records));
  f.read({file});
  EXPECT_EQ(f.session.view.info(), "Some Data have incorrect GPS position");
  f.session.survey.FrameFileIn.filter = BadGps::Skip;
  f.read({file});
  EXPECT_EQ(f.session.view.info(), "WGS 84 - UTM 33");
  EXPECT_TRUE(f.m(2).Scartata);
}

// Of six firings one at a time has lost its fix: those between two others lie midway, the ends have no second side.
TEST(ReadFile, TreatsAHoleUpToTheFiringBeforeTheLast) {
  const struct {
    std::size_t lost, read, interpolated, discarded;
  } cases[] = {{1, 5, 0, 0}, {2, 6, 1, 0}, {5, 6, 1, 0}, {6, 5, 0, 0}};
  for (const auto& c : cases) {
    auto records = test::Firings(6, 10);
    for (std::size_t r = 10 * (c.lost - 1); r < 10 * c.lost; ++r) records[r].north = 0;
    Fixture f;
    f.session.survey.FrameFileIn.pastGaps = true;
    f.session.survey.FrameFileIn.filter = BadGps::Interpolate;
    f.read({f.folder.write("hole.bin", test::SyscalFile(records))});
    EXPECT_EQ(f.session.survey.dati().Misure.size(), c.read) << c.lost;
    EXPECT_EQ(f.session.survey.fixes().interpolated, c.interpolated) << c.lost;
    EXPECT_EQ(f.session.survey.fixes().discarded, c.discarded) << c.lost;
    if (c.interpolated == 0) continue;
    EXPECT_NEAR(f.m(c.lost).UTMx, (f.m(c.lost - 1).UTMx + f.m(c.lost + 1).UTMx) / 2, 1e-6) << c.lost;
    EXPECT_NEAR(f.m(c.lost).UTMy, (f.m(c.lost - 1).UTMy + f.m(c.lost + 1).UTMy) / 2, 1e-6) << c.lost;
  }
}

TEST(UtmFiles, KeepTheirPlanePositionsInEveryZone) {
  auto records = test::Firings(2, 10);
  for (std::size_t k = 0; k < records.size(); ++k) {
    records[k].north = 5030000.5F + std::floor(static_cast<float>(k) / 10.0F);
    records[k].east = 292000.25F;
  }
  Fixture f;
  f.session.survey.FrameFileIn.LatLonCmbx = CoordinateEntry::UTM;
  f.session.survey.FrameFileIn.south = true;
  f.read({f.folder.write("utm.bin", test::SyscalFile(records))});
  EXPECT_EQ(f.session.survey.dati().settings.ZonaUTM, 32) << "stated by the user, not guessed";
  const double lon = f.m(1).Lon;
  EXPECT_LT(f.m(1).Lat, 0) << "southern hemisphere";
  f.dialogs.answers[Question::UtmZone] = {"33"};
  f.press("SetUtmZone_Click");
  EXPECT_NEAR(f.m(1).Lon - lon, 600, 1e-4) << "six degrees, as DDDMM";
  EXPECT_EQ(f.m(1).UTMy, 5030000.5);
  f.press("SetUtmZone_Click");  // Cancel
  EXPECT_EQ(f.session.survey.dati().settings.ZonaUTM, 33);
  f.dialogs.answers[Question::UtmZone] = {""};
  f.press("SetUtmZone_Click");
  EXPECT_EQ(f.session.survey.dati().settings.ZonaUTM, 32) << "nothing typed";
  EXPECT_EQ(f.m(1).Lon, lon);
}

TEST(Boxes, AskWithTheirTextsAndDefaults) {
  Fixture f;
  f.readFirings(3);
  f.press("CableConf_Click");
  f.press("SetUtmZone_Click");
  f.press("SetRange_Click");
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
  f.dialogs.answers[Question::CableConfiguration] = {
      "C1 110 C2 120 E1 100 E2 90 E3 80 E4 70 E5 60 E6 50 E7 40 E8 30 E9 20 E10 10 E11 0"};
  f.press("CableConf_Click");
  EXPECT_FLOAT_EQ(f.m(1).Rho[1], 2 * before) << "twice the cable, twice the factor";
  EXPECT_EQ(f.session.survey.dati().cavo.PosCavo[12], 110);
  f.dialogs.answers[Question::CableConfiguration] = {"C1 1e99"};
  f.press("CableConf_Click");
  EXPECT_EQ(f.session.survey.dati().cavo.PosCavo[12], 110) << "an answer that cannot be read changes nothing";
  EXPECT_TRUE(f.faulty());
}

TEST(ColourRange, IsTakenOnlyWithItsSemicolon) {
  Fixture f;
  f.readFirings(3);
  const ColourRange data = f.session.survey.colours().range;
  EXPECT_GT(data.ScalaMax, data.ScalaMin);
  struct Answer {
    const char* text;  ///< none: Cancel
    float low, high;
    std::size_t findings;  ///< that it adds
  };
  const Answer answers[] = {{"7 9", data.ScalaMin, data.ScalaMax, 1},
                            {"10;", data.ScalaMin, data.ScalaMax, 1},
                            {";", data.ScalaMin, data.ScalaMax, 1},
                            {"1e39;5", data.ScalaMin, data.ScalaMax, 1},
                            {"2.5 m; 1,5", 2.5F, 1, 2},
                            {nullptr, 2.5F, 1, 0},
                            {"0;0", 0, 0, 0},
                            {" ", data.ScalaMin, data.ScalaMax, 0}};
  for (const auto& [text, low, high, findings] : answers) {
    if (text != nullptr) f.dialogs.answers[Question::ColourRange] = {text};
    const std::size_t before = f.session.findings().entries().size();
    f.press("SetRange_Click");
    EXPECT_EQ(f.session.survey.colours().range.ScalaMin, low) << (text == nullptr ? "Cancel" : text);
    EXPECT_EQ(f.session.survey.colours().range.ScalaMax, high) << (text == nullptr ? "Cancel" : text);
    EXPECT_EQ(f.session.findings().entries().size() - before, findings) << (text == nullptr ? "Cancel" : text);
  }
}

// A cable that is typed changes the resistivities: the colours follow until a range is typed.
TEST(ColourRange, FollowsTheDataUntilItIsTyped) {
  Fixture f;
  f.readFirings(3);
  const float before = f.session.survey.colours().range.ScalaMax;
  f.dialogs.answers[Question::CableConfiguration] = {
      "C1 55 C2 60 E1 40 E2 30 E3 20 E4 10 E5 9 E6 8 E7 7 E8 6 E9 5 E10 4 E11 0"};
  f.press("CableConf_Click");
  EXPECT_NE(f.session.survey.colours().range.ScalaMax, before);
  EXPECT_EQ(f.session.survey.colours().range.ScalaMax, f.session.survey.dati().traccia.RhoMax);
  f.dialogs.answers[Question::ColourRange] = {"1;2"};
  f.press("SetRange_Click");
  f.dialogs.answers[Question::CableConfiguration] = {
      "C1 55 C2 60 E1 50 E2 45 E3 40 E4 35 E5 30 E6 25 E7 20 E8 15 E9 10 E10 5 E11 0"};
  f.press("CableConf_Click");
  EXPECT_EQ(f.session.survey.colours().range.ScalaMax, 2);
  f.readFirings(2);
  EXPECT_EQ(f.session.survey.colours().range.ScalaMax, f.session.survey.dati().traccia.RhoMax)
      << "a new reading forgets it";
}

TEST(Selection, ClearsOnTheThirdClickAndIgnoresWhatIsNoMeasurement) {
  Fixture f;
  f.readFirings(5);
  for (const std::int32_t none : {0, -3, 6}) f.session.selection.scegli(none);
  EXPECT_EQ(f.session.selection.StatoSelezione(), 0);
  f.session.selection.scegli(4);
  EXPECT_EQ(f.session.selection.FrameExtrema.E1Txt, "4");
  EXPECT_EQ(f.session.selection.primo(), 4);
  EXPECT_EQ(f.session.selection.FrameExtrema.PrimoLbl.substr(0, 47), "File.survey.bin Data. 15/06/2026 06:00:00 Lg.12");
  f.press("E2txt_KeyPress", "2 ");
  EXPECT_EQ(f.session.selection.StatoSelezione(), 2);
  f.session.selection.scegli(1);
  EXPECT_EQ(f.session.selection.StatoSelezione(), 0);
  EXPECT_EQ(f.session.selection.FrameExtrema.E1Txt, "");
  EXPECT_EQ(f.session.selection.FrameExtrema.SecondoLbl, "");
}

TEST(DepthCorrection, TakesTheNeighboursDepth) {
  auto records = test::Firings(3, 10);
  for (int k = 0; k < 30; ++k) {
    const int depth = k / 10 * k / 10 + 1;
    records[static_cast<std::size_t>(k)].depth = static_cast<float>(depth);
  }
  Fixture f;
  f.read({f.folder.write("survey.bin", test::SyscalFile(records))});
  const float first = f.m(1).Val12;
  const float second = f.m(2).Val12;
  const float third = f.m(3).Val12;
  f.session.survey.chiediProfondita(2);
  EXPECT_EQ(f.m(2).Val12, (first + third) / 2);
  f.session.survey.chiediProfondita(3);
  EXPECT_EQ(f.m(3).Val12, f.m(2).Val12);
  f.dialogs.messageAnswer = Answer::Cancel;
  f.session.survey.chiediProfondita(1);
  EXPECT_EQ(f.m(1).Val12, first);
  EXPECT_NE(f.m(2).Val12, second);
  EXPECT_EQ(f.dialogs.messages.at(0).prompt, "Correct Depth Value?");
  EXPECT_EQ(TestoDi(f.dialogs.messages.at(0).question).buttons, Buttons::OkCancel);
}

TEST(Translations, ShowTheirValueInTheBoxesTheyAlwaysDid) {
  Fixture f;
  f.readFirings(3);
  f.press("EpCmd_Click");
  f.press("EpCmd_Click");
  f.press("NmCmd_Click");
  EXPECT_EQ(f.session.translations.FrameDataMove.TestTxt, "0.2");
  EXPECT_EQ(f.session.translations.FrameDataMove.TnordTxt, "-0.1");
  f.press("DEpCmd_Click");
  EXPECT_EQ(f.session.translations.FrameDataMove.DTnordTxt, "0.1")
      << "the east button shows its value in the north box";
  EXPECT_EQ(f.session.translations.FrameDataMove.DTestTxt, "0.0");
  EXPECT_FLOAT_EQ(f.session.survey.dati().settings.TraslFondoEst, 0.1F);
  f.press("TnordTxt_KeyPress", "12.5 m");
  EXPECT_EQ(f.session.survey.dati().settings.TraslDatiNord, 12.5);
}

TEST(SaveSection, NeedsTwoExtremes) {
  Fixture f;
  f.readFirings(3);
  f.session.exporter.FrameFileOut.BinChk = true;
  f.session.selection.scegli(1);
  f.press("SaveOutCmd_Click");
  ASSERT_EQ(f.dialogs.messages.size(), 1U);
  EXPECT_EQ(f.dialogs.messages[0].prompt, "No points selected");
  EXPECT_TRUE(f.session.exporter.outputs().empty());
}

TEST(SaveSection, WritesWhatIsTickedTheSameEveryTimeAndInEitherOrder) {
  Fixture f;
  f.readSample();
  OutputPanel& out = f.session.exporter.FrameFileOut;
  f.press("SaveEcho_Click");
  EXPECT_TRUE(out.EchoZChk && !out.BinChk && out.visible);
  out.BinChk = out.TxtChk = out.KMLchk = out.TruePosChk = true;
  f.session.selection.scegli(30);
  f.session.selection.scegli(12);
  const std::vector<std::string> offset{"4.5", "4.5"};
  f.dialogs.answers[Question::CableOffset] = offset;
  f.press("SaveOutCmd_Click");
  EXPECT_EQ(f.session.exporter.outputs().size(), 5U);
  EXPECT_FALSE(out.visible);
  ASSERT_TRUE(f.session.exporter.section());
  EXPECT_EQ(f.session.exporter.section()->from, 12);
  EXPECT_EQ(f.session.exporter.section()->points, 19);
  const std::string once =
      f.output(".bin") + f.output(".txt") + f.output(".ecs") + f.output(".ecst") + f.output(".kml");
  EXPECT_EQ(f.output(".bin").size(), 1029U + 280 * 190);
  f.press("SaveOutCmd_Click");
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
  f.session.exporter.FrameFileOut.BinChk = f.session.exporter.FrameFileOut.TxtChk =
      f.session.exporter.FrameFileOut.KMLchk = true;
  f.session.selection.scegli(1);
  f.session.selection.scegli(3);
  f.session.salvaEstratto(f.session.exporter.FrameFileOut);
  EXPECT_EQ(f.session.exporter.outputs().size(), 2U);
  ASSERT_TRUE(f.faulty());
  EXPECT_NE(f.session.findings().entries().back().detto().find("section.txt: is a folder"), std::string::npos);
}

TEST(SaveSection, NeverReplacesAFileOfTheBatch) {
  for (const char* name : {"one", "two", "three"}) {
    Fixture f;
    std::vector<std::filesystem::path> batch;
    for (const char* file : {"one.bin", "two.bin", "three.bin"}) {
      batch.push_back(f.folder.write(file, test::SyscalFile(test::Firings(3, 10))));
    }
    f.read(batch);
    const std::filesystem::path root = f.folder / name;
    const std::string before = test::Slurp(root.string() + ".bin");
    f.session.exporter.FrameFileOut.FileOutTxt = root.string();
    f.session.exporter.FrameFileOut.BinChk = true;
    f.session.selection.scegli(1);
    f.session.selection.scegli(3);
    EXPECT_FALSE(f.faulty());
    f.session.salvaEstratto(f.session.exporter.FrameFileOut);
    EXPECT_EQ(test::Slurp(root.string() + ".bin"), before);
    EXPECT_TRUE(f.session.exporter.outputs().empty()) << name;
    EXPECT_TRUE(f.faulty()) << name;
  }
}

TEST(SaveSection, RefusesARootWithoutANameOnce) {
  Fixture f;
  f.readFirings(3);
  f.session.exporter.FrameFileOut.BinChk = f.session.exporter.FrameFileOut.TxtChk =
      f.session.exporter.FrameFileOut.KMLchk = true;
  for (const std::string& root : {(f.folder / "").string(), std::string()}) {
    const std::size_t before = f.session.findings().entries().size();
    f.session.exporter.FrameFileOut.FileOutTxt = root;
    f.session.selection.scegli(1);
    f.session.selection.scegli(3);
    f.session.salvaEstratto(f.session.exporter.FrameFileOut);
    ASSERT_EQ(f.session.findings().entries().size(), before + 1);
    EXPECT_NE(f.session.findings().entries().back().reason.find("\"" + root + "\""), std::string::npos);
    f.session.selection.scegli(1);
  }
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(f.folder.path()), {}), 1) << "the survey alone";
}

// A written section is a survey again: read back as UTM it holds the same readings at the same places.
TEST(SaveSection, GivesAFileThatReadsBack) {
  Fixture f;
  f.readSample();
  f.session.exporter.FrameFileOut.BinChk = true;
  f.session.selection.scegli(5);
  f.session.selection.scegli(24);
  f.session.salvaEstratto(f.session.exporter.FrameFileOut);
  Fixture back;
  back.session.survey.FrameFileIn.LatLonCmbx = CoordinateEntry::UTM;
  back.dialogs.answers[Question::ChannelNumber] = {"10"};
  back.read({f.folder / "section.bin"});
  ASSERT_EQ(back.session.survey.dati().NumMisure(), 20);
  for (std::size_t k = 1; k <= 20; ++k) {
    EXPECT_EQ(back.m(k).UTMx, static_cast<double>(static_cast<float>(std::round(f.m(k + 4).UTMx * 100) / 100)));
    EXPECT_EQ(back.m(k).CanaleA[3], f.m(k + 4).CanaleA[3]);
    EXPECT_EQ(back.m(k).Val180, f.m(k + 4).Val180);
  }
}

}  // namespace
}  // namespace corvan
