#include "exchange/BottomTable.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Errors.h"
#include "base/Text.h"
#include "exchange/DecimalText.h"
#include "exchange/OpenPlaces.h"
#include "export/BlockComposer.h"
#include "export/CablePlaces.h"

namespace corvan {
namespace {

constexpr const char* Procedure = "SalvaFondo";
constexpr std::size_t RowsPerBlock = 2000;  // about 200 kB

/// The section's measurements of which it is known where they were.
std::vector<std::int32_t> Posti(const Section& section) {
  std::vector<std::int32_t> placed;
  placed.reserve(section.RecordOut.points().size());
  for (const SectionPoint& point : section.RecordOut.points()) {
    if (point.posta) placed.push_back(point.misura);
  }
  return placed;
}

void AggiungiRiga(std::string& out, const ElectrodePlace& bottom, const std::optional<Geographic>& degrees) {
  AggiungiDecimale(out, bottom.x);
  const auto add = [&out](double value) {
    out += ',';
    AggiungiDecimale(out, value);
  };
  add(bottom.est);
  add(bottom.nord);
  if (degrees) {
    add(degrees->latitude);
    add(degrees->longitude);
  } else {
    out += ",,";
  }
  add(bottom.prof);
  out += '\n';
}

}  // namespace

void SalvaFondo(FileWriter& out, const Survey& survey, const Section& section, Findings& findings) {
  const std::vector<std::int32_t> placed = Posti(section);
  if (placed.empty()) throw RunTimeError("no measurement of the section has a position: the file is not made");
  const CablePlaces places(section);
  const auto dry =
      std::count_if(placed.begin(), placed.end(), [&places](std::int32_t p) { return !(places.fondo(p).prof > 0.0); });
  if (dry > 0) {
    findings.note(Procedure, std::to_string(dry) + " of " + Quanti(placed.size(), "row", "rows") +
                                 (dry == 1 ? " has" : " have") + " a depth of 0: none was read there, or no water is");
  }
  if (const std::size_t left = section.RecordOut.points().size() - placed.size(); left > 0) {
    findings.note(Procedure, Quanti(left, "measurement", "measurements") + " without a position left out");
  }
  out.write("distance,easting,northing,latitude,longitude,depth\n");
  const auto compose = [&](std::string& text, std::size_t first, std::size_t end) {
    for (std::size_t k = first; k < end; ++k) {
      const std::int32_t p = placed[k];
      const ElectrodePlace bottom = places.fondo(p);
      const Misura& m = survey.Misure(static_cast<std::size_t>(p));
      AggiungiRiga(text, bottom, GradiDi(survey, m, bottom.est, bottom.nord));
    }
  };
  ComponiBlocchi({placed.size(), RowsPerBlock}, compose, [&out](std::string_view text) { out.write(text); });
}

}  // namespace corvan
