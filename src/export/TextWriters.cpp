#include "export/TextWriters.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "base/NumberText.h"
#include "base/Text.h"

namespace corvan {
namespace {

struct Column {
  const char* name;
  Campo<float> field;
  Mask mask;
};

constexpr Mask Place = "#####0.##";
constexpr Mask Reading = "####0.##";
constexpr Mask Quality = "###0.##";
constexpr Mask Coordinate = "#########.0#";

// The table's columns behind the ordinal. Current stands before potential and quality before chargeability, other than
// in the record: programs that read these tables expect it so.
constexpr std::array Columns{Column{"Ax", campo::R16, Place},
                             Column{"Bx", campo::R20, Place},
                             Column{"Mx", campo::PosM, Place},
                             Column{"Nx", campo::PosN, Place},
                             Column{"Ay", campo::YA, Place},
                             Column{"By", campo::YB, Place},
                             Column{"My", campo::YM, Place},
                             Column{"Ny", campo::YN, Place},
                             Column{"Az", campo::R48, Place},
                             Column{"Bz", campo::ZB, Place},
                             Column{"Mz", campo::ZM, Place},
                             Column{"Nz", campo::ZN, Place},
                             Column{"i", campo::R72, Reading},
                             Column{"v", campo::R68, Reading},
                             Column{"Rho", campo::R76, Reading},
                             Column{"q", campo::Qualita, Quality},
                             Column{"m", campo::Caricabilita, Quality},
                             Column{"UTMx", campo::GpsEst, Coordinate},
                             Column{"UTMy", campo::GpsNord, Coordinate}};

}  // namespace

void SalvaAscii(FileWriter& out, const Array1<RecordSyscalPro>& RecordOut, const std::int32_t& NqpBin) {
  std::string line = "N.";
  for (const Column& column : Columns) line.append("\t").append(column.name);
  out.write(line + "\r\n");
  for (std::size_t k = 1; k <= static_cast<std::size_t>(std::max(NqpBin, 0)); ++k) {
    const RecordSyscalPro& record = RecordOut(k);
    line = " " + std::to_string(k) + " ";
    for (const Column& column : Columns) {
      line += '\t';
      AggiungiNumero(line, static_cast<double>(record.leggi(column.field)), column.mask);
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
