// Projects on the command line: the same bytes again, and options beside them that win.
#include <gtest/gtest.h>

#include "cli/Cli.h"

namespace corvan {
namespace {

struct Projects : ::testing::Test {
  Cli cli;

  Projects() {
    cli.folder.write("times.bin", test::SyscalFile(TimedFirings()));
    cli.folder.write("track.csv", CsvTrack({{288690, 5030890, 4.25},
                                            {288700, 5030900, 5.5},
                                            {288731, 5030913, 6.25},
                                            {288757, 5030937, 7.75},
                                            {288798, 5030952, 9.5}},
                                           -10));
  }
  Outcome save(const std::string& options) const {
    std::filesystem::create_directories(cli.folder / "made");
    return cli("process times.bin --out made/o --save-project run.corvan " + options);
  }
  /// Every file of a folder but for the header of a .bin, which holds the time of writing.
  std::string all(const char* folder) const {
    std::vector<std::filesystem::path> names;
    for (const auto& entry : std::filesystem::directory_iterator(cli.folder / folder)) names.push_back(entry.path());
    std::sort(names.begin(), names.end());
    std::string text;
    for (const auto& name : names) {
      const std::string bytes = test::Slurp(name);
      text += name.filename().string() + "\n" + (name.extension() == ".bin" ? bytes.substr(60) : bytes);
    }
    return text;
  }
  std::string csv(const std::string& column, std::size_t row) const {
    const std::string table = test::Slurp(cli.folder / "n.csv");
    std::size_t k = 0, at = 0;
    const std::string header = table.substr(0, table.find('\n'));
    for (std::size_t from = 0; header.substr(from, header.find(',', from) - from) != column; ++k)
      from = header.find(',', from) + 1;
    for (; row > 0; --row) at = table.find('\n', at) + 1;
    for (; k > 0; --k) at = table.find(',', at) + 1;
    return table.substr(at, table.find_first_of(",\n", at) - at);
  }
};

// From another folder, so that no name is taken from where the program happens to stand.
TEST_F(Projects, WriteEveryOutputAgainToTheLastByte) {
  const Outcome first = save(
      "--gps track.csv --link time --clock-offset 1.5 --cable 'C1 56 C2 60.5 E1 50 E2 45 E3 40 E4 34 E5 30 E6 25 E7 20 "
      "E8 15 E9 10 E10 5 E11 0' --zone 33 --format bin,txt,ecs,kml,csv --picture made/o.png --section-picture "
      "made/s.bmp --size 300x260 --no-caption --theta 125 --phi 20 --gamma 5 --zoom 1.2 --projection perspective "
      "--layers electrodes,scale --curves depth --section-depth levels --rho-range 0.001,900 --despike 3,5 "
      "--max-deviation 50 --min-current 1 --min-potential 0.5 --no-negative --from 5 --to 2 --true-position "
      "--cable-offset 8 --echo-offset=-1.5 --kml-offset 3 --palette viridis:reversed --log --range p5,95 "
      "--data-shift 1.5,2 --depth-shift 3,-4 --map-level 2,12 --exaggeration 1.5 --cable-geometry track "
      "--track-smoothing 9");
  EXPECT_EQ(first.status, 0) << first.err;
  const std::string made = all("made");
  std::filesystem::rename(cli.folder / "made", cli.folder / "first");
  std::filesystem::create_directory(cli.folder / "made");
  std::filesystem::create_directory(cli.folder / "other");
  const Outcome again = cli("process --project ../run.corvan --save-project ../copy.corvan", "", "", "other");
  EXPECT_EQ(again.status, first.status) << again.err;
  EXPECT_TRUE(all("made") == made) << test::Slurp(cli.folder / "run.corvan");
  EXPECT_EQ(test::Slurp(cli.folder / "copy.corvan"), test::Slurp(cli.folder / "run.corvan"));
}

struct Beside {
  const char* options;
  const char* column;
  std::size_t row;
  const char* value;
};

TEST_F(Projects, GiveWayToTheOptionsBesideThem) {
  ASSERT_EQ(save("--format bin --zone 33 --min-current 1015 --data-shift 1,2").status, 0);
  ASSERT_EQ(cli("process --project run.corvan --format csv --out n").status, 0);
  EXPECT_FALSE(cli.exists("n.bin")) << "a list of formats replaces that of the project";
  EXPECT_EQ(csv("excluded1", 1) + csv("excluded1", 3), "10");
  const std::string east = csv("utm_x", 2);
  ASSERT_EQ(cli("process --project run.corvan --format csv --out n --min-current 1025").status, 0);
  EXPECT_EQ(csv("excluded1", 3), "1");
  EXPECT_EQ(csv("utm_x", 2), east);
  ASSERT_EQ(cli("process --project run.corvan --format csv --out n --zone 31").status, 0);
  EXPECT_NE(csv("utm_x", 2), east);
  ASSERT_EQ(cli("process --project run.corvan --format csv --out n --gps track.csv --link time").status, 0);
  EXPECT_NE(csv("utm_x", 2), east);
  EXPECT_NE(csv("depth", 2), "4");
  cli.folder.write("grid.txt", TextSurvey(GridPlaces()));
  const Outcome other = cli("process grid.txt --project run.corvan --coords utm --min-current 0 --format csv --out n");
  EXPECT_EQ(other.status, 0) << other.err;
  EXPECT_EQ(csv("utm_x", 2), "612348.25");
}

TEST_F(Projects, AreRefusedWithAWordAndNeverOverwritten) {
  EXPECT_EQ(cli("process").status, 2) << "neither files nor a project";
  EXPECT_EQ(cli("process times.bin --link time").status, 2);
  const Outcome missing = cli("process --project none.corvan");
  EXPECT_EQ(missing.status, 1);
  EXPECT_TRUE(Contains(missing.err, "none.corvan")) << missing.err;
  ASSERT_EQ(save("").status, 0);
  std::string text = test::Slurp(cli.folder / "run.corvan");
  text.replace(text.find("\"corvan_project\": 1"), 19, "\"corvan_project\": 3");
  cli.folder.write("newer.corvan", text);
  const Outcome newer = cli("process --project newer.corvan");
  EXPECT_EQ(newer.status, 1);
  EXPECT_TRUE(Contains(newer.err, "newer version")) << newer.err;
  // Outputs over the project or over what it reads.
  std::filesystem::copy_file(cli.folder / "run.corvan", cli.folder / "p.bin");
  EXPECT_EQ(cli("process --project p.bin --out p --format bin").status, 1);
  EXPECT_EQ(test::Slurp(cli.folder / "p.bin"), test::Slurp(cli.folder / "run.corvan"));
  const std::string survey = test::Slurp(cli.folder / "times.bin");
  EXPECT_EQ(cli("process --project run.corvan --out times").status, 1);
  EXPECT_EQ(cli("process --project run.corvan --save-project times.bin").status, 1);
  EXPECT_EQ(test::Slurp(cli.folder / "times.bin"), survey);
  cli.folder.write("times.bin", survey + std::string(304, '\0'));
  const Outcome changed = cli("process --project run.corvan");
  EXPECT_EQ(changed.status, 1);
  EXPECT_TRUE(Contains(changed.err, "has changed since the project was saved")) << changed.err;
}

}  // namespace
}  // namespace corvan
