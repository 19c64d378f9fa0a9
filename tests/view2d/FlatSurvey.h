// Surveys laid flat for the tests: distances along the track instead of positions.
#pragma once

#include <vector>

#include "support/Surveys.h"
#include "view2d/SectionModel.h"

namespace corvan::test {

/// Firings at these distances, as the analysis leaves them, in files of `perFile` firings each. Channel c of firing i
/// reads i + c / 100 ohm m and c mV at 1000 mA; depth 3 m.
inline Survey FlatSurvey(const std::vector<double>& distances, std::size_t perFile = 1000000) {
  std::vector<Firing> firings;
  for (std::size_t k = 0; k < distances.size(); ++k) {
    firings.push_back({300000.0 + distances[k], 5000000, static_cast<std::int16_t>(k / perFile + 1)});
  }
  Survey survey = Measurements(firings);
  for (std::size_t k = 1; k <= distances.size(); ++k) survey.Misure(k).Distanza = distances[k - 1];
  survey.traccia.AltezzaCella = 10;
  return survey;
}

/// Channel c lies 10 c m behind the boat and 2 c m deep.
inline ReadingPlaces EvenPlaces() {
  ReadingPlaces places;
  for (std::size_t c = 1; c <= MaxChannels; ++c)
    places.at(c) = {10.0 * static_cast<double>(c), 2.0 * static_cast<double>(c)};
  return places;
}

/// All channels at the boat.
inline ReadingPlaces AtTheBoat() {
  ReadingPlaces places = EvenPlaces();
  for (ReadingPlace& place : places) place.dietro = 0.0;
  return places;
}

/// The firing lost its fix: it repeats the distance before it.
inline void LoseFix(Survey& survey, std::size_t k) {
  Misura& m = survey.Misure(k);
  m.sorgente = {};
  m.SenzaFix = true;
  if (k > 1) m.Distanza = survey.Misure(k - 1).Distanza;
}

}  // namespace corvan::test
