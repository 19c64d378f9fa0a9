#include "survey/MeasurementText.h"

#include "base/NumberText.h"
#include "base/OleDate.h"
#include "base/PathText.h"

namespace corvan {
namespace {

constexpr Mask Distance = "####0.0";
constexpr Mask Depth = "###0.##";

/// File, time and position: what all labels of a measurement begin with.
std::string Inizio(const Survey& survey, const Misura& m) {
  constexpr Mask angle = "###00.######";
  const std::string file = PercorsoDi(FileDi(survey, m)).filename().string();
  std::string when;
  if (TempoValido(m.Tempo)) {
    const DateTime date = DaGiorni(m.Tempo);
    when = TestoData(date) + " " + TestoOra(date);
  }
  return "File." + file + " Data. " + when + " Lg." + FormattaNumero(m.Lon, angle) + " Lt." +
         FormattaNumero(m.Lat, angle);
}

}  // namespace

std::string FileDi(const Survey& survey, const Misura& m) {
  const FileSummary* file = survey.fileDi(m);
  return file == nullptr ? std::string() : file->path.string();
}

std::string NomeLinea(const Survey& survey, const Misura& m) {
  const std::string name = PercorsoDi(FileDi(survey, m)).filename().string();
  return m.Linea == 0 ? name : name + ", line " + std::to_string(m.Linea);
}

std::string DescriviMisura(const Survey& survey, std::size_t k) {
  const Misura& m = survey.Misure(k);
  return Inizio(survey, m) + " D.Prog. " + FormattaNumero(m.Distanza, Distance);
}

std::string DescriviFondo(const Survey& survey, std::size_t k) {
  const Misura& m = survey.Misure(k);
  return Inizio(survey, m) + " Dpt. " + FormattaNumero(static_cast<double>(m.Val12), Depth);
}

std::string DescriviFix(const Survey& survey, std::size_t k) {
  constexpr Mask position = "#####00.##";
  const PuntoGPSEst& fix = survey.tracciaEst.PuntiGPSEst(k);
  return " GPS: " + std::to_string(k) + " Lg." + FormattaNumero(fix.GeoB, position) + " Lt." +
         FormattaNumero(fix.GeoA, position) + " D.Prog. " + FormattaNumero(fix.Progressiva, Distance) +
         " Depth: " + FormattaNumero(fix.Prof, Depth);
}

}  // namespace corvan
