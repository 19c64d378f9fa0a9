#include "survey/MeasurementText.h"

#include "base/NumberText.h"
#include "base/OleDate.h"

namespace corvan {

std::string DescriviMisura(const Survey& survey, std::size_t k) {
  constexpr Mask angle = "###00.######";
  const Misura& m = survey.Misure(k);
  const auto ordinal = static_cast<std::size_t>(m.NumFile);
  const std::string file =
      ordinal >= 1 && ordinal <= survey.files.size() ? survey.files[ordinal - 1].path.filename().string() : "";
  std::string when;
  if (TempoValido(m.Tempo)) {
    const DateTime date = DaGiorni(m.Tempo);
    when = TestoData(date) + " " + TestoOra(date);
  }
  return "File." + file + " Data. " + when + " Lg." + FormattaNumero(m.Lon, angle) + " Lt." +
         FormattaNumero(m.Lat, angle) + " D.Prog. " + FormattaNumero(m.Distanza, "####0.0");
}

}  // namespace corvan
