#include "export/TextWriters.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "base/NumberText.h"
#include "base/Text.h"

namespace corvan {
namespace {

constexpr Mask Place = "#####0.##";
constexpr Mask Reading = "####0.##";
constexpr Mask Quality = "###0.##";
constexpr Mask Coordinate = "#########.0#";

struct Value {
  float value;
  Mask mask;
};

// The table's columns behind the ordinal. Current stands before potential and quality before chargeability, other than
// in binary records: programs that read these tables expect it so.
constexpr const char* Header = "N.\tAx\tBx\tMx\tNx\tAy\tBy\tMy\tNy\tAz\tBz\tMz\tNz\ti\tv\tRho\tq\tm\tUTMx\tUTMy\r\n";

std::array<Value, 19> Colonne(const Quadrupole& q) {
  return {{{q.x[0], Place},
           {q.x[1], Place},
           {q.x[2], Place},
           {q.x[3], Place},
           {0.0F, Place},
           {0.0F, Place},
           {0.0F, Place},
           {0.0F, Place},
           {q.z[0], Place},
           {q.z[1], Place},
           {q.z[2], Place},
           {q.z[3], Place},
           {q.current, Reading},
           {q.potential, Reading},
           {q.resistivity, Reading},
           {0.0F, Quality},
           {0.0F, Quality},
           {q.est, Coordinate},
           {q.nord, Coordinate}}};
}

}  // namespace

void SalvaAscii(FileWriter& out, const SectionRecords& RecordOut, const std::int32_t& NqpBin) {
  out.write(Header);
  std::string line;
  for (std::size_t k = 1; k <= static_cast<std::size_t>(std::max(NqpBin, 0)); ++k) {
    line = " " + std::to_string(k) + " ";
    for (const auto& [value, mask] : Colonne(RecordOut(k))) {
      line += '\t';
      AggiungiNumero(line, static_cast<double>(value), mask);
    }
    out.write(line += "\r\n");
  }
}

void SalvaTraccia(FileWriter& out, const Profile& Profilo, std::int32_t Primo, std::int32_t Ultimo) {
  constexpr Mask mask = "#######0.0#";
  for (std::int32_t p = Primo; p <= Ultimo; ++p) {
    const ProfilePoint& point = Profilo(p);
    PrintLine line;
    line.add(" " + std::to_string(p) + " ");
    for (const double value : {point.est, point.nord, point.prof, point.distanza})
      line.add(FormattaNumero(value, mask));
    out.write(line.text() + "\r\n");
  }
}

}  // namespace corvan
