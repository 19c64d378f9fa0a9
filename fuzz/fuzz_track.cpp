// Any bytes as an external track; FUZZ_READER says through which reader, the first byte picks layout and answer.
#include <algorithm>
#include <array>
#include <cmath>

#include "Fuzz.h"
#include "input/TrackFile.h"
#include "track/TrackAnalysis.h"
#include "track/TrackLink.h"

namespace {

using namespace corvan;

void PromiseTrack(const Array1<PuntoGPSEst>& fixes) {
  double along = 0.0;
  for (const PuntoGPSEst& fix : fixes) {
    for (const double value : {fix.X, fix.Y, fix.GeoA, fix.GeoB, fix.Prof, fix.DataOra, fix.Progressiva}) {
      fuzz::Promise(std::isfinite(value), "a fix is finite");
    }
    fuzz::Promise(fix.Progressiva >= along, "the distance along a track never decreases");
    along = fix.Progressiva;
  }
}

/// Measurements around the track's times.
Survey Measurements(const Array1<PuntoGPSEst>& fixes) {
  Survey survey;
  for (std::size_t k = 0; k < 8; ++k) {
    Misura m;
    ImpostaPosizione(m, 4524.0 + 0.01 * static_cast<double>(k), 1218.0);
    m.Tempo = 46188.0 + static_cast<double>(k) / 1000.0;
    if (!fixes.empty() && k % 2 == 0) m.Tempo = fixes(k % fixes.size() + 1).DataOra + 1e-5;
    survey.Misure.append(m);
  }
  return survey;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  constexpr std::array layouts{"DMMSS", "DMM.MMM", "D.DDDD"};
  fuzz::OneAnswer dialogs(data[0] % 2 == 0 ? "" : std::to_string(data[0] / 4));
  GeoGeo geo(dialogs);
  geo.LatLonFormat(layouts.at(data[0] % 3));
  if (data[0] % 5 != 0 || FUZZ_READER == 0) geo.UTMzone(static_cast<std::int16_t>(data[0] % 60 + 1));
  TrackRead read;
  try {
    read = LeggiTraccia(static_cast<TrackKind>(FUZZ_READER), fuzz::Text(data + 1, size - 1), geo, dialogs);
  } catch (const RunTimeError&) {
    return 0;
  }
  CalcolaProgressiva(read.fixes);
  PromiseTrack(read.fixes);

  Survey survey = Measurements(read.fixes);
  Findings findings;
  AnalisiFile(survey, geo, findings);
  survey.tracciaEst.PuntiGPSEst = read.fixes;
  survey.tracciaEst.loaded = true;
  const auto count = static_cast<std::int32_t>(read.fixes.size());
  LinkDataGPSP(survey, {{1, 8}, {data[0] % 2 == 0 ? 1 : count, data[0] % 2 == 0 ? count : 1}});
  const TimeLink link = LinkDataGPST(survey, data[0]);
  fuzz::Promise(link.exact + link.between + link.outside + link.withoutTime + link.withoutTrack == survey.Misure.size(),
                "every measurement is counted once");
  AnalisiFile(survey, geo, findings);
  for (const Misura& m : survey.Misure) {
    for (const double value : {m.UTMx, m.UTMy, m.Lat, m.Lon, m.Distanza, static_cast<double>(m.Val12)}) {
      fuzz::Promise(std::isfinite(value), "a linked measurement is finite");
    }
  }
  return 0;
}
