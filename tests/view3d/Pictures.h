// Surveys to paint and what to expect of their points.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "support/Surveys.h"
#include "support/TestCanvas.h"

namespace corvan::test {

/// A survey as the analysis leaves it: scene origin (300000, 5000000), cells 10 m high.
inline Survey SurveyOf(const std::vector<Firing>& firings) {
  Survey survey = Measurements(firings);
  survey.traccia.CentroX = 300000;
  survey.traccia.CentroY = 5000000;
  survey.traccia.AltezzaCella = 10;
  survey.traccia.EstensioneX = survey.traccia.EstensioneY = 100;
  return survey;
}

inline void ExpectPoint(const Punto3D& p, float x, float y, float z, const char* what) {
  EXPECT_FLOAT_EQ(p.x, x) << what;
  EXPECT_FLOAT_EQ(p.y, y) << what;
  EXPECT_FLOAT_EQ(p.z, z) << what;
}

}  // namespace corvan::test
