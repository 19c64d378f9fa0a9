// The flat section as a picture: places, colours, texts. Places are worked out from the block's edges and the window.
#include "view2d/SectionPainter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>

#include "picture/TextLayout.h"
#include "support/TestCanvas.h"
#include "view2d/FlatSurvey.h"
#include "view2d/SectionPicking.h"

namespace corvan::test {
namespace {

constexpr Colour Profile = InkColour;
constexpr Colour Red = 0xC00020;  // of chosen extremes
const ColourScale Scale{{0.0F, 10.0F}};

/// Colour of a value from 0 to 10 ohm m: 25.6 colours an ohm m, the nearest.
Colour ColourOf(double rho) { return PaletteRgb.at(static_cast<std::size_t>(std::lround(rho * 25.6)) - 1); }

/// A survey without depths, so that nothing covers its cells.
Survey Bottomless(Survey survey) {
  for (Misura& m : survey.Misure) m.Val12 = std::numeric_limits<float>::quiet_NaN();
  return survey;
}

struct Painted {
  TestCanvas canvas;
  SectionModel model;
  SectionLayout layout;

  Painted(const Survey& survey, const SectionView& view = {}, const SectionNotes& notes = {},
          const ReadingPlaces& places = EvenPlaces(), std::int32_t width = 900, std::int32_t height = 700)
      : canvas(width, height),
        model(CreaSezionePiana(survey, places)),
        layout(DisegnaSezione(model, view, Scale, notes, canvas)) {}

  /// Colour at a place along the track of the block's first line and a depth.
  Colour at(double metres, double depth, std::size_t block = 0) const {
    const PixelArea& plot = layout.blocks.at(block).plot;
    const double x = (metres - layout.window.from) / (layout.window.to - layout.window.from);
    return canvas.at(plot.left + static_cast<std::int32_t>(x * (plot.right - plot.left)),
                     plot.top + static_cast<std::int32_t>(depth / layout.deepest * (plot.bottom - plot.top)));
  }
  bool says(const std::string& part) const {
    return std::any_of(canvas.texts.begin(), canvas.texts.end(),
                       [&](const TestCanvas::Text& t) { return t.text.find(part) != std::string::npos; });
  }
};

SectionView With(SectionLines lines, std::size_t line = 1) {
  SectionView view;
  view.lines = lines;
  view.line = line;
  return view;
}

SectionView WithCurves(SectionView view = {}) {
  view.curves.fill(true);
  return view;
}

TEST(SectionPlaces, AreThoseOfTheReadings) {
  // Channel c lies 10 c m behind and 2 c m deep; reading i, c has i + c / 100 ohm m.
  Survey survey = Bottomless(FlatSurvey({0, 10, 20, 30}));
  survey.Misure(3).Scartata = true;
  const Painted p(survey);
  EXPECT_EQ(p.layout.window, (TrackWindow{-105, 35}));
  EXPECT_EQ(p.layout.deepest, 21.0) << "channel 10 reaches from 19 to 21 m";
  struct Case {
    double at, depth;
    Colour colour;
  };
  for (const Case& c : {Case{-10, 2, ColourOf(1.01)}, Case{-100, 20, ColourOf(1.10)}, Case{0, 2, ColourOf(2.01)},
                        Case{-50, 12, ColourOf(2.06)}, Case{-20, 10, ColourOf(4.05)}, Case{10, 2, 0xFFFFFF},
                        Case{-60, 16, 0xFFFFFF}, Case{-96, 20.5, ColourOf(1.10)}, Case{-94, 20.5, ColourOf(2.10)},
                        Case{-10, 0.5, 0xFFFFFF}, Case{28, 2, 0xFFFFFF}}) {
    EXPECT_EQ(p.at(c.at, c.depth), c.colour) << c.at << " m, " << c.depth << " m deep";
  }
  SectionView levels;
  levels.depth = DepthAxis::Levels;
  const Painted l(survey, levels);
  EXPECT_EQ(l.layout.deepest, 10.0);
  EXPECT_EQ(l.at(-10, 0.5), ColourOf(1.01));
  EXPECT_EQ(l.at(-80, 8.5), ColourOf(2.09));
  ReadingPlaces reversed = EvenPlaces();  // currents at the tail: channel 1 lies farthest behind
  for (std::size_t c = 1; c <= MaxChannels; ++c) reversed.at(c).dietro = 110.0 - 10.0 * static_cast<double>(c);
  const Painted r(survey, {}, {}, reversed);
  EXPECT_EQ(r.at(-100, 2), ColourOf(1.01));
  EXPECT_EQ(r.at(-10, 20), ColourOf(1.10));
  EXPECT_EQ(r.at(-10, 2), 0xFFFFFFU);
}

TEST(SectionPlaces, OfLinesAreAsAsked) {
  const Survey survey = Bottomless(FlatSurvey({0, 10, 20, 60, 70, 80}, 3));
  const Painted stacked(survey);
  ASSERT_EQ(stacked.layout.blocks.size(), 2U);
  EXPECT_EQ(stacked.layout.whole, (TrackWindow{-105, 25}));
  EXPECT_EQ(stacked.at(-10, 2, 0), ColourOf(1.01));
  EXPECT_EQ(stacked.at(-10, 2, 1), ColourOf(4.01)) << "60 m along, at its line's beginning";
  EXPECT_TRUE(stacked.says("a.bin") && stacked.says("b.bin") && stacked.says("line's beginning"));
  const Painted along(survey, With(SectionLines::Along));
  ASSERT_EQ(along.layout.blocks.size(), 1U);
  EXPECT_EQ(along.layout.whole, (TrackWindow{-105, 85}));
  EXPECT_EQ(along.at(-10, 2), ColourOf(1.01));
  EXPECT_EQ(along.at(50, 2), ColourOf(4.01));
  EXPECT_EQ(along.at(25, 2), 0xFFFFFFU) << "between the lines";
  EXPECT_EQ(along.at(60, 20.5), 0x606060U) << "border at the second line's beginning";
  const Painted one(survey, With(SectionLines::One, 2));
  EXPECT_EQ(one.layout.blocks.at(0).origin, 60.0);
  EXPECT_EQ(one.at(-10, 2), ColourOf(4.01));
  EXPECT_FALSE(one.says("a.bin"));
  EXPECT_TRUE(one.says("b.bin"));
  EXPECT_EQ(Painted(survey, With(SectionLines::One, 9)).layout.blocks.at(0).origin, 60.0) << "beyond the last";
  const Survey single = FlatSurvey({0, 10, 20});
  const Painted a(single), b(single, With(SectionLines::Along)), c(single, With(SectionLines::One));
  EXPECT_EQ(a.canvas.pixels(), b.canvas.pixels());
  EXPECT_EQ(a.canvas.pixels(), c.canvas.pixels());
}

TEST(SectionPlaces, ShowAWindow) {
  SectionView view;
  view.window = TrackWindow{-15, 5};
  const Painted p(Bottomless(FlatSurvey({0, 10, 20})), view);
  EXPECT_EQ(p.layout.window, (TrackWindow{-15, 5}));
  EXPECT_EQ(p.layout.whole, (TrackWindow{-105, 25}));
  view.window = TrackWindow{500, 520};
  EXPECT_EQ(Painted(FlatSurvey({0, 10, 20}), view).layout.window, (TrackWindow{5, 25})) << "held to what there is";
  EXPECT_EQ(p.at(-14, 2), ColourOf(1.01));
  EXPECT_EQ(p.at(4, 2), ColourOf(2.01));
  const TrackWindow whole{-100, 900};
  for (const auto& [got, wanted] : {
           std::pair(Ingrandisci({0, 100}, 25, 0.5, whole), TrackWindow{12.5, 62.5}),
           std::pair(Ingrandisci({0, 100}, 0, 0.1, whole), TrackWindow{0, 10}),
           std::pair(Ingrandisci({-50, 350}, 0, 2, whole), TrackWindow{-100, 700}),
           std::pair(Ingrandisci({0, 100}, 50, 99, whole), whole),
           std::pair(Ingrandisci({0, 2}, 1, 0.1, whole), TrackWindow{0.5, 1.5}),
           std::pair(Scorri({0, 100}, 30, whole), TrackWindow{30, 130}),
           std::pair(Scorri({0, 100}, -300, whole), TrackWindow{-100, 0}),
           std::pair(Scorri({0, 100}, 3000, whole), TrackWindow{800, 900}),
           std::pair(Scorri({0, 5000}, 3000, whole), whole),
       }) {
    EXPECT_NEAR(got.from, wanted.from, 1e-9);
    EXPECT_NEAR(got.to, wanted.to, 1e-9);
  }
}

// Depths of 5 and 10 m, between them straight: 7.5 m half-way. In levels the same numbers count levels.
TEST(Bottom, LiesAtItsDepth) {
  Survey survey = FlatSurvey({0, 100});
  survey.Misure(1).Val12 = 5;
  survey.Misure(2).Val12 = 10;
  for (Misura& m : survey.Misure) m.letture = BitDi(10);  // one row alone, from 0 to 40 m
  for (const DepthAxis axis : {DepthAxis::Metres, DepthAxis::Levels}) {
    SectionView view;
    view.depth = axis;
    const Painted p(survey, view);
    EXPECT_EQ(p.layout.deepest, axis == DepthAxis::Levels ? 10.4 : 40.0);
    EXPECT_EQ(p.at(0.3, 5), Profile);
    EXPECT_EQ(p.at(50, 7.5), Profile);
    EXPECT_NE(p.at(50, 9.5), Profile);
    EXPECT_NE(p.at(50, 5.5), Profile);
  }
  survey.Misure(2).Val12 = 1000;
  const Painted deep(survey);
  EXPECT_EQ(deep.layout.deepest, 80.0) << "no more than twice the cells' depth";
  EXPECT_TRUE(deep.says("bottom lies below"));
}

TEST(Losses, AreMarkedAndCounted) {
  Survey survey = Bottomless(FlatSurvey({0, 10, 20, 30, 40, 50}));
  LoseFix(survey, 2);
  LoseFix(survey, 3);
  survey.Misure(5).Scartata = true;
  const Painted p(survey);
  EXPECT_TRUE(p.says("2 without a fix") && p.says("1 left out"));
  EXPECT_FALSE(p.says("without readings"));
  const PixelArea& air = p.layout.blocks[0].air;
  const auto marked = [&](double metres) {
    const double x = p.layout.blocks[0].plot.left + p.layout.colonna(p.layout.blocks[0], metres);
    return p.canvas.at(static_cast<std::int32_t>(x), air.bottom - 3);
  };
  EXPECT_EQ(marked(10), ColoreDi(Loss::NoFix));
  EXPECT_EQ(marked(20), ColoreDi(Loss::NoFix));
  EXPECT_EQ(marked(40), ColoreDi(Loss::LeftOut));
  EXPECT_EQ(marked(30), 0xFFFFFFU);
  EXPECT_FALSE(Painted(FlatSurvey({0, 10})).says("without"));
}

TEST(Extremes, CarryFlagsAndABar) {
  const Survey survey = Bottomless(FlatSurvey({0, 10, 20, 60, 70, 80}, 3));
  const auto bar = [](const Painted& p, std::size_t block, double metres) {
    const SectionBlock& b = p.layout.blocks[block];
    return p.canvas.at(b.plot.left + static_cast<std::int32_t>(p.layout.colonna(b, b.origin + metres)),
                       b.plot.bottom + 2) == Red;
  };
  const Painted both(survey, {}, {5, 2, {}});
  EXPECT_EQ(both.at(10, 0.5), Red) << "pole";
  EXPECT_EQ(both.at(10, 0.5, 1), Red);
  EXPECT_NE(both.at(12, 0.5), Red);
  EXPECT_TRUE(bar(both, 0, 15) && bar(both, 1, 5));
  EXPECT_FALSE(bar(both, 0, 5) || bar(both, 1, 15));
  std::vector<std::pair<std::string, bool>> flags;  // number, in the first block
  for (const auto& t : both.canvas.texts) {
    const SectionBlock& b = both.layout.blocks[0];
    if ((t.text == "1" || t.text == "2") && t.place.X > b.plot.left) flags.emplace_back(t.text, t.place.Y < b.plot.top);
  }
  EXPECT_EQ(flags, (std::vector<std::pair<std::string, bool>>{{"2", true}, {"1", false}}));
  const Painted one(survey, {}, {2, std::nullopt, {}});
  EXPECT_EQ(one.at(10, 0.5), Red);
  EXPECT_FALSE(bar(one, 0, 15) || bar(one, 1, 5));
  const Painted none(survey, {}, {0, 99, {}});
  EXPECT_FALSE(bar(none, 0, 15));
  EXPECT_NE(none.at(10, 0.5), Red);
}

// Every pixel of the strips shows the reading that is found there.
TEST(Picking, FindsWhatIsPainted) {
  std::vector<double> distances;
  for (int k = 0; k < 400; ++k) distances.push_back(1.7 * k + (k > 150 ? 900 : 0) + (k % 7) * 0.2);
  Survey survey = Bottomless(FlatSurvey(distances, 150));
  for (std::size_t k = 40; k <= 400; k += 61) survey.Misure(k).Scartata = true;
  for (std::size_t k = 1; k <= 400; ++k) {
    for (std::size_t c = 1; c <= MaxChannels; ++c)
      survey.Misure(k).Rho.at(c) = static_cast<float>((k * 7 + c * 13) % 100) / 10.0F;
  }
  for (const DepthAxis axis : {DepthAxis::Metres, DepthAxis::Levels}) {
    SectionView view;
    view.depth = axis;
    const Painted p(survey, view);
    ASSERT_EQ(p.layout.blocks.size(), 3U);
    const ColourLookup colour(Scale);
    std::set<std::size_t> channels;
    std::size_t wrong = 0;
    for (const SectionBlock& block : p.layout.blocks) {
      for (std::int32_t y = block.plot.top; y < block.plot.bottom; ++y) {
        for (std::int32_t x = block.plot.left; x < block.plot.right; x += 3) {
          const auto found = LetturaSotto(p.model, p.layout, {x, y});
          if (found) channels.insert(found->channel);
          const auto k = found ? static_cast<std::size_t>(found->measurement) : 1U;
          const Colour wanted = found ? colour(survey.Misure(k).Rho.at(found->channel)) : 0xFFFFFFU;
          wrong += p.canvas.at(x, y) == wanted ? 0U : 1U;
        }
      }
    }
    EXPECT_EQ(wrong, 0U);
    EXPECT_EQ(channels.size(), MaxChannels);
  }
}

// Cells are 10 m wide; that of channel 3 of the third firing lies from -15 to -5 m and from 5 to 7 m of depth.
TEST(Excluded, ReadingsShowTheirOutlineAndTakeNoPartInCurves) {
  Survey survey = Bottomless(FlatSurvey({0, 10, 20, 30, 40}));
  survey.Misure(3).escluse = BitDi(3);
  survey.Misure(3).Rho.at(3) = 9.5F;
  survey.Misure(3).ConQualita = true;
  survey.Misure(3).Deviazione.at(3) = 12.5F;
  survey.Misure(3).Caricabilita.at(3) = -3.25F;
  survey.qualita.escluse = 1;
  const Painted p(survey);
  constexpr Colour grey = 0x8A8A8A;
  EXPECT_EQ(p.at(-10, 6), qbcolor::White);
  EXPECT_EQ(p.at(-14.9, 6), grey) << "left side";
  EXPECT_EQ(p.at(-5.1, 6), grey) << "right side";
  EXPECT_EQ(p.at(-10, 5.02), grey) << "upper side";
  EXPECT_EQ(p.at(-10, 6.995), grey) << "lower side";
  EXPECT_EQ(p.at(0, 6), ColourOf(4.03)) << "the firing behind it";
  EXPECT_TRUE(std::isnan(p.model.rho[3][2]));
  EXPECT_TRUE(std::isnan(p.model.potential[3][2]));
  EXPECT_EQ(p.model.celle(3)[2], 9.5F);
  const PixelArea& plot = p.layout.blocks.at(0).plot;
  const double x = (-10 - p.layout.window.from) / p.layout.window.width() * plot.width();
  const auto under = LetturaSotto(p.model, p.layout,
                                  {plot.left + static_cast<std::int32_t>(x),
                                   plot.top + static_cast<std::int32_t>(6 / p.layout.deepest * plot.height())});
  ASSERT_TRUE(under.has_value());
  const std::string text = DescriviLettura(survey, p.model, *under);
  EXPECT_NE(text.find("channel 3: 9.50 Ohm"), std::string::npos) << text;
  EXPECT_NE(text.find("; deviation 12.5 %, chargeability -3.25 mV/V; excluded"), std::string::npos) << text;
}

TEST(Picking, NamesTheReadingAndTheNearestFiring) {
  Survey survey = FlatSurvey({0, 10, 20, 60, 70, 80}, 3);
  survey.Misure(4).Scartata = true;
  survey.traccia.FattoreK[3] = 188.496F;
  survey.Misure(5).Rho[3] = 0.5123F;
  const Painted p(survey);
  const auto nearest = [&](std::size_t block, double metres) {
    return MisuraVicina(p.model, p.layout.blocks[block], metres);
  };
  EXPECT_EQ(nearest(0, 14), 2);
  EXPECT_EQ(nearest(0, 16), 3);
  EXPECT_EQ(nearest(0, 500), 3);
  EXPECT_EQ(nearest(1, 60), 5) << "4 is left out";
  EXPECT_EQ(DescriviLettura(survey, p.model, {5, 3}),
            "Measurement 5, channel 3: 0.5123 Ohm\u00B7m at -20.0 m, pseudo-depth 6.0 m; V 3.00 mV, I 1000 mA, "
            "K 188 m; boat at 300070.0 E, 5000000.0 N")
      << "70 m, 30 m behind the boat, 60 m after the line's beginning";
  EXPECT_EQ(DescriviLettura(survey, p.model, {99, 3}), "");
  EXPECT_EQ(BloccoSotto(p.layout, {400, p.layout.blocks[1].plot.top + 1}), &p.layout.blocks[1]);
  EXPECT_EQ(BloccoSotto(p.layout, {400, 699}), nullptr);
}

struct Size {
  std::int32_t width, height;
};

/// Texts inside the picture and clear of each other and of the strips.
void ExpectTidy(const Painted& p, const std::string& what) {
  std::vector<PixelArea> boxes;
  for (const auto& t : p.canvas.texts) {
    boxes.push_back({t.place.X, t.place.X + p.canvas.LarghezzaTesto(t.text), t.place.Y, t.place.Y + 12});
  }
  const PixelArea area = p.canvas.area();
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    const PixelArea& b = boxes[i];
    EXPECT_TRUE(b.left >= 0 && b.right <= area.right && b.top >= 0 && b.bottom <= area.bottom)
        << what << ": " << p.canvas.texts[i].text;
    for (std::size_t j = 0; j < i; ++j) {
      EXPECT_FALSE(SiToccano(b, boxes[j]))
          << what << ": " << p.canvas.texts[i].text << " and " << p.canvas.texts[j].text;
    }
    for (const SectionBlock& block : p.layout.blocks) {
      const PixelArea& s = block.plot;
      const bool over = b.left < s.right && s.left < b.right && b.top < s.bottom && s.top < b.bottom;
      EXPECT_FALSE(over) << what << ": " << p.canvas.texts[i].text << " covers cells";
    }
  }
  std::int32_t above = 0;
  for (const SectionBlock& block : p.layout.blocks) {
    EXPECT_TRUE(block.title >= above && block.air.top > block.title && block.plot.top >= block.air.bottom) << what;
    EXPECT_TRUE(block.plot.height() >= 1 && block.plot.left >= 0 && block.plot.right <= area.right) << what;
    above = block.plot.bottom;
    for (const CurvePlot& curve : block.curves) {
      EXPECT_TRUE(curve.title >= above && curve.plot.top >= curve.title + 12 && curve.plot.height() >= 24) << what;
      above = curve.plot.bottom;
    }
    EXPECT_LT(above, area.bottom - 12) << what;
  }
}

TEST(Pictures, AreTidyInAllSizes) {
  std::vector<double> ten;
  for (int k = 0; k < 100; ++k) ten.push_back(10.0 * k + 300.0 * (k / 10));
  Survey lost = FlatSurvey({0, 10, 20, 30}), two = FlatSurvey({0, 10, 20}), equal = FlatSurvey({0, 10, 20});
  for (std::size_t k = 1; k <= 4; ++k) LoseFix(lost, k);
  for (Misura& m : two.Misure) m.letture = BitDi(1) | BitDi(2);
  for (Misura& m : equal.Misure) {
    m.Rho.fill(-3);
    m.CanaleA.fill(-1);
    m.Val12 = -2;
  }
  const std::vector<std::pair<const char*, Survey>> surveys{{"none", Survey()},
                                                            {"one", FlatSurvey({0})},
                                                            {"ten lines", FlatSurvey(ten, 10)},
                                                            {"all fixes lost", lost},
                                                            {"two channels", two},
                                                            {"equal and negative", equal},
                                                            {"stood still", FlatSurvey({5, 5, 5, 5})},
                                                            {"two lines", FlatSurvey({0, 10, 20, 900, 910}, 3)}};
  const SectionNotes notes{
      1, 3, {"lagoon_1.bin, lagoon_2.bin", ": 438 measurements, zone 33 N, 2026-06-15, colours by hand"}};
  for (const auto& [name, survey] : surveys) {
    for (const Size& size : {Size{400, 300}, Size{640, 480}, Size{800, 600}, Size{1280, 800}, Size{3840, 2160},
                             Size{300, 2000}, Size{2000, 220}, Size{1, 1}, Size{1, 600}, Size{700, 1}, Size{60, 60}}) {
      for (const SectionView& view : {SectionView(), WithCurves(), WithCurves(With(SectionLines::Along))}) {
        const std::string what = std::string(name) + " in " + std::to_string(size.width) + "x" +
                                 std::to_string(size.height) + (view.curves[0] ? ", curves" : "");
        const Painted p(survey, view, notes, EvenPlaces(), size.width, size.height);
        ExpectTidy(p, what);
        if (size.width >= 640 && size.height >= 480) {
          EXPECT_TRUE(p.says("Distance") && p.says("Depth [m]") && p.says("resistivity") && p.says("lagoon_1.bin") &&
                      p.says(": 438 meas"))
              << what;
        }
      }
    }
  }
}

TEST(Pictures, TellWhatThereIsNoRoomFor) {
  std::vector<double> ten;
  for (int k = 0; k < 100; ++k) ten.push_back(10.0 * k);
  const Survey lines = FlatSurvey(ten, 10);
  const Painted low(lines, {}, {}, EvenPlaces(), 800, 600), high(lines, {}, {}, EvenPlaces(), 800, 1200);
  EXPECT_EQ(low.layout.blocks.size(), 1U);
  EXPECT_TRUE(low.says("No room for 10 strips"));
  EXPECT_EQ(high.layout.blocks.size(), 10U);
  EXPECT_FALSE(high.says("No room"));
  const Painted curves(FlatSurvey({0, 10}), WithCurves(), {}, EvenPlaces(), 800, 300);
  ASSERT_EQ(curves.layout.blocks.size(), 1U);
  const std::size_t shown = curves.layout.blocks[0].curves.size();
  EXPECT_LT(shown, 6U);
  EXPECT_TRUE(curves.says("No room for " + std::to_string(6 - shown) + " curve"));
  const Painted all(FlatSurvey({0, 10}), WithCurves());
  for (const char* title : {"Current [mA]", "Potential, size [mV]", "Apparent resistivity [Ohm\u00B7m]",
                            "Water depth [m]", "Speed over ground [m/s]", "Time since the first firing [h]"}) {
    EXPECT_TRUE(all.says(title)) << title;
  }
  EXPECT_TRUE(all.says("no times in this part"));
  EXPECT_TRUE(Painted(Survey()).says("No measurements"));
  EXPECT_TRUE(Painted(FlatSurvey({0, 10}), {}, {}, ReadingPlaces()).says("No pseudo-depths"));
}

// Channel c of firing i reads c mV: ten level lines whose colours stand at heights by the logarithm.
TEST(Curves, StandAtTheirValues) {
  SectionView view;
  view.curves[static_cast<std::size_t>(Curve::Potential)] = view.curves[static_cast<std::size_t>(Curve::Current)] =
      true;
  Survey survey = FlatSurvey({0, 10, 20, 30});
  survey.Misure(2).Val180 = 1500;
  survey.Misure(3).Val180 = 500;
  const Painted p(survey, view, {}, AtTheBoat());
  const auto& curves = p.layout.blocks.at(0).curves;
  ASSERT_EQ(curves.size(), 2U);
  const auto row = [&](const PixelArea& plot, double metres, Colour colour) {
    const auto x = plot.left + static_cast<std::int32_t>(p.layout.colonna(p.layout.blocks[0], metres));
    for (std::int32_t y = plot.top; y < plot.bottom; ++y) {
      if (p.canvas.at(x, y) == colour) return (plot.bottom - 1 - y) / (plot.height() - 1.0);
    }
    return -1.0;
  };
  const PixelArea &current = curves[0].plot, &potential = curves[1].plot;
  constexpr Colour single = 0x1F5FA8;
  EXPECT_NEAR(row(current, 0, single), 0.5, 0.05);
  EXPECT_NEAR(row(current, 10, single), 1.0, 0.05);
  EXPECT_NEAR(row(current, 20, single), 0.02, 0.05);
  const std::vector<Colour> colours{0x14123C, 0x3A1B7C, 0x7A1F87, 0x1C4FA3, 0xB0306A,
                                    0x117A8B, 0xD6562B, 0x2E9E4F, 0xE59A1C, 0x9BC53D};
  for (const std::size_t c : {1U, 2U, 5U, 10U}) {
    EXPECT_NEAR(row(potential, 15, colours[c - 1]), std::log10(static_cast<double>(c)), 0.05) << "channel " << c;
  }
}

}  // namespace
}  // namespace corvan::test
