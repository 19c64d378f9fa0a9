// A file as bytes through its reader, the analysis and the extraction: nothing of our own arithmetic may leave the
// finite.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "base/ErrorTrap.h"
#include "base/File.h"
#include "export/Section.h"
#include "FileInMemory.h"
#include "input/InputDriver.h"
#include "track/Cable.h"
#include "track/TrackAnalysis.h"

namespace corvan::fuzz {

inline void PromiseFinite(const Survey& survey) {
  double distance = 0.0;
  for (const Misura& m : survey.Misure) {
    for (const double value : {m.UTMx, m.UTMy, m.Lat, m.Lon, m.Deriv[3], m.Deriv[4], m.Distanza}) {
      Promise(std::isfinite(value), "a position or distance is finite");
    }
    Promise(m.Distanza >= distance, "distances never decrease");
    distance = m.Distanza;
    const bool place = m.UTMx != 0.0 || m.UTMy != 0.0 || m.Lat != 0.0 || m.Lon != 0.0;
    Promise(HaPosizione(m) || !place, "a measurement without position has no coordinate");
  }
  const TrackExtent& t = survey.traccia;
  for (const double value : {t.XMin, t.XMax, t.YMin, t.YMax, t.Lunghezza})
    Promise(std::isfinite(value), "the extent is finite");
  for (const float value :
       {t.RhoMin, t.RhoMax, t.MinVal12, t.MaxVal12, t.PassoMedio, t.CentroX, t.CentroY, t.CentroZ}) {
    Promise(std::isfinite(value), "the extremes are finite");
  }
  for (const float factor : t.FattoreK) Promise(std::isfinite(factor), "the geometric factors are finite");
  for (const double position : survey.cavo.PosCavoRel) Promise(std::isfinite(position), "the cable is finite");
  for (const Punto3D& p : t.PuntiGPS)
    Promise(std::isfinite(p.x) && std::isfinite(p.y), "the track's points are finite");
}

inline void PromiseMarks(const Survey& survey, const TrackResult& result) {
  std::size_t discarded = 0;
  std::size_t interpolated = 0;
  std::size_t bad = 0;
  for (const Misura& m : survey.Misure) {
    discarded += m.Scartata ? 1U : 0U;
    interpolated += m.Interpolata ? 1U : 0U;
    bad += m.SenzaFix ? 1U : 0U;
  }
  Promise(discarded == result.discarded && interpolated == result.interpolated && bad == result.bad,
          "the marks are counted");
}

inline void PromiseSection(const Section& section, const Survey& survey) {
  Promise(section.points <= survey.NumMisure(), "a section has no more points than measurements");
  Promise(section.RecordOut.size() == static_cast<std::size_t>(section.NqpBin()), "ten records a point");
  for (const Profile* profile : {&section.Profilo, &section.ProfiloVero}) {
    const bool any = profile->Primo() <= profile->Ultimo();
    double distance = any ? (*profile)(profile->Primo()).distanza : 0.0;  // below 0 for places behind the first point
    for (std::int32_t p = profile->Primo(); p <= profile->Ultimo(); ++p) {
      const ProfilePoint& point = (*profile)(p);
      for (const double value : {point.est, point.nord, point.prof, point.distanza}) {
        Promise(std::isfinite(value), "a profile is finite");
      }
      Promise(point.distanza >= distance, "distances along a section never decrease");
      distance = point.distanza;
    }
  }
  for (std::size_t k = 1; k <= section.RecordOut.size(); ++k) {
    const Quadrupole q = section.RecordOut(k);
    for (const float value : {q.x[0], q.x[1], q.x[2], q.x[3], q.z[0], q.z[3], q.potential, q.current, q.nord, q.est}) {
      Promise(std::isfinite(value), "a record's own numbers are finite");
    }
  }
}

/// Carries a file through the chain; `choice` picks format, filter and reading past lost fixes.
inline void Chain(std::string_view content, std::uint8_t choice) {
  constexpr std::array filters{BadGps::NoFilter, BadGps::Skip, BadGps::Interpolate};
  constexpr std::array layouts{AngleFormat::DMMSS, AngleFormat::DMM_MMM, AngleFormat::D_DDDD};
  Findings findings;
  Survey survey;
  survey.settings.layout = layouts.at(choice % 3);
  survey.settings.filter = filters.at(choice / 3 % 3);
  survey.settings.CoordUTM = choice / 9 % 4 == 0;
  ReadOptions options;
  options.span = choice / 36 % 2 == 0 ? ReadSpan::ToFirstLostFix : ReadSpan::PastLostFixes;
  options.layout = survey.settings.CoordUTM ? std::nullopt : std::optional(survey.settings.layout);
  options.channels = [choice](std::int32_t) { return choice % 5 == 0 ? "" : std::to_string(choice % 13); };
  options.columns = [choice]() -> std::string { return choice % 7 == 0 ? "" : "a b m n r easting northing"; };
  options.spacing = [choice](bool) { return choice % 4 == 0 ? std::optional(2.5) : std::nullopt; };
  FileRead read = LeggiFile(Place(content), options);
  survey.files.push_back(read.summary);
  for (Misura& m : read.measurements) {
    m.NumFile = Vuota(m) ? std::int16_t{0} : std::int16_t{1};
    survey.Misure.append(m);
  }
  if (survey.Misure.empty()) return;
  survey.settings.griglia = GrigliaDelPrimoFix(survey).value_or(GridZone{33, Hemisphere::North});
  CreaCavoDaMisure(survey);
  RilevaCavo(survey, findings);
  for (const BadGps filter : {filters.at(choice / 3 % 3), BadGps::NoFilter, BadGps::Interpolate}) {
    survey.settings.filter = filter;
    TrackResult result;
    Promise(Trappola(findings, "AnalisiFile", [&] { result = AnalisiFile(survey, findings); }),
            "the analysis comes to its end");
    PromiseFinite(survey);
    PromiseMarks(survey, result);
  }
  SectionRequest request;
  request.E2 = survey.NumMisure();
  request.position = choice % 2 == 0 ? TruePosition::BehindBoat : TruePosition::AsStored;
  request.echoSounder = true;
  for (const CableShape shape : {CableShape::Straight, CableShape::AlongTrack}) {
    request.shape = shape;
    request.OffsetCavo = choice % 2 == 0 ? 8.0 : -70.0;
    const Section section = EstraiSezione(survey, request, findings);
    PromiseFinite(survey);
    PromiseSection(section, survey);
  }
}

}  // namespace corvan::fuzz
