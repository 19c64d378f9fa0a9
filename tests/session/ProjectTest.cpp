// Projects: what is saved is done again, to the last byte of every output.
#include "session/Project.h"

#include <gtest/gtest.h>

#include "base/Checksum.h"
#include "base/NumberText.h"
#include "session/SessionFixture.h"
#include "support/TestCanvas.h"

namespace corvan::test {
namespace {

constexpr const char* Fixes =
    "N;Line;Date;Time;Lat;Lon;Sats;Depth;Quality;East;North\r\n"
    "1;a;15/06/2026;06:00:00;45.4;9.0;9;3;1;288690;5030890\r\n"
    "2;a;15/06/2026;06:00:04;45.4;9.0;9;6;1;288700;5030900\r\n"
    "3;a;15/06/2026;06:00:16;45.4;9.0;9;9;1;288731;5030913\r\n";

/// Eight firings of two channels with deviations, a lost fix among them, two seconds apart from 06:00 on. The channel
/// count is asked for, since channel 3 stands in the last record.
std::string Survey8() {
  std::vector<RecordValues> records = Firings(8, 2);
  for (std::size_t k = 0; k < records.size(); ++k) {
    const std::size_t firing = k / 2;
    records[k].time = 46188.25 + 2.0 * static_cast<double>(firing) / 86400.0;
    records[k].potential = 10.0F + static_cast<float>((7 * k) % 5);
    records[k].depth = 3.0F + 0.375F * static_cast<float>((3 * firing * firing + firing) % 7);
    records[k].deviation = 0.25F * static_cast<float>(k % 7);
    if (firing == 3) records[k].north = records[k].east = 0;
  }
  records.back().channel = 3;
  return SyscalFile(records);
}

struct ProjectRun : SessionFixture {
  TestCanvas canvas{320, 200};

  ProjectRun() { session.view.picture().tela(&canvas); }
  ~ProjectRun() { session.view.picture().tela(nullptr); }

  void save(const std::filesystem::path& file) { session.salvaProgetto(file, session.progetto()); }
  /// Everything that the run can write, one after the other.
  std::vector<std::string> outputs(const char* root) {
    OutputPanel out = session.exporter.FrameFileOut;
    out.FileOutTxt = (folder / root).string();
    dialogs.answers[Question::CableOffset] = {TestoDi(session.exporter.offsetCavo())};
    dialogs.answers[Question::EchoOffset] = {TestoDi(session.exporter.offsetEco())};
    dialogs.answers[Question::KmlOffset] = {session.exporter.quotaKml()};
    session.salvaEstratto(out);
    session.exporter.tabella(out.FileOutTxt);  // behind the section, whose true positions it holds
    session.view.picture().disegna();
    session.view.picture().dipingi();
    std::vector<std::string> all{std::string(reinterpret_cast<const char*>(canvas.pixels().data()), 4 * 320 * 200)};
    TestCanvas flat(400, 300);
    session.section.dipingi(flat, {});
    all.emplace_back(reinterpret_cast<const char*>(flat.pixels().data()), 4 * 400 * 300);
    for (const char* extension : {".csv", ".bin", ".txt", ".ecs", ".ecst", ".kml", ".ohm", "_bottom.csv", ".dat",
                                  ".gpkg", ".geojson", ".vtu"}) {
      const auto path = folder / (std::string(root) + extension);
      all.push_back(std::filesystem::exists(path) ? Slurp(path) : "none");
    }
    return all;
  }
  static std::string TestoDi(double metres) { return TestoNumero(metres); }
};

struct ProjectStep {
  const char* name;
  void (*change)(ProjectRun& run);
  bool seen = true;  ///< in what is written
};

// Each change is made on top of those before it; after each the project is saved, and opened in a run that knows
// nothing else.
TEST(Projects, DoEveryKindOfChangeAgain) {
  const ProjectStep steps[] = {
      {"track before the survey",
       [](ProjectRun& r) { r.session.leggiTraccia(r.folder.write("early.csv", std::string(Fixes).substr(0, 190))); }},
      {"read",
       [](ProjectRun& r) {
         InputPanel& in = r.session.survey.FrameFileIn;
         in.filter = BadGps::Interpolate;
         in.pastGaps = true;
         r.dialogs.answers[Question::ChannelNumber] = {"2"};
         r.read({r.folder.write("line.bin", Survey8())});
       }},
      {"another choice in the panel", [](ProjectRun& r) { r.session.survey.FrameFileIn.filter = BadGps::Skip; }, false},
      {"cable",
       [](ProjectRun& r) { r.session.survey.impostaCavo("C1 110 C2 120 E1 100 E2 88 E3 70 E4 60 E5 50 E6 40"); }},
      {"depth", [](ProjectRun& r) { r.session.survey.correggiProfondita(3); }},
      {"depth beside it", [](ProjectRun& r) { r.session.survey.correggiProfondita(4); }},
      {"zone", [](ProjectRun& r) { r.session.survey.impostaZona(32); }},
      {"track", [](ProjectRun& r) { r.session.leggiTraccia(r.folder.write("track.csv", Fixes)); }, false},
      {"zone behind the track", [](ProjectRun& r) { r.session.survey.impostaZona(33); }},
      {"link by position",
       [](ProjectRun& r) {
         r.session.track.connetti(2, 1);
         r.session.track.connetti(7, 3);
         r.session.collegaPerPosizione();
       }},
      {"link by time", [](ProjectRun& r) { r.session.collegaPerTempo(1.5); }},
      {"undone and another",
       [](ProjectRun& r) {
         r.session.survey.correggiProfondita(6);
         r.session.annulla();
         r.session.survey.correggiProfondita(2);
       }},
      {"limits",
       [](ProjectRun& r) {
         r.press("MaxDeviationTxt_KeyPress", "1.2");
         r.press("RhoMinTxt_KeyPress", "0.001");
       }},
      {"by hand",
       [](ProjectRun& r) {
         r.session.escludi({1, 2});
         r.session.escludi({3, 1});
       }},
      {"spikes",
       [](ProjectRun& r) {
         r.press("DespikeTxt_KeyPress", "1.5"), r.press("DespikeWidthTxt_KeyPress", "5"), r.press("DespikeChk_Click");
       }},
      {"extremes",
       [](ProjectRun& r) {
         r.session.selection.imposta(Extreme::First, 7);
         r.session.selection.imposta(Extreme::Second, 2);
       }},
      {"outputs",
       [](ProjectRun& r) {
         OutputPanel& o = r.session.exporter.FrameFileOut;
         o.BinChk = o.TxtChk = o.EchoZChk = o.KMLchk = o.TruePosChk = true;
         r.session.exporter.proponi(4.5, -2.25, "7.5");
       }},
      {"open formats",
       [](ProjectRun& r) {
         OutputPanel& o = r.session.exporter.FrameFileOut;
         o.ErtChk = o.BottomChk = o.Res2dinvChk = o.GpkgChk = o.GeojsonChk = o.VtuChk = true;
       }},
      {"electrodes on the map", [](ProjectRun& r) { r.session.exporter.FrameFileOut.Ert3DChk = true; }},
      {"exact corners", [](ProjectRun& r) { r.session.exporter.FrameFileOut.KmlExactChk = true; }},
      {"external positions", [](ProjectRun& r) { r.session.exporter.FrameFileOut.ExtGPSChk = true; }},
      {"cable along the track", [](ProjectRun& r) { r.session.exporter.FrameFileOut.cable = CableShape::AlongTrack; }},
      {"smoothing", [](ProjectRun& r) { r.session.exporter.FrameFileOut.SmoothTxt = "20"; }},
      {"palette",
       [](ProjectRun& r) {
         r.session.survey.colori().scegli(PaletteName::Viridis);
         r.session.survey.colori().inverti(true);
       }},
      {"logarithm", [](ProjectRun& r) { r.session.survey.colori().logaritmo(true); }},
      {"percentiles",
       [](ProjectRun& r) {
         r.session.survey.colori().intervalloPercentile({10, 80});
       }},
      {"typed range",
       [](ProjectRun& r) {
         r.session.survey.colori().impostaIntervallo({0.75F, 3.1F});
       }},
      {"view",
       [](ProjectRun& r) {
         r.session.view.ruota(Axis::Theta, 135);
         r.session.view.ruota(Axis::Phi, -30.1);
         r.session.view.ruota(Axis::Gamma, 12);
         r.session.view.zoom(1.3F);
         r.session.view.esagera(2.5);
       }},
      {"perspective", [](ProjectRun& r) { r.session.view.proietta(Projection::Perspective); }},
      {"band",
       [](ProjectRun& r) {
         r.session.view.proietta(Projection::Orthographic), r.session.view.ruota(Axis::Theta, 90),
             r.session.view.ruota(Axis::Gamma, 0), r.session.view.mostraBanda({2, 14});
       }},
      {"layers",
       [](ProjectRun& r) {
         for (const LayerEntry& layer : LayerTable) r.session.view.alterna(layer.flag);
       }},
      {"translation",
       [](ProjectRun& r) {
         r.session.translations.trasla(Translation::DataEast, 3.5),
             r.session.translations.trasla(Translation::DepthNorth, -1.5);
       }},
      {"flat section", [](ProjectRun& r) {
         r.session.section.misura(DepthAxis::Levels);
         r.session.section.scegli(SectionLines::Along);
         r.session.section.mostra(Curve::Depth, true);
       }}};
  ProjectRun made;
  std::vector<std::string> before;
  for (const ProjectStep& step : steps) {
    step.change(made);
    made.save(made.folder / "run.corvan");
    const std::vector<std::string> wanted = made.outputs("made");
    EXPECT_TRUE(!step.seen || wanted != before) << step.name << " changes nothing that is written";
    before = wanted;
    ProjectRun again;
    EXPECT_TRUE(again.session.apriProgetto(made.folder / "run.corvan")) << step.name << Told(again.session.findings());
    EXPECT_EQ(again.outputs("again"), wanted) << step.name << '\n' << Slurp(made.folder / "run.corvan");
    EXPECT_TRUE(again.session.annullabile().empty()) << "there is nothing to go back to";
    const std::string saved = Slurp(made.folder / "run.corvan");
    again.save(made.folder / "copy.corvan");
    EXPECT_EQ(Slurp(made.folder / "copy.corvan"), saved) << step.name;
  }
}

TEST(Projects, NameFilesFromTheirOwnFolderAndTellWhichHaveChanged) {
  ProjectRun made;
  std::filesystem::create_directory(made.folder / "data");
  const auto line = made.folder.write("data/line.bin", SyscalFile(Firings(4, 10)));
  made.read({line});
  made.save(made.folder / "run.corvan");
  const std::string text = Slurp(made.folder / "run.corvan");
  EXPECT_NE(text.find("\"path\": \"data/line.bin\""), std::string::npos) << text;
  EXPECT_NE(text.find("\"bytes\": " + std::to_string(1029 + 40 * 304)), std::string::npos) << text;
  // Both are moved together.
  const TempFolder elsewhere;
  std::filesystem::create_directory(elsewhere / "data");
  Write(elsewhere / "data/line.bin", Slurp(line));
  Write(elsewhere / "run.corvan", text);
  ProjectRun moved;
  EXPECT_TRUE(moved.session.apriProgetto(elsewhere / "run.corvan"));
  EXPECT_EQ(moved.session.survey.dati().files.at(0).path, elsewhere / "data/line.bin");
  EXPECT_FALSE(moved.faulty()) << Told(moved.session.findings());
  // One byte changes, then the length, then the file is gone.
  std::string bytes = Slurp(line);
  bytes[3000] = static_cast<char>(bytes[3000] + 1);
  const std::pair<std::string, const char*> changes[] = {
      {bytes, "its bytes differ"}, {bytes.substr(0, bytes.size() - 3040), "10149 bytes instead of 13189"}};
  for (const auto& [content, how] : changes) {
    Write(elsewhere / "data/line.bin", content);
    ProjectRun changed;
    EXPECT_TRUE(changed.session.apriProgetto(elsewhere / "run.corvan"));
    const Finding& told = changed.session.findings().entries().front();
    EXPECT_EQ(told.severity, Severity::Fault);
    EXPECT_EQ(told.file, (elsewhere / "data" / "line.bin").string());
    EXPECT_EQ(told.reason,
              std::string("has changed since the project was saved (") + how + "): it is read as it is now");
    EXPECT_GT(changed.session.survey.dati().NumMisure(), 2);
  }
  std::filesystem::remove(elsewhere / "data/line.bin");
  ProjectRun gone;
  gone.session.apriProgetto(elsewhere / "run.corvan");
  EXPECT_TRUE(gone.faulty());
}

TEST(Projects, ThatCannotBeReadChangeNothingAndSayWhy) {
  const std::pair<std::string, std::string> cases[] = {
      {"", "is no project: "},
      {"{\"corvan_project\": 1, ", "is no project: "},
      {"[1]", "is no project of this program"},
      {"{\"project\": 1}", "is no project of this program"},
      {"{\"corvan_project\": 2}", "was saved by a newer version of this program: its layout is 2"},
      {"{\"corvan_project\": 0}", "layout 0 is not 1 or more"},
      {"{\"corvan_project\": \"1\"}", "corvan_project is not a whole number"},
      {R"({"corvan_project": 1, "steps": {}})", "steps is not a list"},
      {R"({"corvan_project": 1, "steps": [{"zone": 70000}]})", "steps[0].zone is out of range"},
      {R"({"corvan_project": 1, "steps": [{"zone": 1.5}]})", "steps[0].zone is not a whole number"},
      {R"({"corvan_project": 1, "steps": [{"cable": 5}]})", "steps[0].cable is not a text"},
      {R"({"corvan_project": 1, "steps": [{"read": {"files": [{}]}}]})", "steps[0].read.files[0].path is missing"},
      {R"({"corvan_project": 1, "steps": [{"read": {"coordinates": "km"}}]})",
       "steps[0].read.coordinates is \"km\", which is not known"},
      {R"({"corvan_project": 1, "steps": [{"link_by_position": [{}]}]})",
       "steps[0].link_by_position has not two connections"},
      {R"({"corvan_project": 1, "quality": {"despike": {"window": 2}}})", "quality.despike.window is not 3 or more"},
      {R"({"corvan_project": 1, "quality": {"by_hand": [{"channel": 11}]}})",
       "quality.by_hand[0].channel is not 1 to 10"},
      {R"({"corvan_project": 1, "view": {"zoom": 0}})", "view.zoom is not over 0"},
      {R"({"corvan_project": 1, "view": {"zoom": 1e999}})", "is no project: "},
      {R"({"corvan_project": 1, "colours": {"percentiles": [50, 20]}})", "colours.percentiles are not LOW, HIGH"}};
  for (const auto& [text, reason] : cases) {
    ProjectRun run;
    run.readFirings(3);
    EXPECT_FALSE(run.session.apriProgetto(run.folder.write("p.corvan", text)));
    const Finding& told = run.session.findings().entries().back();
    EXPECT_EQ(told.severity, Severity::Fault);
    EXPECT_NE(told.reason.find(reason), std::string::npos) << text << '\n' << told.reason;
    EXPECT_EQ(run.session.survey.dati().NumMisure(), 3);
  }
  ProjectRun run;
  EXPECT_FALSE(run.session.apriProgetto(run.folder / "missing.corvan"));
  EXPECT_TRUE(run.session.apriProgetto(
      run.folder.write("p.corvan", R"({"corvan_project": 1, "weather": "fair", "view": {"theta": 45, "sky": 1}})")));
  EXPECT_NE(Told(run.session.findings()).find("-view.sky is not known here and left aside\n-weather is not known"),
            std::string::npos)
      << Told(run.session.findings());
}

TEST(Projects, AreNotJudgedByTheLimitsOfTheSurveyBefore) {
  ProjectRun made;
  made.readFirings(4);
  made.save(made.folder / "run.corvan");
  ProjectRun run;
  run.readFirings(3);
  run.press("RhoMinTxt_KeyPress", "1e6");
  ASSERT_TRUE(run.faulty()) << "every reading is excluded";
  const std::size_t told = run.session.findings().entries().size();
  EXPECT_TRUE(run.session.apriProgetto(made.folder / "run.corvan"));
  EXPECT_EQ(run.session.findings().entries().size(), told) << Told(run.session.findings());
  EXPECT_EQ(run.session.survey.dati().qualita.escluse, 0U);
}

TEST(Projects, NeverReplaceAnOriginalNorAreReplacedByAnOutput) {
  ProjectRun run;
  const auto line = run.folder.write("line.bin", SyscalFile(Firings(4, 10)));
  run.read({line});
  const std::string bytes = Slurp(line);
  run.save(line);
  EXPECT_EQ(Slurp(line), bytes);
  EXPECT_TRUE(run.faulty());
  run.save(run.folder / "section.bin");
  const std::string saved = Slurp(run.folder / "section.bin");
  ProjectRun again;
  ASSERT_TRUE(again.session.apriProgetto(run.folder / "section.bin"));
  OutputPanel out;
  out.BinChk = true;
  out.FileOutTxt = (run.folder / "section").string();
  again.session.selection.imposta(Extreme::First, 1);
  again.session.selection.imposta(Extreme::Second, 4);
  again.session.salvaEstratto(out);
  EXPECT_EQ(Slurp(run.folder / "section.bin"), saved) << "a project that was read is no name for an output";
  again.save(run.folder / "section.bin");
  EXPECT_NE(Slurp(run.folder / "section.bin"), saved) << "but itself it may be saved again";
}

TEST(Checksums, AreThoseOfThePublishedCheckAndOfAnyCut) {
  const std::string digits = "123456789";
  for (std::size_t cut = 0; cut <= digits.size(); ++cut) {
    Checksum sum;
    sum.add(std::as_bytes(std::span(digits).first(cut)));
    sum.add(std::as_bytes(std::span(digits).subspan(cut)));
    EXPECT_EQ(sum.value(), 0xCBF43926U);
  }
}

}  // namespace
}  // namespace corvan::test
