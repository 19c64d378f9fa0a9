// The flat section follows the survey: what a command changes is seen at the next painting.
#include "session/SectionDesk.h"

#include <algorithm>

#include "session/SessionFixture.h"
#include "support/TestCanvas.h"

namespace corvan::test {
namespace {

struct Section : SessionFixture {
  std::vector<std::uint32_t> paint() {
    TestCanvas canvas(640, 320);
    session.section.dipingi(canvas, {});
    return canvas.pixels();
  }
  const SectionModel& model() { return session.section.modello(); }
};

TEST(FlatSection, FollowsEveryCommand) {
  Section s;
  EXPECT_EQ(s.model().size(), 0U);
  s.readFirings(5);
  EXPECT_EQ(s.model().size(), 5U);
  EXPECT_NEAR(s.model().pseudoDepth[1], 2.0797, 1e-3) << "C1 55, C2 60, E1 50, E2 45";
  EXPECT_NEAR(s.model().behind[1], 7.5, 1e-6);
  auto before = s.paint();
  const auto changes = [&](const char* what) {
    const auto now = s.paint();
    EXPECT_NE(now, before) << what;
    before = now;
  };
  EXPECT_EQ(s.paint(), before);
  s.session.survey.impostaCavo("C1 110 C2 120 E1 100 E2 90 E3 80 E4 70 E5 60 E6 50 E7 40 E8 30 E9 20 E10 10 E11 0");
  EXPECT_NEAR(s.model().pseudoDepth[1], 2 * 2.0797, 2e-3) << "twice the size";
  changes("cable");
  s.session.section.impostaOffset(12.5);
  EXPECT_NEAR(s.model().behind[1], 15 + 12.5, 1e-6);
  changes("offset");
  s.session.survey.colori().impostaIntervallo({0.0F, 40.0F});
  changes("colours");
  s.session.selection.imposta(Extreme::First, 2);
  s.session.selection.imposta(Extreme::Second, 4);
  changes("extremes");
  s.session.survey.dati().Misure(3).Val12 = 1.0F;
  s.session.survey.correggiProfondita(3);
  EXPECT_EQ(s.model().depth[2], 4.0F);
  s.session.survey.correggiProfondita(1);
  s.session.section.mostra(TrackWindow{-20, 0});
  changes("window");
  s.readFirings(6);
  EXPECT_EQ(s.model().size(), 6U);
  EXPECT_FALSE(s.session.section.view().window) << "all of another survey is shown";
  s.paint();
  EXPECT_EQ(s.session.section.disposta().window, s.session.section.disposta().whole);
}

TEST(FlatSection, TellsWhatItCannotShow) {
  Section s;
  const auto told = [&](const char* part) { return Told(s.session.findings()).find(part) != std::string::npos; };
  s.paint();
  EXPECT_TRUE(told("flat section: no measurements"));
  s.readFirings(3);
  EXPECT_FALSE(told("no pseudo-depth"));
  s.session.survey.impostaCavo("C1 55 C2 60 E1 50 E2 45 E3 40 E4 40 E5 30 E6 25 E7 20 E8 15 E9 10 E10 5 E11 0");
  for (std::size_t k = 0; k < Curves; ++k) s.session.section.mostra(static_cast<Curve>(k), true);
  s.paint();
  EXPECT_TRUE(told("no pseudo-depth: channel 3"));
  EXPECT_TRUE(told("no room for")) << "six curves in 320 pixels";
  const std::string once = Told(s.session.findings());
  s.paint();
  EXPECT_EQ(Told(s.session.findings()), once) << "once, not at every painting";
}

}  // namespace
}  // namespace corvan::test
