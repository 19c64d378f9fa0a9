// What pixel columns show: cells and curves against places worked out by hand, and a spike among a million readings.
#include "view2d/SectionColumns.h"

#include <gtest/gtest.h>

#include <cmath>

#include "view2d/FlatSurvey.h"
#include "view2d/ValueAxis.h"

namespace corvan::test {
namespace {

/// A block of all lines over so many pixel columns, one a metre times `perMetre`, its window beginning at `from`.
struct Plot {
  SectionLayout layout;
  SectionBlock block;

  Plot(const SectionModel& model, double from, double to, std::int32_t columns) {
    layout.window = layout.whole = {from, to};
    block.lastLine = model.lines.size() - 1;
    block.plot = {100, 100 + columns, 50, 150};
  }
};

std::vector<std::uint32_t> Cells(const SectionModel& model, std::size_t channel, double from, double to,
                                 std::int32_t columns) {
  const Plot plot(model, from, to, columns);
  std::vector<std::uint32_t> shown;
  CelleDi(model, plot.layout, plot.block, channel, shown);
  return shown;
}

using Shown = std::vector<std::uint32_t>;

TEST(CellColumns, ShowTheReadingsAtTheirPlaces) {
  // One column a metre. Steps of 4 m: a cell reaches 2 m to each side; channel 1 lies 10 m behind the boat.
  const SectionModel model = CreaSezionePiana(FlatSurvey({0, 4, 8}), EvenPlaces());
  EXPECT_EQ(Cells(model, 1, -14, 2, 16), (Shown{0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3, 0, 0}));
  EXPECT_EQ(Cells(model, 2, -24, -8, 16), (Shown{0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3, 0, 0})) << "20 m behind";
  EXPECT_EQ(Cells(model, 1, -7, -5, 4), (Shown{2, 2, 2, 2})) << "zoomed into one cell";
  EXPECT_EQ(Cells(model, 1, -14, 2, 4), (Shown{1, 2, 3, 3})) << "3 covers no middle but lies in the last column";
  EXPECT_EQ(Cells(model, 1, 50, 60, 3), (Shown{0, 0, 0})) << "beside all";
}

TEST(CellColumns, LeaveGapsWhite) {
  Survey survey = FlatSurvey({0, 4, 8, 12, 16});
  survey.Misure(3).Scartata = true;
  EXPECT_EQ(Cells(CreaSezionePiana(survey, AtTheBoat()), 1, 0, 16, 16),
            (Shown{1, 1, 2, 2, 2, 2, 0, 0, 0, 0, 4, 4, 4, 4, 5, 5}));
  survey.Misure(3).Scartata = false;
  survey.Misure(3).letture = AllReadings & ~BitDi(1);
  EXPECT_EQ(Cells(CreaSezionePiana(survey, AtTheBoat()), 1, 0, 16, 16),
            (Shown{1, 1, 2, 2, 2, 2, 0, 0, 0, 0, 4, 4, 4, 4, 5, 5}))
      << "a reading that is not there";
  EXPECT_EQ(Cells(CreaSezionePiana(survey, AtTheBoat()), 2, 4, 12, 8), (Shown{2, 2, 3, 3, 3, 3, 4, 4}));
  EXPECT_EQ(Cells(CreaSezionePiana(FlatSurvey({0, 4, 24, 28}), AtTheBoat()), 1, 0, 28, 28),
            (Shown{1, 1, 2, 2, 2, 2, 2, 2, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3, 3, 3, 3, 3, 3, 3, 4, 4}))
      << "the boat went on without measuring: 1.25 steps of 4 m each";
  Survey lost = FlatSurvey({0, 4, 8, 12});
  for (std::size_t k = 1; k <= 4; ++k) LoseFix(lost, k);
  EXPECT_EQ(Cells(CreaSezionePiana(lost, AtTheBoat()), 1, -5, 5, 5), Shown(5, 0));
}

TEST(CellColumns, ShowOneOfThoseThatShareThem) {
  const SectionModel stood = CreaSezionePiana(FlatSurvey({0, 4, 4, 4, 8}), AtTheBoat());
  EXPECT_EQ(Cells(stood, 1, 0, 8, 8), (Shown{1, 1, 2, 2, 4, 4, 5, 5})) << "3 has no width";
  std::vector<double> dense;
  for (int k = 0; k < 1000; ++k) dense.push_back(k);
  const Shown shown = Cells(CreaSezionePiana(FlatSurvey(dense), AtTheBoat()), 1, 0, 1000, 10);
  EXPECT_EQ(shown, (Shown{51, 151, 251, 351, 451, 551, 651, 751, 851, 951})) << "those at the columns' middles";
  EXPECT_EQ(Cells(CreaSezionePiana(FlatSurvey({0, 4, 8, 10, 14}, 3), AtTheBoat()), 1, 6, 12, 6),
            (Shown{3, 3, 4, 4, 4, 4}))
      << "where lines overlap the later one is on top";
  // Every second firing without a reading of the channel: cells of 1 m in columns of 20 m whose middles they miss.
  Survey sparse = FlatSurvey({0, 1, 2, 3, 52, 53, 54, 55, 114, 115, 116, 117});
  for (const std::size_t k : {1U, 2U, 3U, 4U, 5U, 7U, 8U, 9U, 10U, 11U}) sparse.Misure(k).letture = 0x7FC;
  EXPECT_EQ(Cells(CreaSezionePiana(sparse, AtTheBoat()), 1, 0, 120, 6), (Shown{0, 0, 6, 0, 0, 12}));
  EXPECT_EQ(Cells(CreaSezionePiana(FlatSurvey({7, 7, 7}), AtTheBoat()), 1, 0, 16, 16),
            (Shown{0, 0, 1, 1, 1, 1, 1, 3, 3, 3, 3, 3, 0, 0, 0, 0}))
      << "it always stood still: the ends reach half of a level's height";
}

/// Columns of a series over 1 m each, as "low..high", "-" for none, "+" before one that is joined to the one before.
std::string Curve(const SectionModel& model, const std::vector<float>& values, double from, double to,
                  std::int32_t columns, double behind = 0.0) {
  const Plot plot(model, from, to, columns);
  std::vector<ColumnValues> found;
  ColonneDi(model, plot.layout, plot.block, values, behind, found);
  std::string text;
  for (const ColumnValues& c : found) {
    if (c.joined) text += "+";
    const auto part = [](float v) { return std::to_string(static_cast<int>(std::lround(v))); };
    text += c.any ? part(c.low) + (c.low == c.high ? "" : ".." + part(c.high)) + " " : "- ";
  }
  return text;
}

TEST(CurveColumns, JoinNeighboursAndKeepExtremes) {
  const float none = std::nanf("");
  const SectionModel model = CreaSezionePiana(FlatSurvey({0, 1, 2, 3, 4, 5}), AtTheBoat());
  const std::vector<float> values{10, 20, 90, 40, none, 60};
  EXPECT_EQ(Curve(model, values, 0, 6, 6), "10 +20 +90 +40 - 60 ");
  EXPECT_EQ(Curve(model, values, 0, 6, 2), "10..90 +40..60 ") << "a missing firing between is not joined across";
  EXPECT_EQ(Curve(model, values, 0.5, 1.5, 2), "15 +20..55 ") << "the line enters at 15 and leaves at 55";
  EXPECT_EQ(Curve(model, values, 1.25, 1.75, 1), "38..73 ") << "no value inside: the line crosses";
  EXPECT_EQ(Curve(model, values, 4.2, 4.8, 1), "- ");
  EXPECT_EQ(Curve(model, values, -2, 4, 6, 2), "10 +20 +90 +40 - 60 ") << "2 m behind the boat";
  const SectionModel lines = CreaSezionePiana(FlatSurvey({0, 1, 2, 3, 4, 5}, 3), AtTheBoat());
  EXPECT_EQ(Curve(lines, {1, 2, 3, 4, 5, 6}, 0, 6, 6), "1 +2 +3 4 +5 +6 ") << "lines are not joined";
  const SectionModel jump = CreaSezionePiana(FlatSurvey({0, 1, 2, 4.6, 5.6}), AtTheBoat());
  EXPECT_EQ(Curve(jump, {1, 2, 3, 4, 5}, 0, 6, 6), "1 +2 +3 - 4 +5 ") << "2.6 steps apart";
}

// 100,000 firings of ten channels; one reading of channel 7 stands out. 300 columns must show it where it is.
TEST(CurveColumns, FindOneSpikeInAMillion) {
  constexpr std::size_t firings = 100000, spike = 54321;
  SectionModel model;
  model.lines.push_back({"a.bin", 1, firings, 0, firings - 1.0, 1.0});
  model.line.assign(firings, 0);
  for (std::size_t i = 0; i < firings; ++i) model.distance.push_back(static_cast<double>(i));
  for (std::size_t c = 1; c <= MaxChannels; ++c) model.rho.at(c).assign(firings, 1.0F);
  model.rho[7][spike] = 1000.0F;
  const Plot plot(model, 0, 100000, 300);
  std::vector<ColumnValues> columns;
  for (std::size_t c = 1; c <= MaxChannels; ++c) {
    ColonneDi(model, plot.layout, plot.block, model.rho.at(c), 0.0, columns);
    for (std::size_t x = 0; x < columns.size(); ++x) {
      EXPECT_EQ(columns[x].low, 1.0F);
      EXPECT_EQ(columns[x].high, c == 7 && x == 162 ? 1000.0F : 1.0F) << "channel " << c << ", column " << x;
    }
  }
}

std::string Ticks(double low, double high, bool logarithmic, std::size_t most) {
  std::string text;
  for (const ValueAxis::Tick& t : ValueAxis(low, high, logarithmic).tacche(most)) text += t.text + " ";
  return text;
}

TEST(ValueAxes, HaveRoundNumbersAtTheirPlaces) {
  EXPECT_EQ(Ticks(0, 100, false, 4), "0 50 100 ");
  EXPECT_EQ(Ticks(7.9, 8.15, false, 2), "7.9 8.0 8.1 ") << "one number alone tells no scale";
  EXPECT_EQ(Ticks(0.5, 2000, true, 4), "1 10 100 1000 ");
  EXPECT_EQ(Ticks(0.5, 2000, true, 2), "1 100 ");
  EXPECT_EQ(Ticks(1.5, 25, true, 4), "2 5 10 20 ");
  EXPECT_EQ(Ticks(3.1, 3.4, true, 2), "3.2 3.4 ");
  EXPECT_DOUBLE_EQ(ValueAxis(1, 100, true).posto(10), 0.5);
  EXPECT_EQ(ValueAxis(1, 100, true).posto(-3), 0.0);
  EXPECT_EQ(ValueAxis(1, 100, false).posto(200), 1.0);
  EXPECT_DOUBLE_EQ(ValueAxis(40, 40, false).posto(41), 0.75) << "38 to 42";
  EXPECT_DOUBLE_EQ(ValueAxis(-40, -40, false).posto(-41), 0.25);
  EXPECT_DOUBLE_EQ(ValueAxis(0, 0, false).posto(0), 0.5);
}

}  // namespace
}  // namespace corvan::test
