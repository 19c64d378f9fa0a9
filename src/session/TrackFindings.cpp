#include "session/TrackFindings.h"

#include <algorithm>
#include <cmath>

#include "base/NumberText.h"
#include "base/Text.h"
#include "track/TrackGrid.h"

namespace corvan {
namespace {

/// Nobody surveys so far from the boat that records the track, m.
constexpr double FarAway = 50'000.0;

std::string Secondi(double seconds) {
  if (seconds < 120.0) return TestoNumero(seconds) + " s";
  if (seconds < 7200.0) return TestoDecimi(seconds / 60.0) + " min";
  if (seconds < 172800.0) return TestoDecimi(seconds / 3600.0) + " h";
  return TestoDecimi(seconds / 86400.0) + " days";
}

/// "1 measurement lies", "3 measurements lie".
std::string Misurazioni(std::size_t count, const char* one, const char* many) {
  return Quanti(count, "measurement ", "measurements ") + (count == 1 ? one : many);
}

/// No measurement has a position: the survey lies nowhere.
bool GrigliaIgnota(const Survey& survey) {
  return std::none_of(survey.Misure.begin(), survey.Misure.end(), [](const Misura& m) { return !m.SenzaFix; });
}

}  // namespace

void RilevaCollegamento(const char* procedure, const LinkNotes& notes, Findings& findings) {
  if (notes.keptDepth > 0) {
    findings.note(procedure, Misurazioni(notes.keptDepth, "lies at a fix without a depth and kept its own",
                                         "lie at fixes without a depth and kept their own"));
  }
  if (notes.holes > 0) {
    findings.note(procedure,
                  Misurazioni(notes.holes, "lies in a hole of the track of ", "lie in holes of the track of ") +
                      (notes.holes == 1 ? "" : "over 60 s, the longest of ") + Secondi(notes.longestHole) +
                      (notes.holes == 1 ? ": it was placed" : ": they were placed") + " on the straight line across");
  }
}

void RilevaTempi(const TimeLink& link, const Survey& survey, Findings& findings) {
  const std::string all = " of " + Quanti(survey.Misure.size(), "measurement", "measurements");
  if (link.outside > 0) {
    findings.fault("LinkDataGPST", std::to_string(link.outside) + all + (link.outside == 1 ? " lies" : " lie") +
                                       " outside the time of the track, by up to " + Secondi(link.farthest) +
                                       (link.outside == 1 ? ": it took" : ": they took") + " its first or last fix");
  }
  if (link.withoutTime > 0) {
    findings.fault("LinkDataGPST", std::to_string(link.withoutTime) + all +
                                       (link.withoutTime == 1 ? " has no time and was" : " have no time and were") +
                                       " not linked");
  }
  if (link.withoutTrack > 0) {
    findings.fault("LinkDataGPST", "the track holds no fix: all measurements are left out");
  }
}

void RilevaDistanza(const char* procedure, const Survey& survey, const std::string& track, Findings& findings) {
  if (survey.tracciaEst.PuntiGPSEst.empty() || GrigliaIgnota(survey)) return;
  const double away = DistanzaDaTraccia(survey);
  if (away <= FarAway) return;
  findings.fault(
      procedure,
      "the track lies " + TestoNumero(std::round(away / 1000)) + " km from the survey (is the UTM zone right?)", track);
}

std::string MotivoNulla(const Survey& survey, const Collegamenti& connections) {
  const std::int32_t fixes = survey.tracciaEst.NumGPSEst(), measurements = survey.NumMisure();
  if (fixes == 0) return "the track holds no fix";
  for (std::size_t k = 0; k < 2; ++k) {
    const std::int32_t measurement = connections.measurement.at(k), fix = connections.fix.at(k);
    const std::string name = "connection " + std::to_string(k + 1) + " names ";
    if (measurement < 1 || measurement > measurements) {
      return name + "measurement " + std::to_string(measurement) + ", the survey has " + std::to_string(measurements);
    }
    if (fix < 1 || fix > fixes) return name + "fix " + std::to_string(fix) + ", the track has " + std::to_string(fixes);
  }
  return "measurements " + std::to_string(connections.measurement[0]) + " and " +
         std::to_string(connections.measurement[1]) + " lie at one place";
}

}  // namespace corvan
