// Long work that the user gives up.
#include <limits>

#include "SessionFixture.h"

namespace corvan {
namespace {

/// Gives the work up at one of its steps.
class Impatient : public test::ScriptedAnswers {
 public:
  std::size_t steps = 0, last = std::numeric_limits<std::size_t>::max();
  ProgressStep seen;
  bool over = false;

  bool Avanzamento(const ProgressStep& step) override {
    over = step.subject.empty();
    if (over) return true;
    seen = step;
    return ++steps < last;
  }
};

struct Fixture {
  test::TempFolder folder;
  Impatient user;
  Session session{user, [] { return DateTime{2026, 6, 15, 12, 0, 0}; }};

  void read(const std::string& name, std::size_t firings) {
    session.survey.FrameFileIn.File1 = {folder.write(name, test::SyscalFile(test::Firings(firings, 10)))};
    session.leggi();
  }
  std::size_t files() const {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder.path()), {}));
  }
};

TEST(LongWork, ReadingGivenUpLeavesTheSurveyThatWasThere) {
  Fixture f;
  f.read("short.bin", 30);
  f.user.steps = 0;
  f.read("long.bin", 9000);
  EXPECT_EQ(f.user.steps, 5U) << "at the file's beginning and every 2048 firings";
  EXPECT_NEAR(f.user.seen.share, 8192.0 / 9001, 1e-9);
  EXPECT_TRUE(f.user.over);
  f.read("short.bin", 30);
  f.user.steps = 0;
  f.user.last = 3;
  f.read("long.bin", 9000);
  EXPECT_EQ(f.user.steps, 3U);
  EXPECT_TRUE(f.user.over) << "the bar goes";
  EXPECT_EQ(f.session.survey.dati().NumMisure(), 30);
  EXPECT_EQ(f.session.findings().entries().back().reason, "given up: the survey that was there stays");
}

TEST(LongWork, AnOutputGivenUpLeavesTheOlderFileAndNoStump) {
  Fixture f;
  f.read("long.bin", 3000);
  OutputPanel formats;
  formats.BinChk = formats.TxtChk = formats.EchoZChk = formats.KMLchk = true;
  formats.FileOutTxt = (f.folder / "out").string();
  f.session.selection.imposta(Extreme::First, 1);
  f.session.selection.imposta(Extreme::Second, 3000);
  f.user.steps = 0;
  f.session.salvaEstratto(formats);
  const std::size_t all = f.user.steps;
  EXPECT_GT(all, 10U);
  EXPECT_EQ(f.user.seen.total, 5U);
  const std::size_t files = f.files();
  EXPECT_EQ(files, 6U) << "the survey and five outputs";
  std::vector<std::string> before;
  for (const char* extension : {"bin", "txt", "ecs", "ecst", "kml"}) {
    before.push_back(test::Slurp(f.folder / (std::string("out.") + extension)));
  }
  f.session.selection.imposta(Extreme::First, 2);
  for (const std::size_t last : {std::size_t{1}, all / 2, all - 3}) {
    f.user.steps = 0;
    f.user.last = last;
    const std::size_t written = f.session.exporter.outputs().size();
    f.session.salvaEstratto(formats);
    EXPECT_EQ(f.files(), files) << "no stump at step " << last;
    EXPECT_EQ(f.session.findings().entries().back().file, f.user.seen.subject);
    EXPECT_LT(f.session.exporter.outputs().size(), written + 5);
    EXPECT_EQ(test::Slurp(f.folder / "out.kml"), before[4]) << "the last one was never reached";
    EXPECT_TRUE(f.user.over);
  }
  f.user.last = std::numeric_limits<std::size_t>::max();
  f.session.salvaEstratto(formats);
  EXPECT_NE(test::Slurp(f.folder / "out.kml"), before[4]);
}

}  // namespace
}  // namespace corvan
