// Palette, logarithm and the range of the colours, and what they cannot show.
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "SessionFixture.h"

namespace corvan {
namespace {

struct Fixture : test::SessionFixture {
  /// One reading a firing: 0.94248 ohm m for each 10 mV at 1000 mA.
  void readPotentials(const std::vector<float>& potentials) {
    auto records = test::Firings(potentials.size(), 1);
    for (std::size_t k = 0; k < records.size(); ++k) records[k].potential = potentials[k];
    read({folder.write("one.bin", test::SyscalFile(records))});
  }
  void answer(Question question, const char* text) { dialogs.answers[question] = {text}; }
  void type(const char* range) {
    answer(Question::ColourRange, range);
    press("SetRange_Click");
  }
  ColourDesk& desk() { return session.survey.colori(); }
  const ColourScale& scale() const { return session.survey.colours(); }
  std::pair<float, float> range() const { return {scale().range.ScalaMin, scale().range.ScalaMax}; }
  /// What the last command told of the colours, one behind the other.
  std::string told() const {
    std::string all;
    for (const Finding& f : session.findings().ultimi()) all += f.procedure == "SetRange" ? f.reason + "\n" : "";
    return all;
  }
};

constexpr float Unit = 0.94248F;  // 6 times 3.1416 times 5 m / 100: ohm m of a reading of 10 mV

struct PercentileCase {
  Percentiles share;
  float low, high;
};

// numpy.percentile of the same ten numbers.
TEST(Percentiles, AreThoseOfNumpy) {
  for (const auto& [share, low, high] :
       {PercentileCase{{2, 98}, -2.4149999618530273F, 820018.0F}, PercentileCase{{0, 100}, -3.0F, 1000000.0F},
        PercentileCase{{10, 90}, -0.07500000298023224F, 100090.0F}, PercentileCase{{25, 75}, 2.5F, 11.375F},
        PercentileCase{{33.3, 66.6}, 3.99399995803833F, 9.48799991607666F}, PercentileCase{{0, 50}, -3.0F, 5.75F}}) {
    std::vector<float> readings{7.5F, -3, 12, 0.25F, 1e6F, 4, 4, 9.5F, 2, 100};
    const auto range = IntervalloPercentile(readings, share);
    ASSERT_TRUE(range);
    EXPECT_FLOAT_EQ(range->ScalaMin, low) << share.low;
    EXPECT_FLOAT_EQ(range->ScalaMax, high) << share.high;
  }
  std::vector<float> one{5}, none;
  EXPECT_EQ(IntervalloPercentile(one, {2, 98}), (ColourRange{5, 5}));
  EXPECT_FALSE(IntervalloPercentile(none, {2, 98}));
}

TEST(Percentiles, AreReadOnlyInTheirForm) {
  EXPECT_EQ(PercentiliDaTesto("p2,98"), (Percentiles{2, 98}));
  EXPECT_EQ(PercentiliDaTesto(" p0,99.5 "), (Percentiles{0, 99.5}));
  for (const char* text :
       {"p98,2", "p5,5", "p-1,50", "p2,100.5", "p2", "2,98", "p,98", "p2,", "p2;98", "p2,5,98", "px,9", "p2,nan"}) {
    EXPECT_FALSE(PercentiliDaTesto(text)) << text;
  }
}

// Of 101 readings the 98th percentile is the 99th in order: the largest may be anything.
TEST(ColourRanges, OfPercentilesIgnoreASpikeAndWhatHasNoCell) {
  Fixture f;
  std::vector<float> potentials;
  for (int k = 1; k <= 101; ++k) potentials.push_back(10.0F * static_cast<float>(k));
  f.readPotentials(potentials);
  f.press("RangePercentile_Click");
  EXPECT_NEAR(f.range().first, 3 * Unit, 1e-5);
  EXPECT_NEAR(f.range().second, 99 * Unit, 1e-4);
  const ColourLookup calm(f.scale());
  potentials.back() = 1e7F / Unit;
  f.readPotentials(potentials);
  EXPECT_NEAR(f.session.survey.dati().traccia.RhoMax, 1e6, 1);
  const ColourLookup spiked(f.scale());
  for (std::size_t k = 1; k <= 100; ++k) EXPECT_EQ(spiked(f.m(k).Rho[1]), calm(f.m(k).Rho[1])) << k;
  f.press("RangeData_Click");
  EXPECT_NEAR(f.range().second, 1e6, 1);
  // Firings that are left out have no cell.
  auto records = test::Firings(5, 1);
  for (std::size_t k = 0; k < records.size(); ++k) records[k].potential = 10.0F * static_cast<float>(k + 1);
  records[0].potential = 900;
  records[4].potential = 20;
  records[2].north = records[2].east = 0;
  records[2].potential = 9000;
  f.session.survey.FrameFileIn.pastGaps = true;
  f.session.survey.FrameFileIn.filter = BadGps::Skip;
  f.read({f.folder.write("hole.bin", test::SyscalFile(records))});
  f.desk().intervalloPercentile({0, 100});
  EXPECT_NEAR(f.range().first, 2 * Unit, 1e-5);
  EXPECT_NEAR(f.range().second, 90 * Unit, 1e-4) << "not the 900 of the firing without a position";
}

// A cable of twice the length doubles every resistivity.
TEST(ColourRanges, FollowEveryAnalysisUnlessTyped) {
  constexpr const char* twice = "C1 110 C2 120 E1 100 E2 90 E3 80 E4 70 E5 60 E6 50 E7 40 E8 30 E9 20 E10 10 E11 0";
  for (const auto& [typed, low, high] : {std::tuple{"auto", 2 * Unit, 10 * Unit},
                                         {"p25,75", 4 * Unit, 8 * Unit},
                                         {"1;3", 1.0F, 3.0F},
                                         {"", 2 * Unit, 10 * Unit}}) {
    Fixture f;
    f.readPotentials({10, 20, 30, 40, 50});
    f.type("0.5;7");
    f.type(typed);
    f.answer(Question::CableConfiguration, twice);
    f.press("CableConf_Click");
    EXPECT_NEAR(f.range().first, low, 1e-5) << typed;
    EXPECT_NEAR(f.range().second, high, 1e-5) << typed;
  }
}

TEST(ColourRanges, OfAReadingAreThoseOfTheDataOrPercentilesNeverTheTypedOnesBefore) {
  Fixture f;
  f.readPotentials({10, 20, 30});
  f.press("PaletteCividis_Click");
  f.press("ReverseColours_Click");
  f.press("LogColours_Click");
  f.type("1;2");
  f.readPotentials({10, 20, 50});
  EXPECT_NEAR(f.range().second, 5 * Unit, 1e-5);
  EXPECT_TRUE(f.scale().palette == PaletteName::Cividis && f.scale().reversed && f.scale().logarithmic) << "they stay";
  f.type("p50,100");
  f.readPotentials({10, 30, 70});
  EXPECT_NEAR(f.range().first, 3 * Unit, 1e-5);
  EXPECT_NEAR(f.range().second, 7 * Unit, 1e-5);
}

TEST(ColourRanges, ThatCannotBeReadChangeNothingAndAreSaid) {
  Fixture f;
  f.readPotentials({10, 20, 30});
  const auto before = f.range();
  for (const char* text : {"p98,2", "p2", "p 2 98"}) {
    f.type(text);
    EXPECT_EQ(f.range(), before) << text;
    EXPECT_NE(f.told().find("is not pLOW,HIGH with 0 <= LOW < HIGH <= 100: nothing is changed"), std::string::npos);
  }
}

TEST(LogarithmicColours, AreRefusedOnceACommandAndComeBackWithTheData) {
  Fixture f;
  const std::string refused =
      "the colour scale is linear: its bounds -5 and 5 are not both over 0, where logarithms are\n";
  f.readPotentials({10, 20, 40});
  f.press("LogColours_Click");
  EXPECT_TRUE(Logaritmica(f.scale()));
  EXPECT_EQ(f.told(), "");
  f.type("-5;5");
  EXPECT_FALSE(Logaritmica(f.scale()));
  EXPECT_EQ(f.told(), refused);
  f.press("EpCmd_Click");
  EXPECT_EQ(f.told(), "") << "an analysis does not say it again";
  f.press("PaletteGrey_Click");
  EXPECT_EQ(f.told(), "") << "nor does a palette";
  f.type("-5;5");
  EXPECT_EQ(f.told(), refused) << "but the command that asks for it does";
  f.press("RangeData_Click");
  EXPECT_TRUE(Logaritmica(f.scale()));
  EXPECT_EQ(f.told(), "");
  for (const float lowest : {-10.0F, -10.0F, -20.0F}) {
    f.readPotentials({lowest, 20, 40});
    EXPECT_FALSE(Logaritmica(f.scale()));
    EXPECT_EQ(f.told().substr(0, 30), "the colour scale is linear: it") << "each reading says it";
  }
  f.readPotentials({10, 20, 40});
  EXPECT_TRUE(Logaritmica(f.scale()));
  EXPECT_EQ(f.told(), "");
}

struct OddCase {
  std::vector<float> potentials;
  bool percentiles;
  float low, high;  ///< of the range, in units
  const char* told;
};

TEST(OddSurveys, HaveColoursOrSayThatTheyHaveNone) {
  const OddCase cases[] = {{{-10, -20, -40}, false, -4, -1, "the colour scale is linear"},
                           {{-10, -20, -40}, true, -3.92F, -1.04F, "the colour scale is linear"},
                           {{30, 30, 30}, false, 2.85F, 3.15F, ""},
                           {{30, 30, 30}, true, 2.85F, 3.15F, ""},
                           {{20}, false, 1.9F, 2.1F, ""},
                           {{20}, true, 1.9F, 2.1F, ""},
                           {{0, 0}, false, 0, 0, "all readings are 0: the scale has no range"},
                           {{0, 0, 0, 0}, true, 0, 0, "p2,98 of the readings are 0: the scale has no range"}};
  for (const OddCase& c : cases) {
    Fixture f;
    f.readPotentials(c.potentials);
    if (c.percentiles) f.press("RangePercentile_Click");
    f.press("LogColours_Click");
    const std::string name = std::to_string(c.potentials.front()) + (c.percentiles ? " percentiles" : " data");
    EXPECT_NEAR(f.range().first, c.low * Unit, 1e-4) << name;
    EXPECT_NEAR(f.range().second, c.high * Unit, 1e-4) << name;
    EXPECT_EQ(f.told().substr(0, std::string(c.told).size()), c.told) << name;
    EXPECT_EQ(f.told().empty(), *c.told == '\0') << name << ": " << f.told();
  }
  Fixture f;
  f.press("RangePercentile_Click");
  f.press("LogColours_Click");
  EXPECT_EQ(f.told(), "") << "there is no survey yet";
  f.readPotentials({10, 20});
  f.session.survey.scartaTutto();
  EXPECT_EQ(f.told(), "no reading has a cell: there is nothing to colour\n");
}

TEST(Colours, AreTakenBackOneAtATime) {
  Fixture f;
  f.readPotentials({10, 20, 30, 40, 90});
  const std::vector<std::pair<const char*, const char*>> commands{{"PaletteViridis_Click", "Set Palette"},
                                                                  {"ReverseColours_Click", "Reverse Colours"},
                                                                  {"RangePercentile_Click", "Set Colour Scale Range"},
                                                                  {"LogColours_Click", "Logarithmic Colours"},
                                                                  {"PaletteGrey_Click", "Set Palette"},
                                                                  {"SetRange_Click", "Set Colour Scale Range"},
                                                                  {"ReverseColours_Click", "Reverse Colours"},
                                                                  {"RangeData_Click", "Set Colour Scale Range"},
                                                                  {"LogColours_Click", "Logarithmic Colours"},
                                                                  {"PaletteCividis_Click", "Set Palette"},
                                                                  {"PaletteSpectrum_Click", "Set Palette"}};
  const auto state = [&f] {
    const ColourScale& s = f.scale();
    return std::tuple(f.range(), s.palette, s.reversed, s.logarithmic, f.desk().origine());
  };
  std::vector<decltype(state())> states{state()};
  f.answer(Question::ColourRange, "2;3");
  for (const auto& [control, what] : commands) {
    f.press(control);
    EXPECT_EQ(f.session.annullabile(), what);
    EXPECT_NE(state(), states.back()) << control;
    states.push_back(state());
  }
  f.press("PaletteSpectrum_Click");
  while (states.size() > 1) {
    EXPECT_EQ(state(), states.back()) << f.session.annullabile();
    f.press("Undo_Click");
    states.pop_back();
  }
  EXPECT_EQ(state(), states.front());
  EXPECT_EQ(f.session.annullabile(), "") << "choosing what is in force is no step";
}

}  // namespace
}  // namespace corvan
