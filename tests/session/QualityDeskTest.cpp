// Limits of quality and choices by hand: what follows from them, and that each can be taken back.
#include <gtest/gtest.h>

#include "session/SessionFixture.h"

namespace corvan::test {
namespace {

/// Firing i, channel c reads i + c / 100 ohm m; its K is the cable's.
struct Readings : SessionFixture {
  explicit Readings(std::size_t firings = 5) { readFirings(firings); }
  const Quality& quality() const { return session.survey.dati().qualita; }
  /// "2.3 2.4": the excluded readings, measurement and channel.
  std::string excluded() const {
    std::string text;
    for (std::size_t k = 1; k <= session.survey.dati().Misure.size(); ++k) {
      for (std::size_t c = 1; c <= MaxChannels; ++c) {
        if (HaLettura(m(k), c) && !InUso(m(k), c))
          text += (text.empty() ? "" : " ") + std::to_string(k) + "." + std::to_string(c);
      }
    }
    return text;
  }
  void toggle(std::int32_t k, std::size_t c) { session.escludi({k, c}); }
};

TEST(QualityDesk, ExcludesAndTakesAgainByHand) {
  Readings s;
  s.toggle(2, 3);
  s.toggle(4, 10);
  EXPECT_EQ(s.excluded(), "2.3 4.10");
  EXPECT_EQ(s.quality().escluse, 2U);
  EXPECT_EQ(s.session.annullabile(), "Exclude Reading");
  s.toggle(2, 3);
  EXPECT_EQ(s.excluded(), "4.10");
  EXPECT_EQ(s.quality().aMano.size(), 1U) << "as the limits say is no choice";
  EXPECT_EQ(s.session.annullabile(), "Include Reading");
  s.session.annulla();
  EXPECT_EQ(s.excluded(), "2.3 4.10");
  s.session.annulla();
  s.session.annulla();
  EXPECT_EQ(s.excluded(), "");
  EXPECT_FALSE(s.quality().inVigore());
  s.toggle(6, 1);
  s.toggle(1, 11);
  EXPECT_EQ(Told(s.session.findings()),
            "!measurement 6 has no reading of channel 1: nothing is changed\n"
            "!measurement 1 has no reading of channel 11: nothing is changed\n");
}

// Resistivities come from 10 mV, 1000 mA and the factors of the cable: the same in all firings, one value a channel.
TEST(QualityDesk, ChoicesStandAgainstLimitsAndOutliveThem) {
  Readings s;
  const double third = s.m(1).Rho[3], fourth = s.m(1).Rho[4];
  ASSERT_LT(third, fourth);
  s.toggle(1, 1);
  s.press("RhoMaxTxt_KeyPress", std::to_string((third + fourth) / 2));
  const auto beyond = [&](std::size_t k) {
    std::string all;
    for (std::size_t c = 4; c <= 10; ++c) all += (all.empty() ? "" : " ") + std::to_string(k) + "." + std::to_string(c);
    return all;
  };
  EXPECT_EQ(s.excluded(), "1.1 " + beyond(1) + " " + beyond(2) + " " + beyond(3) + " " + beyond(4) + " " + beyond(5));
  EXPECT_EQ(s.session.survey.dati().traccia.RhoMax, s.m(1).Rho[3]);
  EXPECT_EQ(s.session.survey.colours().range.ScalaMax, s.m(1).Rho[3]) << "no part in the colour range";
  s.toggle(3, 9);
  EXPECT_TRUE(InUso(s.m(3), 9));
  EXPECT_EQ(s.session.survey.colours().range.ScalaMax, s.m(1).Rho[9]);
  s.session.survey.impostaZona(32);  // another analysis
  EXPECT_TRUE(InUso(s.m(3), 9));
  EXPECT_FALSE(InUso(s.m(3), 8));
  EXPECT_FALSE(InUso(s.m(1), 1));
  s.press("RhoMaxTxt_KeyPress", " ");
  EXPECT_EQ(s.excluded(), "1.1");
  EXPECT_EQ(s.quality().aMano.size(), 2U);
  s.toggle(3, 9);  // taken by hand, which no limit contradicts now: bad from here on
  EXPECT_EQ(s.excluded(), "1.1 3.9");
  s.press("ForgetCmd_Click");
  EXPECT_EQ(s.excluded(), "");
  s.session.annulla();
  EXPECT_EQ(s.excluded(), "1.1 3.9");
  for (int back = 0; back < 2; ++back) s.session.annulla();
  EXPECT_FALSE(InUso(s.m(2), 5)) << "the limit is there again";
  EXPECT_EQ(s.quality().limiti.rhoMax.has_value(), true);
}

TEST(QualityDesk, TypedLimitsAreWeighedAndToldOnce) {
  Readings s;
  s.press("MinCurrentTxt_KeyPress", "1000");
  EXPECT_EQ(s.excluded(), "");
  s.press("MinCurrentTxt_KeyPress", "1000,5");
  EXPECT_EQ(s.quality().limiti.corrente, 1000.0) << "what was read is told";
  s.press("MinPotentialTxt_KeyPress", "-3");
  EXPECT_FALSE(s.quality().limiti.potenziale.has_value());
  s.press("MaxDeviationTxt_KeyPress", "0.5");
  s.press("RhoMinTxt_KeyPress", "-7");
  EXPECT_EQ(s.quality().limiti.rhoMin, -7.0);
  s.press("DespikeTxt_KeyPress", "3.5");
  s.press("DespikeWidthTxt_KeyPress", "7");
  s.press("DespikeWidthTxt_KeyPress", "2");
  EXPECT_FALSE(s.quality().limiti.picchi.has_value()) << "numbers alone look for nothing";
  s.press("DespikeChk_Click");
  EXPECT_EQ(s.quality().limiti.picchi, (Despike{3.5, 7}));
  s.press("DespikeTxt_KeyPress", "6");
  EXPECT_EQ(s.quality().limiti.picchi, (Despike{6, 7}));
  s.press("NegativeChk_Click");
  EXPECT_TRUE(s.quality().limiti.negative);
  const std::string told = Told(s.session.findings());
  EXPECT_NE(told.find("!limit \"-3\" is not 0 or more: nothing is changed"), std::string::npos) << told;
  EXPECT_NE(told.find("50 of 50 readings are not tested for deviation"), std::string::npos) << told;
  s.press("DespikeChk_Click");
  EXPECT_FALSE(s.quality().limiti.picchi.has_value());
  s.readFirings(6);
  EXPECT_TRUE(s.quality().limiti.negative) << "limits stay for the next survey";
}

TEST(QualityDesk, ChoicesByHandBelongToTheirSurvey) {
  Readings s;
  s.toggle(2, 3);
  s.readFirings(4);
  EXPECT_EQ(s.excluded(), "");
  EXPECT_TRUE(s.quality().aMano.empty());
  EXPECT_EQ(s.quality().escluse, 0U);
}

}  // namespace
}  // namespace corvan::test
