#include "export/PathFindings.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include "base/NumberText.h"
#include "base/Text.h"
#include "export/CablePlaces.h"
#include "geo/Plane.h"
#include "survey/MeasurementText.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "SalvaEstrattoFile";

std::string NomeElettrodo(std::size_t e) {
  return e > PotentialElectrodes ? "C" + std::to_string(e - PotentialElectrodes) : "E" + std::to_string(e);
}

std::string Metri(double metres) { return TestoDecimi(metres) + " m"; }

/// Electrodes on one end's prolonged course.
struct Beyond {
  std::size_t count = 0;
  double farthest = 0;  ///< from the path's end, m

  void add(double metres) {
    if (!(metres > 0.0)) return;
    ++count;
    farthest = std::max(farthest, metres);
  }
};

void RilevaProlungati(const CableOnPath& on, Findings& findings) {
  Beyond before, behind;
  const auto& points = on.section.RecordOut.points();
  for (const SectionPoint& point : points) {
    const LineFix fix = on.lines.fix(point.misura);
    const SailedPath& path = fix.line->path();
    if (!path.conRotta()) continue;
    for (std::size_t e = 1; e <= CableElectrodes; ++e) {
      const double at = fix.lunghezza() - on.dietro(point.misura, e);
      before.add(-at);
      behind.add(at - path.lunghezza());
    }
  }
  const std::string of = " of " + std::to_string(points.size() * CableElectrodes) + " electrode places lie up to ";
  if (before.count > 0) {
    findings.note(Procedure, std::to_string(before.count) + of + Metri(before.farthest) +
                                 " before the first position of their line, on its first course prolonged backwards");
  }
  if (behind.count > 0) {
    findings.note(Procedure, std::to_string(behind.count) + of + Metri(behind.farthest) +
                                 " beyond the last position of their line, on its last course prolonged");
  }
}

void RilevaSenzaRotta(const CableOnPath& on, Findings& findings) {
  std::size_t count = 0;
  std::int32_t first = 0;
  for (const SectionPoint& point : on.section.RecordOut.points()) {
    if (on.lines.fix(point.misura).line->path().conRotta()) continue;
    if (count++ == 0) first = point.misura;
  }
  if (count == 0) return;
  findings.fault(
      Procedure,
      Quanti(count, "measurement lies", "measurements lie") +
          " on a line whose positions are all one place: nothing tells where its cable lay, it is put to the "
          "west, as if the boat had sailed east" +
          std::string(IlPrimo(count)) + "measurement " + std::to_string(first),
      FileDi(on.survey, on.survey.Misure(static_cast<std::size_t>(first))));
}

/// Steps of the path under the section's cables that nobody has positions of.
struct Bridges {
  std::size_t over = 0;  ///< measurements that are passed over
  double longest = 0;    ///< of the steps over them, m
  std::int32_t at = 0;   ///< measurement before that step
  std::size_t wide = 0;  ///< steps between neighbours that are longer than the cable
  double widest = 0;
  std::int32_t wideAt = 0;

  void add(std::int32_t from, std::int32_t to, double step, double cable) {
    if (to - from > 1) {
      over += static_cast<std::size_t>(to - from - 1);
      if (step >= longest) at = from;
      longest = std::max(longest, step);
    } else if (step > cable) {
      ++wide;
      if (step > widest) wideAt = from;
      widest = std::max(widest, step);
    }
  }
};

Bridges TrovaPonti(const CableOnPath& on) {
  double reach = 0.0;  // from the antenna to the electrode that is farthest behind it
  for (std::size_t e = 1; e <= CableElectrodes; ++e) {
    reach = std::max(reach, on.dietro(on.kept.front(), e));
  }
  Bridges bridges;
  const LineFix start = on.lines.fix(on.section.E1);
  for (std::size_t k = 0; k < on.lines.size(); ++k) {
    const SailedLine& line = on.lines.line(k);
    const double from = k == 0 ? start.lunghezza() - reach : 0.0;
    for (std::size_t i = 0; i + 1 < line.fixes().size() && line.fixes()[i] < on.section.E2; ++i) {
      const double s = line.path().lunghezza(i + 1);
      if (s > from)
        bridges.add(line.fixes()[i], line.fixes()[i + 1], s - line.path().lunghezza(i), on.section.Lunghezza);
    }
  }
  return bridges;
}

void RilevaPonti(const CableOnPath& on, Findings& findings) {
  const Bridges b = TrovaPonti(on);
  if (b.over > 0) {
    findings.note(Procedure, "the cable's path goes straight over " + Quanti(b.over, "measurement", "measurements") +
                                 " without position or left out; the longest step is " + Metri(b.longest) +
                                 ", behind measurement " + std::to_string(b.at));
  }
  if (b.wide > 0) {
    findings.note(Procedure, "the cable's path goes straight over " + Quanti(b.wide, "step", "steps") +
                                 " longer than the cable (" + Metri(on.section.Lunghezza) + "); the longest is " +
                                 Metri(b.widest) + ", behind measurement " + std::to_string(b.wideAt));
  }
}

}  // namespace

void RilevaPercorso(const CableOnPath& on, Findings& findings) {
  RilevaSenzaRotta(on, findings);
  RilevaProlungati(on, findings);
  RilevaPonti(on, findings);
  if (on.lines.size() == 1) return;
  findings.note(Procedure, "the section lies on the paths of " + std::to_string(on.lines.size()) +
                               " files: no cable lies across from one to the next, x goes on by the straight distance "
                               "between them");
}

void RilevaDifferenza(const CableOnPath& on, Findings& findings) {
  const PlanPoint verso = VersoDritto(on.section);
  const ProfilePoint& start = on.section.Profilo(on.section.E1);
  double most = 0.0;
  std::int32_t at = 0;
  std::size_t electrode = 0;
  for (const std::int32_t p : on.kept) {
    const LineFix fix = on.lines.fix(p);
    if (!fix.line->path().conRotta()) continue;
    const ProfilePoint& point = on.section.Profilo(p);
    const double D = dist(start.est, start.nord, point.est, point.nord);
    for (std::size_t e = 1; e <= CableElectrodes; ++e) {
      const double astern = on.dietro(p, e);
      const PlanPoint place = fix.luogo(fix.x() - astern);
      const double apart =
          dist(place.est, place.nord, start.est + verso.est * (D - astern), start.nord + verso.nord * (D - astern));
      if (apart <= most) continue;
      most = apart;
      at = p;
      electrode = e;
    }
  }
  if (on.section.Passo == 0.0 || most <= on.section.Passo / 2.0) return;
  findings.note(Procedure, "the cable along the sailed track lies up to " + Metri(most) +
                               " from the straight one, most of all at " + NomeElettrodo(electrode) +
                               " of measurement " + std::to_string(at));
}

}  // namespace corvan
