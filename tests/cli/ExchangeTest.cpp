// The open formats from the command line: options, files that are left alone, and what is told.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "base/NumberText.h"
#include "cli/Cli.h"

namespace corvan {
namespace {

/// Five firings in a text export on the grid of zone 33, which hold no quality.
struct Sailed : Cli {
  Sailed() { folder.write("grid.txt", TextSurvey(GridPlaces())); }
  Outcome process(const std::string& options) const {
    return (*this)("process grid.txt --coords utm --zone 33 --out o " + options);
  }
  std::string text(const std::string& name) const { return test::Slurp(folder / name); }
};

std::size_t Lines(const std::string& text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

TEST(OpenFormats, AreWrittenTogetherAndListed) {
  const Sailed sailed;
  const Outcome run = sailed.process("--format ert,bottom,res2dinv,gpkg,geojson,vtu,csv --json");
  EXPECT_EQ(run.status, 0) << run.err;
  for (const char* name : {"o.ohm", "o_bottom.csv", "o.dat", "o.gpkg", "o.geojson", "o.vtu", "o.csv"}) {
    EXPECT_TRUE(sailed.exists(name)) << name;
    EXPECT_TRUE(Contains(run.out, "\"" + std::string(name) + "\"")) << name;
  }
  EXPECT_FALSE(sailed.exists("o.bin")) << "not asked for";
  EXPECT_TRUE(Contains(run.err, "5 of 5 measurements hold no deviation and chargeability")) << run.err;
  // 50 m of straight line after 60 m of cable; the depth is the third measurement's.
  EXPECT_EQ(Lines(sailed.text("o_bottom.csv")), 6U);
  EXPECT_TRUE(Contains(sailed.text("o_bottom.csv"), ",612360.25,5034582.5,45."));
  EXPECT_TRUE(Contains(sailed.text("o_bottom.csv"), ",4.5\n"));
}

// None of them looks like an original, which would never be replaced.
TEST(OpenFormats, ReplaceThoseOfAnEarlierRun) {
  const Sailed sailed;
  const char* formats = "--format bin,txt,ecs,kml,csv,ert,bottom,res2dinv,gpkg,geojson,vtu";
  ASSERT_EQ(sailed.process(std::string(formats) + " --min-current 1").status, 0);
  std::map<std::string, std::string> before;
  for (const auto& entry : std::filesystem::directory_iterator(sailed.folder.path())) {
    if (entry.path().filename().string().starts_with("o")) before[entry.path().string()] = test::Slurp(entry.path());
  }
  EXPECT_EQ(before.size(), 12U);
  const Outcome again =
      sailed.process(std::string(formats) + " --from 2 --true-position --data-shift 1,1 --min-current 807");
  EXPECT_EQ(again.status, 0) << again.err;
  for (const auto& [name, bytes] : before) EXPECT_NE(test::Slurp(name), bytes) << name;
}

TEST(OpenFormats, TakeTheirOptions) {
  const Sailed sailed;
  sailed.process("--format ert");
  const std::string flat = sailed.text("o.ohm");
  EXPECT_TRUE(Contains(flat, "\n# x z\n"));
  sailed.process("--format ert --ert-dimension 2");
  EXPECT_EQ(sailed.text("o.ohm"), flat);
  sailed.process("--format ert --ert-dimension 3");
  EXPECT_TRUE(Contains(sailed.text("o.ohm"), "\n# x y z\n6123"));
  sailed.process("--format gpkg --range '10;20'");
  const std::string spectrum = sailed.text("o.gpkg");
  const Outcome grey = sailed.process("--format gpkg --range '10;20' --palette grey");
  EXPECT_EQ(grey.status, 0) << grey.err;
  EXPECT_FALSE(Contains(grey.err, "palette")) << "it is used: " << grey.err;
  EXPECT_TRUE(Contains(spectrum, "v=\"93,0,254,255\"") && !Contains(sailed.text("o.gpkg"), "v=\"93,0,254,255\""));
  EXPECT_TRUE(Contains(spectrum, "lower=\"10.625\" upper=\"11.25\"")) << "sixteenths of the range";
}

TEST(OpenFormats, LeaveOutWhatALimitExcludes) {
  const Sailed sailed;
  const Outcome run = sailed.process("--format csv,ert,gpkg --min-potential 37");
  // Potentials are 30 + k / 4 and the like: the first channels lie below the limit, the last above.
  std::size_t good = 0, bad = 0;
  const std::string table = sailed.text("o.csv");
  for (std::size_t at = table.find('\n') + 1; at < table.size(); at = table.find('\n', at) + 1) {
    const std::string line = table.substr(at, table.find('\n', at) - at);
    for (std::size_t c = 0; c < 10; ++c) ++(line.at(line.size() - 1 - 2 * c) == '1' ? bad : good);
  }
  ASSERT_TRUE(good > 0 && bad > 0 && good + bad == 50) << good << " " << bad;
  EXPECT_TRUE(Contains(sailed.text("o.ohm"), "\n" + std::to_string(good) + "# readings")) << good;
  EXPECT_TRUE(
      Contains(run.err, std::to_string(bad) + " of 50 readings are left out: " + std::to_string(bad) + " excluded"))
      << run.err;
  EXPECT_TRUE(Contains(sailed.text("o.gpkg"), "\"excluded10\" INTEGER")) << "the columns of the table";
}

TEST(OpenFormats, OptionsWithoutTheirFormatAreRefused) {
  const Sailed sailed;
  const struct {
    const char *options, *words;
  } cases[] = {{"--format kml --ert-dimension 3", "--ert-dimension requires --format ert"},
               {"--format ert --kml-positions exact", "--kml-positions requires --format kml"},
               {"--format ert --ert-dimension 4", "--ert-dimension"},
               {"--format kml --kml-positions right", "--kml-positions"},
               {"--format ohm", "\"ohm\" is not one of"}};
  for (const auto& c : cases) {
    const Outcome run = sailed.process(c.options);
    EXPECT_EQ(run.status, 2) << c.options;
    EXPECT_TRUE(Contains(run.err, c.words)) << run.err;
    EXPECT_FALSE(sailed.exists("o.ohm") || sailed.exists("o.kml"));
  }
}

// The first corner is the first measurement's own place, in degrees by PROJ (cs2cs). It lies 1.4 degrees from the
// middle of zone 33, where the given series misses it by decimetres.
TEST(OpenFormats, ExactCornersOfTheKmlAreWhereProjPutsThem) {
  const Sailed sailed;
  const auto first = [&] {
    const std::string kml = sailed.text("o.kml");
    const std::string corner = kml.substr(kml.find("<coordinates>") + 15);
    return std::pair(Val(corner), Val(corner.substr(corner.find(',') + 1)));
  };
  sailed.process("--format kml");
  const std::string usual = sailed.text("o.kml");
  sailed.process("--format kml --kml-positions given");
  EXPECT_EQ(sailed.text("o.kml"), usual) << "byte for byte";
  const auto given = first();
  sailed.process("--format kml --kml-positions exact");
  const auto exact = first();
  EXPECT_NEAR(exact.first, 16.43679531383, 2e-9);
  EXPECT_NEAR(exact.second, 45.45559717571, 2e-9);
  EXPECT_GT(exact.second - given.second, 2e-6) << "the series falls short";
}

TEST(OpenFormats, AreNotMadeWhereNothingIsLeftAndOriginalsStay) {
  const Sailed sailed;
  sailed.folder.write(
      "dry.txt", "DISTANCE\n" + test::TextLine({{26, "5034567.5"}, {27, "612340.25"}, {28, "0"}, {29, "0"}}) + "\n" +
                     test::TextLine({{26, "5034570"}, {27, "612343"}, {28, "0"}, {29, "0"}}) + "\n");
  const Outcome dry = sailed("process dry.txt --coords utm --zone 33 --out d --format ert,res2dinv,vtu,bottom");
  EXPECT_EQ(dry.status, 1);
  EXPECT_TRUE(Contains(dry.err, "error: SalvaDatiUnificati: no reading is left to write: the file is not made"))
      << dry.err;
  EXPECT_TRUE(Contains(dry.err, "without a current")) << dry.err;
  EXPECT_FALSE(sailed.exists("d.ohm") || sailed.exists("d.dat") || sailed.exists("d.vtu"));
  EXPECT_TRUE(sailed.exists("d_bottom.csv")) << "what could be done is done";
  const std::string original = sailed.text("grid.txt");
  sailed.folder.write("o.dat", original);
  const Outcome refused = sailed("process o.dat --coords utm --zone 33 --out o --format res2dinv");
  EXPECT_EQ(refused.status, 1);
  EXPECT_TRUE(Contains(refused.err, "o.dat: was read in this run and is not overwritten")) << refused.err;
  EXPECT_EQ(sailed.text("o.dat"), original);
}

}  // namespace
}  // namespace corvan
