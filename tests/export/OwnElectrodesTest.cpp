// Sections of measurements that name their own electrodes.
#include <gtest/gtest.h>

#include "export/Section.h"
#include "support/SurveyFiles.h"
#include "support/Surveys.h"
#include "track/Cable.h"
#include "track/TrackAnalysis.h"

namespace corvan {
namespace {

/// Two measurements 7 m apart, 1 6 11 16 and 6 11 16.5 21: the cable in use is the first one's, its spacing 5 and its
/// span 15, the head of both at 21.
Survey TwoOfTheirOwn() {
  Survey survey = test::Measurements({{300000, 5e6}, {300007, 5e6}});
  constexpr std::array<std::array<float, 4>, 2> electrodes{{{1, 6, 11, 16}, {6, 11, 16.5F, 21}}};
  for (std::size_t k = 0; k < 2; ++k) {
    Misura& m = survey.Misure(k + 1);
    m.CavoProprio = true;
    m.letture = BitDi(1);
    m.Val60 = electrodes.at(k)[0];
    m.Val64 = electrodes.at(k)[1];
    m.Elettrodi.fill(electrodes.at(k)[3]);
    m.Elettrodi[1] = electrodes.at(k)[2];
  }
  CreaCavoDaMisure(survey);
  Findings ignored;
  AnalisiFile(survey, ignored);
  return survey;
}

// The head at Fix((0 + 15) / 5) 5 + 3 = 18 and Fix((7 + 15) / 5) 5 + 3 = 23, the others as far behind it as they are.
TEST(OwnElectrodes, KeepTheirDistancesAlongTheSection) {
  Survey survey = TwoOfTheirOwn();
  SectionRequest request;
  request.E2 = 2;
  request.OffsetCavo = 3;
  Findings findings;
  const Section section = EstraiSezione(survey, request, findings);
  EXPECT_EQ(section.RecordOut(1).x, (std::array<float, 4>{-2, 3, 8, 13}));
  EXPECT_EQ(section.RecordOut(11).x, (std::array<float, 4>{8, 13, 18.5, 23}));
  EXPECT_EQ(test::Told(findings),
            "-18 of 20 records have both potential electrodes at one place, of channels without a "
            "reading, the first is channel 2 of measurement 1\n");
}

// The antenna at 0 and 7 m, the head 3 m behind it.
TEST(OwnElectrodes, LieOnTheSailedPathAsFarBehindTheBoat) {
  Survey survey = TwoOfTheirOwn();
  SectionRequest request;
  request.E2 = 2;
  request.OffsetCavo = 3;
  request.shape = CableShape::AlongTrack;
  Findings findings;
  const Section section = EstraiSezione(survey, request, findings);
  EXPECT_EQ(section.RecordOut(1).x, (std::array<float, 4>{-23, -18, -13, -8}));
  EXPECT_EQ(section.RecordOut(11).x, (std::array<float, 4>{-11, -6, -0.5F, 4}));
}

// Middles of the current dipoles 17.5 and 12.5 m behind the head, which trails 3 m: 20.5 and 15.5 m to the west.
TEST(OwnElectrodes, LieBehindTheBoatByTheirOwnLag) {
  Survey survey = TwoOfTheirOwn();
  SectionRequest request;
  request.E2 = 2;
  request.OffsetCavo = 3;
  request.position = TruePosition::BehindBoat;
  Findings findings;
  EstraiSezione(survey, request, findings);
  EXPECT_DOUBLE_EQ(survey.Misure(1).Deriv[3], 300000 - 20.5);
  EXPECT_DOUBLE_EQ(survey.Misure(2).Deriv[3], 300007 - 15.5);
}

}  // namespace
}  // namespace corvan
