// Any bytes as an external track; FUZZ_READER says through which reader, the first byte picks layout, first day and
// points.
#include <array>
#include <cmath>

#include "Fuzz.h"
#include "input/TrackFile.h"
#include "input/TrackSteps.h"
#include "track/TrackGrid.h"

namespace {

using namespace corvan;

void PromiseFixes(const Array1<PuntoGPSEst>& fixes) {
  for (const PuntoGPSEst& fix : fixes) {
    for (const double value : {fix.GeoA, fix.GeoB, fix.Prof, fix.DataOra}) {
      fuzz::Promise(std::isfinite(value), "a fix is finite");
    }
    fuzz::Promise(HaSorgente(fix.sorgente), "a fix has a source");
    fuzz::Promise(fix.haProf || fix.Prof == 0.0, "no depth is 0");
    if (const auto* place = std::get_if<Geographic>(&fix.sorgente)) {
      const bool onEarth = std::abs(place->latitude) <= 90.0 && std::abs(place->longitude) <= 180.0;
      fuzz::Promise(onEarth && place->latitude != 0.0 && place->longitude != 0.0, "a fix has a place on the earth");
    }
  }
}

/// On a grid of its own: every distance is finite.
void PromiseTrack(const TrackRead& read, AngleFormat layout) {
  Survey survey;
  survey.tracciaEst.PuntiGPSEst = read.fixes;
  survey.tracciaEst.loaded = true;
  survey.settings.layout = layout;
  CollocaTraccia(survey);
  double along = 0.0;
  for (const PuntoGPSEst& fix : survey.tracciaEst.PuntiGPSEst) {
    fuzz::Promise(std::isfinite(fix.X) && std::isfinite(fix.Y), "a fix is finite on the grid");
    fuzz::Promise(fix.Progressiva >= along, "the distance along a track never decreases");
    along = fix.Progressiva;
  }
  fuzz::Promise(std::isfinite(LunghezzaTraccia(read.fixes)), "a track has a length");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const auto kind = static_cast<TrackKind>(FUZZ_READER);
  TrackOptions options;
  options.layout = static_cast<AngleFormat>(data[0] % 3);
  if (data[0] % 2 == 0) options.firstDay = 46188.0;
  const std::string_view content = fuzz::Text(data + 1, size - 1);
  GenereTraccia("track", content);
  TrackRead read = LeggiTraccia(kind, content, options);
  PromiseFixes(read.fixes);
  PromiseTrack(read, options.layout);
  if (kind != TrackKind::Sav) return 0;
  read.fixes = Ricampiona(read.fixes, static_cast<std::int16_t>(data[0] / 4), options.layout);
  for (const PuntoGPSEst& fix : read.fixes) {
    const auto& place = std::get<Geographic>(fix.sorgente);
    fuzz::Promise(std::isfinite(place.latitude) && std::isfinite(place.longitude), "a point of a curve is finite");
  }
  return 0;
}
